#!/usr/bin/env python3
"""The check of the documentation finds what it is there to find. `echo` stands for the program."""
import pathlib
import subprocess
import sys
import tempfile

CHECK = pathlib.Path(__file__).with_name("check_examples.py")
SOUND = "```console\n$ surfaceio a  b\na b\n$ false\n$ echo $?\n1\n```\n```text\nsurfaceio VERB\n```\n```sh\n./dev test\n```\n"
ROWS = [
    (SOUND, 0),
    (SOUND.replace("a b\n$ false", "a c\n$ false"), 1),
    (SOUND.replace("a b\n$ false", "$ false"), 1),
    (SOUND.replace("\n1\n", "\n0\n"), 1),
    (SOUND.replace("```text", "```"), 1),
    (SOUND.replace("./dev test", "surfaceio info"), 1),
    ("```console\n$ surfaceio >out\n$ ls\nout\n```\n", 0),
    ("```cpp\nno program has this line;\n```\n", 1),
    ("```cpp\nif (!mesh)\n    return 1; // the log says why\n```\n", 0),
]


def main():
    with tempfile.TemporaryDirectory() as folder:
        page = pathlib.Path(folder, "page.md")
        for text, expected in ROWS:
            page.write_text(text, encoding="utf-8")
            done = subprocess.run([sys.executable, CHECK, "/bin/echo", page], check=False, capture_output=True, text=True)
            if done.returncode != expected:
                sys.exit(f"expected {expected}, found {done.returncode} for\n{text}{done.stdout}{done.stderr}")
        page.write_text(ROWS[1][0], encoding="utf-8")
        subprocess.run([sys.executable, CHECK, "--update", "/bin/echo", page], check=True, capture_output=True)
        if page.read_text(encoding="utf-8") != SOUND:
            sys.exit("--update does not mend a page")


if __name__ == "__main__":
    main()
