"""What a document says by its description, and how every format puts it."""

import json
import re
import unicodedata

# Control characters but tabs and line ends, bytes that were not UTF-8, and no characters at all.
NOT_SHOWN = re.compile("[\0-\x08\x0b-\x1f\x7f-\x9f\udc80-\udcff\ufdd0-\ufdef]|" +
                       "|".join(chr(plane << 16 | end) for plane in range(17)
                                for end in (0xFFFE, 0xFFFF)))


class Something:
    """Stands for whatever a format shows in this place, as long as it shows anything."""

    def __eq__(self, other):
        return other is not None


def load(directory):
    return json.loads((directory / "description.json").read_bytes())


def encoded(text):
    """The bytes of a text; none for none."""
    return text["bytes"].encode("latin-1") if text else b""


def shown(text):
    """A text as every format but JSON shows it."""
    return clean(decoded(text))


def decoded(text):
    return encoded(text).decode("utf-8", "surrogateescape")


def clean(characters):
    return NOT_SHOWN.sub("\ufffd", characters.replace("\r\n", "\n").replace("\r", "\n"))


def is_space(character):
    return character in "\n\t" or unicodedata.category(character) == "Zs"


def strip(text):
    """Without the spaces and line ends around."""
    return text.strip("".join(filter(is_space, text)))


class Footnotes:
    """The footnotes of a table: each has its own mark or else the next letters that are free."""

    def __init__(self, table):
        self.texts = [shown(footnote["text"]) for footnote in table["footnotes"]]
        own = [decoded(footnote["marker"]) for footnote in table["footnotes"]]
        free = (name for name in map(letters, range(10**6)) if name not in own)
        self.written = [mark or next(free) for mark in own]  # not yet made fit to be shown
        self.marks = [clean(mark) for mark in self.written]

    def of(self, text):
        return text["notes"] if text else []

    def marks_of(self, text):
        return ",".join(self.marks[number] for number in self.of(text))


def letters(number):
    """0 is a, 25 is z, 26 is aa, ..."""
    return (letters(number // 26 - 1) if number >= 26 else "") + chr(ord("a") + number % 26)


def marked(text, footnotes):
    """What a text shows, and the marks after it."""
    return shown(text), footnotes.marks_of(text)


def join(pieces, separator):
    """Pieces of text and marks with a separator between those that show anything."""
    pieces = [piece for piece in pieces if any(piece)]
    return separator.join(text for text, _ in pieces), "".join(marks for _, marks in pieces)


def layer_line(layer, show):
    """What names a layer, as text and marks: "Dimension: group / category, dimension: category"."""
    entries = []
    for part in layer["name"]:
        path = join([show(category) for category in part["categories"]], " / ")
        entries.append(join([show(part["dimension"]), path], ": "))
    return join(entries, ", ")


def texts_in_layer(layer):
    """All texts of a layer's grid."""
    return [position["text"] for row in layer["rows"] for position in row]


def texts_in_name(layer):
    return [text for part in layer["name"] for text in [part["dimension"], *part["categories"]]]


def once(layer):
    """The rows of texts, where a label over several columns of row headings is in the first alone."""
    return [
        [
            None if "start" in position and position["start"][1] < column < layer["headingColumns"]
            else position["text"]
            for column, position in enumerate(row)
        ]
        for row in layer["rows"]
    ]


def tables(items):
    return [item for item in items if item["kind"] == "table"]
