"""What an HTML page shows, read by html5lib."""

import html5lib

import read_html
from readers import description


def text_of(element, skipped=("sup",)):
    """The text in an element but for the marks of footnotes."""
    if element is None:
        return ""
    text = element.text or ""
    for child in element:
        if child.tag == "br":
            text += "\n"
        elif child.tag not in skipped and child.get("role") != "doc-backlink":
            text += text_of(child)
        text += child.tail or ""
    return text


def marks_in(element):
    return "".join(text_of(mark) for mark in element.iter("sup")) if element is not None else ""


def marked(element):
    return text_of(element), marks_in(element)


def classes(element):
    return element.get("class", "").split()


def first(element, *names):
    return next((child for child in element.iter() if set(names) & set(classes(child))), None)


def grid(table):
    """The rows, with each text at every place that its cell reaches over."""
    sections = [section for section in table if section.tag in ("thead", "tbody")]
    return [row for section in sections for row in read_html.expanded(list(map(cells_in, section)))]


def cells_in(row):
    return [
        (marked(cell), int(cell.get("rowspan", 1)), int(cell.get("colspan", 1)))
        for cell in row
        if cell.tag in ("td", "th")
    ]


def notes_in(element):
    return [
        [text_of(note.find("sup")), text_of(note).removeprefix(" ")]
        for notes in element.findall("ul")
        for note in notes
    ]


def captions_in(element):
    return [marked(child) for child in element.findall("p") if "table-caption" in classes(child)]


def layer_in(element):
    return {
        "title": marked(first(element, "title")),
        "name": marked(first(element, "layer-line")),
        "rows": [row for row in grid(next(element.iter("table"))) if row],
        "notes": trimmed(notes_in(element), element),
        "captions": captions_in(element),
    }


def trimmed(notes, element):
    """Without the space before the link back."""
    back = [link for link in element.iter("a") if link.get("role") == "doc-backlink"]
    return [[mark, text.removesuffix(" ")] for mark, text in notes] if back else notes


def pivot_in(element):
    layers = [layer_in(child) for child in element if "layer" in classes(child)]
    return {
        "kind": "table",
        "layers": layers,
        "titles": [marked(x) for x in element.findall("p") if "title" in classes(x)],
        "notes": notes_in(element) if layers else trimmed(notes_in(element), element),
        "captions": captions_in(element),
    }


def item_in(element):
    if element.tag[0] == "h" and element.tag[1:].isdigit():
        return {"kind": "heading", "text": text_of(element)}
    if element.tag == "figure":
        return {"kind": "figure"}
    kind = classes(element)[0]
    if kind == "pivot":
        return pivot_in(element)
    if kind == "text":
        return {"kind": kind, "label": text_of(element.find("p")), "text": text_of(element.find("pre"))}
    if kind == "announcement":
        return {"kind": kind}
    return {"kind": kind, "text": text_of(element)}


def shown(directory):
    with open(directory / "document.html", "rb") as file:
        page = html5lib.HTMLParser(namespaceHTMLElements=False).parse(file)
    return [item_in(element) for element in next(page.iter("main"))]


def expected(items):
    result = []
    if not any(item["kind"] in ("heading", "procedure") for item in items):
        result.append(description.Something())  # the page's own title
    for item in items:
        kind = item["kind"]
        if kind in ("heading", "procedure"):
            text = description.shown(item["text"])
            result.append({"kind": "heading", "text": text if text.strip(" \t\r\n") else "\u2014"})
        elif kind == "pageTitle":
            result.append({"kind": "page-title", "text": description.shown(item["text"])})
        elif kind == "text":
            label, text = description.shown(item["label"]), description.shown(item["text"])
            result.append({"kind": "text", "label": label, "text": text})
        elif kind == "table":
            result.append(expected_table(item))
        elif kind in ("chart", "picture"):
            result.append({"kind": "figure"})
        elif kind != "hidden table":
            result.append({"kind": "announcement"})
    return result


def expected_table(table):
    footnotes = description.Footnotes(table)

    def show(text):
        return description.marked(text, footnotes)

    def notes(numbers):
        return [[footnotes.marks[number], footnotes.texts[number]] for number in sorted(numbers)]

    captions = [show(table["caption"])] if table["caption"] else []
    around = {number for text in (table["title"], table["caption"]) for number in footnotes.of(text)}
    layers = []
    listed = set()
    for layer in table["layers"]:
        texts = description.texts_in_layer(layer)
        plain, _ = description.layer_line(layer, lambda text: (description.shown(text), ""))
        used = around | {number for text in texts for number in footnotes.of(text)}
        if plain:
            used |= {n for text in description.texts_in_name(layer) for n in footnotes.of(text)}
        listed |= used
        layers.append({
            "title": show(table["title"]),
            "name": description.layer_line(layer, show) if plain else ("", ""),
            "rows": [[show(position["text"]) for position in row] for row in layer["rows"] if row],
            "notes": notes(used),
            "captions": captions,
        })
    listed |= around if not layers else set()
    rest = set(range(len(footnotes.marks))) - listed
    return {
        "kind": "table",
        "layers": layers,
        "titles": [] if layers else [show(table["title"])],
        "notes": notes(rest) if layers else notes(around) + notes(rest),
        "captions": [] if layers else captions,
    }
