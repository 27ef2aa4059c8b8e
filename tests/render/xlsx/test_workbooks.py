"""Reads workbooks back and tests what is in them.

usage: test_workbooks.py WRITER DIRECTORY
"""

import pathlib
import re
import subprocess
import sys
import unittest
import xml.parsers.expat
import zipfile

import openpyxl

DIRECTORY = None


def path_of(name):
    return DIRECTORY / f"{name}.xlsx"


def workbook(name):
    return openpyxl.load_workbook(path_of(name))


def rows(sheet):
    """The values of all cells, nothing for those at the end of a row that have none."""
    result = []
    for row in sheet.iter_rows(values_only=True):
        while row and row[-1] is None:
            row = row[:-1]
        result.append(list(row))
    return result


def merged(sheet):
    return sorted(str(cells) for cells in sheet.merged_cells.ranges)


def losses(name):
    return (DIRECTORY / f"{name}.losses").read_text(encoding="utf-8").splitlines()


def part_of(name, part):
    with zipfile.ZipFile(path_of(name)) as archive:
        return archive.read(part).decode("utf-8")


class Contents(unittest.TestCase):
    def setUp(self):
        self.book = workbook("contents")
        self.sheet = self.book["Contents"]

    def test_is_the_first_sheet_and_lists_all_items_in_order(self):
        self.assertEqual(self.book.worksheets[0], self.sheet)
        self.assertEqual(
            [row[0] for row in rows(self.sheet)],
            ["Output", "Heading", "Procedure", "Log", "first line", "=second()", *["x" * 1000] * 40,
             "Page", "Counts", "Counts", "Table", "Contents", "No cells",
             "[Chart: Chart]"],
        )

    def test_texts_are_no_formulas(self):
        self.assertEqual({cell.data_type for cell in self.sheet["A"]}, {"s"})

    def test_every_shown_table_has_a_sheet_with_a_name_of_its_own(self):
        self.assertEqual(
            self.book.sheetnames,
            ["Contents", "Counts", "Counts (2)", "Table", "Contents (2)", "No cells"],
        )

    def test_items_are_indented_by_their_depth(self):
        indents = [int(cell.alignment.indent) for cell in self.sheet["A"]]
        self.assertEqual(indents, [0, 1, 2, 2, 3, 3, *[2] * 40, 1, 1, 1, 1, 1, 1, 1])

    def test_headings_are_bold(self):
        bold = [cell.value for cell in self.sheet["A"] if cell.font.bold]
        self.assertEqual(bold, ["Output", "Heading", "Procedure", "Page"])

    def test_links_lead_to_the_sheets(self):
        links = {cell.coordinate: cell.hyperlink.location
                 for cell in self.sheet["A"] if cell.hyperlink}
        self.assertEqual(
            links,
            {"A48": "'Counts'!A1", "A49": "'Counts (2)'!A1", "A50": "'Table'!A1",
             "A51": "'Contents (2)'!A1", "A52": "'No cells'!A1"},
        )

    def test_long_lines_wrap_in_rows_that_are_high_enough(self):
        self.assertEqual(int(self.sheet.column_dimensions["A"].width), 90)
        self.assertEqual({cell.alignment.wrap_text for cell in self.sheet["A"]}, {True})
        self.assertEqual(self.sheet.row_dimensions[7].height, 13 * 15)
        self.assertIsNone(self.sheet.row_dimensions[6].height)

    def test_every_sheet_links_back(self):
        for sheet in self.book.worksheets[1:]:
            with self.subTest(sheet.title):
                self.assertEqual(sheet["A1"].value, "Contents")
                self.assertEqual(sheet["A1"].hyperlink.location, "'Contents'!A1")


