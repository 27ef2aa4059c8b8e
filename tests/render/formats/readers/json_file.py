"""What a JSON document says, read by Python's json: each text byte by byte."""

import base64
import json

import read_json
from readers import description


def encoded(text):
    """The bytes of a text in JSON; none for none."""
    if isinstance(text, dict):
        return base64.b64decode(text["base64"])
    return text.encode("utf-8") if text is not None else b""


def string(cell):
    """The bytes of a cell that is a string; others say more than a text."""
    if cell is None:
        return b""
    texts = (encoded(cell[name]) for name in ("text", "utf8") if name in cell)
    return next(texts, description.Something())


def shown(directory):
    document = json.loads((directory / "document.json").read_bytes())
    layouts = {layout["part"]: layout["layers"] for layout in document["layout"]}
    return [part_in(part, layouts.get(i)) for i, part in enumerate(document["parts"])]


def part_in(part, layers):
    item = {"kind": part["type"], "depth": part["depth"]}
    if item["kind"] == "table":
        item |= {
            "title": string(part.get("title", part["label"])),
            "footnotes": [
                [string(note.get("text")), string(note.get("marker"))] for note in part.get("footnotes", [])
            ],
            "layers": layers and [read_json.rows(layer, encoded) for layer in layers],
        }
    elif item["kind"] in ("pageTitle", "text"):
        item["text"] = encoded(part["text"])
    else:
        item["text"] = string(part["label"])
    return item


def expected(items):
    return [expected_part(item) for item in items]


def expected_part(item):
    part = {"kind": item["kind"].removeprefix("hidden "), "depth": item["depth"]}
    if part["kind"] != "table":
        part["kind"] = "chart" if part["kind"] == "picture" else part["kind"]
        return part | {"text": description.encoded(item["text"])}
    if item["kind"] == "hidden table":
        return part | {"layers": None}
    return part | {
        "title": description.encoded(item["title"]),
        "footnotes": [
            [description.encoded(note["text"]), description.encoded(note["marker"])]
            for note in item["footnotes"]
        ],
        "layers": [
            [[description.encoded(position["text"]) for position in row] for row in layer["rows"]]
            for layer in item["layers"]
        ],
    }
