#include "render/support/HardCases.h"

#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <cells/OmNumber.h>
#include <cells/OmStringCell.h>
#include <lakresvos/OmChart.h>
#include <lakresvos/OmHeading.h>
#include <lakresvos/OmTextBlock.h>

#include "render/support/RenderTables.h"

namespace {

using namespace render_tables;
using layout_tables::Node;

void PutText(Table& table, std::vector<int> const& index, std::string const& text) {
  table.Cell(index, Utf8(text));
}

void PutNumber(Table& table, std::vector<int> const& index, double value, int decimals) {
  table.Cell(index, OmNumber(value, decimals));
}

/// Rows "r0", "r1", ... and columns "c0", "c1", ..., a cell in each.
void FillPlain(Table& table, unsigned int rows, unsigned int columns) {
  table.AddFlat("r", rows);
  table.AddFlat("c", columns);
  table.Place({0}, {1});
  table.PutAll();
}

/// Groups A and B with two categories each on the rows, two columns.
OmDimension& FillGrouped(Table& table) {
  OmDimension& rows = table.Add("grouped");
  unsigned long subscript = 0;
  for (char const* group : {"A", "B"}) {
    Node const node = Group(rows, rows.Root(), group);
    for (char const* category : {"1", "2"}) {
      Category(rows, node, group + std::string(category), subscript++);
    }
  }
  table.AddFlat("c", 2);
  table.Place({0}, {1});
  table.PutAll();
  return rows;
}

// Hidden parts

void HiddenDimensionNames(Table& table) {
  FillPlain(table, 2, 2);
  table.Dimension(0).Root().Value().hide = true;
  table.Dimension(1).Root().Value().hide = true;
}

void HiddenGroup(Table& table) {
  FillGrouped(table).Root().Child(0).Value().hide = true;
}

void HiddenLevel(Table& table) {
  OmDimension& rows = FillGrouped(table);
  rows.Root().Child(0).Value().hide = true;
  rows.Root().Child(1).Value().hide = true;
}

void HiddenLabels(Table& table) {
  FillGrouped(table).Root().Child(1).Value().hideLabels = true;
}

void HiddenCategory(Table& table) {
  FillGrouped(table).Root().Child(0).Child(1).Value().hide = true;
}

void EverythingHidden(Table& table) {
  HiddenDimensionNames(table);
  for (int dimension : {0, 1}) {
    for (unsigned int child : {0u, 1u}) {
      table.Dimension(dimension).Root().Child(child).Value().hide = true;
    }
  }
}

void HiddenTable(Table& table) {
  FillPlain(table, 1, 1);
  table.Show(false);
}

void HiddenCaption(Table& table) {
  FillPlain(table, 1, 1);
  OmStringCellUTF8 const caption("not to be seen");
  table.Caption(&caption);
  table.showCaption(false);
}

// Labels

void EmptyLabels(Table& table) {
  AddCategories(table, "", {"", "", "b"});
  AddCategories(table, "", {"", "d"});
  table.Place({0}, {1});
  table.PutAll();
}

void EqualLabelsUnderDifferentGroups(Table& table) {
  OmDimension& rows = table.Add("place");
  unsigned long subscript = 0;
  for (char const* group : {"North", "South"}) {
    Node const node = Group(rows, rows.Root(), group);
    Category(rows, node, "City", subscript++);
    Category(rows, node, "Country", subscript++);
  }
  AddCategories(table, "place", {"City", "City"});
  table.Place({0}, {1});
  table.PutAll();
}

void EqualNeighboringGroups(Table& table) {
  OmDimension& columns = table.Add("columns");
  unsigned long subscript = 0;
  for (int i = 0; i < 2; ++i) {
    Node const node = Group(columns, columns.Root(), "same");
    Category(columns, node, "same", subscript++);
    Category(columns, node, "same", subscript++);
  }
  table.AddFlat("r", 2);
  table.Place({1}, {0});
  table.PutAll();
}

void PathsOfDifferentLength(Table& table) {
  OmDimension& rows = table.Add("deep");
  Category(rows, rows.Root(), "short", 0);
  Node const outer = Group(rows, rows.Root(), "outer");
  Category(rows, outer, "middle", 1);
  Category(rows, Group(rows, outer, "inner"), "long", 2);
  table.AddFlat("c", 2);
  table.Place({0}, {1});
  table.PutAll();
}

void CornerText(Table& table) {
  FillPlain(table, 2, 2);
  table.Dimension(0).Root().Value().hide = true;
  OmStringCellUTF8 const corner("corner");
  table.CornerText(&corner);
}

void LongTexts(Table& table) {
  std::string words;
  for (int i = 0; i < 200; ++i) {
    words += "word ";
  }
  AddCategories(table, words, {words.c_str(), "b"});
  std::string const word(1000, 'x');
  AddCategories(table, "c", {word.c_str()});
  table.Place({0}, {1});
  PutText(table, {0, 0}, words);
}

// Axes

void OneRow(Table& table) {
  FillPlain(table, 1, 3);
}

void OneColumn(Table& table) {
  FillPlain(table, 3, 1);
}

void RowAxisWithoutCategories(Table& table) {
  table.Add("r");
  table.AddFlat("c", 2);
  table.Place({0}, {1});
}

void ColumnAxisWithoutCategories(Table& table) {
  table.AddFlat("r", 2);
  table.Add("c");
  table.Place({0}, {1});
}

void NoRows(Table& table) {
  table.AddFlat("c", 3);
  table.Place({}, {0});
  table.PutAll();
}

void NoColumns(Table& table) {
  table.AddFlat("r", 3);
  table.Place({0}, {});
  table.PutAll();
}

void NothingButLayers(Table& table) {
  table.AddFlat("l", 2);
  table.Place({}, {}, {0});
  table.PutAll();
}

void NoDimensions(Table& /*table*/) {}

void SeveralDimensionsOnAnAxis(Table& table) {
  for (char const* label : {"a", "b", "c", "d"}) {
    table.AddFlat(label, 2);
  }
  table.Place({0, 1}, {2, 3});
  table.PutAll();
}

void SeveralLayers(Table& table) {
  for (char const* label : {"r", "c", "k", "l"}) {
    table.AddFlat(label, 2);
  }
  table.Place({0}, {1}, {2, 3});
  PutNumber(table, {0, 0, 0, 0}, 1, 0);
  PutNumber(table, {1, 1, 1, 0}, 2, 0);
  PutNumber(table, {0, 1, 1, 1}, 3, 0);
  table.setLayerLoc(1);
}

// Cells

void AllEmpty(Table& table) {
  table.AddFlat("r", 2);
  table.AddFlat("c", 2);
  table.AddFlat("l", 2);
  table.Place({0}, {1}, {2});
}

void EmptyRowsAndColumns(Table& table) {
  table.AddFlat("r", 4);
  table.AddFlat("c", 4);
  table.Place({0}, {1});
  table.Put({1, 2});
  table.Put({3, 0});
}

void Numbers(Table& table) {
  AddCategories(table, "number",
                {"whole", "fraction", "negative", "rounded away", "large", "small", "largest",
                 "not a number", "missing"});
  AddCategories(table, "shown", {"value"});
  table.Place({0}, {1});
  PutNumber(table, {0, 0}, 12, 0);
  PutNumber(table, {1, 0}, 0.125, 3);
  PutNumber(table, {2, 0}, -7.5, 1);
  PutNumber(table, {3, 0}, -0.001, 2);
  PutNumber(table, {4, 0}, 123456789012345, 0);
  PutNumber(table, {5, 0}, 1e-9, 12);
  PutNumber(table, {6, 0}, std::numeric_limits<double>::max(), 2);
  PutNumber(table, {7, 0}, std::numeric_limits<double>::quiet_NaN(), 1);
  PutNumber(table, {8, 0}, std::numeric_limits<double>::lowest(), 1);
}

void HundredThousandCells(Table& table) {
  FillPlain(table, 1000, 100);
}

void SharedFootnotes(Table& table) {
  FillPlain(table, 20, 5);
  unsigned int const shared = AddFootnote(table, "Shared by all cells.");
  unsigned int const marked = AddFootnote(table, "With a mark of its own.", "*");
  AddFootnote(table, "Referred to by nothing.");
  for (std::vector<int> const& index : StoredCells(table)) {
    OmNumber number(index[0]);
    table.Cell(index, WithFootnotes(number, {shared}));
  }
  WithFootnotes(*table.Cell({0, 0}), {shared, marked});
  WithFootnotes(*table.Dimension(0).Root().Child(0).Value().label, {marked});
  OmStringCellUTF8 title("Shared footnotes");
  table.SetTableTitle(WithFootnotes(title, {marked}));
  OmStringCellUTF8 caption("A caption with a mark.");
  table.Caption(&WithFootnotes(caption, {shared}));
}

// Texts

void FillTexts(Table& table, std::vector<std::string> const& texts) {
  OmDimension& rows = table.Add("text");
  OmDimension& columns = table.Add("column");
  for (unsigned long i = 0; i < texts.size(); ++i) {
    rows.AddNewChild(rows.Root(), Utf8(texts[i]), i, false);
    columns.AddNewChild(columns.Root(), Utf8(texts[i]), i, false);
  }
  table.Place({0}, {1});
  for (int i = 0; i < static_cast<int>(texts.size()); ++i) {
    PutText(table, {i, i}, texts[static_cast<std::size_t>(i)]);
  }
  AddFootnote(table, texts.front());
  OmStringCellUTF8 const caption(texts.back());
  table.Caption(&caption);
}

void RightToLeftTexts(Table& table) {
  FillTexts(table, {"שלום עולם", "مرحبا بالعالم", "abc שלום 123", "\u202Eturned\u202C"});
  table.TableLocale("he_IL.UTF-8");
}

void EastAsianTexts(Table& table) {
  FillTexts(table, {"日本語の見出し", "한국어", "中文 abc", "全角ＡＢＣ",
                    "👩‍👩‍👧‍👦 e\u0301"});
  table.TableLocale("ja_JP.UTF-8");
}

void Markup(Table& table) {
  FillTexts(table, {"<script>alert(1)</script>", "</td></table>", "&amp; & &#0;", "<!-- -->", "]]>",
                    "<img src=x onerror=alert(1)>", "javascript:alert(1)"});
}

void MarkdownMarkup(Table& table) {
  FillTexts(table, {"a|b", "\\|", "`code`", "*bold* _it_ ~~no~~", "[a](b) ![c](d)", "# heading",
                    "- list", "1. list", "---", "[^1]", "https://example.org/"});
}

void Quotes(Table& table) {
  FillTexts(table, {"\"double\"", "'single'", "a,b;c", "\"", "\\", "\\\"", "back\\slash"});
}

void Formulas(Table& table) {
  FillTexts(table, {"=1+1", "+1", "-1", "@SUM(A1)", "=cmd|' /C calc'!A0", "'quoted", "{=1}"});
}

void LineEndsAndSpaces(Table& table) {
  FillTexts(table, {"two\nlines", "two\r\nlines", "one\rtwo", "tab\ttab", "  spaces  ", "\n", " ",
                    "no\u00A0break"});
}

void ControlCharacters(Table& table) {
  FillTexts(table, {std::string("zero\0byte", 9), "bell\a", "\x1B[31mred\x1B[0m", "\x7F",
                    "\u0085\u009B", "\uFFFE\uFFFF", "\v\f\b"});
}

void BrokenUtf8(Table& table) {
  FillTexts(table, {"caf\xE9", "\xFF\xFE", "cut \xE2\x82", "\xC0\xAF", "\xED\xA0\x80",
                    "\xF4\x90\x80\x80", "\x80"});
}

void NumbersAsTexts(Table& table) {
  FillTexts(table, {"007", "1e5", "1.50", "TRUE", "null", "2024-01-02", "NaN", "0x10"});
}

void FillItems(OmOutputTree::Node const& parent) {
  AppendItem<OmHeading>(parent, Utf8("<b>heading</b>"));
  AppendItem<OmHeading>(parent, Utf8(""));
  AppendItem<OmProcedure>(parent, Utf8("procedure\x01\xFF"), "a", "b", "c");
  AppendItem<OmTextBlock>(parent, Utf8("label & <text>"), "```\n<pre>\n\x1B[0m \xFF | \"'\n");
  AppendItem<OmTextBlock>(parent, Utf8(""), "");
  AppendItem<OmPageTitle>(parent, "page <title>\nof two lines");
  AppendItem<OmChart>(parent, Utf8("chart without anything"), "", 1);
}

struct Case {
  char const* title;
  std::function<void(Table&)> fill;
};

Case const kCases[] = {
    {"Hidden dimension names", HiddenDimensionNames},
    {"Hidden group", HiddenGroup},
    {"Hidden level", HiddenLevel},
    {"Hidden labels", HiddenLabels},
    {"Hidden category", HiddenCategory},
    {"Everything hidden", EverythingHidden},
    {"Hidden table", HiddenTable},
    {"Hidden caption", HiddenCaption},
    {"Empty labels", EmptyLabels},
    {"Equal labels under different groups", EqualLabelsUnderDifferentGroups},
    {"Equal neighboring groups", EqualNeighboringGroups},
    {"Paths of different length", PathsOfDifferentLength},
    {"Corner text", CornerText},
    {"Long texts", LongTexts},
    {"One row", OneRow},
    {"One column", OneColumn},
    {"Row axis without categories", RowAxisWithoutCategories},
    {"Column axis without categories", ColumnAxisWithoutCategories},
    {"No rows", NoRows},
    {"No columns", NoColumns},
    {"Nothing but layers", NothingButLayers},
    {"No dimensions", NoDimensions},
    {"Several dimensions on an axis", SeveralDimensionsOnAnAxis},
    {"Several layers", SeveralLayers},
    {"All empty", AllEmpty},
    {"Empty rows and columns", EmptyRowsAndColumns},
    {"Numbers", Numbers},
    {"Hundred thousand cells", HundredThousandCells},
    {"Shared footnotes", SharedFootnotes},
    {"Right-to-left texts", RightToLeftTexts},
    {"East Asian texts", EastAsianTexts},
    {"Markup", Markup},
    {"Markdown markup", MarkdownMarkup},
    {"Quotes", Quotes},
    {"Formulas", Formulas},
    {"Line ends and spaces", LineEndsAndSpaces},
    {"Control characters", ControlCharacters},
    {"Broken UTF-8", BrokenUtf8},
    {"Numbers as texts", NumbersAsTexts},
};

}  // namespace

void AppendHardCases(OmOutputTree& document) {
  OmOutputTree::Node const heading =
      document.begin().AppendChild(new OmHeading(OmStringCellUTF8("Hard cases")));
  FillItems(heading);
  for (Case const& hardCase : kCases) {
    auto table = std::make_unique<Table>();
    table->SetTableTitle(Utf8(hardCase.title));
    hardCase.fill(*table);
    table->EndTable();
    heading.AppendChild(table.release());
  }
}
