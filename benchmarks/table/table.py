#!/usr/bin/env python3
"""Makes the data, runs every contender of every row in interleaved rounds, prints the ratios.

A ratio compares two contenders within one round, of processor time; the table shows the median over the
rounds. The clock is no help on a machine that others use, and only ratios of one round survive its drift.
"""

import argparse
import json
import pathlib
import platform
import shutil
import statistics
import subprocess
import sys
import time

# Row: at most this many times the floor; at least this many times faster than a peer. None: no target.
TARGETS = {
    "ply-read": (2.0, {"vtk": 12, "assimp": 13}),
    "ply-read-bytes": (2.0, {}),
    "ply-write": (1.6, {"vtk": 4}),
    "stl-read": (1.6, {"vtk": 4.5, "admesh": 2.2}),
    "stl-read-shuffled": (None, {}),
    "stl-read-32-tags": (1.8, {}),
    "stl-read-alternating": (3.0, {}),
    "stl-read-ascii": (1.5, {"vtk": 3.5, "assimp": 1.2}),
    "stl-write": (1.6, {"vtk": 4}),
    "obj-read-positions": (None, {}),
    "obj-read-split": (1.5, {"vtk": 9, "assimp": 6.5}),
    "obj-texture-colors": (1.5, {}),
    "obj-atlas": (2.0, {}),
    "vmesh-read": (1.5, {"meshio": 10}),
    "conditions-read": (2.0, {}),
    "conditions-write": (2.0, {}),
    "tree-read": (2.0, {}),
    "tree-write": (2.0, {}),
    "array-read": (2.0, {}),
    "array-write": (2.0, {}),
}


def make_data(folder, facets, tool, maker):
    """The files of one size, made once."""
    done = folder / "done"
    if done.exists():
        return
    folder.mkdir(parents=True, exist_ok=True)
    for name in ("scan.stl", "colors.ply"):
        subprocess.run([tool, "sample", "--force", "--quiet", "--facets", str(facets), folder / name], check=True)
    subprocess.run([maker, folder, str(facets)], check=True)
    done.touch()


class Contender:
    """A program that knows some rows."""

    def __init__(self, name, command):
        self.name = name
        self.command = command
        listed = subprocess.run(command, capture_output=True, text=True, check=False)
        self.rows = listed.stdout.split() if listed.returncode == 0 else []

    def measure(self, row, folder):
        """Milliseconds of the processor and by the clock, peak in kB; None when it failed."""
        done = subprocess.run([*self.command, row, folder, "2"], capture_output=True, text=True, check=False)
        for trash in (*folder.glob("out.*"), *folder.glob("floor.*")):
            trash.unlink()
        if done.returncode != 0 or not done.stdout.strip():
            return None
        result = json.loads(done.stdout.splitlines()[-1])
        return min(result["processor"]), min(result["clock"]), result["peak"]


class Admesh:
    """ADMesh as a program: reading and merging what is exactly equal, start and end of the program included."""

    name = "admesh"
    rows = ["stl-read", "stl-read-shuffled"]

    @staticmethod
    def measure(row, folder):
        """As Contender.measure, of the whole process."""
        file = folder / ("scan.stl" if row == "stl-read" else "shuffled.stl")
        script = (
            "import resource, subprocess, sys, time; start = time.monotonic();"
            "subprocess.run(['admesh', '-e', sys.argv[1]], stdout=subprocess.DEVNULL, check=True);"
            "use = resource.getrusage(resource.RUSAGE_CHILDREN);"
            "print(1e3 * (use.ru_utime + use.ru_stime), 1e3 * (time.monotonic() - start), use.ru_maxrss)"
        )
        done = subprocess.run([sys.executable, "-c", script, file], capture_output=True, text=True, check=False)
        return tuple(map(float, done.stdout.split())) if done.returncode == 0 else None


def contenders(build):
    """All that are there; a peer that is not installed is left out."""
    found = [Contender(path.name.removeprefix("table_"), [path]) for path in sorted(build.glob("benchmarks/table_*"))
             if path.is_file() and path.name != "table_data" and not path.suffix]
    found.append(Contender("meshio", [sys.executable, pathlib.Path(__file__).with_name("meshio_peer.py")]))
    if shutil.which("admesh"):
        found.append(Admesh())
    return [contender for contender in found if contender.rows]


def measure_row(row, folder, all_contenders, rounds):
    """Per contender its measurements, one for each round; contenders take turns."""
    taking_part = [contender for contender in all_contenders if row in contender.rows]
    results = {contender.name: [] for contender in taking_part}
    for _ in range(rounds):
        for contender in taking_part:
            if results[contender.name] is None:
                continue
            measured = contender.measure(row, folder)
            if measured is None:
                print(f"{contender.name} failed at {row}", file=sys.stderr)
                results[contender.name] = None
            else:
                results[contender.name].append(measured)
    return {name: measured for name, measured in results.items() if measured}


def ratio(results, above, below):
    """The median over the rounds; None when one of the two is not there."""
    if above not in results or below not in results:
        return None
    return statistics.median(a[0] / b[0] for a, b in zip(results[above], results[below]))


