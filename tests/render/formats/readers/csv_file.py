"""What a file of comma-separated values shows, read by Python's csv."""

import csv

import read_csv
from readers import description


def shown(directory):
    """All records; an empty line and a record of one empty field are []."""
    with open(directory / "tables.csv", encoding="utf-8", newline="") as file:
        return [record if record != [""] else [] for record in csv.reader(file, strict=True)]


def expected(items):
    tables = [table for table in description.tables(items) if not table["forPrograms"]]
    names = read_csv.unique_names([description.shown(table["title"]) for table in tables])
    result = []
    for table, name in zip(tables, names):
        if table is not tables[0]:
            result.append([])
        for record in records(table):
            named = len(tables) > 1 and isinstance(record, list)
            result.append([name, *record] if named else record)
    return [[] if isinstance(record, list) and record == [""] else record for record in result]


def records(table):
    """The first one of a table that starts without a grid names its dimensions."""
    if table["dimensions"] and not any(layer["columns"] for layer in table["layers"][:1]):
        yield description.Something()
    for layer in table["layers"]:
        name, _ = description.layer_line(layer, lambda text: (description.shown(text), ""))
        if name:
            yield [name]
        if layer["columns"]:
            for row in description.once(layer):
                yield [description.shown(text) for text in row]
