#!/usr/bin/env python3
"""Checks that the library of the seam test has every header of src/inhouse. README.md here says what to do."""
import pathlib
import sys

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parents[2]


def public_headers(root):
    headers = {str(h.relative_to(root)) for h in root.rglob("*.h")}
    return {h for h in headers if not h.endswith("_p.h")}


def main():
    real = public_headers(ROOT / "src" / "inhouse")
    other = public_headers(HERE / "library" / "inhouse")
    problems = [f"{h}: in src/inhouse only; see {HERE.name}/README.md" for h in sorted(real - other)]
    problems += [f"{h}: not in src/inhouse (any more)" for h in sorted(other - real)]
    print("\n".join(problems) if problems else f"{len(real)} headers on both sides of the seam")
    return 1 if problems or not real else 0


if __name__ == "__main__":
    sys.exit(main())