def summary_of(row, results):
    """What is printed of a row."""
    return {
        "milliseconds": {name: statistics.median(one[0] for one in all_) for name, all_ in results.items()},
        "peak kB": {name: max(one[2] for one in all_) for name, all_ in results.items()},
        "times floor": ratio(results, "ours", "floor"),
        "times faster than": {name: ratio(results, name, "ours") for name in results if name not in ("ours", "floor")},
        "target": TARGETS[row],
    }


def is_met(summary):
    """Whether the targets that could be measured are met; None without any."""
    floor, peers = summary["target"]
    verdicts = []
    if floor and summary["times floor"]:
        verdicts.append(summary["times floor"] <= floor)
    for peer, least in peers.items():
        if peer in summary["times faster than"]:
            verdicts.append(summary["times faster than"][peer] >= least)
    return all(verdicts) if verdicts else None


def print_table(facets, rows):
    """Markdown, as docs/performance.md has it."""
    print(f"\n{facets} facets\n")
    print("| row | ours ms | × floor | at most | faster than | peak MB ours / floor | met |")
    print("|---|---|---|---|---|---|---|")
    for row, summary in rows.items():
        if "ours" not in summary["milliseconds"]:
            continue
        floor, least = summary["target"]
        peers = ", ".join(
            f"{name} {value:.1f}" + (f" (≥ {least[name]})" if name in least else "")
            for name, value in sorted(summary["times faster than"].items())
        )
        peaks = " / ".join(f"{summary['peak kB'].get(name, 0) / 1024:.0f}" for name in ("ours", "floor"))
        times = f"{summary['times floor']:.2f}" if summary["times floor"] else ""
        verdict = {True: "yes", False: "no", None: ""}[is_met(summary)]
        print(f"| {row} | {summary['milliseconds']['ours']:.1f} | {times} | {floor or ''} | {peers} | {peaks} | {verdict} |")


def plot(all_rows, path):
    """Processor time against size, of ours and the floor."""
    if not shutil.which("gnuplot"):
        print("gnuplot is not installed: no plot", file=sys.stderr)
        return
    rows = [row for row in ("ply-read", "stl-read", "stl-read-ascii", "obj-read-split", "stl-write", "vmesh-read")]
    blocks = []
    for row in rows:
        lines = [f"{facets} {of_size[row]['milliseconds']['ours']}" for facets, of_size in sorted(all_rows.items())
                 if row in of_size]
        blocks.append(f"$data{len(blocks)} << EOD\n" + "\n".join(lines) + "\nEOD")
    curves = ", ".join(f"$data{i} using 1:2 with linespoints title '{row}'" for i, row in enumerate(rows))
    script = "\n".join(blocks) + f"""
set terminal svg size 800,500 background 'white'
set output '{path}'
set logscale xy
set xlabel 'facets'
set ylabel 'milliseconds of processor time'
set key left top
set grid
plot {curves}
"""
    subprocess.run(["gnuplot"], input=script, text=True, check=True)


def machine():
    """Where the numbers come from."""
    model = next((line.split(":")[1].strip() for line in pathlib.Path("/proc/cpuinfo").read_text().splitlines()
                  if line.startswith("model name")), platform.processor())
    return {"processor": model, "system": platform.platform(), "date": time.strftime("%Y-%m-%d")}


def main():
    """The command line."""
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--build", type=pathlib.Path, required=True, help="build folder of the bench preset")
    parser.add_argument("--data", type=pathlib.Path, required=True, help="folder for the files that are read")
    parser.add_argument("--sizes", type=int, nargs="+", default=[100_000, 1_000_000, 4_000_000])
    parser.add_argument("--quick", action="store_true", help="100 000 facets only, three rounds")
    parser.add_argument("--rounds", type=int, default=5)
    parser.add_argument("--rows", nargs="+", choices=TARGETS, default=list(TARGETS))
    parser.add_argument("--only", nargs="+", help="contenders to run, such as ours and floor")
    parser.add_argument("--json", type=pathlib.Path, help="write all measurements there")
    parser.add_argument("--plot", type=pathlib.Path, help="write a plot of time against size there (SVG)")
    options = parser.parse_args()
    if options.quick:
        options.sizes, options.rounds = [100_000], 3

    taking_part = contenders(options.build)
    if options.only:
        taking_part = [contender for contender in taking_part if contender.name in options.only]
    print("contenders:", ", ".join(contender.name for contender in taking_part), file=sys.stderr)
    all_rows = {}
    for facets in options.sizes:
        folder = options.data / str(facets)
        make_data(folder, facets, options.build / "tools/surfaceio", options.build / "benchmarks/table_data")
        all_rows[facets] = {}
        for row in options.rows:
            print(f"{facets} {row}", file=sys.stderr)
            all_rows[facets][row] = summary_of(row, measure_row(row, folder, taking_part, options.rounds))
        print_table(facets, all_rows[facets])
    if options.json:
        options.json.write_text(json.dumps({"machine": machine(), "rows": all_rows}, indent=2) + "\n")
    if options.plot:
        plot(all_rows, options.plot)


if __name__ == "__main__":
    main()
