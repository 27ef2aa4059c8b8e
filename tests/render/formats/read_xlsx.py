"""What a workbook shows on the sheets of its tables."""

import re

import openpyxl
import openpyxl.cell.text
import openpyxl.styles.stylesheet
import openpyxl.utils

# It would take letters of a mark in a number format for those of a date's.
openpyxl.styles.stylesheet.is_date_format = lambda number_format: False


RAISED = "\0"  # before what is raised in a text; no XML holds one


def text_with_raised(rich_text):
    """The marks of footnotes are what is raised."""
    parts = [rich_text.plain or ""]
    parts += [RAISED * is_raised(part) + (part.t or "") for part in rich_text.formatted]
    return "".join(parts)


def is_raised(part):
    return part.rPr is not None and part.rPr.vertAlign == "superscript"


openpyxl.cell.text.Text.content = property(text_with_raised)


def text_and_marks(cell):
    """What a cell with a text shows, and what is raised after it."""
    if cell.font.vertAlign == "superscript":
        return "", cell.value
    text, _, marks = cell.value.partition(RAISED)
    return text, marks


def shown(cell):
    """Without marks."""
    if cell.value is None:
        return ""
    if cell.data_type != "n":
        return text_and_marks(cell)[0]
    decimals, _ = decimals_and_marks(cell)
    return str(cell.value) if decimals < 0 else f"{cell.value:.{decimals}f}"


def decimals_and_marks(cell):
    """Of its number format, whose marks are quoted; -1 decimals for the general one."""
    number_format, marks = re.fullmatch(r'([^"]*)(?:"([^"]*)")?', cell.number_format).groups("")
    if number_format == "General":
        return -1, marks
    return len(re.fullmatch(r"0(?:\.(0+))?", number_format)[1] or ""), marks


def expanded(sheet, shown=shown):
    """All rows, with what is in merged cells at each of their places."""
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
    """All sheets but the first: their rows down to the end of the last grid, and how they are set
    up."""
    sheets = openpyxl.load_workbook(path).worksheets[1:]
    return [
        {
            "rows": expanded(sheet)[: len(expectation["rows"])],
            "merged": sorted(str(cells) for cells in sheet.merged_cells.ranges),
            "panes": sheet.freeze_panes,
        }
        for sheet, expectation in zip(sheets, expected, strict=True)
    ]


def expected_tables(tables):
    return [expected_sheet(table) for table in tables]


def expected_sheet(table):
    """The link back, the title, and the layers with an empty row between."""
    rows = [["Contents"], [table["title"]]]
    merged = []
    panes = None
    for i, layer in enumerate(table["layers"]):
        if i > 0:
            rows.append([])
        if layer["name"]:
            rows.append([layer["name"]])
        top = len(rows) + 1
        panes = panes or place(top + layer["headingRows"], layer["headingColumns"] + 1)
        merged += [merged_range(top, *span) for span in layer["spans"]]
        rows += [trimmed(row) for row in layer["rows"]]
    return {"rows": rows, "merged": sorted(merged), "panes": panes}


def place(row, column):
    return f"{openpyxl.utils.get_column_letter(column)}{row}"


def merged_range(top, row, column, rows, columns):
    """Of a cell of a grid, whose places count from 0."""
    end = place(top + row + rows - 1, column + columns)
    return f"{place(top + row, column + 1)}:{end}"
