#!/usr/bin/env python3
"""What survives when a program opens a scan and saves it again in the same format.

    docs/roundtrip.py SURFACEIO            prints the table
    docs/roundtrip.py SURFACEIO README.md  compares it with the table in that file (77 when a program is missing)

Every cell is measured: the files are written here, saved again by each program with its own default options (binary
where it can), and looked at by the small parsers below. The programs come from Debian: assimp-utils, python3-meshio,
python3-open3d, meshlab and xvfb.
"""
import os
import pathlib
import re
import shutil
import struct
import subprocess
import sys
import tempfile

MISSING = 77
TYPES = {"char": "b", "uchar": "B", "short": "h", "ushort": "H", "int": "i", "uint": "I", "float": "f", "double": "d",
         "int8": "b", "uint8": "B", "int16": "h", "uint16": "H", "int32": "i", "uint32": "I", "float32": "f",
         "float64": "d"}

# How each program opens the first file and saves it as the second.
MESHIO = "import meshio, sys; meshio.read(sys.argv[1]).write(sys.argv[2], binary=True)"
OPEN3D = ("import open3d, sys; mesh = open3d.io.read_triangle_mesh(sys.argv[1]); "
          "assert mesh.has_triangles(); sys.argv[2].endswith('stl') and mesh.compute_vertex_normals(); "
          "sys.exit(not open3d.io.write_triangle_mesh(sys.argv[2], mesh))")


def programs(surfaceio):
    def ours(source, target):
        if target.endswith(".stl"):
            return [surfaceio, "tags", "merge", source, "-o", target]
        return [surfaceio, "convert", "--alpha", source, target]

    def assimp(source, target):
        # Its binary PLY announces colours of one byte and writes four: nobody reads them again. So ASCII.
        return ["assimp", "export", source, target, "-fstlb" if target.endswith(".stl") else "-fply"]

    def meshlab(source, target):
        return ["xvfb-run", "-a", "meshlabserver", "-i", source, "-o", target, "-m", "vn", "vc", "vt"]

    def python(code):
        return lambda source, target: ["/usr/bin/python3", "-c", code, source, target]

    return {"SurfaceIO": ours, "Assimp": assimp, "meshio": python(MESHIO), "MeshLab": meshlab,
            "Open3D": python(OPEN3D)}


def is_there(name):
    needed = {"SurfaceIO": [], "Assimp": ["assimp"], "MeshLab": ["meshlabserver", "xvfb-run"]}
    if name in needed:
        return all(shutil.which(program) for program in needed[name])
    return subprocess.run(["/usr/bin/python3", "-c", "import " + name.lower()], check=False,
                          capture_output=True).returncode == 0


def read_stl(path):
    """The header, and for each facet nine coordinates and the attribute word."""
    data = pathlib.Path(path).read_bytes()
    count = struct.unpack_from("<I", data, 80)[0]
    assert len(data) == 84 + 50 * count
    facets = [struct.unpack_from("<9f", data, 84 + 50 * i + 12) for i in range(count)]
    return {"header": data[:80], "facets": facets, "tags": [data[84 + 50 * i + 48:84 + 50 * i + 50] for i in range(count)]}


def split_ply(data):
    head, body = re.match(rb"(ply.*?end_header\r?\n)(.*)", data, re.DOTALL).groups()
    lines = head.decode("utf-8", "replace").splitlines()
    elements = []
    for words in (line.split() for line in lines):
        if words[0] == "element":
            elements.append((words[1], int(words[2]), []))
        elif words[0] == "property":
            elements[-1][2].append(words[1:])
    return lines, elements, body


def read_ply(path):
    """The header's lines, and the rows of each element as dictionaries."""
    lines, elements, body = split_ply(pathlib.Path(path).read_bytes())
    order = ">" if any("big_endian" in line for line in lines) else "<"
    text = iter(body.split()) if any("ascii" in line for line in lines) else None
    offset = 0

    def take(kind):
        nonlocal offset
        if text is not None:
            word = next(text)
            return float(word) if TYPES[kind] in "fd" else int(word)
        value = struct.unpack_from(order + TYPES[kind], body, offset)[0]
        offset += struct.calcsize(TYPES[kind])
        return value

    rows = {}
    for name, count, properties in elements:
        rows[name] = []
        for _ in range(count):
            row = {}
            for prop in properties:
                row[prop[-1]] = [take(prop[2]) for _ in range(take(prop[1]))] if prop[0] == "list" else take(prop[0])
            rows[name].append(row)
    return {"lines": lines, "rows": rows}


def values(ply, names):
    """For each place the values of its vertex; the names are alternatives, each a list of properties."""
    for alternative in names:
        if all(name in ply["rows"]["vertex"][0] for name in alternative):
            return {tuple(round(v[axis], 4) for axis in "xyz"): [v[name] for name in alternative]
                    for v in ply["rows"]["vertex"]}
    return None


def verdict(before, after):
    """Of two equal-shaped lists of numbers."""
    if before == after:
        return "yes"
    near = len(before) == len(after) and all(abs(a - b) <= 1e-5 * max(1, abs(a)) for a, b in zip(before, after))
    return "rounded" if near else "no"


def of_vertices(names):
    def look(before, after):
        old, new = values(before, names), values(after, names)
        if new is None or old.keys() != new.keys():
            return "no"
        return verdict(*([number for place in sorted(old) for number in found[place]] for found in (old, new)))
    return look


def corners(ply):
    faces = [next(value for value in row.values() if isinstance(value, list)) for row in ply["rows"]["face"]]
    vertex = ply["rows"]["vertex"]
    return [vertex[index][axis] for face in faces for index in face for axis in "xyz"]


def ply_coordinates(before, after):
    return verdict(corners(before), corners(after))


