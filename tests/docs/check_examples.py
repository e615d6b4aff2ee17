#!/usr/bin/env python3
"""Runs what the documentation shows.

    check_examples.py SURFACEIO PAGE...            compares
    check_examples.py --update SURFACEIO PAGE...   writes what the commands print into the pages

A block marked ```console is a session: a line that begins with "$ " is a command of a POSIX shell, the lines behind it are
all that it prints, and "$ echo $?" shows the exit code of the command before. The blocks of a page are one session, in a
folder of their own that is empty at first. A block that names the program must be such a session, unless it is marked
```text: nothing in a page is typed by hand. A block marked ```cpp must stand, line for line, but for indentation, in a program in examples/.
"""
import os
import pathlib
import re
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
FENCE = re.compile(r"^```(\w*)\n(.*?)^```$", re.DOTALL | re.MULTILINE)


def answer(command, folder, surfaceio, status):
    environment = {"PATH": os.environ["PATH"], "HOME": folder, "LC_ALL": "C.UTF-8", "QT_QPA_PLATFORM": "offscreen"}
    for name in ("ASAN_OPTIONS", "UBSAN_OPTIONS", "TSAN_OPTIONS"):
        if name in os.environ:
            environment[name] = os.environ[name]
    script = f'surfaceio() {{ "{surfaceio}" "$@"; }}\n(exit {status})\n{command}\n'
    done = subprocess.run(["/bin/sh", "-c", script], cwd=folder, env=environment, check=False, text=True,
                          encoding="utf-8", stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          timeout=120)
    return done.stdout, done.returncode


def replay(block, folder, surfaceio):
    """The block as it should be."""
    status = 0
    lines = []
    for line in block.splitlines():
        if line.startswith("$ "):
            output, status = answer(line[2:], folder, surfaceio, status)
            lines += [line, *output.splitlines()]
    return "\n".join(lines) + "\n"


def flat(code):
    """Without indentation."""
    return re.sub(r"^ +", "", code, flags=re.MULTILINE)


def problem_of(language, block, programs):
    if language == "cpp":
        return None if any(flat(block) in flat(program) for program in programs) else "C++ that no program in examples/ holds"
    if language != "text" and re.search(r"^(\$ )?surfaceio ", block, re.MULTILINE):
        return "a command that is not run; mark the block console, or text when it is none"
    return None


def check(page, surfaceio, update):
    text = page.read_text(encoding="utf-8")
    programs = [path.read_text(encoding="utf-8") for path in sorted((ROOT / "examples").rglob("*.cpp"))]
    problems = []
    with tempfile.TemporaryDirectory() as folder:
        def step(fence):
            language, block = fence.groups()
            if language == "console":
                found = replay(block, folder, surfaceio)
                if found != block:
                    problems.append(f"{page.name}: expected\n{block}found\n{found}")
                return f"```console\n{found}```"
            if problem := problem_of(language, block, programs):
                problems.append(f"{page.name}: {problem}:\n{block}")
            return fence.group()
        updated = FENCE.sub(step, text)
    if update:
        page.write_text(updated, encoding="utf-8")
    print(f"{page.name}: {text.count('```console')} sessions")
    return problems


def main():
    arguments = sys.argv[1:]
    update = arguments[0] == "--update"
    surfaceio, *pages = arguments[1:] if update else arguments
    problems = [found for page in pages for found in check(pathlib.Path(page), os.path.abspath(surfaceio), update)]
    print("\n".join(problems))
    return 1 if problems and not update else 0


if __name__ == "__main__":
    sys.exit(main())
