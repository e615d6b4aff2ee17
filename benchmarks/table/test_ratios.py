#!/usr/bin/env python3
"""Ratios, verdicts and tables, on measurements made up here."""
import json
import pathlib
import sys
import unittest

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).parent))
import plot  # noqa: E402
import ratios  # noqa: E402


def measured(*processor, peak=0, vertices=50, facets=100, lacks="", **more):
    return {"processor": list(processor), "clock": [2 * one for one in processor], "peak": peak, "vertices": vertices,
            "facets": facets, "lacks": lacks, **more}


def cells(line):
    return [cell.strip() for cell in line.strip("|").split("|")]


def row_of(lines, row):
    return next(cells(line) for line in lines if cells(line)[0] == row)


class Ratios(unittest.TestCase):
    results = {"ours": [measured(12, 10), measured(11, 30)], "floor": [measured(8, 9), measured(5, 6)],
               "vtk": [measured(80)]}

    def test_best_of_all_rounds(self):
        self.assertEqual(ratios.best(self.results["ours"]), 10)
        self.assertEqual(ratios.best(self.results["ours"], "clock"), 20)

    def test_ratio(self):
        self.assertEqual(ratios.ratio(self.results, "ours", "floor"), 2)
        self.assertEqual(ratios.ratio(self.results, "vtk", "ours"), 8)

    def test_missing_peer(self):
        self.assertIsNone(ratios.ratio(self.results, "assimp", "ours"))
        summary = ratios.summary("ply-read", self.results)
        self.assertEqual(summary["times faster than"], {"vtk": 8})

    def test_missing_ours(self):
        summary = ratios.summary("ply-read", {"vtk": [measured(80)]})
        self.assertIsNone(summary["times floor"])
        self.assertEqual(summary["times faster than"], {})
        self.assertEqual(len(ratios.time_table({"ply-read": summary})), 2)
        self.assertEqual(len(ratios.memory_table({"ply-read": summary})), 2)

    def test_for_json(self):
        summary = ratios.summary("ply-read", self.results)
        self.assertEqual(json.loads(json.dumps(summary)), summary)


class Verdicts(unittest.TestCase):
    def verdict(self, row, **best):
        results = {name.replace("_", "-"): [measured(value)] for name, value in best.items()}
        return ratios.is_met(row, ratios.summary(row, results))

    def test_all_met(self):
        self.assertIs(self.verdict("ply-read", ours=10, floor=5, vtk=120, assimp=130), True)

    def test_slower_than_the_floor_allows(self):
        self.assertIs(self.verdict("ply-read", ours=10, floor=4.9, vtk=120, assimp=130), False)

    def test_not_far_enough_ahead_of_one_peer(self):
        self.assertIs(self.verdict("ply-read", ours=10, floor=5, vtk=119, assimp=130), False)

    def test_missing_peer_is_no_verdict(self):
        self.assertIs(self.verdict("ply-read", ours=10, floor=5), True)
        self.assertIsNone(self.verdict("ply-read", ours=10))

    def test_no_target(self):
        self.assertIsNone(self.verdict("obj-read-positions", ours=10, floor=1))

    def test_targets_name_contenders_that_exist(self):
        for _, least in ratios.TARGETS.values():
            self.assertLessEqual(set(least), {"vtk", "assimp", "admesh", "meshio-medit"})
        self.assertLessEqual(set(ratios.FILES), set(ratios.TARGETS))
        self.assertLessEqual(set(plot.ROWS), set(ratios.TARGETS))


