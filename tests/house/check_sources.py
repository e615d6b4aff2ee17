#!/usr/bin/env python3
"""Checks what a compiler does not: no locale-dependent number function, no process-wide setter and no
thread in the library, nothing POSIX-only in src/. Run from anywhere; looks at the repository it lies in."""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]

# Everywhere that numbers of files are handled.
LOCALE = [
    r"\b(?:std::)?(?:strto[dfl]|strtold|ato[fil]|atoll|sto[dfil]|stold|stoul|stoull|sscanf|fscanf|scanf)\s*\(",
    r"\b(?:s|sn|f|vs|vsn)?printf\s*\(",
    r"\bsetlocale\b|\bstd::locale\b|\bQLocale\s*\(\s*\)|\bQLocale::system\b(?!\(\)\.uiLanguages\b)|\btoLocal8Bit\b|\bfromLocal8Bit\b",
    r"\bstd::to_string\s*\(",
    r"%L\d",
]
# In the library only: it runs inside somebody else's process.
PROCESS = [
    r"\bsetDefault\s*\(",
    r"\bqInstallMessageHandler\b|\bqSetMessagePattern\b|\bqputenv\b|\bqunsetenv\b|\bsetenv\b",
    r"\bsetAllocationLimit\b|\binstallTranslator\b|\bset_new_handler\b|\bset_terminate\b",
    r"\bstd::thread\b|\bstd::jthread\b|\bstd::async\b|\bQThread\b|\bQtConcurrent\b|\bQTimer\b",
]
POSIX = [r"#\s*include\s*<(?:unistd|fcntl|dirent|pthread|signal|sys/\w+)\.h>"]
COMMENT = re.compile(r"//[^\n]*|/\*.*?\*/", re.DOTALL)


def find(folders, patterns, why):
    hits = []
    for folder in folders:
        for path in sorted((ROOT / folder).rglob("*")):
            if path.suffix not in {".h", ".cpp"}:
                continue
            text = COMMENT.sub(lambda m: re.sub(r"[^\n]", " ", m.group()), path.read_text(encoding="utf-8"))
            for pattern in patterns:
                for match in re.finditer(pattern, text):
                    line = text.count("\n", 0, match.start()) + 1
                    hits.append(f"{path.relative_to(ROOT)}:{line}: {match.group().strip()}: {why}")
    return hits


def main():
    hits = find(["src", "tools"], LOCALE, "depends on the locale")
    hits += find(["src"], PROCESS, "changes the process that the library runs in")
    hits += find(["src"], POSIX, "not portable")
    print("\n".join(hits) if hits else "sources are clean")
    return 1 if hits else 0


if __name__ == "__main__":
    sys.exit(main())
