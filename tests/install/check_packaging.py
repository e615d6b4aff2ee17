#!/usr/bin/env python3
"""What the Debian packages say of themselves agrees with the build, as far as that shows without making them:
versions, maintainer, license, SONAMEs, and that everything which is installed belongs to a package.
check_packaging.py SOURCE VERSION"""
import pathlib
import re
import sys


def cmake_texts(source):
    files = [source / "CMakeLists.txt", *source.glob("cmake/*.cmake"), *source.glob("src/**/CMakeLists.txt"),
             *source.glob("tools/**/CMakeLists.txt")]
    return {path.name if path.parent.name == "cmake" else str(path): path.read_text(encoding="utf-8") for path in files}


def value(text, name):
    return re.search(rf"^set\({name} (.+)\)$", text, re.MULTILINE).group(1).strip('"')


def changelog_problems(source, version, package):
    text = (source / "packaging/changelog").read_text(encoding="utf-8")
    wanted = f"surfaceio ({version}-{value(package, 'CPACK_DEBIAN_PACKAGE_RELEASE')}) unstable; urgency=medium"
    if text.splitlines()[0] != wanted:
        yield f"packaging/changelog begins with {text.splitlines()[0]!r}, expected {wanted!r}"
    contact = value(package, "CPACK_PACKAGE_CONTACT")
    for line in re.findall(r"^ -- .*$", text, re.MULTILINE):
        if not re.fullmatch(rf" -- {re.escape(contact)}  \w{{3}}, \d\d \w{{3}} \d{{4}} \d\d:\d\d:\d\d [+-]\d{{4}}", line):
            yield f"packaging/changelog has the line {line!r}, expected the contact {contact!r} and a date"


def license_problems(source):
    text = (source / "packaging/copyright").read_text(encoding="utf-8")
    if not text.startswith("Format: https://www.debian.org/doc/packaging-manuals/copyright-format/1.0/\n"):
        yield "packaging/copyright does not name its format"
    body = text[text.rindex("License: Expat\n") + len("License: Expat\n"):]
    if " ".join(body.replace("\n .\n", "\n").split()) not in " ".join((source / "LICENSE").read_text(encoding="utf-8").split()):
        yield "packaging/copyright has another license than LICENSE"


def library_problems(source, version, texts):
    shlibs = (source / "packaging/shlibs.in").read_text(encoding="utf-8")
    names = {name for text in texts.values() for name in re.findall(r"OUTPUT_NAME (\S+)[^)]*SOVERSION", text)}
    major = version.split(".")[0]
    package = f"libsurfaceio{major}"
    wanted = {f"lib{name} {major} {package} (>= @debian_version@), {package} (<< @debian_next_interface@)" for name in names}
    if not names or set(shlibs.splitlines()) != wanted:
        yield f"packaging/shlibs.in has {shlibs.splitlines()}, expected {sorted(wanted)}"


def component_problems(texts, package):
    packed = set(value(package, "CPACK_COMPONENTS_ALL").split())
    for name, text in texts.items():
        for component in set(re.findall(r"COMPONENT (\w+)", text)) - packed:
            yield f"{name} installs the component {component}, which is in no package"
    for component in packed:
        for setting in (f"CPACK_DEBIAN_{component.upper()}_PACKAGE_NAME", f"CPACK_COMPONENT_{component.upper()}_DESCRIPTION"):
            if f"set({setting} " not in package:
                yield f"the component {component} has no {setting}"


def main():
    source, version = pathlib.Path(sys.argv[1]), sys.argv[2]
    texts = cmake_texts(source)
    package = texts["SurfaceIOPackage.cmake"]
    problems = [*changelog_problems(source, version, package), *license_problems(source),
                *library_problems(source, version, texts), *component_problems(texts, package)]
    print("\n".join(problems) if problems else "the packages agree with the build")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
