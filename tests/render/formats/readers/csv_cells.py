"""What a file with a record for each stored cell says, read by Python's csv."""

import csv

import read_csv
from readers import description


def shown(directory):
    """All records; one of one empty field is []."""
    with open(directory / "cells.csv", encoding="utf-8", newline="") as file:
        return [record if record != [""] else [] for record in csv.reader(file, strict=True)]


def expected(items):
    tables = [Table(table) for table in description.tables(items) if not table["forPrograms"]]
    if not tables:
        return []
    header = Header(tables)
    result = [header.names]
    for table, name in zip(tables, read_csv.unique_names([table.title for table in tables])):
        result += header.records(table, name)
    return [[] if record == [""] else record for record in result]


class Number:
    """The text of a number, however it is written; none for one that is missing."""

    def __init__(self, exact):
        self.value = float.fromhex(exact)

    def __repr__(self):
        return repr(self.value)

    def __eq__(self, field):
        if field == "" or self.value != self.value:
            return field == "" and self.value != self.value
        return float(field) == self.value


class Dimension:
    """The names of its levels, and by subscript the labels of each category in them."""

    def __init__(self, described):
        self.label = described["label"]
        paths = [category["path"] for category in described["categories"]]
        self.levels = max(map(len, paths), default=0)
        if self.levels == 0 and described["isGroup"]:
            self.levels = max(len(described["parts"]), 1)
        self.names = self.names_of(described["parts"])
        self.has_total = any(category["isTotal"] for category in described["categories"])
        self.categories = {}  # of one subscript the first
        for category in described["categories"]:
            *groups, last = category["path"] or [None]
            gap = [None] * (self.levels - len(category["path"]))
            fields = [*groups, *gap, last] if category["path"] else gap
            self.categories.setdefault(category["subscript"], (fields, category["isTotal"]))

    def names_of(self, parts):
        if self.levels > 1 and len(parts) == self.levels:
            return list(map(description.shown, parts))
        name = description.shown(self.label)
        return [f"{name} {i + 1}" if self.levels > 1 else name for i in range(self.levels)]


class Table:
    def __init__(self, described):
        self.title = description.shown(described["title"])
        self.dimensions = list(map(Dimension, described["categories"]))
        self.cells = described["cells"]
        self.footnotes = description.Footnotes(described)
        self.notes = [number for dimension in self.dimensions
                      for number in self.footnotes.of(dimension.label)] + described["titleNotes"]
        self.columns = []  # keys of the header's: the name, and how many of the table had it before
        for name in (name for dimension in self.dimensions for name in dimension.names):
            self.columns.append((name, sum(name == other for other, _ in self.columns)))


class Header:
    def __init__(self, tables):
        self.columns = list(dict.fromkeys(key for table in tables for key in table.columns))
        self.has_tables = len(tables) > 1
        self.has_totals = any(d.has_total for table in tables for d in table.dimensions)
        self.has_notes = any(table.footnotes.texts for table in tables)
        self.names = read_csv.unique_names(
            ["table"] * self.has_tables + [name for name, _ in self.columns] +
            ["totals"] * self.has_totals + ["value"] + ["footnotes"] * self.has_notes)

    def name_of(self, key):
        return self.names[self.has_tables + self.columns.index(key)]

    def records(self, table, name):
        for cell in table.cells:
            found = [d.categories.get(i) for d, i in zip(table.dimensions, cell["index"])]
            if None not in found:
                yield [name] * self.has_tables + self.fields(table, cell, found)

    def fields(self, table, cell, categories):
        labels = [label for fields, _ in categories for label in fields]
        by_column = dict(zip(table.columns, map(description.shown, labels)))
        fields = [by_column.get(key, "") for key in self.columns]
        if self.has_totals:
            fields.append(self.totals(table, [is_total for _, is_total in categories]))
        fields.append(Number(cell["exact"]) if cell["exact"] else description.shown(cell["text"]))
        if self.has_notes:
            notes = [number for text in [cell["text"], *labels] for number in table.footnotes.of(text)]
            texts = [table.footnotes.texts[number] for number in dict.fromkeys(notes + table.notes)]
            fields.append(listed(texts))
        return fields

    def totals(self, table, are_totals):
        names = []
        columns = iter(table.columns)
        for dimension, is_total in zip(table.dimensions, are_totals):
            own = [self.name_of(next(columns)) for _ in dimension.names]
            names += [listed(own)] if is_total else []
        return listed(names)


def listed(texts):
    """With semicolons between, from the first one on that is not empty."""
    text = ""
    for each in texts:
        text += ("; " if text else "") + each
    return text
