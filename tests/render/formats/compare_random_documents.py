"""Writes random documents in every format, has other programs read the files back, and looks for
every text that the layout in the JSON document says a table shows.

usage: compare_random_documents.py WRITER DIRECTORY

RC_PARAMS, as for every property, says how many documents: RC_PARAMS=max_success=500 takes minutes.
"""

import csv
import itertools
import json
import os
import pathlib
import subprocess
import sys
import xml.sax
import zipfile

import read_html
import read_json
import read_xlsx

MOST_DIFFERENCES = 10


def layers_of(document):
    """Each layer that shows anything: its rows, how many are headings, and the places where a cell
    goes on that begins before."""
    for table in document["layout"]:
        for layer in table["layers"]:
            if layer["rows"] and layer["columns"]:
                yield {
                    "rows": read_json.rows(layer),
                    "headings": layer["headingRows"],
                    "continued": continued_places(layer),
                }


def continued_places(layer):
    return {
        (row, column)
        for cell in layer["frame"]
        for row in range(cell["row"], cell["row"] + cell.get("rowSpan", 1))
        for column in range(cell["column"], cell["column"] + cell.get("columnSpan", 1))
        if (row, column) != (cell["row"], cell["column"])
    }


def same(shown, expected):
    """Whether two texts differ in white space at the most, or say the same number."""
    shown, expected = " ".join(str(shown).split()), " ".join(expected.split())
    return shown == expected or same_number(shown, expected)


def same_number(shown, expected):
    try:
        number, wanted = float(shown), float(expected)
    except ValueError:
        return False
    decimals = len(expected.partition(".")[2])
    return abs(number - wanted) <= max(1e-14 * abs(wanted), 0.51 * 10.0**-decimals)


def row_shows(shown, layer, row):
    """A label that reaches over several places may be at the first one only."""
    return all(
        same(text, expected)
        or (text == "" and (row, column) in layer["continued"])
        or (expected == "" and layer.get("marks_alone", False))
        for column, (text, expected) in enumerate(
            itertools.zip_longest(shown[: len(layer["rows"][row])], layer["rows"][row], fillvalue="")
        )
    )


def rows_show(shown, at, layer, first=0):
    """Whether the rows from `at` on are those of a layer from `first` on."""
    count = len(layer["rows"]) - first
    return at + count <= len(shown) and all(
        row_shows(shown[at + i], layer, first + i) for i in range(count)
    )


def longest(layers):
    return max((len(layer["rows"]) for layer in layers), default=0)


def missing_from_rows(shown, layers):
    """The layers that are not in one long list of rows, in order."""
    at = 0
    for layer in layers:
        found = next((i for i in range(at, len(shown)) if rows_show(shown, i, layer)), None)
        if found is None:
            yield layer
        else:
            at = found + len(layer["rows"])


def missing_from_tables(shown, layers, first=lambda layer: 0):
    """The layers that are not the tables, in order. What has nothing to compare is left out."""
    shown = [table for table in shown if any(table)]
    layers = [layer for layer in layers if first(layer) < len(layer["rows"])]
    for table, layer in itertools.zip_longest(shown, layers):
        if table is None:
            yield layer
        elif layer is None:
            yield {"rows": [["a table more", table]]}
        else:
            skipped = first(layer)
            expected = len(layer["rows"]) - skipped
            if len(table) != expected or not rows_show(table, 0, layer, skipped):
                yield {**layer, "shown": table}


def missing_from_csv(directory, layers):
    with open(directory / "tables.csv", encoding="utf-8", newline="") as file:
        records = list(csv.reader(file, strict=True))
    missing = list(missing_from_rows(records, layers))
    # Of several tables, each record starts with the name of its own.
    return missing and missing_from_rows([record[1:] for record in records], layers)


def missing_from_html(directory, layers):
    return missing_from_tables([x["rows"] for x in read_html.tables(directory / "document.html")], layers)


def missing_from_markdown(directory, layers):
    """A table of Markdown has one row of headings, whatever it had before."""
    tables = json.loads((directory / "markdown.json").read_text(encoding="utf-8"))
    return missing_from_tables(
        [table[1:] for table in tables], layers, first=lambda layer: layer["headings"]
    )


def missing_from_xlsx(directory, layers):
    path = directory / "document.xlsx"
    with zipfile.ZipFile(path) as book:
        for part in book.namelist():
            if part.endswith((".xml", ".rels")):
                xml.sax.parseString(book.read(part), xml.sax.ContentHandler())
    sheets = read_xlsx.openpyxl.load_workbook(path).worksheets[1:]
    # A mark can be raised, and so told from a text, only where it is beside one.
    layers = [{**layer, "marks_alone": True} for layer in layers]
    end = [[]] * longest(layers)  # a sheet ends with its last text, not with its last row
    return missing_from_rows(
        [row for sheet in sheets for row in read_xlsx.expanded(sheet) + end], layers
    )


READERS = {
    "CSV": missing_from_csv,
    "HTML": missing_from_html,
    "Markdown": missing_from_markdown,
    "XLSX": missing_from_xlsx,
}


def differences(directory):
    document = json.loads((directory / "document.json").read_bytes())
    layers = list(layers_of(document))
    for name, missing_from in READERS.items():
        for layer in missing_from(directory, layers):
            yield f"{directory}: {name} lacks {layer}"


def main():
    writer, directory = sys.argv[1], pathlib.Path(sys.argv[2])
    environment = {"RC_PARAMS": "max_success=20", **os.environ}
    subprocess.run([writer, directory], check=True, env=environment)
    documents = sorted(directory.iterdir())
    found = [line for each in documents for line in differences(each)]
    layers = sum(
        len(list(layers_of(json.loads((each / "document.json").read_bytes())))) for each in documents
    )
    print(f"{len(documents)} documents with {layers} layers of tables, {len(found)} differences")
    for line in found[:MOST_DIFFERENCES]:
        print(line[:2000])
    return bool(found) or not layers


if __name__ == "__main__":
    sys.exit(main())