class Flaws(unittest.TestCase):
    reference = measured(1, vertices=1000, facets=2000)

    def test_same(self):
        self.assertIsNone(ratios.flaw(self.reference, self.reference))

    def test_few_vertices_more_or_less(self):
        self.assertIsNone(ratios.flaw(measured(1, vertices=1010, facets=2000), self.reference))
        self.assertEqual(ratios.flaw(measured(1, vertices=1011, facets=2000), self.reference),
                         "1011 vertices, not 1000")

    def test_half_of_the_facets(self):
        self.assertEqual(ratios.flaw(measured(1, vertices=1000, facets=1000), self.reference),
                         "1000 facets, not 2000")

    def test_not_merged(self):
        soup = measured(1, vertices=6000, facets=2000)
        self.assertEqual(ratios.flaw(soup, self.reference), "6000 vertices, not 1000")
        self.assertIsNone(ratios.flaw({**soup, "lacks": "merging"}, self.reference))

    def test_nothing_written(self):
        written = {**self.reference, "bytes": 5000}
        self.assertIsNone(ratios.flaw({**self.reference, "bytes": 3000}, written))
        self.assertEqual(ratios.flaw({**self.reference, "bytes": 2999}, written), "wrote 2999 bytes, not 5000")
        self.assertEqual(ratios.flaw(self.reference, written), "wrote 0 bytes, not 5000")


class Memory(unittest.TestCase):
    def table(self, peak):
        results = {"ours": [measured(1, peak=peak, result=1024 * 1024)], "floor": [measured(1, peak=2048)]}
        return ratios.memory_table({"stl-read": ratios.summary("stl-read", results, 3 * 1024 * 1024)})

    def test_result_file_and_result_again(self):
        self.assertEqual(row_of(self.table(5 * 1024), "stl-read"), ["stl-read", "5", "5", "2", "", "yes"])
        self.assertEqual(row_of(self.table(5 * 1024 + 1), "stl-read")[-1], "**no**")

    def test_no_bound_for_writers(self):
        self.assertIsNone(ratios.most_memory("stl-write", 1000, 1000))


class Tables(unittest.TestCase):
    def rows(self):
        results = {"ours": [measured(10)], "floor": [measured(8)], "assimp": [measured(25, lacks="merging")],
                   "vtk": [measured(20)]}
        return {"stl-read-ascii": ratios.summary("stl-read-ascii", results)}

    def test_time(self):
        self.assertEqual(row_of(ratios.time_table(self.rows()), "stl-read-ascii"),
                         ["stl-read-ascii", "10.0", "20.0", "1.25", "1.5", "vtk 2.0 (≥ 3.5), assimp* 2.5 (≥ 1.2)",
                          "**no**"])

    def test_what_is_left_out(self):
        self.assertEqual(ratios.lacks_lines({1: self.rows()}), ["- assimp without merging: stl-read-ascii"])

    def test_every_line_has_as_many_cells_as_the_head(self):
        for lines in (ratios.time_table(self.rows()), ratios.memory_table(self.rows())):
            self.assertEqual(len({line.count("|") for line in lines}), 1)

    def growth(self, large):
        all_rows = {size: {"stl-read": ratios.summary("stl-read", {"ours": [measured(best)]})}
                    for size, best in ((1000, 1.0), (4000, large))}
        return ratios.growth_table(all_rows)

    def test_growth(self):
        self.assertEqual(row_of(self.growth(6), "stl-read"), ["stl-read", "1000", "1500", "1.50", "1.5", "yes"])
        self.assertEqual(row_of(self.growth(6.1), "stl-read")[-1], "**no**")

    def test_no_growth_from_one_size(self):
        self.assertIsNone(ratios.growth({1000: self.rows()}, "stl-read-ascii"))


class Plots(unittest.TestCase):
    def script(self, name):
        results = {"vtk": [measured(20)], "floor": [measured(8)], "ours": [measured(10)]}
        return plot.script({1000: {"stl-read": ratios.summary("stl-read", results)}}, pathlib.Path(name))

    def test_ours_first(self):
        at = [self.script("a.svg").index(f"title '{name}'") for name in ("ours", "floor", "vtk")]
        self.assertEqual(at, sorted(at))

    def test_points(self):
        self.assertIn("$stl_read_ours << EOD\n1000 10\nEOD\n", self.script("a.svg"))

    def test_kind_of_picture(self):
        self.assertIn("set terminal svg", self.script("a.svg"))
        self.assertIn("set terminal pngcairo", self.script("a.png"))


if __name__ == "__main__":
    unittest.main()
