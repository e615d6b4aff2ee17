#!/usr/bin/env python3
"""Compares what the two installed libraries export with what the installed headers declare:
check_symbols.py INCLUDE_ROOT LIBRARY_FOLDER. Every symbol belongs to a declared class, function or constant, and
every declared one has a symbol."""
import pathlib
import re
import subprocess
import sys

CLASS = re.compile(r"^\s*(?:class|struct)\s+\w*EXPORT\s+(\w+)")
OTHER = re.compile(r"^\s*(?:extern\s+)?SURFACEIO_\w*EXPORT\s[^(;]*?(operator\s*\S+?|\w+)\s*[(;]")
OPEN = re.compile(r"^namespace ([\w:]+)\s*\{?$")
CLOSE = re.compile(r"^\}\s*// namespace")
DATA = re.compile(r"^(?:typeinfo name for|typeinfo for|vtable for|VTT for|non-virtual thunk to|guard variable for) ")
# A plain record whose functions are all written by the compiler, wherever they are needed.
WITHOUT_SYMBOLS = {"DistractorProduct"}


def declared(headers):
    """The exported classes, and the exported functions and constants, with their namespaces."""
    classes, others = set(), set()
    for header in headers:
        scope = []
        for line in header.read_text(encoding="utf-8").splitlines():
            if OPEN.match(line):
                scope.append(OPEN.match(line).group(1))
            elif CLOSE.match(line):
                scope.pop()
            elif CLASS.match(line):
                classes.add("::".join([*scope, CLASS.match(line).group(1)]))
            elif OTHER.match(line):
                others.add("::".join([*scope, OTHER.match(line).group(1).replace(" ", "")]))
    return classes, others


def exported(library):
    lines = subprocess.run(["nm", "-DC", "--defined-only", library], capture_output=True, text=True, check=True)
    return [line.split(" ", 2)[2] for line in lines.stdout.splitlines()]


def owner(symbol, classes, others):
    """The declared name that a symbol belongs to, or None."""
    name = DATA.sub("", symbol)
    plain = re.sub(r"\[abi:\w+\]", "", name).split("(")[0]
    if plain in others:
        return plain
    parts = plain.split("::")
    for length in range(len(parts), 0, -1):
        if "::".join(parts[:length]) in classes:
            return "::".join(parts[:length])
    return None


def check(library, headers):
    classes, others = declared(headers)
    found = {symbol: owner(symbol, classes, others) for symbol in exported(library)}
    hits = [f"{library.name} exports {symbol}" for symbol, name in sorted(found.items()) if name is None]
    missing = (classes | others) - set(found.values()) - WITHOUT_SYMBOLS
    hits += [f"{library.name} does not export {name}" for name in sorted(missing)]
    print(f"{library.name}: {len(found)} symbols of {len(classes)} classes, {len(others)} functions and constants")
    return hits


def main(include_root, library_folder):
    headers = sorted(pathlib.Path(include_root).rglob("*.h"))
    inhouse = [header for header in headers if "inhouse" in header.parts]
    ours = [header for header in headers if "inhouse" not in header.parts]
    libraries = pathlib.Path(library_folder)
    hits = check(libraries / "libsurfaceio.so", ours) + check(libraries / "libsurfaceio-inhouse.so", inhouse)
    print("\n".join(hits))
    return 1 if hits or not ours or not inhouse else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
