#!/usr/bin/env python3
"""Makes the data, runs every contender of every row in turn, prints the ratios as Markdown.

Contenders take turns round by round, each in a process of its own. A ratio compares the best rounds, in
processor time: the clock is no help on a machine that others use.
"""

import argparse
import json
import os
import pathlib
import platform
import shutil
import subprocess
import sys
import time

import plot
import ratios

PEERS = ["admesh", "assimp", "cgal", "meshio-gmsh", "meshio-medit", "openmesh", "tinyobjloader", "vtk"]
NOT_CONTENDERS = ["table_data", "table_nothingCore", "table_nothingGui"]
ROUND_MILLISECONDS = 250  # that a contender works in one round, if once and again are not longer
START_UPS = 20  # programs started in one round
COMPLAINTS = []


def make_data(folder, facets, build):
    """The files of one size, made once."""
    done = folder / "done"
    if done.exists():
        return
    print(f"making files of {facets} facets", file=sys.stderr)
    folder.mkdir(parents=True, exist_ok=True)
    for name in ("scan.stl", "colors.ply"):
        subprocess.run([build / "tools/surfaceio", "sample", "--force", "--quiet", "--facets", str(facets),
                        folder / name], check=True)
    subprocess.run([build / "benchmarks/table_data", folder, str(facets)], check=True)
    facet = "facet normal 0 0 1\nouter loop\nvertex 0 0 {0}\nvertex 1 0 {0}\nvertex 0 1 {0}\nendloop\nendfacet\n"
    (folder / "small.stl").write_text("solid small\n" + "".join(map(facet.format, range(11))) + "endsolid small\n")
    done.touch()


class Contender:
    """A program that knows some rows."""

    def __init__(self, name, command):
        self.name = name
        self.command = command
        listed = subprocess.run(command, capture_output=True, text=True, check=False)
        self.rows = listed.stdout.split() if listed.returncode == 0 else []

    def measure(self, row, folder):
        """What the program printed, and the bytes of a file that it wrote; None when it failed."""
        done = subprocess.run([*self.command, row, folder, str(ROUND_MILLISECONDS)], capture_output=True, text=True,
                              check=False)
        written = 0
        for file in (*folder.glob("out.*"), *folder.glob("floor.*")):
            written = max(written, file.stat().st_size)
            file.unlink()
        if done.returncode != 0 or not done.stdout.strip():
            return None
        measured = json.loads(done.stdout.splitlines()[-1])
        return {**measured, "bytes": written} if written else measured


class StartUp:
    """A program that is over at once, timed as a whole."""

    rows = ["start-up"]

    def __init__(self, name, command):
        self.name = name
        self.command = command

    def measure(self, _row, folder):
        """As Contender.measure."""
        measured = {"clock": [], "processor": [], "peak": 0, "vertices": 0, "facets": 0, "lacks": ""}
        for _ in range(START_UPS):
            start = time.perf_counter()
            with subprocess.Popen([*self.command, folder / "small.stl"], stdout=subprocess.DEVNULL) as process:
                _, status, used = os.wait4(process.pid, 0)
                process.returncode = os.waitstatus_to_exitcode(status)
            if process.returncode != 0:
                return None
            measured["clock"].append(1e3 * (time.perf_counter() - start))
            measured["processor"].append(1e3 * (used.ru_utime + used.ru_stime))
            measured["peak"] = max(measured["peak"], used.ru_maxrss)
        return measured


def python_with(module):
    """The first Python that has a module; None if there is none."""
    for python in (sys.executable, "/usr/bin/python3"):
        if subprocess.run([python, "-c", f"import {module}"], capture_output=True, check=False).returncode == 0:
            return python
    return None


def contenders(build):
    """All that are there."""
    programs = build / "benchmarks"
    found = [Contender(path.name.removeprefix("table_"), [path]) for path in sorted(programs.glob("table_*"))
             if path.is_file() and not path.suffix and path.name not in NOT_CONTENDERS]
    python = python_with("meshio")
    if python:
        peer = pathlib.Path(__file__).with_name("meshio_peer.py")
        found += [Contender(f"meshio-{kind}", [python, peer, kind]) for kind in ("medit", "gmsh")]
    found += [StartUp("ours", [build / "tools/surfaceio", "info"]), StartUp("floor", [programs / "table_nothingCore"]),
              StartUp("empty Qt Gui", [programs / "table_nothingGui"])]
    return [contender for contender in found if contender.rows]


def complain(text):
    """A number that nobody should believe is left out, and the run fails in the end."""
    print(text, file=sys.stderr)
    COMPLAINTS.append(text)


def measure_row(row, folder, taking_part, options):
    """Per contender its measurements, one for each round; contenders take turns. A peer that has used up its
    seconds sits out of the rounds that are left."""
    results = {contender.name: [] for contender in taking_part}
    spent = dict.fromkeys(results, 0.0)
    for _ in range(options.rounds):
        for contender in taking_part:
            is_out = contender.name in PEERS and spent[contender.name] > options.peer_seconds
            if results[contender.name] is None or is_out:
                continue
            measured = contender.measure(row, folder)
            if measured is None:
                complain(f"{contender.name} failed at {row}")
                results[contender.name] = None
                continue
            spent[contender.name] += sum(measured["processor"]) / 1e3
            results[contender.name].append(measured)
    return believed(row, {name: measured for name, measured in results.items() if measured})


