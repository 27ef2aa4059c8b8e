#!/usr/bin/env -S python3 -B
"""What is not covered is named, and too much of it is a failure."""

import tempfile
import unittest
from pathlib import Path

import coverage

ROOT = Path("/src")


def lines(*runs, file="core/A.cpp"):
    text = f"SF:/src/{file}\n" + "".join(f"DA:{line},{count}\n" for line, count in runs)
    return coverage.lines_of(text + "end_of_record\n", ROOT)


def branches(*conditions, file="core/A.cpp"):
    listed = [[line, column, line, column + 5, true, false, 0, 0, 4]
              for line, column, true, false in conditions]
    return coverage.branches_of({"data": [{"files": [{"filename": f"/src/{file}", "branches": listed}]}]},
                                ROOT)


def report(measured_lines, measured_branches):
    """As coverage.report(), with something that is covered on each floor besides."""
    return coverage.report(
        {**lines((1, 1), file="cells/B.cpp"), **lines((1, 1), file="render/src/B.cpp"), **measured_lines},
        {**branches((1, 1, 1, 1), file="cells/B.cpp"), **measured_branches})


class CoverageTest(unittest.TestCase):
    def test_all_that_runs_is_enough(self):
        text, enough = report(lines((1, 5), (2, 1)), branches((2, 7, 1, 3)))
        self.assertTrue(enough)
        self.assertEqual(text[:2], [
            "core, cells, codepage and tabulation: 3 of 3 lines (100.00 %), at least 100 % wanted",
            "core, cells, codepage and tabulation: 4 of 4 branches (100.00 %), at least 100 % wanted"])

    def test_a_line_that_never_runs_is_named_and_too_much(self):
        text, enough = report(lines((1, 5), (2, 0)), {})
        self.assertFalse(enough)
        self.assertEqual(text[0], "core/A.cpp:2: never runs")
        self.assertIn("2 of 3 lines (66.67 %), at least 100 % wanted: too few", text[1])

    def test_a_condition_that_is_always_true_is_named_and_too_much(self):
        text, enough = report(lines((1, 5)), branches((1, 7, 4, 0)))
        self.assertFalse(enough)
        self.assertEqual(text[0], "core/A.cpp:1:7: never false")

    def test_a_condition_that_the_compiler_decides_does_not_count(self):
        with tempfile.TemporaryDirectory() as folder:
            source = Path(folder) / "A.cpp"
            source.write_text("if constexpr (kLittle) {\nif (little) {\n", encoding="utf-8")
            listed = [[line, 5, line, 9, 0, 0, 0, 0, 4] for line in (1, 2)]
            found = coverage.branches_of(
                {"data": [{"files": [{"filename": str(source), "branches": listed}]}]}, Path(folder))
        self.assertEqual(found, {"A.cpp": {(2, 5): [0, 0]}})

    def test_instances_of_a_template_count_together(self):
        self.assertTrue(report({}, branches((1, 7, 4, 0), (1, 7, 0, 2)))[1])

    def test_renderers_may_leave_some_lines_out_and_any_branch(self):
        some = lines(*((line, 1) for line in range(1, 99)), (99, 0), (100, 0), file="render/src/B.cpp")
        self.assertTrue(report(some, branches((1, 7, 4, 0), file="render/src/B.cpp"))[1])
        more = lines(*((line, 1) for line in range(1, 98)), (98, 0), (99, 0), (100, 0),
                     file="render/src/B.cpp")
        self.assertFalse(report(more, {})[1])

    def test_other_folders_do_not_count(self):
        self.assertTrue(report(lines((1, 0), file="tools/A.cpp"), {})[1])

    def test_paths_need_not_be_the_shortest(self):
        self.assertEqual(lines((1, 0), file="build/coverage/../../core/A.cpp"), {"core/A.cpp": {1: 0}})

    def test_nothing_at_all_is_too_little(self):
        self.assertFalse(coverage.report({}, {})[1])


if __name__ == "__main__":
    unittest.main()
