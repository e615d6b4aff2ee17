#!/usr/bin/env python3
"""Makes small mistakes in src/, one at a time, and counts how many of them the tests notice.

Works on a copy of the tree, so that nothing here changes. A mistake is first held against the tests of its own folder,
and when these do not notice, against all others. Mistakes that do not compile, or that the compiler warns of, do not
count. The same seed makes the same mistakes, apart from places that have changed."""
import argparse
import os
import pathlib
import re
import resource
import shutil
import signal
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).parent))
import mutators  # noqa: E402

ROOT = pathlib.Path(__file__).resolve().parents[2]
MEMORY = 8 << 30
# Qt Test would look at the clock.
ENVIRONMENT = os.environ | {"QTEST_FUNCTION_TIMEOUT": "100000000", "QT_QPA_PLATFORM": "offscreen"}
# Those that look at the sources or at the installed interface would notice any change, which is not the point.
NOT_OF_BEHAVIOUR = "install|house|docs"
LONG = "hostile|slow"
FAILED = re.compile(r"Test +#\d+: (\S+) \.*[^*\n]*\*\*\*(\w+)")


def set_limits(seconds):
    """Of each process from here on, for a mistake that makes a loop endless or a list very long. Seconds of the processor,
    so that a busy machine makes no difference."""
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
    resource.setrlimit(resource.RLIMIT_CPU, (seconds, seconds + 5))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def run(*command, check=False, seconds=3600):
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors="replace",
                          check=False, env=ENVIRONMENT, preexec_fn=lambda: set_limits(seconds))
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
    def __init__(self, tree, preset, jobs, seconds):
        self.seconds = seconds
        self.build = tree / "build" / preset
        self.jobs = str(jobs)
        run("cmake", "-S", str(tree), "--preset", preset, "-DSURFACEIO_TEST_TIMEOUT=400",
            f"-DSURFACEIO_CORPUS={os.environ.get('SURFACEIO_CORPUS', ROOT.parent / 'shared' / 'corpus')}",
            "-DCMAKE_LINK_DEPENDS_NO_SHARED=ON", check=True)

    def make(self, *targets):
        return run("cmake", "--build", str(self.build), "-j", self.jobs, "--target", *targets).returncode == 0

    def failure(self, folder, *choice):
        """The first of the tests below a folder that fails; empty when none does. One after the other, as then the
        short ones come first."""
        done = run("ctest", "--test-dir", str(self.build / folder), "--stop-on-failure", *choice, seconds=self.seconds)
        if done.returncode == 0:
            return ""
        found = FAILED.search(done.stdout)
        return f"{found[1]} ({found[2].lower()})" if found else "ctest"

    def named_after(self, source):
        listed = run("ctest", "--test-dir", str(self.build / "tests" / source.parent.name), "-N").stdout
        return re.findall(rf"Test +#\d+: (tst_{re.escape(source.stem)}\w*)", listed)

    def near(self, source):
        """Which test of its own folder notices what was changed in a source; empty for none, None when it does not
        compile. Those that have its name come first."""
        folder = source.parent.name
        names = self.named_after(source)
        if not self.make(f"src/{folder}/all", *names):
            return None
        if names and (noticed := self.failure(f"tests/{folder}", "-R", f"^({'|'.join(names)})$")):
            return noticed
        return self.failure(f"tests/{folder}") if self.make(f"tests/{folder}/all") else None

    def far(self):
        """The same for all tests, the long ones last."""
        if not self.make("all"):
            return None
        return (self.failure(".", "-LE", f"{NOT_OF_BEHAVIOUR}|{LONG}") or
                self.failure(".", "-LE", NOT_OF_BEHAVIOUR, "-L", LONG))


def sources(tree):
    """What lies under src/ apart from the stand-ins of the application's libraries: sources and private headers."""
    listed = (tree / "src" / "CMakeLists.txt").read_text(encoding="utf-8")
    installed = set(re.findall(r"\w+/\w+\.h", listed))
    for path in sorted((tree / "src").rglob("*")):
        name = path.relative_to(tree / "src")
        if path.suffix in {".cpp", ".h"} and name.parts[0] != "inhouse" and str(name) not in installed:
            yield path


