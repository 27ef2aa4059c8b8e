"""What a workbook shows, its parts read by a strict XML parser and its sheets by openpyxl."""

import dataclasses
import string
import xml.sax
import zipfile

import read_xlsx
from readers import description

MOST_UNITS = 1000  # of UTF-16 in a line across the page
LARGEST = 9.99999999999999e307  # number of a cell
MOST_DECIMALS = 30  # of a number format


def shown(directory):
    """The lines of the contents, and of each other sheet the rows that are not empty."""
    path = directory / "document.xlsx"
    with zipfile.ZipFile(path) as book:
        for part in book.namelist():
            if part.endswith((".xml", ".rels")):
                xml.sax.parseString(book.read(part), xml.sax.ContentHandler())
    contents, *sheets = read_xlsx.openpyxl.load_workbook(path).worksheets
    return [
        {"lines": [row[0].text for row in rows_in(contents)]},
        *({"rows": rows_in(sheet)} for sheet in sheets),
    ]


def rows_in(sheet):
    rows = read_xlsx.expanded(sheet, content)
    return [row for row in rows if any(row)]


def content(cell):
    """A number or a text; nothing for none."""
    if cell.value is None:
        return None
    if cell.data_type == "n":
        decimals, marks = read_xlsx.decimals_and_marks(cell)
        return Number(cell.value, decimals, tidy(marks))
    text, marks = map(tidy, read_xlsx.text_and_marks(cell))
    return Text(text, marks) if text or marks else None


@dataclasses.dataclass(frozen=True)
class Text:
    text: str
    raised: str


@dataclasses.dataclass(frozen=True)
class Number:
    value: float
    decimals: int  # -1: as many as it needs
    marks: str = ""  # in raised characters, as far as there are any


def expected(items):
    """Of the contents the lines that are texts of the document; of a sheet with a picture nothing."""
    lines = []
    sheets = []
    for item in items:
        kind = item["kind"]
        if kind in ("heading", "procedure", "pageTitle"):
            lines += lines_of(description.shown(item["text"]))
        elif kind == "text":
            lines += lines_of(description.shown(item["label"]))
            lines += lines_of(description.shown(item["text"]))
        elif kind == "table":
            sheets.append({"rows": Sheet(item).rows})
        elif kind == "picture":
            sheets.append(description.Something())
    return [{"lines": Within(lines)}, *sheets]


def lines_of(text):
    return [line for line in pieces_of(text) if line.strip()]


def pieces_of(text):
    """Line by line, those that are too long for the highest row in several pieces."""
    pieces = []
    for line in text.removesuffix("\n").split("\n"):
        units = 0
        pieces.append("")
        for character in line:
            units += len(character.encode("utf-16-le")) // 2
            if units > MOST_UNITS:
                units = len(character.encode("utf-16-le")) // 2
                pieces.append("")
            pieces[-1] += character
    return pieces


class Within:
    """Texts that are to be among others, in this order."""

    def __init__(self, texts):
        self.texts = texts

    def __repr__(self):
        return f"{self.texts} and more"

    def __eq__(self, lines):
        rest = iter(lines)
        return all(tidy(text) in rest for text in self.texts)


class Shown:
    """What a cell is to show, and the raised marks of its footnotes. A number is one to 16 digits; it
    may be a text where it has marks."""

    def __init__(self, text, marks="", number=None):
        self.text, self.marks, self.number = text, marks, number

    def __repr__(self):
        return repr(self.number or self.text)

    def __eq__(self, other):
        if isinstance(other, Number):
            return other == self.number
        if self.number and not self.marks:
            return False
        text, marks = tidy(self.text), tidy(self.marks)
        return other == (Text(text, marks) if text or marks else None)

    def __bool__(self):
        return bool(tidy(self.text) or tidy(self.marks))


def tidy(text):
    return " ".join(text.split())


def number_at(position, marks=""):
    """The number that the cell in a position is to hold; none for one that no cell can hold."""
    number = position.get("number")
    if number is None or abs(number["value"]) > LARGEST:
        return None
    decimals = number["decimals"] if number["decimals"] <= MOST_DECIMALS else -1
    return Number(float(f"{number['value']:.16g}"), decimals, tidy(marks.replace('"', "'")))


class Sheet:
    """The rows of a table's sheet: the link back, the title, the layers, the notes, the caption."""

    def __init__(self, table):
        self.footnotes = description.Footnotes(table)
        self.rows = [Line(Shown("Contents"))]
        self.add_lines(*self.show(table["title"]))
        for layer in table["layers"]:
            self.add_lines(*description.layer_line(layer, self.show_raised))
            for row in layer["rows"]:
                self.add(list(map(self.show_position, row)))
        for mark, text in zip(self.footnotes.written, self.footnotes.texts):
            self.add_lines(description.clean(raised(mark) or f"[{mark}]") + f" {text}")
        self.add_lines(*self.show(table["caption"]))

    def show(self, text):
        return description.marked(text, self.footnotes)

    def show_position(self, position):
        text = position["text"]
        return Shown(*self.show(text), number_at(position, self.raised_marks_of(text)))

    def show_raised(self, text):
        """With the marks as a part of the text."""
        return description.shown(text) + self.raised_marks_of(text), ""

    def raised_marks_of(self, text):
        marks = [self.footnotes.written[number] for number in self.footnotes.of(text)]
        return description.clean(joined(marks))

    def add(self, row):
        while row and not row[-1]:
            row = row[:-1]
        if row:
            self.rows.append(row)

    def add_lines(self, text, marks=""):
        *lines, last = pieces_of(text)
        shown_lines = [*map(Shown, lines), Shown(last, marks)]
        self.rows += [Line(line) for line in shown_lines if line]


class Line:
    """A text across the page, and the row that shows it: in its first cell or in all that are merged
    with that."""

    def __init__(self, text):
        self.text = text

    def __repr__(self):
        return repr([self.text])

    def __eq__(self, row):
        return row is not None and self.text == row[0] and set(row[1:]) <= {row[0]}


LETTERS = dict(zip(string.ascii_lowercase, "ᵃᵇᶜᵈᵉᶠᵍʰⁱʲᵏˡᵐⁿᵒᵖ\0ʳˢᵗᵘᵛʷˣʸᶻ"))
DIGITS = dict(zip(string.digits, "⁰¹²³⁴⁵⁶⁷⁸⁹"))
RAISED = LETTERS | DIGITS | {"*": "*", ",": ","}


def raised(mark):
    """A mark in raised characters; nothing when there are none or when several are letters."""
    forms = [c if ord(c) >= 0x80 else RAISED.get(c, "\0") for c in mark]
    several = sum(c in LETTERS for c in mark) > 1
    return "" if "\0" in forms or several else "".join(forms)


def joined(marks):
    """Raised marks and others in brackets, commas between, several others in one pair."""
    text = ""
    is_open = False
    for mark in marks:
        form = raised(mark)
        text += "]" if is_open and form else ""
        text += "," if text else ""
        text += "[" if not is_open and not form else ""
        text += form or mark
        is_open = not form
    return text + ("]" if is_open else "")
