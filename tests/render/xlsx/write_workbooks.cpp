#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <limits>
#include <string>
#include <string_view>
#include <sys/resource.h>

#include <lakresvos/OmChart.h>
#include <lakresvos/OmHeading.h>
#include <lakresvos/OmModel.h>
#include <lakresvos/OmTextBlock.h>
#include <lakresvos/render/XlsxRenderer.h>

#include "render/support/Pictures.h"
#include "render/support/RenderTables.h"

// Writes a workbook for each of the cases that test_workbooks.py reads back.

namespace {

using namespace render_tables;
using lakresvos::render::XlsxOptions;
using namespace std::string_view_literals;

constexpr double kMissing = std::numeric_limits<double>::quiet_NaN();

/// A picture of one pixel in outline: no decoder can show it, but it is whole.
constexpr std::string_view kJpeg =
    "\xFF\xD8\xFF\xE0\0\x10JFIF\0\x01\x01\x01\0H\0H\0\0"
    "\xFF\xC0\0\x0B\x08\0\x01\0\x01\x01\x01\x11\0"
    "\xFF\xDA\0\x08\x01\x01\0\0?\0"
    "\x7F\xFF\0\xFF\xD0\x7F\xFF\xD9"sv;

/// A picture of 2,147,483,647 by 1,073,741,823 pixels, each as large as a metre.
constexpr std::string_view kVastPng =
    "\x89PNG\r\n\x1A\n\0\0\0\rIHDR\x7F\xFF\xFF\xFF?\xFF\xFF\xFF\x08\0\0\0\0\xEF"
    "0W\xBD\0\0\0\x09pHYs\0\0\0\x01\0\0\0\x01\x01"
    "8\x22\xF4@\0\0\0\nIDATx\x9C"
    "c`\0\0\0\x02\0\x01H\xAF\xA4q\0\0\0\0IEND\xAE"
    "B`\x82"sv;

struct Document {
  OmOutputTree tree;

  template <class Part, class... Arguments>
  Part& Add(Arguments&&... arguments) {
    return AppendItem<Part>(tree.begin(), std::forward<Arguments>(arguments)...);
  }

  /// A table without dimensions.
  Table& AddTable(std::string const& title) {
    auto& table = Add<Table>();
    table.SetTableTitle(Utf8(title));
    return table;
  }

