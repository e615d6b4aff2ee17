#!/usr/bin/env python3
"""Tests of counts.py: what it reads out of callgrind's file, and what it lets pass."""

import unittest

import counts

DUMPS = """version: 1
desc: Trigger: Client Request: read 10
events: Ir
fn=(1) x
1 5
summary: 1500
desc: Trigger: Client Request: read 20
summary: 2000
desc: Trigger: Client Request: write 10
summary: 100
desc: Trigger: Client Request: write 20
summary: 300
desc: Trigger: Program termination
summary: 999999
"""


class Counts(unittest.TestCase):
    """The parts that need no valgrind."""

    def test_the_difference_counts(self):
        self.assertEqual(counts.per_element(counts.parse(DUMPS)), {"read": 50.0, "write": 20.0})

    def test_one_size_is_not_enough(self):
        with self.assertRaises(ValueError):
            counts.per_element({"read 10": 5})

    def test_the_record_passes(self):
        self.assertEqual(counts.faults({"read": 100.0}, {"read": 100.0}), [])

    def test_less_passes(self):
        self.assertEqual(counts.faults({"read": 100.0}, {"read": 50.0}), [])

    def test_five_percent_more_pass(self):
        self.assertEqual(counts.faults({"read": 100.0}, {"read": 105.0}), [])

    def test_more_than_that_fails(self):
        found = counts.faults({"read": 100.0, "write": 10.0}, {"read": 105.1, "write": 10.0})
        self.assertEqual(found, ["read: 105.1 instructions for an element, 100.0 on record (+5.1 %)"])

    def test_a_row_of_hardly_any_instructions_has_slack(self):
        self.assertEqual(counts.faults({"read": 0.0, "write": 5.0}, {"read": 0.9, "write": 5.9}), [])
        self.assertEqual(len(counts.faults({"read": 0.0, "write": 5.0}, {"read": 1.1, "write": 6.1})), 2)

    def test_rows_come_and_go_only_on_record(self):
        self.assertEqual(counts.faults({}, {"read": 1.0}), ["read: not on record; run ./dev counts"])
        self.assertEqual(counts.faults({"read": 1.0}, {}), ["read: on record, but not counted"])


if __name__ == "__main__":
    unittest.main()
