"""What a workbook shows, and how its sheets are set up."""

import re

import openpyxl
from openpyxl.utils import get_column_letter

FIRST_ROW = 3  # below the link to the contents and the title


def shown_text(cell):
    """The text that a cell shows, without the marks of footnotes behind a number."""
    if cell.value is None:
        return ""
    if cell.data_type == "n":
        form = re.sub('"[^"]*"$', "", cell.number_format)
        if form == "General":
            return float(cell.value)
        decimals = len(form.partition(".")[2])
        return f"{cell.value:.{decimals}f}"
    return cell.value


def same(shown, text):
    """Whether a cell shows a text; behind it may stand the marks of footnotes."""
    if isinstance(shown, float):
        return abs(shown - float(text)) <= 1e-14 * abs(shown)
    return shown == text or (
        shown.startswith(text)
        and all(ord(c) > 127 or c in "*,[]" or c.isalnum() for c in shown[len(text) :])
        and len(shown) - len(text) <= 12
    )


def layer_rows(sheet, top, layer):
    """The grid whose first row is `top`, each text of the merged cells wherever they reach."""
    merged = {}
    for row, column, rows, columns in layer["spans"]:
        for r in range(rows):
            for c in range(columns):
                merged[row + r, column + c] = (row, column)
    result = []
    for r, expected in enumerate(layer["rows"]):
        row = []
        for c, text in enumerate(expected):
            at_row, at_column = merged.get((r, c), (r, c))
            shown = shown_text(sheet.cell(top + at_row, at_column + 1))
            row.append(text if same(shown, text) else shown)
        result.append(row)
    return result


def merged_ranges(top, layer):
    return {
        f"{get_column_letter(column + 1)}{top + row}:"
        f"{get_column_letter(column + columns)}{top + row + rows - 1}"
        for row, column, rows, columns in layer["spans"]
    }


def tables(path, expected):
    """Reads the sheets in the order of the tables that have a layer."""
    book = openpyxl.load_workbook(path)
    sheets = iter(book.worksheets[1:])
    result = []
    for table in expected:
        if not table["layers"]:
            continue
        sheet = next(sheets)
        title = sheet["A2"].value or ""
        shown = {"title": table["title"] if same(title, table["title"]) else title, "layers": []}
        row = FIRST_ROW
        for number, layer in enumerate(table["layers"]):
            row += 1 if number > 0 else 0
            name = ""
            if layer["name"] or number > 0:
                name = sheet.cell(row, 1).value or ""
                row += 1
            if number == 0:
                shown["panes"] = sheet.freeze_panes
            shown["layers"].append({"name": name, "rows": layer_rows(sheet, row, layer)})
            row += len(layer["rows"])
        shown["merged"] = sorted(str(merged) for merged in sheet.merged_cells.ranges)
        result.append(shown)
    return result + [sheet.title for sheet in sheets]


def expected_tables(expected):
    result = []
    for table in expected:
        if not table["layers"]:
            continue
        row, merged, layers = FIRST_ROW, set(), []
        panes = None
        for number, layer in enumerate(table["layers"]):
            row += (1 if number > 0 else 0) + (1 if layer["name"] or number > 0 else 0)
            if number == 0:
                panes = f"{get_column_letter(layer['headingColumns'] + 1)}{row + layer['headingRows']}"
            merged |= merged_ranges(row, layer)
            layers.append({"name": layer["name"], "rows": layer["rows"]})
            row += len(layer["rows"])
        result.append(
            {"title": table["title"], "layers": layers, "merged": sorted(merged), "panes": panes}
        )
    return result
