#!/usr/bin/env -S python3 -B
"""Writes a report of what the benchmarks measured, and puts the same figures into a manual page.

usage: report.py RESULTS REPORT.md [PAGE.md PROGRAM]

RESULTS is the folder with a JSON file of each workload. In PAGE.md, what stands between
`<!-- figures: NAME -->` and `<!-- end -->` is replaced; NAME is a workload, chart:CHART, runs, targets
or misses. PROGRAM, the report program, draws the charts, which go into a folder beside the page that has
its name.
"""

import platform
import re
import sys
from pathlib import Path

import charts
import results
import targets


def machine():
    cpu = re.search(r"^model name\s*: (.*)$", Path("/proc/cpuinfo").read_text(), re.MULTILINE)
    memory = re.search(r"^MemTotal:\s*(\d+) kB$", Path("/proc/meminfo").read_text(), re.MULTILINE)
    return (f"{cpu[1] if cpu else platform.machine()}, {int(memory[1]) / 2**20:.0f} GB of memory,"
            f" Linux {platform.release()}")


def runs_table(workloads):
    rows = []
    for name, workload in workloads.items():
        context = workload.context
        commit = context.get("commit", "")
        if context["quick"] == "yes":
            commit += " (quick)"
        rows.append([name, context["date"][:16].replace("T", " "), commit, str(workload.rounds()),
                     f"{context['load_avg'][0]:.1f}", context["compiler"]])
    head = ["workload", "date", "commit", "rounds", "load before", "compiler"]
    cores = max(workload.context["num_cpus"] for workload in workloads.values())
    return f"{machine()}, {cores} cores.\n\n" + results.table(head, rows)


def spread(values):
    median = results.statistics.median(values)
    low, high = results.text_of(min(values)), results.text_of(max(values))
    return f"{results.text_of(median)} ({low}-{high})"


def case_table(workload, case):
    """Median, least and most of all figures of a case."""
    names = sorted({name for figures in workload.figures[case].values() for name in figures})
    rows = []
    for who in workload.competitors(case):
        if who in workload.errors[case]:
            rows.append([who, workload.errors[case][who]] + [""] * (len(names) - 1))
        else:
            figures = workload.figures[case][who]
            rows.append([who] + [spread(figures[name]) if figures[name] else "" for name in names])
    return results.table(["", *names], rows)


def workload_section(workload):
    return "".join(f"**{case}**\n\n{case_table(workload, case)}\n" for case in workload.cases())


def misses(workloads):
    return "".join(f"- {text}: {measured} ({bound})\n"
                   for text, bound, measured, _, verdict in targets.rows(workloads)
                   if verdict.startswith("**missed**")) or "Nowhere.\n"


def write_report(workloads, file):
    text = "# Benchmarks\n\n" + runs_table(workloads)
    text += "\n## Targets\n\n" + targets.targets_table(workloads)
    for name, workload in workloads.items():
        text += f"\n## {name}\n\nMedian, and least to most, of the rounds.\n\n"
        text += workload_section(workload)
    file.write_text(text, encoding="utf-8")


def find(workloads, name):
    return workloads.get(name) or sys.exit(f"there are no results of {name}")


def draw_chart(name, workloads, folder, program):
    """The Markdown that shows the chart."""
    workload, title, unit, bars = charts.CHARTS[name]
    folder.mkdir(exist_ok=True)
    svg = charts.draw(program, title, unit, bars(find(workloads, workload)))
    (folder / f"{name}.svg").write_bytes(svg)
    return f"![{title}, {unit}]({folder.name}/{name}.svg)\n"


def publish(workloads, page, program):
    def figures(mark):
        name = mark[1]
        if name == "runs":
            text = runs_table(workloads)
        elif name == "targets":
            text = targets.targets_table(workloads)
        elif name == "misses":
            text = misses(workloads)
        elif name.startswith("chart:"):
            text = draw_chart(name.removeprefix("chart:"), workloads, page.with_suffix(""), program)
        else:
            text = workload_section(find(workloads, name))
        return f"<!-- figures: {name} -->\n\n{text.rstrip()}\n\n<!-- end -->"

    old = page.read_text(encoding="utf-8")
    new = re.sub(r"<!-- figures: (\S+) -->.*?<!-- end -->", figures, old, flags=re.DOTALL)
    page.write_text(new, encoding="utf-8")


def main():
    if len(sys.argv) not in (3, 5):
        sys.exit(__doc__)
    workloads = results.load(sys.argv[1])
    if not workloads:
        sys.exit(f"{sys.argv[1]}: no results")
    write_report(workloads, Path(sys.argv[2]))
    if len(sys.argv) == 5:
        publish(workloads, Path(sys.argv[3]), sys.argv[4])


if __name__ == "__main__":
    main()