def believed(row, results):
    """Without those that did less than they say."""
    kept = dict(results)
    for name, measured in results.items():
        wrong = ratios.flaw(measured[0], results["ours"][0]) if "ours" in results else None
        if wrong:
            complain(f"{name} is left out of {row}: {wrong}")
            del kept[name]
    return kept


def summary_of(row, folder, everybody, options):
    """Measures a row at one size."""
    facets = int(folder.name)
    taking_part = [one for one in everybody if row in one.rows
                   and (one.name not in PEERS or facets <= options.peers_up_to)]
    print(f"{facets} {row}", file=sys.stderr)
    file_bytes = sum((folder / name).stat().st_size for name in ratios.FILES.get(row, []))
    return ratios.summary(row, measure_row(row, folder, taking_part, options), file_bytes)


def versions():
    """Of the peers as packages, where there is dpkg."""
    packages = ["libassimp5", "libvtk9.1", "libopenmesh1", "libcgal-dev", "libtinyobjloader-dev",
                "libmeshoptimizer2d", "libadmesh1", "python3-meshio", "libqt6core6", "g++-12"]
    if not shutil.which("dpkg-query"):
        return {}
    listed = subprocess.run(["dpkg-query", "-W", "-f", "${Package} ${Version}\n", *packages], capture_output=True,
                            text=True, check=False)
    return dict(entry.split(" ", 1) for entry in listed.stdout.splitlines() if " " in entry)


def machine():
    """Where the numbers come from."""
    model = next((entry.split(":")[1].strip() for entry in pathlib.Path("/proc/cpuinfo").read_text().splitlines()
                  if entry.startswith("model name")), platform.processor())
    return {"processor": model, "processors": os.cpu_count(), "system": platform.platform(),
            "versions": versions(), "date": time.strftime("%Y-%m-%d")}


def parse():
    """The command line."""
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--build", type=pathlib.Path, required=True, help="build folder of the bench preset")
    parser.add_argument("--data", type=pathlib.Path, required=True, help="folder for the files that are read")
    parser.add_argument("--sizes", type=int, nargs="+", default=[100_000, 1_000_000, 4_000_000])
    parser.add_argument("--quick", action="store_true", help="100 000 facets only, three rounds")
    parser.add_argument("--rounds", type=int, default=5)
    parser.add_argument("--rows", nargs="+", choices=ratios.TARGETS, default=list(ratios.TARGETS))
    parser.add_argument("--only", nargs="+", help="contenders to run, such as ours and floor")
    parser.add_argument("--peers-up-to", type=int, default=1_000_000, metavar="FACETS",
                        help="leave other libraries out of larger sizes")
    parser.add_argument("--peer-seconds", type=float, default=5, help="for a peer in a row; one round is the least")
    parser.add_argument("--json", type=pathlib.Path, help="write all measurements there")
    parser.add_argument("--plot", type=pathlib.Path, help="write a plot of time against size there (SVG or PNG)")
    parser.add_argument("--show", type=pathlib.Path, nargs="+", metavar="JSON",
                        help="measure nothing: the tables and the plot of earlier runs")
    options = parser.parse_args()
    if options.quick:
        options.sizes, options.rounds = [100_000], 3
    return options


def taking_part_of(options):
    """The contenders of this run; says who is missing."""
    found = contenders(options.build)
    for name in sorted(set(PEERS) - {one.name for one in found}):
        print(f"{name} is not installed and left out", file=sys.stderr)
    return [one for one in found if not options.only or one.name in options.only]


def print_table(title, lines):
    """With its title."""
    print("\n".join(["", f"### {title}", "", *lines]), flush=True)


def save(path, all_rows, load):
    """All measurements so far: a run may be long, and is worth something when it is cut short."""
    found = {"machine": machine(), "load": load, "rows": all_rows}
    path.write_text(json.dumps(found, indent=1) + "\n", encoding="utf-8")


def load_rows(paths):
    """The rows of earlier runs, by size; a later file wins."""
    all_rows = {}
    for path in paths:
        for facets, rows in json.loads(path.read_text(encoding="utf-8"))["rows"].items():
            all_rows.setdefault(int(facets), {}).update(rows)
    return dict(sorted(all_rows.items()))


def measure(options):
    """Runs all sizes and rows."""
    everybody = taking_part_of(options)
    load = {"before": os.getloadavg()}
    all_rows = {}
    for facets in options.sizes:
        folder = options.data / str(facets)
        make_data(folder, facets, options.build)
        all_rows[facets] = {}
        for row in options.rows:
            all_rows[facets][row] = summary_of(row, folder, everybody, options)
            load["after"] = os.getloadavg()
            if options.json:
                save(options.json, all_rows, load)
    return all_rows


def main():
    """Runs all; 1 when a contender failed or did less than it should."""
    options = parse()
    all_rows = load_rows(options.show) if options.show else measure(options)
    for facets, rows in all_rows.items():
        print_table(f"Time at {facets} facets", ratios.time_table(rows))
        print_table(f"Peak memory at {facets} facets", ratios.memory_table(rows))
    if len(all_rows) > 1:
        print_table("Time for a facet", ratios.growth_table(all_rows))
    print_table("What peers leave out (*)", ratios.lacks_lines(all_rows))
    if options.plot:
        plot.draw(all_rows, options.plot)
    return 1 if COMPLAINTS else 0


if __name__ == "__main__":
    sys.exit(main())
