"""Reads workbooks of the report program with another program's library and checks what is in them.

usage: read_workbook.py REPORT SOURCE
"""

import os
import subprocess
import sys
import tempfile
import unittest

import openpyxl

REPORT, SOURCE = sys.argv.pop(1), sys.argv.pop(1)


def workbook(*arguments):
    with tempfile.TemporaryDirectory() as directory:
        file = os.path.join(directory, "book.xlsx")
        subprocess.run(
            [REPORT, *arguments, "--format", "xlsx", "-o", file], check=True, cwd=SOURCE
        )
        return openpyxl.load_workbook(file)


def survival(*more):
    return workbook(
        "data/titanic.csv", "--weight", "Freq", "--totals", "--statistics", "count,row%",
        "--table", "Class * Sex ~ Survived | Age", "--title", "Survival", "--caption", "A ship.",
        *more,
    )


def rows(sheet):
    return [[cell.value for cell in row] for row in sheet.iter_rows()]


class Workbook(unittest.TestCase):
    def test_contents_link_to_every_sheet_and_back(self):
        book = survival()
        self.assertEqual(book.sheetnames, ["Contents", "Notes", "Survival"])
        links = {cell.value: cell.hyperlink.location for (cell,) in book["Contents"].iter_rows()
                 if cell.hyperlink}
        self.assertEqual(links, {"Notes": "'Notes'!A1", "Survival": "'Survival'!A1"})
        self.assertEqual(book["Survival"]["A1"].hyperlink.location, "'Contents'!A1")

    def test_contents_are_indented_by_depth(self):
        sheet = survival()["Contents"]
        self.assertEqual([(sheet.cell(row, 1).value, sheet.cell(row, 1).alignment.indent)
                          for row in (1, 2, 3, 5)],
                         [("Output", 0), ("lakresvos-report", 1), ("Log", 2), ("Notes", 2)])

    def test_numbers_are_numbers_with_their_decimals(self):
        sheet = survival()["Survival"]
        self.assertEqual((sheet["E7"].value, sheet["E7"].data_type, sheet["E7"].number_format),
                         (5, "n", "0"))
        self.assertEqual((sheet["D13"].data_type, sheet["D13"].number_format), ("n", "0.0"))
        self.assertAlmostEqual(sheet["D13"].value, 100 * 35 / 48, 12)

    def test_the_missing_value_is_a_text(self):
        sheet = survival()["Survival"]
        self.assertEqual((sheet["D16"].value, sheet["D16"].data_type), (".", "s"))

    def test_headings_are_merged_on_both_axes(self):
        merged = {str(found) for found in survival()["Survival"].merged_cells.ranges}
        self.assertLessEqual({"A4:A6", "B4:B6", "C4:H4", "C5:D5", "A7:A9"}, merged)

    def test_merging_can_be_left_out_on_either_axis(self):
        rows_only = {str(m) for m in survival("--xlsx-merge", "rows")["Survival"].merged_cells.ranges}
        self.assertIn("A7:A9", rows_only)
        self.assertNotIn("C4:H4", rows_only)
        columns_only = survival("--xlsx-merge", "columns")["Survival"]
        self.assertEqual([columns_only[at].value for at in ("A7", "A8", "A9")], ["1st"] * 3)
        none = survival("--xlsx-merge", "none")["Survival"]
        self.assertEqual(list(none.merged_cells.ranges), [])
        self.assertEqual([none.cell(4, column).value for column in range(3, 9)], ["Survived"] * 6)

    def test_panes_are_frozen_at_the_first_data_cell(self):
        self.assertEqual(survival()["Survival"].freeze_panes, "C7")

    def test_headings_are_repeated_in_print(self):
        sheet = survival()["Survival"]
        self.assertEqual((sheet.print_title_rows, sheet.print_title_cols), ("$4:$6", "$A:$B"))

    def test_groups_are_outlined_below_their_first_row_and_column(self):
        sheet = survival()["Survival"]
        self.assertEqual([sheet.row_dimensions[row].outlineLevel for row in range(7, 13)],
                         [0, 1, 1, 0, 1, 1])
        self.assertEqual([sheet.column_dimensions[column].outlineLevel for column in "CDEFGH"],
                         [0, 2, 1, 2, 1, 2])
        self.assertFalse(sheet.sheet_properties.outlinePr.summaryBelow)

    def test_layers_follow_each_other(self):
        column = [row[0] for row in rows(survival()["Survival"])]
        self.assertEqual(column[1], "Survival")
        self.assertEqual([value for value in column if value and value.startswith("Age")],
                         ["Age: Child", "Age: Adult"])
        self.assertEqual(column[-1], "A ship.")

    def test_layers_can_be_sheets(self):
        book = survival("--xlsx-layers", "sheets")
        self.assertEqual(book.sheetnames,
                         ["Contents", "Notes", "Age Child, Survival", "Age Adult, Survival"])
        self.assertEqual([book[name].freeze_panes for name in book.sheetnames[2:]], ["C7", "C7"])

    def test_footnotes_stand_at_the_number_and_below(self):
        sheet = workbook("data/airquality.csv", "--table", "Month ~", "--statistics", "mean:Ozone",
                         "--title", "Ozone")["Ozone"]
        self.assertEqual((sheet["B4"].data_type, sheet["B4"].number_format), ("n", '0.00"\u1d43"'))
        self.assertEqual(sheet["A9"].value, "\u1d43 Ozone missing in 5 rows")

    def test_columns_are_as_wide_as_their_texts(self):
        sheet = workbook("data/airquality.csv", "--table", "Month ~", "--statistics",
                         "mean:Ozone,sd:Ozone", "--title", "Ozone")["Ozone"]
        widths = {name: round(column.width) for name, column in sheet.column_dimensions.items()}
        self.assertEqual(widths, {"A": 9, "B": 16, "C": 26})

    def test_a_title_that_takes_many_bytes(self):
        title = "表1 クラスと性別による生存者数の集計結果一覧表"
        sheet = workbook("data/titanic.csv", "--weight", "Freq", "--table",
                         "Class * Sex ~ Survived", "--title", title)[title]
        self.assertEqual(sheet.print_title_rows, "$3:$4")
        self.assertEqual(sheet["C3"].value, "Survived")

    def test_a_text_that_is_too_long_is_told_of_and_the_rest_is_written(self):
        with tempfile.TemporaryDirectory() as directory:
            data, file = os.path.join(directory, "data.csv"), os.path.join(directory, "book.xlsx")
            with open(data, "w", encoding="utf-8") as out:
                out.write("a\n" + "x" * 40000 + "\nshort\nshort\n")
            run = subprocess.run(
                [REPORT, data, "--table", "a ~", "--title", "T", "--format", "xlsx", "-o", file],
                check=True, capture_output=True, text=True,
            )
            sheet = openpyxl.load_workbook(file)["T"]
        self.assertEqual(run.stderr, "lakresvos-report: 1 text longer than the 32767 characters of"
                                     " a cell left out, the first at 'T'!A4\n")
        self.assertEqual([[cell.value for cell in row] for row in sheet["A4:B5"]],
                         [["[A text of 40000 characters, too long for a cell]", 1], ["short", 2]])

    def test_formats_and_texts_that_look_like_formulas(self):
        with tempfile.TemporaryDirectory() as directory:
            data = os.path.join(directory, "data.csv")
            with open(data, "w", encoding="utf-8") as file:
                file.write("a\n=1+1\n")
            style = os.path.join(directory, "style.json")
            with open(style, "w", encoding="utf-8") as file:
                file.write('{"data": {"style": "bold italic", "textColor": "#123456",'
                           ' "backgroundColor": "#fedcba", "horizontal": "centre", "size": 14}}')
            sheet = workbook(data, "--table", "a ~", "--style", style, "--title", "T")["T"]
        self.assertEqual((sheet["A4"].value, sheet["A4"].data_type), ("=1+1", "s"))
        cell = sheet["B4"]
        self.assertTrue(cell.font.bold and cell.font.italic)
        self.assertEqual((cell.font.color.rgb, cell.fill.fgColor.rgb, cell.font.sz,
                          cell.alignment.horizontal), ("FF123456", "FFFEDCBA", 14, "center"))


if __name__ == "__main__":
    unittest.main()
