#!/usr/bin/env python3
"""The checks of this folder find what they are there for."""
import pathlib
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).parent))
import check_includes  # noqa: E402
import check_sources  # noqa: E402
import check_tidy  # noqa: E402


def tree(folder, files):
    root = pathlib.Path(folder)
    for name, includes in files.items():
        (root / name).parent.mkdir(parents=True, exist_ok=True)
        (root / name).write_text("".join(f'#include "{i}"\n' for i in includes), encoding="utf-8")
    return root


class Includes(unittest.TestCase):
    def verdict(self, files):
        with tempfile.TemporaryDirectory() as folder:
            return check_includes.main(tree(folder, files))

    def test_downwards(self):
        self.assertEqual(self.verdict({"scene/A.h": ["stl/B.h"], "stl/B.h": ["framework/C.h"],
                                       "framework/C.h": ["inhouse/data/D.h"], "inhouse/data/D.h": []}), 0)

    def test_upwards(self):
        self.assertEqual(self.verdict({"framework/C.h": ["stl/B.h"], "stl/B.h": []}), 1)
        self.assertEqual(self.verdict({"inhouse/data/D.h": ["framework/C.h"], "framework/C.h": []}), 1)

    def test_sibling(self):
        self.assertEqual(self.verdict({"ply/A.cpp": ["stl/B.h"], "stl/B.h": []}), 1)

    def test_facade(self):
        self.assertEqual(self.verdict({"framework/MeshReader.cpp": ["stl/B.h"], "stl/B.h": []}), 0)
        self.assertEqual(self.verdict({"framework/MeshReader.h": ["stl/B.h"], "stl/B.h": []}), 1)

    def test_cycle(self):
        self.assertEqual(self.verdict({"stl/A.h": ["stl/B.h"], "stl/B.h": ["stl/A.h"]}), 1)

    def test_nothing(self):
        self.assertEqual(self.verdict({}), 1)


class Sources(unittest.TestCase):
    def hits(self, text, patterns, exempt=()):
        with tempfile.TemporaryDirectory() as folder:
            root = pathlib.Path(folder)
            (root / "src").mkdir()
            (root / "src" / "a.cpp").write_text(text, encoding="utf-8")
            saved, check_sources.ROOT = check_sources.ROOT, root
            try:
                return len(check_sources.find(["src"], patterns, "why", exempt)) + len(check_sources.stale(exempt))
            finally:
                check_sources.ROOT = saved

    def test_locale(self):
        for text in ("strtod(a, b);", "std::stof(a);", "QLocale().toFloat(a);", "QLocale::system().toFloat(a);",
                     "std::ostringstream a;", "std::stringstream a;", "std::ifstream a(b);", "std::cout << a;"):
            self.assertEqual(self.hits(text, check_sources.LOCALE), 1, text)
        for text in ("std::from_chars(a, b, c);", "text.toFloat(&ok);", "QLocale::c()", "QLocale::system().uiLanguages()", "// std::stof(x)",
                     "QTextStream a;", "std::istream& a"):
            self.assertEqual(self.hits(text, check_sources.LOCALE), 0, text)

    def test_printf(self):
        words = ("printf(\"%s: %d of %5lld\\n\", a, b, c);", "std::fprintf(stderr, \"100 %%\");", "snprintf(a, b, \"%zu\", c);")
        floats = ("printf(\"%f\", x);", "std::fprintf(stderr,\n    \"%s %-5.3g\", a, b);", "snprintf(a, b, format, c);",
                  "printf(\"%Le\", x);")
        for text in words + floats:
            self.assertEqual(self.hits(text, [check_sources.PRINTF]), 1, text)
        for text in words:
            self.assertEqual(self.hits(text, [check_sources.PRINTF_OF_FLOATS]), 0, text)
        for text in floats:
            self.assertEqual(self.hits(text, [check_sources.PRINTF_OF_FLOATS]), 1, text)

    def test_exemptions(self):
        exempt = {("src/a.cpp", "std::ofstream"): "why"}
        self.assertEqual(self.hits("std::ofstream a;", check_sources.LOCALE, exempt), 0)
        self.assertEqual(self.hits("std::ofstream a; std::cout << a;", check_sources.LOCALE, exempt), 1)
        self.assertEqual(self.hits("", check_sources.LOCALE, exempt), 1)
        self.assertEqual(self.hits("", check_sources.LOCALE, {("src/b.cpp", "std::ofstream"): "why"}), 1)

    def test_process(self):
        self.assertEqual(self.hits("std::thread t;", check_sources.PROCESS), 1)
        self.assertEqual(self.hits("thread_local int a;", check_sources.PROCESS), 0)


class Tidy(unittest.TestCase):
    def test_reasons(self):
        self.assertEqual(check_tidy.exclusions("#   a-b  because\nChecks: >\n  -*,\n  x-*,\n  -a-b,\n  y"), [])
        self.assertEqual(len(check_tidy.exclusions("Checks: >\n  -*,\n  -a-b,\n  y")), 1)
        self.assertEqual(len(check_tidy.exclusions("#   a-b  because\nChecks: >\n  -*,\n  y")), 1)

    def test_checks_that_are_not_there(self):
        known = ["a-b", "a-c", "d-e"]
        self.assertEqual(check_tidy.exclusions("#   a-b  because\nChecks: >\n  -*,\n  a-*,\n  -a-b", known), [])
        for excluded, included in (("d-e", "a-*"), ("a-x", "a-*"), ("a-b", "x-*,\n  a-*")):
            text = f"#   {excluded}  because\nChecks: >\n  -*,\n  {included},\n  -{excluded}"
            self.assertEqual(len(check_tidy.exclusions(text, known)), 1, text)

    def test_codes(self):
        self.assertEqual(check_tidy.disabled_codes("lint:\n  #   C0103  why\n  #   W1  why\n  disabled_codes: [C0103,\n W1]"), [])
        self.assertEqual(len(check_tidy.disabled_codes("lint:\n  disabled_codes: [C0103]")), 1)
        self.assertEqual(len(check_tidy.disabled_codes("lint:\n  #   C0103  why\n  disabled_codes: []")), 1)

    def test_nolint(self):
        for good in ("a; // NOLINT(a-b): for this reason", "a; // for this reason NOLINT(a-b)", "// NOLINTEND(a-b)",
                     "// for this reason\n// NOLINTNEXTLINE(a-b)\na;", "    // for this reason\na; // NOLINT(a-b)"):
            self.assertEqual(check_tidy.nolints("f", good), [], good)
        for bad in ("// NOLINT", "// NOLINTNEXTLINE", "// NOLINT: why", "// NOLINT()", "a; // NOLINT(a-b)", "// NOLINTBEGIN(a-b)",
                    "a b;\nc; // NOLINT(a-b)", "//\n// NOLINTNEXTLINE(a-b)", "// for this reason\n\na; // NOLINT(a-b)"):
            self.assertEqual(len(check_tidy.nolints("f", bad)), 1, bad)


if __name__ == "__main__":
    unittest.main()
