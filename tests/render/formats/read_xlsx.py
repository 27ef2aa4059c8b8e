"""What a workbook shows on the sheets of its tables."""

import re

import openpyxl
import openpyxl.cell.text


def text_without_marks(rich_text):
    """The marks of footnotes are what is raised."""
    parts = [rich_text.plain] + [part.t for part in rich_text.formatted if not is_raised(part)]
    return "".join(part for part in parts if part)


def is_raised(part):
    return part.rPr is not None and part.rPr.vertAlign == "superscript"


openpyxl.cell.text.Text.content = property(text_without_marks)


def shown(cell):
    if cell.value is None:
        return ""
    if cell.data_type != "n":
        return cell.value
    number_format = re.sub(r'"[^"]*"', "", cell.number_format)
    decimals = re.fullmatch(r"0(?:\.(0+))?", number_format)
    return f"{cell.value:.{len(decimals[1] or '')}f}" if decimals else str(cell.value)


def expanded(sheet):
    """All rows, with what stands in merged cells at each of their places."""
    rows = [[shown(cell) for cell in row] for row in sheet.iter_rows()]
    for merged in sheet.merged_cells.ranges:
        text = rows[merged.min_row - 1][merged.min_col - 1]
        for row, column in merged.cells:
            rows[row - 1][column - 1] = text
    return [trimmed(row) for row in rows]


def trimmed(row):
    while row and not row[-1]:
        row = row[:-1]
    return row


def tables(path, expected):
    """The rows of each sheet but the first, down to what is expected below the last grid."""
    sheets = openpyxl.load_workbook(path).worksheets[1:]
    return [expanded(sheet)[: len(rows)] for sheet, rows in zip(sheets, expected, strict=True)]


def expected_tables(tables):
    return [expected_sheet(table) for table in tables]


def expected_sheet(table):
    """The link back, the title, and the layers with an empty row between."""
    rows = [["Contents"], [table["title"]]]
    for i, layer in enumerate(table["layers"]):
        if i > 0:
            rows.append([])
        if layer["name"]:
            rows.append([layer["name"]])
        rows += [trimmed(row) for row in layer["rows"]]
    return rows
