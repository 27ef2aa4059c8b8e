"""What an HTML page shows as pivot tables."""

import html.parser


class PivotTables(html.parser.HTMLParser):
    """Gathers each table as its title, the name of its layer, and its rows with spans expanded."""

    def __init__(self):
        super().__init__()
        self.tables = []
        self.heading = {"title": [], "name": []}  # of the table that is to come
        self.texts = None  # where the pieces of the text at hand go
        self.hidden = 0  # elements open that are no part of the text: marks of footnotes
        self.inside = False

    def handle_starttag(self, tag, attributes):
        attributes = dict(attributes)
        if tag == "span" and attributes.get("class") == "title":
            self.heading = {"title": [], "name": []}
            self.texts = self.heading["title"]
        elif tag == "span" and attributes.get("class") == "layer-line":
            self.texts = self.heading["name"]
        elif tag == "table":
            self.inside = "pivot-table" in attributes.get("class", "").split()
            if self.inside:
                self.tables.append(self.heading | {"sections": []})
        elif self.inside and tag in ("thead", "tbody"):
            self.tables[-1]["sections"].append([])
        elif self.inside and tag == "tr":
            self.tables[-1]["sections"][-1].append([])
        elif self.inside and tag in ("td", "th"):
            self.texts = []
            rows, columns = (int(attributes.get(name, 1)) for name in ("rowspan", "colspan"))
            self.tables[-1]["sections"][-1][-1].append((self.texts, rows, columns))
        elif tag == "br" and self.texts is not None:
            self.texts.append("\n")
        elif tag == "sup":
            self.hidden += 1

    def handle_endtag(self, tag):
        if tag in ("td", "th") or (tag == "span" and not self.inside):
            self.texts = None
        elif tag == "sup":
            self.hidden -= 1
        elif tag == "table":
            self.inside = False

    def handle_data(self, data):
        if self.texts is not None and not self.hidden:
            self.texts.append(data)


def expanded(section):
    """The rows of a section with the content of each cell at every place that it reaches over. As in a
    browser, cells do not reach beyond their section and must not overlap."""
    places = {}
    for i, row in enumerate(section):
        column = 0
        for content, rows, columns in row:
            while (i, column) in places:
                column += 1
            for place in ((i + r, column + c) for r in range(rows) for c in range(columns)):
                if place[0] >= len(section):
                    continue
                if place in places:
                    raise ValueError(f"two cells at {place}")
                places[place] = content
            column += columns
    return [[places[place] for place in sorted(places) if place[0] == i] for i in range(len(section))]


def tables(path):
    parser = PivotTables()
    parser.feed(path.read_bytes().decode("utf-8"))
    return [
        {
            "title": "".join(table["title"]),
            "name": "".join(table["name"]),
            "rows": [
                ["".join(texts) for texts in row]
                for section in table["sections"]
                for row in expanded(section)
            ],
        }
        for table in parser.tables
    ]


def expected_tables(tables):
    return [
        {"title": table["title"], "name": layer["name"], "rows": layer["rows"]}
        for table in tables
        for layer in table["layers"]
        if layer["rows"] and layer["rows"][0]
    ]