class Mistakes:
    def __init__(self, tree, suite, arguments):
        self.tree, self.suite, self.arguments = tree, suite, arguments
        self.texts = {str(path.relative_to(tree)): path.read_text(encoding="utf-8") for path in sources(tree)}
        self.sound = set()

    def chosen(self):
        found = [mutation for path, text in self.texts.items() for mutation in mutators.find(path, text)]
        print(f"{len(found)} mistakes can be made in {len(self.texts)} files", file=sys.stderr)
        for mutation in mutators.choose(found, self.arguments.seed, self.arguments.most_of_file):
            if self.arguments.file in (None, mutation.path):
                yield mutation

    def look(self, mutation, notice):
        text = self.texts[mutation.path]
        place = self.tree / mutation.path
        try:
            place.write_text(mutation.apply(text), encoding="utf-8")
            return notice()
        finally:
            place.write_text(text, encoding="utf-8")

    def require_sound(self, name, notice):
        if not self.arguments.sound and name not in self.sound and notice() != "":
            sys.exit(f"mutate: without a mistake the tests of {name} do not pass")
        self.sound.add(name)

    def run(self):
        """Each mistake with what notices it."""
        rows = []
        for number, mutation in enumerate(self.chosen(), 1):
            if len(rows) == self.arguments.count:
                break
            if number < self.arguments.first:
                continue
            source = pathlib.Path(mutation.path)
            self.require_sound(source.parent.name, lambda: self.suite.near(source))
            noticed = self.look(mutation, lambda: self.suite.near(source))
            if noticed is not None:
                rows.append([mutation, noticed])
                print(f"{number} {mutation.path}:{mutation.line} {noticed or 'nobody near'}", file=sys.stderr, flush=True)
        for row in rows:
            if not row[1]:
                self.require_sound("all", self.suite.far)
                row[1] = self.look(row[0], self.suite.far) or ""
                print(f"{row[0].path}:{row[0].line} {row[1] or 'nobody'}", file=sys.stderr)
        return rows

    def table(self, rows):
        yield "| | place | kind | mistake | noticed by |\n|---|---|---|---|---|"
        for number, (mutation, noticed) in enumerate(rows, 1):
            change = mutation.describe().replace("|", "\\|")
            yield (f"| {number} | {mutation.path}:{mutation.line} | {mutation.kind} | `{change}` | "
                   f"{noticed or '**nobody**'} |")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--count", type=int, default=60, help="how many mistakes (60)")
    parser.add_argument("--least", type=int, default=55, help="how many of them have to be noticed (55)")
    parser.add_argument("--seed", type=int, default=1, help="which of all mistakes (1)")
    parser.add_argument("--most-of-file", type=int, default=2, help="how many in one file (2)")
    parser.add_argument("--first", type=int, default=1, help="the first of them to make, to go on after a break (1)")
    parser.add_argument("--file", help="only in this file, as src/stl/STLReader.cpp")
    parser.add_argument("--tree", type=pathlib.Path, default=ROOT / "build" / "mutation", help="the copy to work on")
    parser.add_argument("--sound", action="store_true", help="all tests are known to pass without a mistake")
    parser.add_argument("--preset", default="dev", help="the build of the copy (dev)")
    parser.add_argument("--jobs", type=int, default=2, help="how many to compile at a time (2)")
    parser.add_argument("--seconds", type=int, default=60, help="of the processor, for each test (60)")
    arguments = parser.parse_args()
    arguments.tree = arguments.tree.resolve()
    signal.signal(signal.SIGTERM, lambda *_: sys.exit("mutate: stopped"))
    copy_tree(arguments.tree)
    suite = Suite(arguments.tree, arguments.preset, arguments.jobs, arguments.seconds)
    mistakes = Mistakes(arguments.tree, suite, arguments)
    rows = mistakes.run()
    print("\n".join(mistakes.table(rows)))
    noticed = sum(1 for row in rows if row[1])
    print(f"\n{noticed} of {len(rows)} noticed")
    return 0 if rows and noticed * arguments.count >= arguments.least * len(rows) else 1


if __name__ == "__main__":
    sys.exit(main())
