#!/usr/bin/env -S python3 -B
"""The report takes medians over the rounds, divides them, and says what is met, missed or not measured."""

import json
import tempfile
import unittest
from pathlib import Path

import report
import results
from targets import Target, ratio


def run(name, **figures):
    return {"run_name": f"{name}/iterations:1", "real_time": 1.0, **figures}


class ReportTest(unittest.TestCase):
    def setUp(self):
        self.folder = Path(self.enterContext(tempfile.TemporaryDirectory()))

    def load(self, *runs, quick="no"):
        context = {"date": "2020-02-20T20:20:20", "quick": quick, "load_avg": [0.5], "num_cpus": 2,
                   "compiler": "C 1", "commit": "abc"}
        file = self.folder / "Work.json"
        file.write_text(json.dumps({"context": context, "benchmarks": runs}), encoding="utf-8")
        return results.load(self.folder)

    def row(self, workloads, cases=("small",), limit=2.0, at_least=False):
        return Target("speed", "Work", cases, limit, ratio("ns", "lakresvos", "peer"),
                      at_least).row(workloads)

    def test_medians_are_divided(self):
        workloads = self.load(
            *(run("small/lakresvos", ns=ns) for ns in (3, 900, 1)),
            *(run("small/peer", ns=ns) for ns in (2, 0.1, 2)))
        self.assertEqual(self.row(workloads), ["speed", "at most 2", "1.50", "", "met"])
        self.assertEqual(self.row(workloads, limit=1.4)[4], "**missed**")
        self.assertEqual(self.row(workloads, limit=1.4, at_least=True)[4], "met")
        self.assertEqual(self.row(workloads, at_least=True)[4], "**missed**")

    def test_the_worst_case_decides(self):
        workloads = self.load(
            run("small/lakresvos", ns=1), run("small/peer", ns=1),
            run("large/lakresvos", ns=5), run("large/peer", ns=2))
        cases = ["small", "large"]
        self.assertEqual(self.row(workloads, cases),
                         ["speed", "at most 2", "1.00 to 2.50", "large", "**missed**"])
        self.assertEqual(self.row(workloads, cases, limit=1.5, at_least=True)[3:],
                         ["small", "**missed**"])

    def test_a_missing_peer_is_not_a_miss(self):
        workloads = self.load(run("small/lakresvos", ns=1),
                              run("small/peer", error_message="Rscript is missing"))
        self.assertEqual(self.row(workloads)[2:], ["-", "", "not measured"])
        self.assertIn("| peer | Rscript is missing |",
                      report.case_table(workloads["Work"], "small"))
        self.assertEqual(self.row({})[4], "not measured")

    def test_a_failure_of_the_library_is_a_miss(self):
        workloads = self.load(run("small/lakresvos", error_message="out of memory"),
                              run("small/peer", ns=1))
        self.assertEqual(self.row(workloads)[4], "**missed**: out of memory")

    def test_small_workloads_meet_and_miss_nothing(self):
        workloads = self.load(run("small/lakresvos", ns=1), quick="yes")
        self.assertEqual({row[4] for row in report.targets.rows(workloads)}, {"not measured"})

    def test_a_page_gets_the_figures_between_its_marks(self):
        workloads = self.load(run("small/lakresvos", ns=1), run("small/lakresvos", ns=4))
        page = self.folder / "page.md"
        page.write_text("Before.\n<!-- figures: Work -->\nold\n<!-- end -->\nAfter.\n")
        report.publish(workloads, page, program=None)
        self.assertEqual(page.read_text(), "Before.\n<!-- figures: Work -->\n\n**small**\n\n"
                         "|  | ns |\n| --- | --- |\n| lakresvos | 2.50 (1.00-4.00) |\n\n"
                         "<!-- end -->\nAfter.\n")


unittest.main()