class Cells(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.cells = {row[0].value: row[1] for row in workbook("cells")["Cells"].iter_rows()}

    def expect(self, name, value, data_type, number_format="General"):
        cell = self.cells[name]
        self.assertEqual(
            (cell.value, cell.data_type, cell.number_format), (value, data_type, number_format)
        )

    def test_a_number_without_decimals(self):
        self.expect("whole", 3, "n", "0")

    def test_a_number_with_decimals(self):
        self.expect("two", 1.5, "n", "0.00")

    def test_a_number_with_as_many_decimals_as_it_needs(self):
        self.expect("any", 0.1, "n")

    def test_the_missing_value_is_a_text(self):
        self.expect("missing", ".", "s")

    def test_a_number_beyond_what_a_cell_holds_is_a_text(self):
        self.assertEqual(self.cells["huge"].data_type, "s")
        self.assertEqual(float(self.cells["huge"].value), sys.float_info.max)

    def test_a_text_of_digits_is_a_text(self):
        self.expect("text", "12", "s")

    def test_a_text_that_reads_like_a_formula_is_a_text(self):
        self.expect("formula", "=1+1", "s")

    def test_a_text_that_reads_like_a_link_is_a_text(self):
        self.expect("url", "https://example.org/", "s")
        self.assertIsNone(self.cells["url"].hyperlink)

    def test_a_text_that_reads_like_the_code_of_a_character_is_escaped(self):
        self.assertIn("<t>_x005F_x0041_ __x005F_x00e9__ _x41_</t>",
                      part_of("cells", "xl/worksheets/sheet2.xml"))

    def test_an_empty_text_is_an_empty_cell(self):
        self.assertIsNone(self.cells["nothing"].value)

    def test_numbers_stand_at_the_right_and_so_does_a_missing_one(self):
        for name in ("whole", "missing"):
            self.assertEqual(self.cells[name].alignment.horizontal, "right")
        self.assertIsNone(self.cells["text"].alignment.horizontal)


class Footnotes(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.sheet = workbook("footnotes")["Footnotes"]
        cls.cells = {row[0].value: row[1] for row in cls.sheet.iter_rows()}
        cls.xml = part_of("footnotes", "xl/worksheets/sheet2.xml")

    def runs(self, text):
        """What is raised after a text."""
        pattern = f"<r><t[^>]*>{re.escape(text)}</t></r><r><rPr>(.*?)</rPr><t>(.*?)</t></r>"
        properties, marks = re.search(pattern, self.xml).groups()
        self.assertIn('<vertAlign val="superscript"/>', properties)
        return marks

    def test_numbers_stay_numbers_and_show_the_mark_in_their_format(self):
        cell = self.cells["number"]
        self.assertEqual((cell.value, cell.data_type, cell.number_format), (2.5, "n", '0.0"ᵃ"'))

    def test_marks_of_any_number_and_with_quotes(self):
        cell = next(cell for name, cell in self.cells.items() if name and name.startswith("both"))
        self.assertEqual((cell.value, cell.number_format), (1, """General"ᵃ,['2']\""""))

    def test_a_mark_that_no_number_format_has_room_for_makes_the_number_a_text(self):
        self.assertEqual(self.cells["long"].value, "4" + "M" * 200)
        self.assertEqual(self.cells["long"].data_type, "s")

    def test_marks_are_raised_after_texts(self):
        self.assertEqual(self.cells["text"].value, "text a")
        self.assertEqual(self.runs("text "), "a")

    def test_marks_are_raised_after_headings_title_and_caption(self):
        self.assertEqual(self.runs("both"), "a,\"2\"")
        self.assertEqual(self.runs("Footnotes"), "a")
        self.assertEqual(self.runs("Caption"), "a")

    def test_a_mark_without_text_is_raised(self):
        self.assertEqual(self.cells["empty"].value, "a")
        self.assertEqual(self.cells["empty"].font.vertAlign, "superscript")

    def test_the_missing_value_has_its_mark(self):
        self.assertEqual(self.cells["missing"].value, ".a")

    def test_notes_and_caption_stand_below_a_row_for_each_line(self):
        self.assertEqual(
            [row[0] for row in rows(self.sheet)[-5:]],
            ["ᵃ First note.", "It goes on.", '["2"] Second note.', f"[{'M' * 200}] Third note.",
             "Captiona"],
        )


BODY = [1, 1, 1, 1]
GROUPED = [
    ["rows", None, "e"],
    [None, None, "e0", None, "e1"],
    [None, None, "d", None, "d"],
    [None, None, "d0", "d1", "d0", "d1"],
    ["A", "A1", *BODY],
    [None, "A2", *BODY],
    ["B", "B1", *BODY],
    [None, "B2", *BODY],
]


class Grouped(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.sheet = workbook("grouped")["Grouped"]

    def test_layers_stand_below_each_other(self):
        self.assertEqual(
            rows(self.sheet),
            [["Contents"], ["Grouped"], ["l: l0"], *GROUPED, [], ["l: l1"], *GROUPED],
        )

    def test_headings_stand_over_their_columns_as_numbers_do(self):
        found = {place: self.sheet[place].alignment.horizontal for place in ("A4", "C4", "C5", "C7")}
        self.assertEqual(found, {"A4": None, "C4": "center", "C5": "center", "C7": "right"})

    def test_a_rule_separates_groups_of_rows(self):
        ruled = [row for row in range(8, 12)
                 if {self.sheet.cell(row, column).border.top.style for column in range(1, 7)}
                 == {"thin"}]
        self.assertEqual(ruled, [10])

    def test_headings_of_both_axes_and_the_corner_are_merged(self):
        layer = [("A", 0, "B", 3), ("A", 4, "A", 5), ("A", 6, "A", 7), ("C", 0, "F", 0),
                 ("C", 1, "D", 1), ("E", 1, "F", 1), ("C", 2, "D", 2), ("E", 2, "F", 2)]
        self.assertEqual(
            merged(self.sheet),
            sorted(f"{left}{top + row}:{right}{top + last}"
                   for top in (4, 14) for left, row, right, last in layer),
        )

    def test_panes_are_frozen_at_the_first_number(self):
        self.assertEqual(self.sheet.freeze_panes, "C8")

    def test_headings_are_repeated_in_print(self):
        self.assertEqual(self.sheet.print_title_rows, "$4:$7")
        self.assertEqual(self.sheet.print_title_cols, "$A:$B")

    def test_rows_are_outlined_after_the_first_of_their_group(self):
        levels = [self.sheet.row_dimensions[row].outlineLevel for row in range(8, 12)]
        self.assertEqual(levels, [0, 1, 0, 1])
        self.assertFalse(self.sheet.sheet_properties.outlinePr.summaryBelow)

    def test_columns_are_outlined_after_the_first_of_their_groups(self):
        text = part_of("grouped", "xl/worksheets/sheet2.xml")
        levels = {int(first): int(re.search(r'outlineLevel="(\d)"', rest)[1])
                  for first, rest in re.findall(r'<col min="(\d+)"([^>]*)', text)
                  if "outlineLevel" in rest}
        self.assertEqual(levels, {4: 3, 5: 1, 6: 3})
        self.assertFalse(self.sheet.sheet_properties.outlinePr.summaryRight)

    def test_labels_are_bold_and_numbers_are_not(self):
        self.assertTrue(self.sheet["A4"].font.bold)
        self.assertTrue(self.sheet["C5"].font.bold)
        self.assertTrue(self.sheet["B8"].font.bold)
        self.assertFalse(self.sheet["C8"].font.bold)


class Totals(unittest.TestCase):
    """Rows 5 to 13 have the headings in A and B, the numbers in C to E; E, the last three rows and
    every third one are totals."""

    @classmethod
    def setUpClass(cls):
        cls.sheet = workbook("totals")["Totals"]

    def test_have_a_rule_above_them_where_they_start(self):
        ruled = {row: "".join(column for column in "ABCDE"
                              if self.sheet[f"{column}{row}"].border.top.style == "thin")
                 for row in range(5, 14)}
        self.assertEqual(ruled, {5: "", 6: "", 7: "BCDE", 8: "ABCDE", 9: "", 10: "BCDE",
                                 11: "ABCDE", 12: "", 13: "BCDE"})

    def test_are_bold(self):
        self.assertEqual([self.sheet["B13"].value, self.sheet["E4"].value], ["Total", "Total"])
        bold = {row: "".join(column for column in "CDE" if self.sheet[f"{column}{row}"].font.bold)
                for row in range(5, 14)}
        self.assertEqual(bold, {row: "CDE" if row in (7, 10, 11, 12, 13) else "E"
                                for row in range(5, 14)})


class Layers(unittest.TestCase):
    def test_can_have_sheets_of_their_own(self):
        book = workbook("sheets")
        self.assertEqual(book.sheetnames, ["Contents", "l l0, Grouped", "l l1, Grouped"])
        for number, sheet in enumerate(book.worksheets[1:]):
            self.assertEqual(rows(sheet), [["Contents"], ["Grouped"], [f"l: l{number}"], *GROUPED])
            self.assertEqual(sheet.freeze_panes, "C8")

    def test_are_told_apart_in_the_contents(self):
        listed = [row[0] for row in rows(workbook("sheets")["Contents"])]
        self.assertEqual(listed, ["Output", "Grouped (l: l0)", "Grouped (l: l1)"])

    def test_can_be_left_out_after_the_first(self):
        expected = [["Contents"], ["Grouped"], ["l: l0"], *GROUPED]
        self.assertEqual(rows(workbook("first")["Grouped"]), expected)
        book = workbook("first_sheet")
        self.assertEqual(len(book.sheetnames), 2)
        self.assertEqual(rows(book.worksheets[1]), expected)


class Merging(unittest.TestCase):
    """What is not merged is repeated."""

    REPEATED_ROWS = [["A", "A1", *BODY], ["A", "A2", *BODY], ["B", "B1", *BODY], ["B", "B2", *BODY]]
    REPEATED_COLUMNS = [
        ["rows", "rows", "e", "e", "e", "e"],
        ["rows", "rows", "e0", "e0", "e1", "e1"],
        ["rows", "rows", "d", "d", "d", "d"],
        ["rows", "rows", "d0", "d1", "d0", "d1"],
    ]

    def first_layer(self, name):
        sheet = workbook(name)["Grouped"]
        return rows(sheet)[3:11], merged(sheet)

    def test_of_columns_only(self):
        shown, cells = self.first_layer("rows_apart")
        self.assertEqual(shown, GROUPED[:4] + self.REPEATED_ROWS)
        self.assertEqual(len(cells), 2 * 6)
        self.assertIn("A4:B7", cells)

    def test_of_rows_only(self):
        shown, cells = self.first_layer("columns_apart")
        self.assertEqual(shown, self.REPEATED_COLUMNS + GROUPED[4:])
        self.assertEqual(cells, ["A10:A11", "A18:A19", "A20:A21", "A8:A9"])

    def test_of_nothing(self):
        shown, cells = self.first_layer("all_apart")
        self.assertEqual(shown, self.REPEATED_COLUMNS + self.REPEATED_ROWS)
        self.assertEqual(cells, [])


class Captions(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.book = workbook("captions")

    def test_titles_and_captions_have_a_row_for_each_line(self):
        self.assertEqual(
            rows(self.book["Two lines"]),
            [["Contents"], ["Two"], ["lines"], ["r", "c"], [None, "c0"], ["r0", 1], ["two"],
             ["lines"]],
        )

    def test_a_caption_may_be_left_out(self):
        self.assertEqual(
            rows(self.book["Hidden"]),
            [["Contents"], ["Hidden"], ["r", "c"], [None, "c0"], ["r0", 1]],
        )

    def test_a_table_without_cells_has_its_notes_and_its_caption(self):
        self.assertEqual(
            rows(self.book["No cells"]),
            [["Contents"], ["No cells"], ["ᵃ A note all the same."], ["two"], ["lines"]],
        )


class Titles(unittest.TestCase):
    def test_references_quote_every_name(self):
        text = part_of("titles", "xl/workbook.xml")
        sheets = re.findall(r"<definedName [^>]*>(.*?)!\$A:\$A,(.*?)!\$3:\$4</definedName>", text)
        names = ["2013", "A1", "Bob''s", "Größe", "R1C1", "TRUE", "a b"]
        self.assertEqual(sorted(sheets), [(f"'{name}'", f"'{name}'") for name in names])

    def test_links_lead_there(self):
        links = [cell.hyperlink.location for cell in workbook("titles")["Contents"]["A"][1:]]
        self.assertEqual(
            links,
            ["'2013'!A1", "'A1'!A1", "'R1C1'!A1", "'TRUE'!A1", "'Bob''s'!A1", "'a b'!A1",
             "'Größe'!A1"],
        )


class Names(unittest.TestCase):
    """Sheets whose names take all the bytes and all the characters that they can."""

    @classmethod
    def setUpClass(cls):
        cls.book = workbook("names")

    def test_keep_as_much_of_the_title_as_there_is_room_for(self):
        seen = set()
        for sheet in self.book.worksheets[1:]:
            title = sheet["A2"].value
            units = title.encode("utf-16-le")[:62].decode("utf-16-le", "ignore").strip("'")
            if units == "" or units.lower() in seen:
                self.assertRegex(sheet.title, r" \(\d+\)$|^Table$")
            else:
                self.assertEqual(sheet.title, units)
            seen.add(units.lower())

    def test_are_what_the_print_titles_refer_to(self):
        for sheet in self.book.worksheets[1:]:
            with self.subTest(sheet.title):
                self.assertEqual(sheet.print_title_rows, "$3:$4")
                quoted = "'" + sheet.title.replace("'", "''") + "'"
                reference = f"{quoted}!$A:$A,{quoted}!$3:$4"
                fits = len(reference.encode("utf-8")) < 128
                self.assertEqual(sheet.print_title_cols, "$A:$A" if fits else None)

    def test_that_are_long_leave_a_wide_sheet_its_row_headings(self):
        sheet = workbook("wide_names").worksheets[1]
        self.assertEqual(sheet.title, "表" * 31)
        self.assertEqual((sheet.print_title_rows, sheet.print_title_cols), (None, "$A:$A"))


class Parts(unittest.TestCase):
    def test_are_all_well_formed(self):
        for path in sorted(DIRECTORY.glob("*.xlsx")):
            with zipfile.ZipFile(path) as archive:
                self.assertIsNone(archive.testzip())
                for name in archive.namelist():
                    if name.endswith((".xml", ".rels")):
                        with self.subTest(f"{path.name}: {name}"):
                            xml.parsers.expat.ParserCreate().Parse(archive.read(name), True)


class Printing(unittest.TestCase):
    def setup_of(self, sheet):
        return (sheet.sheet_properties.pageSetUpPr is not None
                and sheet.sheet_properties.pageSetUpPr.fitToPage,
                sheet.page_setup.fitToHeight, sheet.page_setup.scale,
                sheet.page_setup.orientation)

    def test_scales_to_the_width_of_one_page(self):
        for sheet in workbook("grouped"):
            self.assertEqual(self.setup_of(sheet), (True, 0, None, "portrait"))

    def test_puts_wide_sheets_on_their_side_and_stops_at_half_the_size(self):
        self.assertEqual(self.setup_of(workbook("wide_names").worksheets[1]),
                         (None, None, 50, "landscape"))

    def test_long_names_of_layers_wrap_across_a_page_at_least(self):
        sheet = workbook("long_layers").worksheets[1]
        self.assertEqual([row[0] for row in rows(sheet)[2:] if row and row[0]],
                         ["l: " + "x" * 100, "r", "r" * 40, "l: " + "x" * 200, "r", "r" * 40])
        self.assertEqual([sheet.row_dimensions[row].height for row in (3, 8)], [45, 60])
        self.assertTrue(sheet["A3"].alignment.wrap_text and sheet["A8"].alignment.wrap_text)
        self.assertEqual(merged(sheet), ["A3:K3", "A4:A5", "A8:G8", "A9:A10"])

    def test_long_titles_wrap_across_the_page(self):
        sheet = workbook("long_texts").worksheets[1]
        self.assertEqual([len(row[0]) for row in rows(sheet)[1:4]], [1000, 1000, 504])
        self.assertEqual([sheet.row_dimensions[row].height for row in (2, 3, 4)], [195, 195, 105])
        self.assertTrue(sheet["A2"].alignment.wrap_text)
        self.assertEqual(merged(sheet), ["A2:D2", "A3:D3", "A4:D4", "A5:A6"])


class LongTexts(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        sheet = workbook("long_texts").worksheets[1]
        cls.cells = {row[0].value: row[1].value for row in sheet.iter_rows()}

    def test_that_fit_are_whole(self):
        self.assertEqual(self.cells["longest"], "x" * 32767)
        self.assertEqual(self.cells["marked"], "&" * 32766 + "a")
        self.assertEqual(self.cells["after"], 1)

    def test_that_do_not_fit_are_notes(self):
        note = "[A text of {} characters, too long for a cell]"
        self.assertEqual(self.cells["longer"], note.format(32768))
        self.assertEqual(self.cells["codes"], note.format(32767))
        self.assertEqual(self.cells["marked longer"], note.format(32768) + "a")

    def test_that_do_not_fit_are_counted(self):
        name = "T" * 31
        self.assertEqual(
            losses("long_texts"),
            [f"3 texts longer than the 32767 characters of a cell left out, the first at '{name}'!B8"],
        )


class Marks(unittest.TestCase):
    def test_leave_room_for_other_number_formats(self):
        self.assertLess(part_of("marks", "xl/styles.xml").count("<numFmt "), 200)

    def test_make_texts_of_the_numbers_that_have_no_room(self):
        body = list(workbook("marks")["Marks"].iter_rows(min_row=5))[:300]
        numbers = [row for row in body if row[1].data_type == "n"]
        self.assertEqual([row[1].value for row in numbers], list(range(160)))
        self.assertEqual(numbers[159][1].number_format, '0.00000"ᵐ¹⁵⁹"')
        self.assertEqual(body[160][1].value, "160.000000m160")
        self.assertEqual({row[2].data_type for row in body}, {"n"})
        self.assertEqual(
            losses("marks"),
            ["140 numbers written as text: too many number formats with footnote marks, the first"
             " at 'Marks'!B165"],
        )


class Lengths(unittest.TestCase):
    def test_of_marks_and_fonts_are_those_that_a_format_has_room_for(self):
        sheet = workbook("lengths")["Lengths"]
        for length in range(1, 61):
            cell = sheet.cell(4 + length, 2)
            letters = "表" * length
            with self.subTest(length):
                number_format = f'General"{letters}"'
                if len(number_format.encode("utf-8")) < 128:
                    self.assertEqual((cell.value, cell.number_format), (length, number_format))
                else:
                    self.assertEqual(cell.value, str(length) + letters)
                self.assertEqual(cell.font.name, letters if length <= 31 else "Calibri")


class LayerNotes(unittest.TestCase):
    def notes(self, name):
        return [[row[0] for row in rows(sheet)[5:]] for sheet in workbook(name).worksheets[1:]]

    def test_stand_on_the_sheets_that_refer_to_them(self):
        self.assertEqual(
            self.notes("layer_notes"),
            [["ᵃ of layer 0", "ᵈ of all", "Captiond"],
             ["ᵇ of layer 1", "ᵈ of all", "Captiond"],
             ["ᶜ of layer 2", "ᵈ of all", "ᵉ of none", "Captiond"]],
        )

    def test_stand_all_on_the_only_sheet(self):
        self.assertEqual(
            self.notes("first_layer_notes"),
            [["ᵃ of layer 0", "ᵇ of layer 1", "ᶜ of layer 2", "ᵈ of all", "ᵉ of none",
              "Captiond"]],
        )


class Styles(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.sheet = workbook("styles")["Styles"]

    def looks(self, place):
        cell = self.sheet[place]
        return {
            "font": cell.font.name,
            "size": cell.font.size,
            "style": (cell.font.bold, cell.font.italic, cell.font.underline),
            "alignment": (cell.alignment.horizontal, cell.alignment.vertical),
            "colours": (cell.font.color.rgb, cell.fill.fgColor.rgb),
        }

    def test_every_area_has_its_own(self):
        places = {"A3": 17, "A4": 13, "C4": 14, "A8": 15, "D8": 16, "A22": 12, "A23": 11}
        for place, size in places.items():
            with self.subTest(place):
                self.assertEqual(
                    self.looks(place),
                    {"font": "Arial & <Co>", "size": size, "style": (True, True, "single"),
                     "alignment": ("center", "center"), "colours": ("FF000000", "FFFFEE00")},
                )

    def test_a_font_whose_name_is_too_long_is_left_alone(self):
        self.assertEqual(self.looks("A2")["font"], "Calibri")
        self.assertEqual(self.looks("A2")["size"], 10)

    def test_rows_of_data_alternate(self):
        self.assertEqual(self.looks("D8")["colours"], ("FF000000", "FFFFEE00"))
        self.assertEqual(self.looks("D9")["colours"], ("FF010203", "FFFFFFFF"))
        self.assertEqual(self.looks("D10")["colours"], ("FF000000", "FFFFEE00"))

    def test_a_cell_style_comes_before_its_area(self):
        self.assertEqual(
            self.looks("C8"),
            {"font": "Arial & <Co>", "size": 16, "style": (False, True, "single"),
             "alignment": ("left", "center"), "colours": ("FFAABBCC", "FFFFEE00")},
        )


class Widths(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.sheet = workbook("widths").worksheets[1]

    def width(self, column):
        """In characters; the fraction is the room that a cell keeps free."""
        return int(self.sheet.column_dimensions[column].width)

    def test_come_from_labels_but_not_from_titles(self):
        self.assertEqual(self.width("A"), len("twelve chars") + 2)

    def test_count_wide_characters_twice(self):
        self.assertEqual(self.width("B"), 2 * len("日本語の見出し") + 2)

    def test_come_from_numbers_as_they_are_shown_and_not_from_merged_headings(self):
        self.assertEqual(self.width("C"), len("1234567890.500") + 2)

    def test_have_a_limit_beyond_which_texts_wrap(self):
        self.assertEqual(self.width("D"), 60)
        self.assertTrue(self.sheet["D6"].alignment.wrap_text)


class Pictures(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.book = workbook("pictures")

    def test_stand_on_sheets_of_their_own(self):
        self.assertEqual(self.book.sheetnames,
                         ["Contents", "Bars & <more>", "Chart", "Broken", "Flipped", "Unknown",
                          "Photograph", "表" * 31])
        self.assertEqual(rows(self.book.worksheets[1]), [["Contents"], ["Bars & <more>"]])

    def test_are_in_the_workbook_with_their_label(self):
        with zipfile.ZipFile(path_of("pictures")) as archive:
            pictures = {name.rsplit(".")[-1]: archive.read(name)[:3]
                        for name in archive.namelist() if "media" in name}
        self.assertEqual(pictures, {"png": b"\x89PN", "jpeg": b"\xff\xd8\xff"})
        self.assertIn('descr="Bars &amp; &lt;more&gt;"', part_of("pictures", "xl/drawings/drawing1.xml"))

    def test_a_description_is_cut_between_characters(self):
        drawing = part_of("pictures", "xl/drawings/drawing4.xml")
        self.assertEqual(re.search('descr="(.*?)"', drawing).group(1), "表" * 693)

    def test_one_that_says_it_is_larger_than_a_sheet_is_made_to_fit(self):
        drawing = part_of("vast_picture", "xl/drawings/drawing1.xml")
        column, row = re.search(
            "<xdr:to><xdr:col>(.*?)</xdr:col>.*?<xdr:row>(.*?)</xdr:row>", drawing).groups()
        self.assertIn(int(column), range(16_384))
        self.assertIn(int(row), range(1_000, 1_048_576))

    def test_a_note_replaces_a_damaged_one(self):
        for name in ("Broken", "Flipped", "Unknown"):
            self.assertEqual(
                rows(self.book[name])[2],
                [f"[Chart: {name}] The picture is damaged or in an unknown format."],
            )
        self.assertEqual(
            losses("pictures"),
            ["3 pictures left out, damaged or in an unknown format, the first at 'Broken'!A3"],
        )

    def test_what_is_none_is_announced(self):
        self.assertEqual(rows(self.book["Contents"])[-1], ["[Chart: Drawn]"])


class Many(unittest.TestCase):
    def test_sheets_need_few_open_files(self):
        book = workbook("many")
        self.assertEqual(len(book.sheetnames), 301)
        for number in (0, 150, 299):
            sheet = book[f"Table {number}"]
            self.assertEqual(rows(sheet)[1:], [[sheet.title], ["r", "c"], [None, "c0"], ["r0", 1]])


if __name__ == "__main__":
    DIRECTORY = pathlib.Path(sys.argv[2])
    subprocess.run([sys.argv[1], DIRECTORY], check=True)
    unittest.main(argv=sys.argv[:1] + sys.argv[3:])
