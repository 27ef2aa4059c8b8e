"""Writes one document in every format, reads the files back and compares what they show cell by
cell with the grids of the tables.

usage: compare_formats.py WRITER DIRECTORY
"""

import itertools
import json
import pathlib
import subprocess
import sys

import read_csv
import read_html
import read_json
import read_markdown
import read_xlsx

MOST_DIFFERENCES = 10


def differences(shown, expected, place=""):
    """Where two nested structures differ, as lines of text."""
    if isinstance(shown, list) and isinstance(expected, list):
        for i, (one, other) in enumerate(itertools.zip_longest(shown, expected)):
            yield from differences(one, other, f"{place}[{i}]")
    elif isinstance(shown, dict) and isinstance(expected, dict):
        for key in expected:
            yield from differences(shown.get(key), expected[key], f"{place}.{key}")
    elif shown != expected:
        yield f"{place} shows {shown!r} instead of {expected!r}"


def main():
    writer, directory = sys.argv[1], pathlib.Path(sys.argv[2])
    subprocess.run([writer, directory], check=True)
    tables = json.loads((directory / "grids.json").read_text(encoding="utf-8"))
    comparisons = {
        "CSV": (read_csv.records(directory / "tables.csv"), read_csv.expected_records(tables)),
        "HTML": (
            read_html.tables(directory / "document.html"),
            read_html.expected_tables(tables),
        ),
        "JSON": (
            read_json.tables(directory / "document.json"),
            read_json.expected_tables(tables),
        ),
        "Markdown": (
            read_markdown.pipe_tables(directory / "document.md"),
            read_markdown.expected_tables(tables),
        ),
        "XLSX": (
            read_xlsx.tables(directory / "document.xlsx", tables),
            read_xlsx.expected_tables(tables),
        ),
    }
    failed = False
    for name, (shown, expected) in comparisons.items():
        print(f"{name}: {len(expected)} compared")
        for difference in itertools.islice(differences(shown, expected), MOST_DIFFERENCES):
            failed = True
            print(f"{name}{difference}")
    return failed


if __name__ == "__main__":
    sys.exit(main())
