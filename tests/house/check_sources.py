#!/usr/bin/env python3
"""Checks what a compiler does not: no locale-dependent number function anywhere, no process-wide setter and no
thread in the library, nothing POSIX-only in src/. Run from anywhere; looks at the repository it lies in."""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]

# Everywhere that numbers of files are handled, and where they are compared.
LOCALE = [
    r"\b(?:std::)?(?:strto[dfl]|strtold|ato[fil]|atoll|sto[dfil]|stold|stoul|stoull|sscanf|fscanf|scanf)\s*\(",
    r"\bsetlocale\b|\bstd::locale\b|\bQLocale\s*\(\s*\)|\bQLocale::system\b(?!\(\)\.uiLanguages\b)|\btoLocal8Bit\b|\bfromLocal8Bit\b",
    r"\bstd::to_string\s*\(",
    r"\bstd::(?:[io]?(?:string|f)stream|cin|cout|cerr)\b",
    r"%L\d",
]
PRINTF = r"\b(?:s|sn|f|vs|vsn)?printf\s*\("
# Where no file is made, words and integers may be printed. A format that does not stand there counts as one of floats.
PRINTF_OF_FLOATS = PRINTF + r"(?:[^;\"]*;|[^;]*?%[-+ #'0-9.*]*[lL]?[aAeEfFgG])"
# In the library only: it runs inside somebody else's process.
PROCESS = [
    r"\bsetDefault\s*\(",
    r"\bqInstallMessageHandler\b|\bqSetMessagePattern\b|\bqputenv\b|\bqunsetenv\b|\bsetenv\b",
    r"\bsetAllocationLimit\b|\binstallTranslator\b|\bset_new_handler\b|\bset_terminate\b",
    r"\bstd::thread\b|\bstd::jthread\b|\bstd::async\b|\bQThread\b|\bQtConcurrent\b|\bQTimer\b",
]
POSIX = [r"#\s*include\s*<(?:unistd|fcntl|dirent|pthread|signal|sys/\w+)\.h>"]
COMMENT = re.compile(r"//[^\n]*|/\*.*?\*/", re.DOTALL)

# Each exemption, of a word in a file, has its reason.
EXEMPT = {
    ("tools/main.cpp", "std::stringstream"): "CLI11 writes its help there, which has no number of a file",
    ("tests/differential/peers/CNumbers.h", "setlocale"): "takes the locale away from other libraries",
    ("tests/obj/tst_OBJReader.cpp", "std::ostringstream"): "asks for the text of an enumerator",
    ("benchmarks/table/PeerCgal.cpp", "std::ifstream"): "CGAL reads from it, in binary",
    ("benchmarks/table/PeerCgal.cpp", "std::ofstream"): "CGAL writes to it, in binary",
}


def find(folders, patterns, why, exempt=()):
    hits = []
    for folder in folders:
        for path in sorted((ROOT / folder).rglob("*")):
            if path.suffix not in {".h", ".cpp"}:
                continue
            name = path.relative_to(ROOT).as_posix()
            text = COMMENT.sub(lambda m: re.sub(r"[^\n]", " ", m.group()), path.read_text(encoding="utf-8"))
            for pattern in patterns:
                for match in re.finditer(pattern, text):
                    line = text.count("\n", 0, match.start()) + 1
                    if (name, match.group()) not in exempt:
                        hits.append(f"{name}:{line}: {match.group().strip()}: {why}")
    return hits


def stale(exempt):
    """Exemptions of what is not there."""
    return [f"{name}: {word} is exempt but not there" for name, word in exempt
            if not (ROOT / name).exists() or word not in (ROOT / name).read_text(encoding="utf-8")]


def main():
    hits = find(["src", "tools"], [*LOCALE, PRINTF], "depends on the locale", EXEMPT)
    hits += find(["examples", "tests", "fuzz", "benchmarks"], [*LOCALE, PRINTF_OF_FLOATS], "depends on the locale", EXEMPT)
    hits += stale(EXEMPT)
    hits += find(["src"], PROCESS, "changes the process that the library runs in")
    hits += find(["src"], POSIX, "not portable")
    print("\n".join(hits) if hits else "sources are clean")
    return 1 if hits else 0


if __name__ == "__main__":
    sys.exit(main())
