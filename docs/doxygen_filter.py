#!/usr/bin/env python3
"""What Doxygen gets to see of a file: doxygen_filter.py FILE.

Headers: without the copying and moving that the compiler writes, which needs no words. Markdown: with the
anchors that sites show headings under, made unique by the name of the page, and links that lead to them."""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[1]
DEFAULTED = re.compile(r"= default;\s*$")
DOCUMENTED = re.compile(r"^\s*///(?! @)")
HEADING = re.compile(r"^(#+) (.*?)\s*$")
LINK = re.compile(r"\]\(([\w./-]*)#([\w-]+)\)")
FOLDER = re.compile(r"\[([^\]]*)\]\(([\w./-]*[^/).])/?\)")


def header(lines):
    before = ""
    for line in lines:
        if not DEFAULTED.search(line) or DOCUMENTED.match(before):
            yield line
        before = line


def anchor(page, heading):
    text = re.sub(r"\[([^\]]*)\]\([^)]*\)", r"\1", heading)
    return page + "-" + re.sub(r"[^\w -]", "", text.lower()).replace(" ", "-")


def markdown(path, lines):
    page = path.stem.lower()

    def link(match):
        return f"](#{pathlib.Path(match[1]).stem.lower() if match[1] else page}-{match[2]})"

    def unlink_folder(match):
        there = (path.parent / match[2]).exists()
        return match[1] if there and not match[2].endswith(".md") else match[0]

    fenced = False
    for line in lines:
        fenced ^= line.startswith("```")
        heading = HEADING.match(line)
        if heading and not fenced and len(heading[1]) > 1:
            line = f"{heading[1]} {heading[2]} {{#{anchor(page, heading[2])}}}"
        yield line if fenced else FOLDER.sub(unlink_folder, LINK.sub(link, line))


def main():
    path = pathlib.Path(sys.argv[1]).resolve()
    lines = path.read_text(encoding="utf-8").splitlines()
    sys.stdout.write("\n".join(markdown(path, lines) if path.suffix == ".md" else header(lines)) + "\n")


if __name__ == "__main__":
    main()
