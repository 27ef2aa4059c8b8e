"""What a Markdown file shows, read by cmark-gfm."""

import json

from readers import description


def tidy(text):
    """Markdown shows no spaces around a text and no difference between one and many."""
    return " ".join(text.split())


def shown(directory):
    blocks = json.loads((directory / "markdown.json").read_bytes())
    notes = [x for x in blocks if x["kind"] == "footnote_definition"]
    others = [block_in(x) for x in blocks if x["kind"] != "footnote_definition"]
    return [*others, {"kind": "notes", "texts": sorted(tidy(x["text"]) for x in notes)}]


def block_in(block):
    if block["kind"] == "table":
        return {"kind": "table", "rows": [[tidy(text) for text in row] for row in block["rows"]]}
    return {"kind": block["kind"],
            "text": block["text"] if block["kind"] == "code_block" else tidy(block["text"])}


def expected(items):
    result = []
    notes = []
    for item in items:
        kind = item["kind"]
        if kind in ("heading", "procedure"):
            level = min(max(item["depth"] + 1, 1), 6)
            text = tidy(description.shown(item["text"]))
            result.append({"kind": f"heading{level}", "text": text})
        elif kind == "pageTitle":
            result += block("strong", description.shown(item["text"]))
        elif kind == "text":
            result += block("strong", description.shown(item["label"]))
            text = description.shown(item["text"])
            result.append({"kind": "code_block", "text": text if text.endswith("\n") else text + "\n"})
        elif kind == "table":
            result += expected_table(item, notes)
        elif kind != "hidden table":
            result.append({"kind": "paragraph", "text": description.Something()})
    return [*result, {"kind": "notes", "texts": sorted(notes)}]


def block(kind, text, marks=""):
    """A block, unless there is nothing to show."""
    return [] if not description.strip(text) and not marks else [{"kind": kind, "text": tidy(text)}]


def expected_table(table, notes):
    footnotes = description.Footnotes(table)
    used = set()

    def show(text):
        used.update(footnotes.of(text))
        text, marks = description.marked(text, footnotes)
        return description.strip(text), marks

    blocks = block("strong", *show(table["title"]))
    for layer in table["layers"]:
        blocks += block("emph", *description.layer_line(layer, show))
        if layer["columns"]:
            blocks.append({"kind": "table", "rows": rows_of(layer, show)})
    blocks += block("paragraph", *show(table["caption"]))
    for number, text in enumerate(footnotes.texts):
        if number in used:
            notes.append(tidy(text))
        else:
            blocks += block("paragraph", text)
    return blocks


def rows_of(layer, show):
    """One row of headings, with what is above one another joined, and the body."""
    texts = description.once(layer)
    heading = []
    for column in range(layer["columns"]):
        pieces = []
        for row in range(layer["headingRows"]):
            if layer["rows"][row][column]["start"][0] == row:
                pieces.append(show(texts[row][column]))
        heading.append(tidy(description.join(pieces, " / ")[0]))
    body = [[tidy(show(text)[0]) for text in row] for row in texts[layer["headingRows"]:]]
    return [heading, *body]
