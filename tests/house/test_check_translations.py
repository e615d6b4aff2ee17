#!/usr/bin/env python3
"""check_translations.py finds what it is there for. Takes the path of lupdate."""
import pathlib
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).parent))
import check_translations  # noqa: E402

LUPDATE = sys.argv.pop(1) if len(sys.argv) > 1 else check_translations.lupdate_program()


class Mismatch(unittest.TestCase):
    def verdict(self, source, text, is_plural=False):
        return check_translations.mismatch(source, text, is_plural)

    def test_fits(self):
        self.assertEqual(self.verdict("%1 of %2: ", "%2 von %1: "), "")
        self.assertEqual(self.verdict("%n facet(s)", "eine Facette", True), "")

    def test_places(self):
        self.assertIn("%1", self.verdict("%1 of %2", "%1"))
        self.assertIn("%3", self.verdict("%1", "%1 %3"))
        self.assertIn("%1", self.verdict("%n in %1", "%n", True))

    def test_markup_and_names(self):
        self.assertIn("<b>", self.verdict("<b>no</b>", "<b>nein"))
        self.assertIn("--force", self.verdict("--force replaces it", "force ersetzt es"))
        self.assertIn("{tag}", self.verdict("from {tag}", "aus {Kennung}"))

    def test_blanks(self):
        self.assertIn("blanks", self.verdict("line %1: ", "Zeile %1:"))
        self.assertIn("empty", self.verdict("no", " "))

    def test_english_plurals(self):
        self.assertIn("plurals", self.verdict("%n edge(s)", "%n Kante(s)", True))
        self.assertIn("plurals", self.verdict("%n (is|are)", "%n (war|waren)", True))


class Catalogues(unittest.TestCase):
    """A repository of two sources, with catalogues that know them."""

    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.root = pathlib.Path(self.folder.name)
        for name in ("src", "tools", "translations"):
            (self.root / name).mkdir()
        self.write("src/A.cpp", 'auto a = QCoreApplication::translate("A", "one");')
        self.write("tools/B.cpp", 'auto b = Text::counted("%n edge(s)", nullptr, 2);')
        for catalogue in check_translations.CATALOGUES:
            check_translations.update(LUPDATE, self.root, self.root / "translations", catalogue)
        for path in (self.root / "translations").glob("*.ts"):
            text = path.read_text(encoding="utf-8").replace(' type="unfinished"', "")
            forms = text.replace("<numerusform></numerusform>", "<numerusform>%n</numerusform>")
            path.write_text(forms.replace("></translation>", ">eins</translation>"), encoding="utf-8")

    def tearDown(self):
        self.folder.cleanup()

    def write(self, name, text):
        (self.root / name).write_text(text + "\n", encoding="utf-8")

    def problems(self):
        return check_translations.check(LUPDATE, self.root)

    def change(self, name, old, new):
        path = self.root / "translations" / name
        text = path.read_text(encoding="utf-8")
        self.assertIn(old, text)
        path.write_text(text.replace(old, new, 1), encoding="utf-8")

    def test_complete(self):
        self.assertEqual(self.problems(), [])

    def test_new_text(self):
        self.write("src/A.cpp", 'auto a = QCoreApplication::translate("A", "two");')
        self.assertEqual([p for p in self.problems() if "surfaceio_" in p],
                         [f"translations/surfaceio_{language}.ts is not what the sources say: {check_translations.HINT}"
                          for language in ("de", "pl")])

    def test_text_gone(self):
        self.write("tools/B.cpp", "")
        self.assertEqual(len(self.problems()), 2)

    def test_unfinished(self):
        self.change("surfaceio_de.ts", "<translation>", '<translation type="unfinished">')
        self.assertEqual(self.problems(), ["surfaceio_de.ts: 'one' is unfinished"])

    def test_forms(self):
        self.change("surfaceio-program_pl.ts", "<numerusform>%n</numerusform>", "<numerusform></numerusform>")
        self.assertEqual(self.problems(), ["surfaceio-program_pl.ts: '%n edge(s)' is empty"])

    def test_no_catalogue(self):
        (self.root / "translations" / "surfaceio_pl.ts").unlink()
        self.assertEqual(len(self.problems()), 1)


if __name__ == "__main__":
    unittest.main()
