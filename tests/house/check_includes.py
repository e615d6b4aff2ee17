#!/usr/bin/env python3
"""Checks that files never include upwards and that no includes form a cycle: check_includes.py SRC."""
import pathlib
import re
import sys

SIBLINGS = {"stl", "ply", "obj", "vmesh"}
FACADES = {"MeshReader", "MeshWriter"}
INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)


def level(path):
    folder = path.parts[0]
    if folder == "framework":
        return 3 if path.stem in FACADES else 1
    return {"inhouse": 0, "scene": 4}.get(folder, 2)


def is_allowed(source, target):
    if level(source) == level(target) == 2:
        return source.parts[0] == target.parts[0]
    if level(source) == 3 and level(target) == 2:
        return source.suffix == ".cpp"
    return level(target) <= level(source)


def find_cycle(graph, node, path, done):
    if node in path:
        return path[path.index(node):] + [node]
    if node in done:
        return None
    for target in graph.get(node, []):
        cycle = find_cycle(graph, target, path + [node], done)
        if cycle:
            return cycle
    done.add(node)
    return None


def main(root):
    files = [f.relative_to(root) for f in sorted(root.rglob("*")) if f.suffix in {".h", ".cpp"}]
    graph, errors, done = {}, [], set()
    for source in files:
        targets = [pathlib.Path(t) for t in INCLUDE.findall((root / source).read_text(encoding="utf-8"))]
        targets = [t for t in targets if (root / t).exists()]
        graph[source] = targets
        errors += [f"{source} includes upwards: {t}" for t in targets if not is_allowed(source, t)]
    for source in files:
        cycle = find_cycle(graph, source, [], done)
        if cycle:
            errors.append("cycle: " + " -> ".join(map(str, cycle)))
            break
    print("\n".join(errors) if errors else f"{len(files)} files, no include upwards, no cycle")
    return 1 if errors or not files else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1])))
