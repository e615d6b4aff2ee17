#!/usr/bin/env python3
"""Holds the instructions that each reader and writer takes for an element against those on record.

A program runs every reader and writer over 10 000 and 20 000 facets; callgrind counts, and the difference of
the two, in which start-up cancels, is what an element takes. Instructions, unlike seconds, are the same on a
busy machine; they are not the same for another compiler, Qt or build, where the check is skipped. Fails when a
row takes more than 5 % more than on record.
"""

import argparse
import json
import os
import pathlib
import shutil
import subprocess
import sys

RECORD = pathlib.Path(__file__).with_name("counts.json")
SKIPPED = 77
TOLERANCE = 0.05
SLACK = 1.0  # instructions: of a row that takes hardly any, five percent are nothing

# Libraries choose their code by the processor; these let them choose the same everywhere. Large blocks of memory
# grow in place, or not, by what else is there; blocks of their own always do.
ENVIRONMENT = {
    "QT_HASH_SEED": "0",
    "QT_NO_CPU_FEATURE": "avx avx2 avx512f",
    "QT_QPA_PLATFORM": "offscreen",
    "GLIBC_TUNABLES": "glibc.malloc.mmap_threshold=65536:glibc.cpu.hwcaps=-AVX2,-AVX512F,-AVX512VL,-AVX_Fast_Unaligned_Load,-ERMS,-FSRM",
    "LD_BIND_NOW": "1",
    "LC_ALL": "C.UTF-8",
}


class Skip(Exception):
    """Why nothing can be counted here."""


def parse(text):
    """Of a combined callgrind file: instructions by name of dump."""
    counts = {}
    name = None
    for line in text.splitlines():
        if line.startswith("desc: Trigger: Client Request: "):
            name = line.removeprefix("desc: Trigger: Client Request: ").strip()
        elif line.startswith("summary: ") and name:
            counts[name] = int(line.split()[1])
            name = None
    return counts


def per_element(counts):
    """Instructions for one element more, by row."""
    rows = {}
    for name, instructions in counts.items():
        row, elements = name.split()
        rows.setdefault(row, {})[int(elements)] = instructions
    result = {}
    for row, sizes in rows.items():
        small, large = min(sizes), max(sizes)
        if small == large:
            raise ValueError(f"{row} was counted at one size only")
        result[row] = round((sizes[large] - sizes[small]) / (large - small), 1)
    return result


def faults(recorded, found):
    """What is wrong with the rows found, a line each."""
    lines = [f"{row}: not on record; run ./dev counts" for row in sorted(found.keys() - recorded.keys())]
    lines += [f"{row}: on record, but not counted" for row in sorted(recorded.keys() - found.keys())]
    for row in sorted(recorded.keys() & found.keys()):
        if found[row] > max(recorded[row] * (1 + TOLERANCE), recorded[row] + SLACK):
            growth = 100 * (found[row] / max(recorded[row], 0.1) - 1)
            lines.append(f"{row}: {found[row]} instructions for an element, {recorded[row]} on record (+{growth:.1f} %)")
    return lines


def count(program, scratch):
    """Instructions for an element, by row."""
    shutil.rmtree(scratch, ignore_errors=True)
    scratch.mkdir(parents=True)
    output = scratch / "callgrind"
    command = ["setarch", "--addr-no-randomize", "valgrind", "--tool=callgrind", "--collect-atstart=no",
               "--combine-dumps=yes", f"--callgrind-out-file={output}", program, scratch]
    done = subprocess.run(command, capture_output=True, text=True, check=False, env=os.environ | ENVIRONMENT)
    if done.returncode != 0:
        raise RuntimeError(f"{program} failed\n{done.stdout}{done.stderr}")
    return per_element(parse(output.read_text()))


def check_tools(program):
    """Raises Skip where there is nothing to count with."""
    if not program:
        raise Skip("valgrind's headers are not installed, or this is a build with sanitizers")
    for tool in ("valgrind", "setarch"):
        if not shutil.which(tool):
            raise Skip(f"{tool} is not installed")


def main():
    """The command line."""
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--program", type=pathlib.Path, help="surfaceio_counts, where it could be built")
    parser.add_argument("--scratch", type=pathlib.Path, required=True, help="folder for files")
    parser.add_argument("--toolchain", nargs="+", required=True, help="compiler, processor, Qt, flags")
    parser.add_argument("--update", action="store_true", help="write the record instead of comparing with it")
    options = parser.parse_args()
    record = json.loads(RECORD.read_text()) if RECORD.exists() else {}
    try:
        check_tools(options.program)
        if not options.update and record.get("toolchain") != options.toolchain:
            raise Skip(f"the record is of {record.get('toolchain')}, this build of {options.toolchain}")
    except Skip as reason:
        print(f"skipped: {reason}")
        return SKIPPED
    found = count(options.program, options.scratch)
    recorded = record.get("instructions for an element", {})
    for row, instructions in found.items():
        print(f"{row:20} {instructions:8.1f}, on record {recorded.get(row, 0):8.1f}")
    if options.update:
        RECORD.write_text(json.dumps({"toolchain": options.toolchain, "instructions for an element": found}, indent=2) + "\n")
        return 0
    wrong = faults(recorded, found)
    print("\n".join(wrong))
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
