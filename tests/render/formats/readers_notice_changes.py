"""Changes what random documents are said to say, one text at a time, and checks that every reader
notices.

usage: readers_notice_changes.py WRITER DIRECTORY
"""

import copy
import pathlib
import sys

import compare_random_documents
from readers import description

ALL = set(compare_random_documents.READERS)
CHANGED = "something else"


def texts_in(items):
    """Each text by what it is, and who is to notice when it changes."""
    for item in items:
        kind = item["kind"]
        if kind in ("heading", "procedure"):
            yield kind, item["text"], {"HTML", "Markdown", "XLSX"}
        elif kind in ("pageTitle", "text"):
            yield kind, item["text"], ALL - {"CSV"}
        elif kind == "table":
            yield from texts_in_table(item)


def texts_in_table(table):
    yield "title", table["title"], {"HTML", "Markdown", "XLSX"}
    if table["caption"]:
        yield "caption", table["caption"], {"HTML", "Markdown", "XLSX"}
    for footnote in table["footnotes"]:
        yield "footnote", footnote["text"], {"HTML", "Markdown", "XLSX"}
    for layer in table["layers"]:
        readers = ALL - ({"CSV"} if table["forPrograms"] else set())
        for position in (position for row in layer["rows"] for position in row):
            if position["text"]:
                yield ("heading cell" if "start" in position else "cell"), position["text"], readers


def main():
    unnoticed = []
    seen = set()
    for directory in compare_random_documents.write(sys.argv[1], pathlib.Path(sys.argv[2])):
        items = description.load(directory)
        for i, (what, text, readers) in enumerate(texts_in(items)):
            if what in seen:
                continue
            seen.add(what)
            changed = copy.deepcopy(items)
            list(texts_in(changed))[i][1]["bytes"] = CHANGED
            found = list(compare_random_documents.differences_in(directory, changed))
            for reader in readers:
                if not any(line.startswith(f"{directory}: {reader}") for line in found):
                    unnoticed.append(f"{directory}: {reader} notices no other {what} than {text}")
    print(f"changed: {', '.join(sorted(seen))}")
    print("\n".join(unnoticed))
    return bool(unnoticed) or len(seen) < 9


if __name__ == "__main__":
    sys.exit(main())
