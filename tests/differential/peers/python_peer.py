#!/usr/bin/env python3
"""Reads and writes mesh files with meshio or Open3D on behalf of a test.

python_peer.py JOBS RESULTS: JOBS is a JSON array of {"program", "verb", "path", ...}. For "load" the result is
the mesh, or null; for "save" (of "mesh", "binary", "format") it is true or false. RESULTS gets a JSON array of them. A mesh
has "vertices", "triangles" and, where there are any, "normals", "colors" (0 to 255).
"""

import json
import sys

import numpy as np

CHANNELS = ("red", "green", "blue", "alpha")


def load_with_meshio(path):
    import meshio

    mesh = meshio.read(path)
    result = {
        "vertices": mesh.points.tolist(),
        "triangles": [row for block in mesh.cells if block.type == "triangle" for row in block.data.tolist()],
    }
    data = mesh.point_data
    if "nx" in data:
        result["normals"] = np.column_stack([data[name] for name in ("nx", "ny", "nz")]).tolist()
    if "red" in data:
        result["colors"] = np.column_stack([data[name] for name in CHANNELS if name in data]).tolist()
    return result


def save_with_meshio(job):
    import meshio

    mesh = job["mesh"]
    data = {}
    if "normals" in mesh:
        normals = np.array(mesh["normals"], dtype=np.float32)
        data.update(zip(("nx", "ny", "nz"), np.ascontiguousarray(normals.T)))
    if "colors" in mesh:
        colors = np.array(mesh["colors"], dtype=np.uint8)
        data.update(zip(CHANNELS, np.ascontiguousarray(colors.T)))
    points = np.array(mesh["vertices"], dtype=job.get("precision", "float32"))
    cells = [("triangle", np.array(mesh["triangles"], dtype=np.int32))]
    options = {"binary": job["binary"]} if job["format"] == "ply" else {}
    meshio.write(job["path"], meshio.Mesh(points, cells, point_data=data), job["format"], **options)
    return True


def load_with_open3d(path):
    import open3d

    mesh = open3d.io.read_triangle_mesh(path)
    if not mesh.has_vertices():
        return None
    result = {"vertices": np.asarray(mesh.vertices).tolist(), "triangles": np.asarray(mesh.triangles).tolist()}
    if mesh.has_vertex_normals():
        result["normals"] = np.asarray(mesh.vertex_normals).tolist()
    if mesh.has_vertex_colors():
        result["colors"] = np.rint(np.asarray(mesh.vertex_colors) * 255).astype(int).tolist()
    return result


def save_with_open3d(job):
    import open3d

    given = job["mesh"]
    mesh = open3d.geometry.TriangleMesh(
        open3d.utility.Vector3dVector(np.array(given["vertices"], dtype=float)),
        open3d.utility.Vector3iVector(np.array(given["triangles"], dtype=np.int32)),
    )
    if "normals" in given:
        mesh.vertex_normals = open3d.utility.Vector3dVector(np.array(given["normals"], dtype=float))
    if "colors" in given:
        colors = np.array(given["colors"], dtype=float)[:, :3]
        mesh.vertex_colors = open3d.utility.Vector3dVector(colors / 255)
    return open3d.io.write_triangle_mesh(job["path"], mesh, write_ascii=not job["binary"])


VERBS = {
    ("meshio", "load"): lambda job: load_with_meshio(job["path"]),
    ("meshio", "save"): save_with_meshio,
    ("open3d", "load"): lambda job: load_with_open3d(job["path"]),
    ("open3d", "save"): save_with_open3d,
}


def run(job):
    try:
        return VERBS[job["program"], job["verb"]](job)
    except Exception as error:  # a peer that refuses a file is a result, whatever it raises
        print(f"{job['program']} {job['verb']} {job['path']}: {error!r}", file=sys.stderr)
        return None


def main():
    with open(sys.argv[1], encoding="utf-8") as jobs:
        results = [run(job) for job in json.load(jobs)]
    with open(sys.argv[2], "w", encoding="utf-8") as out:
        json.dump(results, out)


if __name__ == "__main__":
    main()
