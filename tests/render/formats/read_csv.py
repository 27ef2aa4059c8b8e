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
            result += [row for row in with_labels_once(layer) if row]
    return result


def with_labels_once(layer):
    """The rows of a layer; a label over several columns of row headings stands in the first."""
    rows = [list(row) for row in layer["rows"]]
    for row, column, row_span, column_span in layer["spans"]:
        if column < layer["headingColumns"]:
            for i in range(row, row + row_span):
                rows[i][column + 1 : column + column_span] = [""] * (column_span - 1)
    return rows
