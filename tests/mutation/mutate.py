#!/usr/bin/env python3
"""Makes small mistakes in src/, one at a time, and counts how many of them the tests notice.

Works on a copy of the tree, so that nothing here changes. A mistake is first held against the tests of its own folder,
and when these do not notice, against all others. Mistakes that do not compile, or that the compiler warns of, do not
count. The same seed makes the same mistakes as long as the sources stay the same."""
import argparse
import os
import pathlib
import re
import resource
import shutil
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).parent))
import mutators  # noqa: E402

ROOT = pathlib.Path(__file__).resolve().parents[2]
MEMORY = 8 << 30
# Those that look at the sources or at the installed interface would notice any change, which is not the point.
NOT_OF_BEHAVIOUR = "install|house|docs"
FAILED = re.compile(r"Test +#\d+: (\S+) \.*\s*\*\*\*(\w+)")


def limit_memory():
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def run(*command, check=False):
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors="replace",
                          check=False, preexec_fn=limit_memory)
    if check and done.returncode != 0:
        sys.exit(f"{done.stdout}\nmutate: failed: {' '.join(command)}")
    return done


def copy_tree(target):
    """The files that git knows of, as they are now; what is there and the same stays as it is."""
    listed = subprocess.run(["git", "-C", ROOT, "ls-files", "-z", "-co", "--exclude-standard"], stdout=subprocess.PIPE,
                            check=True).stdout
    names = {name for name in listed.decode().split("\0") if name and (ROOT / name).is_file()}
    for name in names:
        source, copy = ROOT / name, target / name
        if not copy.is_file() or copy.read_bytes() != source.read_bytes():
            copy.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(source, copy)
    for copy in (target / "src").rglob("*"):
        if copy.is_file() and str(copy.relative_to(target)) not in names:
            copy.unlink()


class Suite:
    def __init__(self, tree, jobs, timeout):
        self.build = tree / "build" / "dev"
        self.jobs = str(jobs)
        run("cmake", "-S", str(tree), "--preset", "dev", f"-DSURFACEIO_TEST_TIMEOUT={timeout}",
            f"-DSURFACEIO_CORPUS={os.environ.get('SURFACEIO_CORPUS', ROOT.parent / 'shared' / 'corpus')}",
            "-DCMAKE_LINK_DEPENDS_NO_SHARED=ON", "-DSURFACEIO_BUILD_EXAMPLES=OFF", check=True)

    def make(self, target):
        return run("cmake", "--build", str(self.build), "-j", self.jobs, "--target", target).returncode == 0

    def failure(self, folder, *arguments):
        """The first test below a folder that fails; empty when none does."""
        done = run("ctest", "--test-dir", str(self.build / folder), "-j", self.jobs, "--stop-on-failure",
                   "-LE", NOT_OF_BEHAVIOUR, *arguments)
        if done.returncode == 0:
            return ""
        found = FAILED.search(done.stdout)
        return f"{found[1]} ({found[2].lower()})" if found else "ctest"

    def notice(self, folder):
        """Which test notices what was changed in src/<folder>; empty for none, None when it does not compile."""
        if not self.make(f"src/{folder}/all"):
            return None
        for target, where, arguments in (
                (f"tests/{folder}/all", f"tests/{folder}", ()),
                ("all", ".", ("-LE", "hostile|slow")),
                ("all", ".", ("-L", "hostile|slow"))):
            if not self.make(target):
                return None
            if noticed := self.failure(where, *arguments):
                return noticed
        return ""


def sources(tree):
    """What lies under src/ apart from the stand-ins of the application's libraries: sources and private headers."""
    listed = (tree / "src" / "CMakeLists.txt").read_text(encoding="utf-8")
    installed = set(re.findall(r"\w+/\w+\.h", listed))
    for path in sorted((tree / "src").rglob("*")):
        name = path.relative_to(tree / "src")
        if path.suffix in {".cpp", ".h"} and name.parts[0] != "inhouse" and str(name) not in installed:
            yield path


def escaped(text):
    return text.replace("|", "\\|")


def mutate(tree, suite, arguments):
    texts = {str(path.relative_to(tree)): path.read_text(encoding="utf-8") for path in sources(tree)}
    found = [mutation for path, text in texts.items() for mutation in mutators.find(path, text)]
    print(f"{len(found)} mistakes can be made in {len(texts)} files", file=sys.stderr)
    rows = []
    for mutation in mutators.choose(found, arguments.seed, arguments.most_of_file):
        if len(rows) == arguments.count:
            break
        if arguments.file and mutation.path != arguments.file:
            continue
        text = texts[mutation.path]
        try:
            (tree / mutation.path).write_text(mutation.apply(text), encoding="utf-8")
            noticed = suite.notice(mutation.path.split("/")[1])
        finally:
            (tree / mutation.path).write_text(text, encoding="utf-8")
        if noticed is None:
            continue
        rows.append(noticed)
        print(f"| {len(rows)} | {mutation.path}:{mutation.line} | {mutation.kind} | "
              f"`{escaped(mutation.describe(text))}` | {noticed or '**nobody**'} |", flush=True)
    return rows


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--count", type=int, default=60, help="how many mistakes (60)")
    parser.add_argument("--least", type=int, default=55, help="how many of them have to be noticed (55)")
    parser.add_argument("--seed", type=int, default=1, help="which of all mistakes (1)")
    parser.add_argument("--most-of-file", type=int, default=2, help="how many in one file (2)")
    parser.add_argument("--file", help="only in this file, as src/stl/STLReader.cpp")
    parser.add_argument("--tree", type=pathlib.Path, default=ROOT / "build" / "mutation", help="the copy to work on")
    parser.add_argument("--jobs", type=int, default=2)
    parser.add_argument("--timeout", type=int, default=60, help="seconds for one test (60)")
    arguments = parser.parse_args()
    arguments.tree = arguments.tree.resolve()
    copy_tree(arguments.tree)
    suite = Suite(arguments.tree, arguments.jobs, arguments.timeout)
    if not suite.make("all"):
        sys.exit("mutate: the tree does not build")
    if broken := suite.failure("."):
        sys.exit(f"mutate: without a mistake {broken} fails")
    print("| | place | kind | mistake | noticed by |\n|---|---|---|---|---|", flush=True)
    rows = mutate(arguments.tree, suite, arguments)
    noticed = sum(1 for row in rows if row)
    print(f"\n{noticed} of {len(rows)} noticed")
    return 0 if rows and noticed * arguments.count >= arguments.least * len(rows) else 1


if __name__ == "__main__":
    sys.exit(main())
