"""What a file of comma-separated values shows."""

import csv


def records(path):
    """All records, [] for the empty line between two tables."""
    with open(path, encoding="utf-8", newline="") as file:
        return list(csv.reader(file))


def expected_records(tables):
    result = []
    for table in tables:
        if result:
            result.append([])
        for layer in table["layers"]:
            if layer["name"]:
                result.append([layer["name"]])
            result += [row for row in layer["rows"] if row]
    return result
