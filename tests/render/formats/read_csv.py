"""What a file of comma-separated values shows."""

import csv
import itertools


def records(path):
    """All records, [] for the empty line between two tables."""
    with open(path, encoding="utf-8", newline="") as file:
        return list(csv.reader(file))


def unique_names(titles):
    names = []
    for title in titles:
        numbered = (f"{title} {number}" for number in itertools.count(2))
        names.append(next(n for n in itertools.chain([title], numbered) if n not in names))
    return names


def expected_records(tables):
    result = []
    for table, name in zip(tables, unique_names([table["title"] for table in tables])):
        if result:
            result.append([])
        shown = []
        for layer in table["layers"]:
            if layer["name"]:
                shown.append([layer["name"]])
            shown += [row for row in with_labels_once(layer) if row]
        if not any(row for layer in table["layers"] for row in layer["rows"]) and table["dimensions"]:
            shown.insert(0, table["dimensions"])
        result += [[name, *record] for record in shown]
    return result


def with_labels_once(layer):
    """The rows of a layer; a label over several columns of row headings is in the first."""
    rows = [list(row) for row in layer["rows"]]
    for row, column, row_span, column_span in layer["spans"]:
        if column < layer["headingColumns"]:
            for i in range(row, row + row_span):
                rows[i][column + 1 : column + column_span] = [""] * (column_span - 1)
    return rows
