#!/usr/bin/env python3
"""Each exclusion of a linter has its reason: every check that .clang-tidy switches off and every code that
.cmake-format.yaml disables is named in the comments above with a reason, nothing is named that is not switched off,
and nothing is switched off that was not on; every NOLINT names its check and has a reason, there or in the line above."""
import fnmatch
import pathlib
import re
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
REASON = re.compile(r"^ *#   ([A-Za-z][\w.*-]+) +(\S.*)$", re.MULTILINE)
CHECK = re.compile(r"^\s+(-?[a-z][\w.*-]+),?$", re.MULTILINE)
CODES = re.compile(r"disabled_codes: \[(.*?)\]", re.DOTALL)
BARE = re.compile(r"NOLINT(?:NEXTLINE|BEGIN|END)?(?!\w|\([a-z])")
NOLINT = re.compile(r"//(.*)NOLINT(?:NEXTLINE|BEGIN)?\([a-z][^)]*\)(.*)")
WORDS = re.compile(r"\w+ \w+")


def unequal(name, excluded, text):
    """Complaints about exclusions without a reason, and reasons without an exclusion."""
    reasons = {found for found, _ in REASON.findall(text)}
    hits = [f"{name}: {one} is switched off without a reason" for one in sorted(excluded - reasons)]
    return hits + [f"{name}: {one} has a reason but is not switched off" for one in sorted(reasons - excluded)]


def exclusions(text, known=None):
    """Complaints about the text of a .clang-tidy, given all checks that there are, if they are known."""
    checks = CHECK.findall(text)
    excluded = {check[1:] for check in checks if check.startswith("-")}
    hits = unequal(".clang-tidy", excluded, text)
    if known is not None:
        included = [check for check in checks if not check.startswith("-")]
        hits += [f".clang-tidy: {one} is no check" for one in included if not fnmatch.filter(known, one)]
        on = {check for one in included for check in fnmatch.filter(known, one)}
        hits += [f".clang-tidy: {one} is switched off but was not on" for one in sorted(excluded) if not fnmatch.filter(on, one)]
    return hits


def disabled_codes(text):
    """Complaints about the text of a .cmake-format.yaml."""
    return unequal(".cmake-format.yaml", set(re.findall(r"\w+", CODES.search(text).group(1))), text)


def has_reason(lines, number, nolint):
    above = lines[number - 2].strip() if number > 1 else ""
    beside = any(WORDS.search(text) for text in nolint.groups())
    return beside or (above.startswith("//") and "NOLINT" not in above and WORDS.search(above) is not None)


def nolints(name, text):
    lines = text.splitlines()
    hits = []
    for number, line in enumerate(lines, 1):
        nolint = NOLINT.search(line)
        if BARE.search(line):
            hits.append(f"{name}:{number}: NOLINT without the name of a check")
        elif nolint and not has_reason(lines, number, nolint):
            hits.append(f"{name}:{number}: NOLINT without a reason")
    return hits


def known_checks():
    """All checks of the clang-tidy that ./dev lint runs; None where it is not installed."""
    if not shutil.which("clang-tidy-14"):
        return None
    run = subprocess.run(["clang-tidy-14", "--list-checks", "--checks=*"], capture_output=True, check=True, text=True)
    return run.stdout.split()


def main():
    hits = exclusions((ROOT / ".clang-tidy").read_text(encoding="utf-8"), known_checks())
    hits += disabled_codes((ROOT / ".cmake-format.yaml").read_text(encoding="utf-8"))
    for folder in ("src", "tools", "tests", "fuzz", "examples", "benchmarks"):
        for path in sorted((ROOT / folder).rglob("*")):
            if path.suffix in {".h", ".cpp"}:
                hits += nolints(path.relative_to(ROOT), path.read_text(encoding="utf-8"))
    print("\n".join(hits) if hits else "every exclusion has its reason")
    return 1 if hits else 0


if __name__ == "__main__":
    sys.exit(main())