  /// One row, one column, one cell.
  Table& AddSmallTable(std::string const& title) {
    Table& table = AddTable(title);
    table.AddFlat("r", 1);
    table.AddFlat("c", 1);
    table.Place({0}, {1});
    table.PutAll();
    return table;
  }
};

/// Rows in the groups A and B; the columns of d within those of e; the layers of l.
Table& AddGrouped(Document& document, std::string const& title) {
  Table& table = document.AddTable(title);
  OmDimension& rows = table.Add("rows");
  unsigned long subscript = 0;
  for (char const* group : {"A", "B"}) {
    layout_tables::Node const node = Group(rows, rows.Root(), group);
    for (char const* category : {"1", "2"}) {
      Category(rows, node, group + std::string(category), subscript++);
    }
  }
  table.AddFlat("d", 2);
  table.AddFlat("e", 2);
  table.AddFlat("l", 2);
  table.Place({0}, {1, 2}, {3});
  table.PutAll();
  return table;
}

void Contents(Document& document) {
  document.Add<OmHeading>(Utf8("Heading"));
  auto const heading = document.tree.begin().FirstChild();
  AppendItem<OmProcedure>(heading, Utf8("Procedure"), "a", "b", "c");
  AppendItem<OmTextBlock>(heading, Utf8("Log"), "first line\n=second()\n");
  document.Add<OmTextBlock>(Utf8(""), std::string(40000, 'x'));
  document.Add<OmPageTitle>("Page");
  document.AddSmallTable("Counts");
  document.AddSmallTable("Counts");
  document.AddSmallTable("").SetTableTitle(Utf8(""));
  document.AddSmallTable("Not shown").Show(false);
  document.AddSmallTable("Contents");
  document.AddTable("No cells");
  document.Add<OmChart>(Utf8("Chart"), "", 1);
}

void Cells(Document& document) {
  Table& table = document.AddTable("Cells");
  AddCategories(
      table, "kind",
      {"whole", "two", "any", "missing", "huge", "text", "formula", "url", "code", "nothing"});
  AddCategories(table, "shown", {"value"});
  table.Place({0}, {1});
  auto const put = [&](int row, OmCellText const& cell) { table.Cell({row, 0}, cell); };
  put(0, OmNumber(3, 0));
  put(1, OmNumber(1.5, 2));
  put(2, OmNumber(0.1));
  put(3, OmNumber(kMissing, 2));
  put(4, OmNumber(std::numeric_limits<double>::max(), 0));
  put(5, Utf8("12"));
  put(6, Utf8("=1+1"));
  put(7, Utf8("https://example.org/"));
  put(8, Utf8("_x0041_ __x00e9__ _x41_"));
  put(9, Utf8(""));
}

void Footnotes(Document& document) {
  Table& table = document.AddTable("Footnotes");
  unsigned int const first = AddFootnote(table, "First note.\nIt goes on.");
  unsigned int const quote = AddFootnote(table, "Second note.", "\"2\"");
  unsigned int const longest = AddFootnote(table, "Third note.", std::string(200, 'M'));
  AddCategories(table, "r", {"both", "number", "text", "long", "empty", "missing"});
  AddCategories(table, "c", {"c0"});
  WithFootnotes(*table.Dimension(0).Root().Child(0).Value().label, {first, quote});
  table.Place({0}, {1});
  auto const put = [&](int row, OmCellText&& cell, std::initializer_list<unsigned int> notes) {
    table.Cell({row, 0}, WithFootnotes(cell, notes));
  };
  put(0, OmNumber(1), {first, quote});
  put(1, OmNumber(2.5, 1), {first});
  put(2, Utf8("text "), {first});
  put(3, OmNumber(4, 0), {longest});
  put(4, Utf8(""), {first});
  put(5, OmNumber(kMissing, 1), {first});
  OmStringCellUTF8 title("Footnotes");
  table.SetTableTitle(WithFootnotes(title, {first}));
  OmStringCellUTF8 caption("Caption");
  table.Caption(&WithFootnotes(caption, {first}));
}

/// More marks than a workbook can have number formats.
void Marks(Document& document) {
  Table& table = document.AddTable("Marks");
  table.AddFlat("r", 300);
  table.AddFlat("c", 2);
  table.Place({0}, {1});
  for (int row = 0; row < 300; ++row) {
    unsigned int const note = AddFootnote(table, "note", "m" + std::to_string(row));
    OmNumber number(row, row % 7);
    table.Cell({row, 0}, WithFootnotes(number, {note}));
    table.Cell({row, 1}, OmNumber(row, row % 7));
  }
}

/// Marks and names of fonts of every length, in letters of three bytes.
void Lengths(Document& document) {
  constexpr int kMaxLength = 60;
  Table& table = document.AddTable("Lengths");
  table.AddFlat("r", kMaxLength);
  table.AddFlat("c", 1);
  table.Place({0}, {1});
  table.cellStyles().resize(kMaxLength + 1);
  std::string letters;
  for (int length = 1; length <= kMaxLength; ++length) {
    letters += "\xE8\xA1\xA8";
    table.cellStyles()[static_cast<std::size_t>(length)].setFontName(letters);
    OmCellMetaData meta;
    meta.addFootnote(AddFootnote(table, "note", letters));
    meta.setStyle(static_cast<unsigned short>(length));
    OmNumber number(length);
    number.setMeta(&meta);
    table.Cell({length - 1, 0}, number);
  }
}

/// Names of layers that are wider than a page, above columns whose widths are not known yet.
void LongLayers(Document& document) {
  Table& table = document.AddTable("Layers");
  AddCategories(table, "r", {std::string(40, 'r').c_str()});
  AddCategories(table, "c", {"c0"});
  OmDimension& layers = table.Add("l");
  Category(layers, layers.Root(), std::string(100, 'x'), 0);
  Category(layers, layers.Root(), std::string(200, 'x'), 1);
  table.Place({0}, {1}, {2});
  table.PutAll();
}

/// Texts at the limit of what a cell holds, and above it.
void LongTexts(Document& document) {
  constexpr std::size_t kMaxCharacters = 32'767;
  Table& table = document.AddTable(std::string(2500, 'T') + " end");
  unsigned int const note = AddFootnote(table, "note");
  AddCategories(table, "r", {"longest", "longer", "codes", "marked", "marked longer", "after"});
  AddCategories(table, "c", {"c0"});
  table.Place({0}, {1});
  std::string codes;
  while (codes.size() + 7 <= kMaxCharacters) {
    codes += "_x0041_";
  }
  table.Cell({0, 0}, Utf8(std::string(kMaxCharacters, 'x')));
  table.Cell({1, 0}, Utf8(std::string(kMaxCharacters + 1, 'x')));
  table.Cell({2, 0}, Utf8(codes));
  OmStringCellUTF8 marked(std::string(kMaxCharacters - 1, '&'));
  table.Cell({3, 0}, WithFootnotes(marked, {note}));
  OmStringCellUTF8 longer(std::string(kMaxCharacters, 'x'));
  table.Cell({4, 0}, WithFootnotes(longer, {note}));
  table.Cell({5, 0}, OmNumber(1, 0));
}

/// Layers with notes of their own, one that they share, and one that nothing refers to.
void LayerNotes(Document& document) {
  Table& table = document.AddTable("Notes");
  table.AddFlat("r", 1);
  table.AddFlat("l", 3);
  table.Place({0}, {}, {1});
  for (unsigned int layer = 0; layer < 3; ++layer) {
    unsigned int const own = AddFootnote(table, "of layer " + std::to_string(layer));
    OmNumber number(layer);
    table.Cell({0, static_cast<int>(layer)}, WithFootnotes(number, {own}));
  }
  unsigned int const shared = AddFootnote(table, "of all");
  AddFootnote(table, "of none");
  OmStringCellUTF8 caption("Caption");
  table.Caption(&WithFootnotes(caption, {shared}));
}

void Grouped(Document& document) {
  AddGrouped(document, "Grouped");
}

/// The categories 1, 2 and their total of b within those of a; the same of c in the columns.
void Totals(Document& document) {
  Table& table = document.AddTable("Totals");
  OmStringCellUTF8 total("Total");
  OmCellMetaData meta;
  meta.setTotal(true);
  total.setMeta(&meta);
  for (char const* name : {"a", "b", "c"}) {
    OmDimension& dimension = AddCategories(table, name, {"1", "2"});
    dimension.AddNewChild(dimension.Root(), total, 2, false);
  }
  table.Place({0, 1}, {2});
  table.PutAll();
}

void Captions(Document& document) {
  OmStringCellUTF8 const caption("two\nlines");
  document.AddSmallTable("Two\nlines").Caption(&caption);
  Table& hidden = document.AddSmallTable("Hidden");
  hidden.Caption(&caption);
  hidden.showCaption(false);
  Table& empty = document.AddTable("No cells");
  AddFootnote(empty, "A note all the same.");
  empty.Caption(&caption);
}

/// Titles that mean something else in references.
void Titles(Document& document) {
  for (char const* title : {"2013", "A1", "R1C1", "TRUE", "Bob's", "a/b", "Größe"}) {
    document.AddSmallTable(title);
  }
}

/// Titles of every length in several scripts, with apostrophes and with pairs of surrogates.
void Names(Document& document) {
  for (char const* letters :
       {"a", "\xC3\xB6", "\xD0\x96", "\xCE\xA9", "\xD8\xB4", "\xE0\xA4\x95", "\xE8\xA1\xA8",
        "\xF0\x9F\x98\x80", "\xE8\xA1\xA8'", "a'", "''", "!\xE8\xA1\xA8&<", ".", "7"}) {
    std::string title;
    for (int length = 1; length <= 33; ++length) {
      title += letters;
      document.AddSmallTable(title);
    }
  }
}

/// A table that is too wide for one page, with a name that takes many bytes.
void WideNames(Document& document) {
  std::string title;
  for (int length = 0; length < 31; ++length) {
    title += "\xE8\xA1\xA8";
  }
  Table& table = document.AddTable(title);
  table.AddFlat("r", 2);
  table.AddFlat("c", 60);
  table.Place({0}, {1});
  table.PutAll();
}

FormatArea* Format(FormatArea::Area area) {
  auto* const format = new FormatArea(area);
  format->setFontName(area == FormatArea::AreaTitle ? "No font has <such> a name & so many letters"
                                                    : "Arial & <Co>");
  format->setFontSize(10.0F + static_cast<float>(area));
  format->setFontStyle(3);
  format->setUnderline(true);
  format->setHorizontalAlignment(1);
  format->setVerticalAlignment(1);
  format->setTextColor("#000000");
  format->setBackgroundColor("#fe0");
  return format;
}

void Styles(Document& document) {
  OmPivotTable& table = AddGrouped(document, "Styles");
  OmStringCellUTF8 const caption("Caption");
  table.Caption(&caption);
  AddFootnote(table, "Note");
  for (int area = FormatArea::AreaTitle; area <= FormatArea::AreaLayers; ++area) {
    table.setAreaFormat(Format(static_cast<FormatArea::Area>(area)));
  }
  FormatArea& data = *table.getAreaFormat(FormatArea::AreaData);
  data.setUseAltRowColors(true);
  data.setAlternateTextColor("#010203");
  data.setAlternateBackgroundColor("#ffffff");
  table.cellStyles().resize(2);
  OmCellProperties& style = table.cellStyles()[1];
  style.setFontStyle(2);
  style.setTextColor("#aabbcc");
  style.setHorizontalAlignment(0);
  OmCellMetaData meta;
  meta.setStyle(1);
  table.Cell({0, 0, 0, 0})->setMeta(&meta);
}

void Widths(Document& document) {
  Table& table = document.AddTable("A title that is much wider than all columns of the table");
  AddCategories(table, "r", {"twelve chars", "\xE6\x97\xA5\xE6\x9C\xAC\xE8\xAA\x9E\xE3\x81\xAE"});
  AddCategories(table, "a heading that is merged over both columns", {"c0", "c1", "c2"});
  table.Place({0}, {1});
  table.Cell({0, 0}, Utf8("日本語の見出し"));
  table.Cell({0, 1}, OmNumber(1234567890.5, 3));
  table.Cell({1, 2}, Utf8(std::string(100, 'x')));
}

void Pictures(Document& document) {
  auto const picture = [&](std::string const& label, std::string_view bytes) {
    document.Add<OmChart>(Utf8(label), "", 1)
        .SetImageStream(bytes.data(), static_cast<unsigned int>(bytes.size()));
  };
  picture("Bars & <more>", kPixelPng);
  picture("", kPixelPng);
  picture("Broken", kPixelPng.substr(0, 10));
  std::string flipped(kPixelPng);
  flipped[50] ^= 1;
  picture("Flipped", flipped);
  picture("Unknown", "some bytes");
  picture("Photograph", kJpeg);
  std::string label;
  for (int i = 0; i < 1000; ++i) {
    label += "\xE8\xA1\xA8";
  }
  picture(label, kPixelPng);
  picture("Drawn", "<svg xmlns=\"http://www.w3.org/2000/svg\"/>");
}

void VastPicture(Document& document) {
  document.Add<OmChart>(Utf8("Vast"), "", 1)
      .SetImageStream(kVastPng.data(), static_cast<unsigned int>(kVastPng.size()));
}

/// More sheets than the process may have open files.
void Many(Document& document) {
  for (int i = 0; i < 300; ++i) {
    document.AddSmallTable("Table " + std::to_string(i));
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: write_workbooks DIRECTORY\n";
    return 2;
  }
  rlimit const few{100, 100};
  setrlimit(RLIMIT_NOFILE, &few);
  std::filesystem::path const directory = argv[1];
  std::filesystem::create_directories(directory);
  auto const write = [&](char const* name, std::function<void(Document&)> const& fill,
                         XlsxOptions const& options = {}) {
    Document document;
    fill(document);
    std::ofstream out;
    out.exceptions(std::ios::failbit | std::ios::badbit);
    out.open(directory / (std::string(name) + ".xlsx"), std::ios::binary);
    XlsxOptions logged = options;
    std::ofstream losses(directory / (std::string(name) + ".losses"));
    logged.onLoss = [&](std::string const& loss) { losses << loss << '\n'; };
    RenderXlsx(document.tree, out, logged);
  };
  auto const with = [](auto... settings) {
    XlsxOptions options;
    (settings(options), ...);
    return options;
  };
  auto const sheets = [](XlsxOptions& options) { options.layersAsSheets = true; };
  auto const apartRows = [](XlsxOptions& options) { options.mergeRows = false; };
  auto const apartColumns = [](XlsxOptions& options) { options.mergeColumns = false; };
  auto const firstLayer = [](XlsxOptions& options) { options.allLayers = false; };
  write("contents", Contents);
  write("cells", Cells);
  write("footnotes", Footnotes);
  write("grouped", Grouped);
  write("sheets", Grouped, with(sheets));
  write("first", Grouped, with(firstLayer));
  write("first_sheet", Grouped, with(firstLayer, sheets));
  write("rows_apart", Grouped, with(apartRows));
  write("columns_apart", Grouped, with(apartColumns));
  write("all_apart", Grouped, with(apartRows, apartColumns));
  write("totals", Totals);
  write("captions", Captions);
  write("titles", Titles);
  write("names", Names);
  write("wide_names", WideNames);
  write("marks", Marks);
  write("lengths", Lengths);
  write("long_texts", LongTexts);
  write("long_layers", LongLayers);
  write("layer_notes", LayerNotes, with(sheets));
  write("first_layer_notes", LayerNotes, with(sheets, firstLayer));
  write("styles", Styles);
  write("widths", Widths);
  write("pictures", Pictures);
  write("vast_picture", VastPicture);
  write("many", Many);
}
