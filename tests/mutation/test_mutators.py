#!/usr/bin/env python3
"""The mistakes are those that are meant, at the place that is meant."""
import pathlib
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).parent))
import mutators  # noqa: E402


def results(text, kind):
    return [m.apply(text) for m in mutators.find("a.cpp", text) if m.kind == kind]


class Kinds(unittest.TestCase):
    def check(self, kind, text, *expected):
        self.assertEqual(results(text, kind), list(expected))

    def test_comparison(self):
        self.check("comparison", "a < b", "a <= b")
        self.check("comparison", "a >= b", "a > b")
        self.check("comparison", "a == b && c != d", "a != b && c != d", "a == b && c == d")
        self.check("comparison", "std::vector<int> v; s << 1; p->q; template <typename T>")

    def test_condition(self):
        self.check("condition", "if (f(a) && b)", "if (!(f(a) && b))")
        self.check("condition", "while (a)", "while (!(a))")
        self.check("condition", "if (int const a = f())")
        self.check("condition", "if (A const a = f(); !a)")
        self.check("condition", "if constexpr (a)")

    def test_logic(self):
        self.check("logic", "a && b || c", "a || b || c", "a && b && c")
        self.check("logic", "T&& a")

    def test_off_by_one(self):
        self.check("off by one", "a + 1", "a")
        self.check("off by one", "a[b - 1]", "a[b]")
        self.check("off by one", "a + 10")
        self.check("off by one", "a + 1.5f")

    def test_sign(self):
        self.check("sign", "a + b", "a - b")
        self.check("sign", "f(a) - b[i] + c", "f(a) + b[i] + c", "f(a) - b[i] - c")
        self.check("sign", "a ? -1 : +1")

    def test_constant(self):
        self.check("constant", "a[3]", "a[4]")
        self.check("constant", "f32 = 0x10 + 1.5f + 2e5 + 1u")
        self.check("constant", "0 < 1", "1 < 1", "0 < 2")

    def test_statement(self):
        for statement in ("f(a);", "a.b->c(d, e);", "a = b;", "a.b += c * d;", "a[i] = b;", "++i;", "--a.b;",
                          "qWarning() << f(a);", "u::f(a);", "break;"):
            text = f"{{\n    {statement}\n}}"
            expected = [] if statement == "break;" else ["{\n    {}\n}"]
            self.assertEqual(results(text, "statement"), expected, statement)

    def test_no_statement(self):
        for other in ("int a = b;", "auto const& a = f(b);", "T a(b);", "T a{b};", "return f(a);", "a.reserve(b);",
                      "if (a) b();", "f(a,", "for (;;)", "std::vector<int> a;", "using a = b;", "f(a) {"):
            self.assertEqual(results(f"{{\n    {other}\n}}", "statement"), [], other)

    def test_answer(self):
        self.check("answer", "return true;", "return false;")
        self.check("answer", "return false;", "return true;")
        self.check("answer", "bool a = true;")


class NoCode(unittest.TestCase):
    def test_comments_and_literals(self):
        text = '// a < b\n/* if (a)\n1 */ "a < b \\" 1" \'1\' u"1"_s u\'/\'\n#if a < 1\nstatic_assert(a < 1\n + 1);'
        self.assertEqual(mutators.find("a.cpp", text), [])
        self.assertEqual(len(mutators.code_of(text)), len(text))

    def test_separated_digits(self):
        self.assertEqual(mutators.find("a.cpp", "100'000"), [])

    def test_describe(self):
        text = "x\n    if (a <\n b) // why\n"
        (mutation,) = [m for m in mutators.find("a.cpp", "if (a) b = 1;") if m.kind == "condition"]
        self.assertEqual(mutation.describe(), "if (a) b = 1; → if (!(a)) b = 1;")
        (mutation,) = [m for m in mutators.find("a.cpp", text) if m.kind == "condition"]
        self.assertEqual((mutation.line, mutation.apply(text)), (2, "x\n    if (!(a <\n b)) // why\n"))


class Choice(unittest.TestCase):
    TEXT = "{\n    if (a < 1 && b == 2)\n        f(c + 1);\n    return true;\n}\n"

    def choose(self, seed, most=100):
        found = [m for path in ("a.cpp", "b.cpp") for m in mutators.find(path, self.TEXT)]
        return list(mutators.choose(found, seed, most))

    def test_repeatable(self):
        self.assertEqual(self.choose(3), self.choose(3))
        self.assertNotEqual([self.choose(seed) for seed in range(5)], [self.choose(1)] * 5)

    def test_steady(self):
        other = mutators.find("c.cpp", "a < b")
        found = [m for path in ("a.cpp", "b.cpp") for m in mutators.find(path, self.TEXT)]
        chosen = [m for m in mutators.choose(other + found, 3, 100) if m.path != "c.cpp"]
        self.assertEqual(sorted(chosen, key=str), sorted(self.choose(3), key=str))

    def test_no_line_twice(self):
        places = [(m.path, m.line) for m in self.choose(1)]
        self.assertEqual(len(places), len(set(places)))
        self.assertEqual(len(places), 6)

    def test_most_of_file(self):
        self.assertEqual(sorted(m.path for m in self.choose(1, 2)), ["a.cpp"] * 2 + ["b.cpp"] * 2)


if __name__ == "__main__":
    unittest.main()
