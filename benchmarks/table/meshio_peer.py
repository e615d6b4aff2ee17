#!/usr/bin/env python3
"""meshio as a contender. It has no ".vmesh": the same points, faces and tetrahedra in a text format that it has
stand in for it, Medit's, which it reads fastest, or Gmsh's.

Usage: meshio_peer.py medit|gmsh [ROW FOLDER MILLISECONDS]
"""

import contextlib
import json
import pathlib
import resource
import sys
import time

import meshio

ROWS = ["vmesh-read"]


def file_of(folder, kind):
    """The volume as Medit text, or as Gmsh text, which is written here once."""
    medit = folder / "box.mesh"
    if kind == "medit":
        return medit
    gmsh = folder / "box.msh"
    if not gmsh.exists():
        with contextlib.redirect_stdout(sys.stderr):
            mesh = meshio.read(medit)
            tags = mesh.cell_data["medit:ref"]
            tagged = meshio.Mesh(mesh.points, mesh.cells, cell_data={"gmsh:physical": tags, "gmsh:geometrical": tags})
            meshio.write(gmsh, tagged, file_format="gmsh22", binary=False)
    return gmsh


def count(mesh, kind):
    """How many cells of a kind there are."""
    return sum(len(cells.data) for cells in mesh.cells if cells.type == kind)


def main():
    """As the other programs: without arguments the rows, else one line of JSON."""
    if len(sys.argv) != 5:
        print("\n".join(ROWS))
        return
    path = file_of(pathlib.Path(sys.argv[3]), sys.argv[1])
    before = resource.getrusage(resource.RUSAGE_SELF).ru_maxrss
    clock, processor, left = [], [], float(sys.argv[4])
    while len(clock) < 2 or left > 0:
        start, start_processor = time.perf_counter(), time.process_time()
        with contextlib.redirect_stdout(sys.stderr):
            mesh = meshio.read(path)
        clock.append(1e3 * (time.perf_counter() - start))
        processor.append(1e3 * (time.process_time() - start_processor))
        left -= clock[-1]
        if len(clock) == 1:
            peak = resource.getrusage(resource.RUSAGE_SELF).ru_maxrss - before
    print(json.dumps({"clock": clock, "processor": processor, "peak": peak, "vertices": len(mesh.points),
                      "facets": count(mesh, "tetra"), "lacks": "which tetrahedra a face lies between"}))


main()
