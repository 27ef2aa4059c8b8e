"""Changes what random documents are said to say, one text, number or mark at a time, and checks
that every reader notices.

usage: readers_notice_changes.py WRITER DIRECTORY
"""

import pathlib
import sys

import compare_random_documents
from compare_formats import differences
from readers import description, workbook

PAGES = {"HTML", "Markdown", "XLSX"}
CHANGED = "something else"
MOST_CHANGES = 300  # of a document: the time grows with the square


class Change:
    """Other values in one place of a description, and who is to notice them."""

    def __init__(self, what, place, values, readers):
        self.what, self.place, self.values, self.readers = what, place, values, readers

    def __enter__(self):
        self.former = dict(self.place)
        self.place.update(self.values)

    def __exit__(self, *_):
        self.place.update(self.former)


def changes_in(items):
    for item in items:
        kind = item["kind"]
        if kind in ("heading", "procedure"):
            yield from change(kind, item["text"], PAGES)
        elif kind in ("pageTitle", "text"):
            yield from change(kind, item["text"], PAGES | {"JSON"})
            yield from change("label", item.get("label"), PAGES)
        elif kind == "table":
            yield from changes_in_table(item)


def change(what, text, readers):
    if text:
        yield Change(what, text, {"bytes": CHANGED}, readers)


def change_notes(what, text, table):
    """A text that had no marks gets one, and one that had loses them."""
    if description.shown(text).strip() and table["footnotes"]:
        notes = [] if text["notes"] else [0]
        yield Change(f"notes of {what}", text, {"notes": notes}, {"HTML", "XLSX"})


def changes_in_table(table):
    tabular = {"CSV"} if not table["forPrograms"] else set()
    yield from change("title", table["title"], PAGES)
    yield from change("caption", table["caption"], PAGES)
    yield from change_notes("title", table["title"], table)
    yield from change_notes("caption", table["caption"], table)
    for footnote in table["footnotes"]:
        yield from change("footnote", footnote["text"], PAGES)
        yield from change("marker", footnote["marker"], {"HTML", "XLSX"})
    for layer in table["layers"]:
        for part in layer["name"]:
            yield from change("layer dimension", part["dimension"], PAGES | tabular)
            for category in part["categories"]:
                yield from change("layer category", category, PAGES | tabular)
                yield from change_notes("layer category", category, table)
        for i, row in enumerate(layer["rows"]):
            for j, position in enumerate(row):
                if position.get("start") == [i, j]:
                    yield from change("heading cell", position["text"], PAGES | {"JSON"} | tabular)
                    yield from change_notes("heading cell", position["text"], table)
                elif "start" not in position:
                    yield from changes_of_cell(position, PAGES | {"JSON"} | tabular)
                    yield from change_notes("cell", position["text"], table)
    if tabular:
        yield from changes_of_stored_cells(table)


def changes_of_stored_cells(table):
    """Of those that have all categories."""
    known = [{category["subscript"] for category in dimension["categories"]}
             for dimension in table["categories"]]
    for cell in table["cells"]:
        if all(subscript in there for subscript, there in zip(cell["index"], known)):
            text = {**cell["text"], "bytes": CHANGED}
            yield Change("stored cell", cell, {"text": text, "exact": None}, {"CSV of cells"})


def changes_of_cell(position, readers):
    text, number = position["text"], position["number"]
    if not text:
        return
    other = {"text": {**text, "bytes": CHANGED}, "number": None}
    yield Change("cell", position, other, readers)
    if not text["notes"] and workbook.number_at(position):
        yield Change("number", number, {"value": -number["value"] or 1}, {"XLSX"})
        if number["decimals"] < workbook.MOST_DECIMALS:
            yield Change("decimals", number, {"decimals": number["decimals"] + 1}, {"XLSX"})


def main():
    unnoticed = []
    seen = set()
    for directory in compare_random_documents.write(sys.argv[1], pathlib.Path(sys.argv[2])):
        items = description.load(directory)
        changes = list(changes_in(items))
        if len(changes) > MOST_CHANGES:
            continue
        shown = {name: reader.shown(directory)
                 for name, reader in compare_random_documents.READERS.items()}
        for each in changes:
            seen.add(each.what)
            with each:
                for name in each.readers:
                    expected = compare_random_documents.READERS[name].expected(items)
                    if not any(differences(shown[name], expected)):
                        unnoticed.append(f"{directory}: {name} notices no other {each.what} than "
                                         f"{each.former}")
    print(f"changed: {', '.join(sorted(seen))}")
    print("\n".join(unnoticed[:20]))
    return bool(unnoticed) or len(seen) < 21


if __name__ == "__main__":
    sys.exit(main())
