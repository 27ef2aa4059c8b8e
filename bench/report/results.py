"""What the programs measured: one JSON file for each workload."""

import json
import statistics
from collections import defaultdict
from pathlib import Path

# What Google Benchmark says about each run besides the counters, which are the figures.
ITS_OWN = {
    "name", "family_index", "per_family_instance_index", "run_name", "run_type", "repetitions",
    "repetition_index", "threads", "iterations", "real_time", "cpu_time", "time_unit",
    "error_occurred", "error_message",
}


class Workload:
    """The figures of one workload, over all rounds.

    figures[case][competitor][figure] is the list of what the rounds gave; errors[case][competitor]
    says why there are none.
    """

    def __init__(self, file):
        document = json.loads(file.read_text(encoding="utf-8"))
        self.stem = file.stem
        self.context = document["context"]
        self.figures = defaultdict(lambda: defaultdict(lambda: defaultdict(list)))
        self.errors = defaultdict(dict)
        for run in document["benchmarks"]:
            case, competitor = run["run_name"].removesuffix("/iterations:1").rsplit("/", 1)
            if "error_message" in run:
                self.errors[case][competitor] = run["error_message"]
                continue
            for figure in run.keys() - ITS_OWN:
                self.figures[case][competitor][figure].append(run[figure])

    def cases(self):
        return sorted(self.figures.keys() | self.errors.keys())

    def competitors(self, case):
        """All competitors of a case, this library first."""
        names = self.figures[case].keys() | self.errors[case].keys()
        return sorted(names, key=lambda name: (not name.startswith("lakresvos"), name.lower()))

    def rounds(self):
        return max((len(values) for competitors in self.figures.values()
                    for figures in competitors.values() for values in figures.values()), default=0)

    def median(self, case, competitor, figure):
        """None when it was not measured."""
        values = self.figures[case][competitor][figure] if competitor in self.figures[case] else []
        return statistics.median(values) if values else None


def load(folder):
    """The workloads by name, as far as there are results."""
    return {file.stem: Workload(file) for file in sorted(Path(folder).glob("*.json"))}


def text_of(value):
    """A figure with three digits, as far as they say anything."""
    if value == 0 or abs(value) >= 100:
        return f"{value:,.0f}"
    return f"{value:.1f}" if abs(value) >= 10 else f"{value:.2f}"


def table(head, rows):
    """A Markdown table."""
    lines = [head, ["---"] * len(head), *rows]
    return "".join("| " + " | ".join(line) + " |\n" for line in lines)