def ply_material(before, after):
    return "yes" if before["rows"]["velquin_material"] == after["rows"].get("velquin_material") else "no"


def comments_with(word):
    def look(before, after):
        lines = [line for line in before["lines"] if line.startswith("comment") and word in line]
        return "yes" if lines and all(line in after["lines"] for line in lines) else "no"
    return look


def stl_coordinates(before, after):
    flat = [[number for facet in found["facets"] for number in facet] for found in (before, after)]
    if sorted(before["facets"]) == sorted(after["facets"]) and flat[0] != flat[1]:
        return "reordered"
    return verdict(*flat)


def same(key):
    return lambda before, after: "yes" if before[key] == after[key] else "no"


ROWS = [
    ("STL: every facet, bit for bit", "scan.stl", stl_coordinates),
    ("STL: facet tags", "scan.stl", same("tags")),
    ("STL: scan metadata", "scan.stl", same("header")),
    ("PLY: every triangle, bit for bit", "full.ply", ply_coordinates),
    ("PLY: normals", "full.ply", of_vertices([["nx", "ny", "nz"]])),
    ("PLY: vertex colours", "full.ply", of_vertices([["red", "green", "blue"]])),
    ("PLY: alpha of the colours", "full.ply", of_vertices([["alpha"]])),
    ("PLY: material record", "material.ply", ply_material),
    ("PLY: scan metadata", "full.ply", comments_with(":")),
    ("PLY: texture coordinates", "textured.ply", of_vertices([["s", "t"], ["u", "v"], ["texture_u", "texture_v"]])),
    ("PLY: name of the texture", "textured.ply", comments_with("TextureFile")),
]


METADATA = ["comment scan information", "comment scanner name: ArchScan", "comment scanner serial: 4711",
            "comment imported: 0", "comment software version: 1.2", "comment acquisition date: 2024-05-17"]


def write_octahedron(path, extra):
    """Eight triangles, with all that a vertex can have; `extra` is texture coordinates or colours."""
    places = [(a * 10.1, b * 10.1, c * 10.1) for a, b, c in
              [(1, 0, 0), (0, 1, 0), (0, 0, 1), (-1, 0, 0), (0, -1, 0), (0, 0, -1)]]
    faces = [(0, 1, 2), (1, 3, 2), (3, 4, 2), (4, 0, 2), (1, 0, 5), (3, 1, 5), (4, 3, 5), (0, 4, 5)]
    header = ["ply", "format binary_little_endian 1.0"]
    header += ["comment TextureFile skin.png"] if extra == "texture" else METADATA
    header += ["element vertex 6"] + ["property float " + name for name in ("x", "y", "z", "nx", "ny", "nz")]
    if extra == "texture":
        header += ["property float s", "property float t"]
    else:
        header += ["property uchar " + name for name in ("red", "green", "blue", "alpha")]
    header += ["element face 8", "property list uchar int vertex_indices", "end_header", ""]
    body = b""
    for i, place in enumerate(places):
        body += struct.pack("<6f", *place, *(value / 10.1 for value in place))
        body += struct.pack("<2f", i / 6, 1 - i / 7) if extra == "texture" else bytes([10 * i, 20 * i, 30 * i, 200 + i])
    body += b"".join(struct.pack("<B3i", 3, *face) for face in faces)
    pathlib.Path(path).write_bytes("\n".join(header).encode() + body)


def make_files(surfaceio):
    def run(*arguments):
        subprocess.run([surfaceio, *arguments], check=True)

    run("sample", "scan.stl", "--facets", "2000")
    write_octahedron("full.ply", "colours")
    write_octahedron("textured.ply", "texture")
    run("convert", "full.ply", "material.ply", "--alpha", "--material", "metal")


def saved_again(command, name, folder):
    """The file as the program saved it, parsed; None when it could not."""
    target = os.path.join(folder, name)
    environment = dict(os.environ, QT_QPA_PLATFORM="offscreen")
    done = subprocess.run(command(name, target), check=False, capture_output=True, env=environment, timeout=120)
    if done.returncode != 0 or not os.path.exists(target):
        return None
    try:
        return (read_stl if name.endswith(".stl") else read_ply)(target)
    except (AssertionError, AttributeError, KeyError, struct.error):
        return None


def column(name, command):
    os.mkdir(name)
    files = {row[1]: None for row in ROWS}
    for file in files:
        files[file] = saved_again(command, file, name)
    cells = []
    for _, file, look in ROWS:
        before = (read_stl if file.endswith(".stl") else read_ply)(file)
        cells.append("fails" if files[file] is None else look(before, files[file]))
    return cells


def table(columns):
    lines = ["| survives | " + " | ".join(columns) + " |", "|---" * (len(columns) + 1) + "|"]
    for i, row in enumerate(ROWS):
        lines.append(f"| {row[0]} | " + " | ".join(cells[i] for cells in columns.values()) + " |")
    return "\n".join(lines)


def main():
    surfaceio = os.path.abspath(sys.argv[1])
    page = pathlib.Path(sys.argv[2]).read_text(encoding="utf-8") if len(sys.argv) > 2 else None
    columns = {}
    missing = []
    with tempfile.TemporaryDirectory() as folder:
        os.chdir(folder)
        make_files(surfaceio)
        for name, command in programs(surfaceio).items():
            if is_there(name):
                columns[name] = column(name, command)
            elif page is None or f" {name} |" in page:
                missing.append(name)
        os.chdir("/")
    found = table(columns)
    print(found)
    for name in missing:
        print(f"{name} is not installed", file=sys.stderr)
    if page is None or found in page:
        return 0
    return MISSING if missing else 1


if __name__ == "__main__":
    sys.exit(main())
