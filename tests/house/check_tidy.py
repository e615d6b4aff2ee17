#!/usr/bin/env python3
"""Each exclusion of clang-tidy has its reason: every check that .clang-tidy switches off is named in the comments
above with a reason, nothing is named that is not switched off, and every NOLINT names its check."""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
REASON = re.compile(r"^#   ([a-z][\w.*-]+) +(\S.*)$", re.MULTILINE)
EXCLUDED = re.compile(r"^\s+-([a-z][\w.*-]+),?$", re.MULTILINE)
BARE = re.compile(r"NOLINT(?:NEXTLINE|BEGIN|END)?(?!\w|\([a-z])")


def exclusions(text):
    """Complaints about the text of a .clang-tidy."""
    reasons = dict(REASON.findall(text))
    excluded = set(EXCLUDED.findall(text))
    hits = [f".clang-tidy: {name} is switched off without a reason" for name in sorted(excluded - set(reasons))]
    return hits + [f".clang-tidy: {name} has a reason but is not switched off" for name in sorted(set(reasons) - excluded)]


def bare_nolints(name, text):
    return [f"{name}:{number}: NOLINT without the name of a check"
            for number, line in enumerate(text.splitlines(), 1) if BARE.search(line)]


def main():
    hits = exclusions((ROOT / ".clang-tidy").read_text(encoding="utf-8"))
    for folder in ("src", "tools", "tests", "fuzz", "examples", "benchmarks"):
        for path in sorted((ROOT / folder).rglob("*")):
            if path.suffix in {".h", ".cpp"}:
                hits += bare_nolints(path.relative_to(ROOT), path.read_text(encoding="utf-8"))
    print("\n".join(hits) if hits else "every exclusion has its reason")
    return 1 if hits else 0


if __name__ == "__main__":
    sys.exit(main())
