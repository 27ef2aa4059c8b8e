"""What the layout in a JSON document shows."""

import base64
import json

from readers import description


def shown(text):
    """A text, which keeps its bytes in JSON, as the other formats show it."""
    if text is None:
        return ""
    if isinstance(text, dict):
        text = base64.b64decode(text["base64"]).decode("utf-8", "surrogateescape")
    return description.clean(text)


def tables(path):
    """The layers of each table that has any."""
    document = json.loads(path.read_bytes())
    return [
        {"title": title(document["parts"][table["part"]]), "layers": [rows(x) for x in table["layers"]]}
        for table in document["layout"]
    ]


def title(part):
    return shown(next(iter(part.get("title", part["label"]).values())))


def rows(layer, read=shown):
    """The frame, its spans expanded, and the body; each text as `read` takes it."""
    heading_rows, heading_columns = layer["headingRows"], layer["headingColumns"]
    places = {
        (heading_rows + i, heading_columns + j): read(text)
        for i, row in enumerate(layer["body"])
        for j, text in enumerate(row)
    }
    for cell in layer["frame"]:
        for row in range(cell["row"], cell["row"] + cell.get("rowSpan", 1)):
            for column in range(cell["column"], cell["column"] + cell.get("columnSpan", 1)):
                if (row, column) in places:
                    raise ValueError(f"two cells at {row}, {column}")
                places[row, column] = read(cell.get("text"))
    return [[places[row, column] for column in range(layer["columns"])] for row in range(layer["rows"])]


def expected_tables(tables):
    return [
        {"title": table["title"], "layers": [layer["rows"] for layer in table["layers"]]}
        for table in tables
    ]
