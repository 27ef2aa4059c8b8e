"""Writes random documents in every format, has other programs read the files back, and compares all
that they show with the description of the document.

usage: compare_random_documents.py WRITER DIRECTORY

Each document is compared by each reader in readers/. LAKRESVOS_ROUND_TRIPS says how many documents,
50 unless told.
"""

import itertools
import os
import pathlib
import subprocess
import sys

from compare_formats import differences
from readers import csv_cells, csv_file, description, html_page, json_file, markdown_file, workbook

USUAL_DOCUMENTS = 50
MOST_DIFFERENCES = 10
READERS = {
    "CSV": csv_file,
    "CSV of cells": csv_cells,
    "HTML": html_page,
    "JSON": json_file,
    "Markdown": markdown_file,
    "XLSX": workbook,
}


def differences_in(directory, items):
    for name, reader in READERS.items():
        for difference in differences(reader.shown(directory), reader.expected(items)):
            yield f"{directory}: {name}{difference}"


def count_cells(directory):
    return sum(
        len(row)
        for table in description.tables(description.load(directory))
        for layer in table["layers"]
        for row in layer["rows"]
    )


def write(writer, directory):
    """Gives the directories of the documents. RC_PARAMS, as for every property, may name the seed."""
    count = os.environ.get("LAKRESVOS_ROUND_TRIPS", USUAL_DOCUMENTS)
    if not str(count).isdecimal() or int(count) == 0:
        sys.exit("LAKRESVOS_ROUND_TRIPS: expected a number above 0")
    params = f"{os.environ.get('RC_PARAMS', '')} max_success={count}"
    subprocess.run([writer, directory], check=True, env={**os.environ, "RC_PARAMS": params})
    return sorted(directory.iterdir())


def main():
    documents = write(sys.argv[1], pathlib.Path(sys.argv[2]))
    cells = sum(map(count_cells, documents))
    found = [line for each in documents for line in differences_in(each, description.load(each))]
    print(f"{len(documents)} documents with {cells} cells in {len(READERS)} formats, "
          f"{len(found)} differences")
    for line in itertools.islice(found, MOST_DIFFERENCES):
        print(line[:2000])
    return bool(found) or not cells


if __name__ == "__main__":
    sys.exit(main())
