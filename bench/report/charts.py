"""Bar charts of medians, drawn by the report program."""

import base64
import csv
import json
import subprocess
import tempfile
from pathlib import Path


def draw(program, title, unit, bars):
    """The chart as SVG. `bars` are (category, series, value)."""
    with tempfile.TemporaryDirectory() as folder:
        data = Path(folder) / "data.csv"
        with data.open("w", encoding="utf-8", newline="") as out:
            writer = csv.writer(out)
            writer.writerow(["what", "who", unit])
            writer.writerows(bars)
        document = subprocess.run(
            [program, data, "--table", "what ~ who", "--statistics", f"mean:`{unit}`", "--chart",
             "--title", title, "--format", "json"],
            check=True, capture_output=True, text=True).stdout
    parts = json.loads(document)["parts"]
    image = next(part["image"] for part in parts if part["type"] == "chart")
    return base64.b64decode(image)


def store_bars(case):
    def bars(workload):
        for name in ("write ns", "read ns", "iterate ns", "destroy ns"):
            for who in workload.competitors(case):
                value = workload.median(case, who, name)
                if value is not None:
                    yield name.removesuffix(" ns"), who, value
    return bars


def job_bars(cases):
    def bars(workload):
        for case in cases:
            for who in workload.competitors(case):
                value = workload.median(case, who, "ms")
                if value is not None:
                    yield case, who, value
    return bars


# Name: workload, title, unit, bars.
CHARTS = {
    "store-full": ("OmPivotTable", "100 x 100 x 100 cells, written in order", "ns a cell",
                   store_bars("100x100x100 full/in order")),
    "store-sparse": ("OmPivotTable", "200 x 200 x 50 x 20 positions, 1 % with cells, written shuffled",
                     "ns a cell", store_bars("200x200x50x20 at 1 %/shuffled")),
    "program": ("Program", "A CSV file of 1,000,000 rows to a table in HTML", "ms",
                job_bars(["counts", "sums"])),
    "renderers": ("Renderers", "1,000,000 numbers to a file", "ms", job_bars(["html", "csv", "text"])),
}
