"""What a Markdown file shows as tables."""

import html
import re

import read_csv

FOOTNOTE = re.compile(r"(?<!\\)\[\^[^\]]*\]")
ESCAPE = re.compile(r"\\([!-/:-@\[-`{-~])")


def fields(line):
    """The texts of a line of a pipe table."""
    parts = re.split(r"(?<!\\)\|", line.replace("\\\\", "\0"))[1:-1]
    return [text_of(part.replace("\0", "\\\\")) for part in parts]


def text_of(markdown):
    pieces = FOOTNOTE.sub("", markdown.strip(" ")).split("<br>")
    return "\n".join(html.unescape(ESCAPE.sub(r"\1", piece)) for piece in pieces)


def pipe_tables(path):
    """Every pipe table as a list of rows, without the line of alignments."""
    result = []
    rows = []
    fence = None
    with open(path, encoding="utf-8", newline="\n") as file:
        for line in file:
            line = line.rstrip("\n")
            if fence is None and line.startswith("```"):
                fence = line
            elif line == fence:
                fence = None
            if line.startswith("|") and fence is None:
                rows.append(line)
            elif rows:
                result.append(rows)
                rows = []
    if rows:
        result.append(rows)
    return [[fields(row) for i, row in enumerate(rows) if i != 1] for rows in result]


def expected_tables(tables):
    return [
        [heading_of(layer), *body_of(layer)]
        for table in tables
        for layer in map(with_labels_once, table["layers"])
        if layer["rows"] and layer["rows"][0]
    ]


def with_labels_once(layer):
    return {**layer, "rows": read_csv.with_labels_once(layer)}


def heading_of(layer):
    """One line of headings: what is above one another, joined."""
    starts = starting_rows(layer)
    heading = []
    for column in range(len(layer["rows"][0])):
        texts = [
            layer["rows"][row][column].strip()
            for row in range(layer["headingRows"])
            if starts.get((row, column), row) == row
        ]
        heading.append(" / ".join(text for text in texts if text))
    return heading


def starting_rows(layer):
    """Of each position in a cell that reaches over others, the row where that cell starts."""
    return {
        (row + i, column + j): row
        for row, column, rows, columns in layer["spans"]
        for i in range(rows)
        for j in range(columns)
    }


def body_of(layer):
    """The other rows; Markdown shows no spaces around a text."""
    return [[text.strip() for text in row] for row in layer["rows"][layer["headingRows"] :]]
