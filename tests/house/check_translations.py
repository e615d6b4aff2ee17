#!/usr/bin/env python3
"""Checks that translations/ knows every text of the sources, and nothing else, and that each translation is finished
and fits its source. With --update it takes the texts of the sources up instead: what is new is then unfinished."""
import argparse
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree

ROOT = pathlib.Path(__file__).resolve().parents[2]
LANGUAGES = {"de": 2, "pl": 3}  # and how many plural forms each has
CATALOGUES = {"surfaceio": "src", "surfaceio-program": "tools"}
HINT = "run ./dev translations and translate what is unfinished"


def lupdate_program():
    places = [shutil.which(name) for name in ("lupdate6", "lupdate-qt6", "lupdate")]
    return next(path for path in ["/usr/lib/qt6/bin/lupdate", *places] if path and pathlib.Path(path).exists())


def update(lupdate, root, folder, catalogue):
    """Brings the .ts files in `folder` to the state of the sources below `root`."""
    sources = [path for path in (root / CATALOGUES[catalogue]).rglob("*") if path.suffix in {".h", ".cpp"}]
    with tempfile.NamedTemporaryFile("w", suffix=".lst") as listed:
        listed.write("\n".join(str(path) for path in sorted(sources)))
        listed.flush()
        for language in LANGUAGES:
            subprocess.run(
                [lupdate, "-silent", "-no-obsolete", "-locations", "none", "-source-language", "en",
                 "-disable-heuristic", "sametext", "-disable-heuristic", "similartext", "-disable-heuristic", "number",
                 "-target-language", language, "-tr-function-alias", "tr+=counted,tr+=utf8", "@" + listed.name,
                 "-ts", str(folder / f"{catalogue}_{language}.ts")],
                check=True, stderr=subprocess.DEVNULL)  # lupdate does not know some C++


def drift(lupdate, root):
    """The files that lupdate would change."""
    changed = []
    with tempfile.TemporaryDirectory() as scratch:
        copy = pathlib.Path(scratch) / "translations"
        shutil.copytree(root / "translations", copy)
        for catalogue in CATALOGUES:
            update(lupdate, root, copy, catalogue)
        for path in sorted(copy.glob("*.ts")):
            old = root / "translations" / path.name
            if not old.exists() or old.read_bytes() != path.read_bytes():
                changed.append(f"translations/{path.name} is not what the sources say: {HINT}")
    return changed


def placeholders(text):
    return sorted(re.findall(r"%L?\d+|%n|<[^>]*>|--[a-z][a-z-]*|\{\w+\}", text))


def edges(text):
    return text[: len(text) - len(text.lstrip())], text[len(text.rstrip()):]


def mismatch(source, text, is_plural):
    """Why `text` cannot stand for `source`; empty when it can."""
    if not text.strip():
        return "is empty"
    wanted, found = placeholders(source), placeholders(text)
    if is_plural:  # "one facet" may do without its number
        wanted, found = [p for p in wanted if p != "%n"], [p for p in found if p != "%n"]
    if wanted != found:
        return f"has {found} where the source has {wanted}"
    if edges(source) != edges(text):
        return "begins or ends with other blanks"
    if re.search(r"\(s\)|\(\w*\|\w*\)", text):
        return "has the plurals of the English source"
    return ""


def problems_of(path, forms):
    """What is wrong with the translations in one file."""
    problems = []
    for context in ElementTree.parse(path).getroot().iter("context"):
        for message in context.iter("message"):
            source, translation = message.findtext("source"), message.find("translation")
            is_plural = message.get("numerus") == "yes"
            texts = [form.text or "" for form in translation.iter("numerusform")] if is_plural \
                else [translation.text or ""]
            reasons = [mismatch(source, text, is_plural) for text in texts]
            if translation.get("type"):
                reasons = [f"is {translation.get('type')}"]
            elif is_plural and len(texts) != forms:
                reasons = [f"has {len(texts)} plural forms, expected {forms}"]
            problems += [f"{path.name}: {source!r} {reason}" for reason in reasons if reason]
    return problems


def check(lupdate, root):
    problems = drift(lupdate, root)
    for path in sorted((root / "translations").glob("*.ts")):
        problems += problems_of(path, LANGUAGES[path.stem.rpartition("_")[2]])
    return problems


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--update", action="store_true")
    parser.add_argument("--lupdate", default=None)
    arguments = parser.parse_args()
    lupdate = arguments.lupdate or lupdate_program()
    if arguments.update:
        for catalogue in CATALOGUES:
            update(lupdate, ROOT, ROOT / "translations", catalogue)
    problems = check(lupdate, ROOT)
    print("\n".join(problems) if problems else "translations are complete")
    return 1 if problems and not arguments.update else 0


if __name__ == "__main__":
    sys.exit(main())
