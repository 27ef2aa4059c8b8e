#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <map>
#include <rapidcheck/gtest.h>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <cells/OmDataValue.h>
#include <lakresvos/render/CsvRenderer.h>
#include <lakresvos/render/LayerGrids.h>

#include "render/csv/Records.h"
#include "render/support/HostileText.h"
#include "render/support/PlainGrid.h"
#include "render/support/RenderTables.h"
#include "support/RandomLayoutTable.h"
#include "unicode/CleanText.h"

using namespace lakresvos::render;
using namespace render_tables;

namespace {

using Fields = std::vector<std::string>;

std::string Written(OmPivotTable& table, CsvOptions const& options) {
  std::ostringstream out;
  RenderCsv(TableDocument(table).Tree(), out, options);
  return out.str();
}

/// A random table with hostile texts and some numbers in it.
void MakeHostileTable(Table& table) {
  MakeRandomTable(table);
  RelabelWithHostileTexts(table);
  AddFootnote(table, "letter");
  for (std::vector<int> const& index : StoredCells(table)) {
    OmNumber number(OneOf(0.0, -1.5, 0.1, 1e300, -5e-324, 1.0 / 3, std::nan("")), OneOf(-1, 0, 2));
    switch (OneOf(0, 1, 2, 3)) {
      case 0:
        table.Cell(index, Utf8(HostileText()));
        break;
      case 1:
        table.Cell(index, WithFootnotes(number, {0}));
        break;
      case 2:
        table.Cell(index, OmNumDataValue(number.Value(), ""));
        break;
      default:
        table.Cell(index, number);
    }
  }
}

CsvOptions AnyOptions(CsvOptions::Shape shape) {
  CsvOptions options;
  options.shape = shape;
  options.skipEmpty = *rc::gen::arbitrary<bool>();
  options.safe = *rc::gen::arbitrary<bool>();
  return options;
}

/// The labels above each category and its own, in the tree's order, with the subscripts.
void CollectPaths(OmDimension::ConstNode node, Fields const& path,
                  std::vector<std::pair<int, Fields>>& paths) {
  if (!node.Value().group) {
    paths.emplace_back(static_cast<int>(node.Value().subscript), path);
  }
  for (std::size_t i = 0; i < node.NChildren(); ++i) {
    Fields below = path;
    below.push_back(CleanText(node.Child(i).Value().label->GetText()));
    CollectPaths(node.Child(i), below, paths);
  }
}

/// What is in the columns of a dimension, by subscript.
std::map<int, Fields> Columns(OmDimension const& dimension) {
  std::vector<std::pair<int, Fields>> paths;
  CollectPaths(dimension.Root(), {}, paths);
  std::size_t levels = 0;
  for (auto const& [subscript, path] : paths) {
    levels = std::max(levels, path.size());
  }
  std::map<int, Fields> columns;
  for (auto& [subscript, path] : paths) {
    path.insert(path.end() - (path.empty() ? 0 : 1), levels - path.size(), "");
    columns.emplace(subscript, path);
  }
  return columns;
}

bool MayBeRun(std::string const& field) {
  std::string const text = field.substr(std::min(field.find_first_not_of(" \""), field.size()));
  return !text.empty() &&
         (std::string("=+-@").find(text[0]) != std::string::npos || text.substr(0, 3) == "\uFF1D");
}

/// A text without the apostrophes that keep it from being run.
std::string RemoveApostrophes(std::string text) {
  text.erase(std::remove(text.begin(), text.end(), '\''), text.end());
  return text;
}

/// Whether a field shows a text, guarded or not.
bool Shows(std::string const& field, std::string const& text, bool safe) {
  return field == text || (safe && RemoveApostrophes(field) == RemoveApostrophes(text));
}

bool IsNumber(std::string const& text) {
  char* end = nullptr;
  std::strtod(text.c_str(), &end);
  return !text.empty() && *end == '\0';
}

bool ShowsCells(OmPivotTable& table, CsvOptions const& options) {
  LayerGrids layers(table, options);
  DisplayGrid const* const grid = layers.Next();
  return grid != nullptr && grid->Columns() > 0;
}

/// Checks what a spreadsheet makes of a file when it splits it at this character and at line ends,
/// and knows nothing of quotes.
void CheckNothingIsRun(std::string const& written, char separator) {
  std::string piece;
  for (char const c : written) {
    if (c != separator && c != '\n' && c != '\r') {
      piece += c;
      continue;
    }
    // Numbers are never guarded.
    RC_ASSERT(!MayBeRun(piece) || IsNumber(piece.substr(0, piece.find(','))));
    piece.clear();
  }
}

double FindValue(OmCellText* cell) {
  auto const* number = dynamic_cast<OmNumber const*>(cell);
  return number != nullptr ? number->Value() : dynamic_cast<OmNumDataValue const&>(*cell).Value();
}

void CheckValue(std::string const& field, OmCellText* cell, bool safe) {
  if (cell == nullptr) {
    RC_ASSERT(field.empty());
  } else if (dynamic_cast<OmStringCellUTF8*>(cell) != nullptr) {
    std::string const text = CleanText(cell->GetText());
    RC_ASSERT(Shows(field, text, safe));
    RC_ASSERT(!(safe && MayBeRun(field)));
  } else if (std::isnan(FindValue(cell))) {
    RC_ASSERT(field.empty());
  } else {
    char* end = nullptr;
    RC_ASSERT(std::strtod(field.c_str(), &end) == FindValue(cell));
    RC_ASSERT(*end == '\0');
  }
}

}  // namespace

RC_GTEST_PROP(CsvRendererProperty, LongShapeReadsBackAsTheStoredCells, ()) {
  Table table;
  MakeHostileTable(table);
  CsvOptions options = AnyOptions(CsvOptions::Shape::Long);
  options.skipEmpty = true;
  std::vector<std::map<int, Fields>> columns;
  for (int d = 0; d < table.NDimensions(); ++d) {
    columns.push_back(Columns(table.Dimension(d)));
  }
  CsvRecords const records = ReadCsvRecords(Written(table, options));
  std::set<std::string> const names(records.front().begin(), records.front().end());
  RC_ASSERT(names.size() == records.front().size());
  std::size_t next = 1;
  for (auto at = table.FirstCell(); at.Cell() != nullptr; ++at) {
    Fields expected;
    std::size_t known = 0;
    for (std::size_t d = 0; d < columns.size(); ++d) {
      auto const found = columns[d].find(at.Index()[d]);
      if (found != columns[d].end()) {
        ++known;
        expected.insert(expected.end(), found->second.begin(), found->second.end());
      }
    }
    if (known != columns.size()) {
      continue;
    }
    RC_ASSERT(next < records.size());
    Fields const& record = records[next++];
    RC_ASSERT(record.size() == records.front().size());
    RC_ASSERT(record.size() == expected.size() + 2);
    for (std::size_t i = 0; i < expected.size(); ++i) {
      RC_ASSERT(Shows(record[i], expected[i], options.safe));
      RC_ASSERT(!(options.safe && MayBeRun(record[i])));
    }
    CheckValue(record[expected.size()], at.Cell(), options.safe);
    RC_ASSERT(record.back() == (at.Cell()->hasMeta() ? "letter" : ""));
  }
  RC_ASSERT(next == records.size());
}

RC_GTEST_PROP(CsvRendererProperty, NoSpreadsheetSeesAFormulaHoweverItSplits, ()) {
  Table table;
  MakeHostileTable(table);
  table.SetTableTitle(Utf8(HostileText()));
  CsvOptions options = AnyOptions(OneOf(CsvOptions::Shape::Long, CsvOptions::Shape::Display));
  options.skipEmpty = true;
  options.safe = true;
  std::string const written = Written(table, options);
  for (char const separator : {',', ';', '\t', '|'}) {
    CheckNothingIsRun(written, separator);
  }
}

RC_GTEST_PROP(CsvRendererProperty, EachTableOfADocumentIsFoundAgainByItsName, ()) {
  OmOutputTree document;
  CsvOptions options;
  options.safe = *rc::gen::arbitrary<bool>();
  std::vector<std::size_t> counts;
  for (int tables = OneOf(2, 3, 5); tables > 0; --tables) {
    auto& table = AppendItem<Table>(document.begin());
    MakeHostileTable(table);
    table.SetTableTitle(Utf8(OneOf<std::string>("same", "other", HostileText())));
    counts.push_back(ReadCsvRecords(Written(table, options)).size() - 1);
  }
  std::ostringstream out;
  RenderCsv(document, out, options);
  CsvRecords const records = ReadCsvRecords(out.str());
  RC_ASSERT(records[0][0] == "table");
  std::set<std::string> names;
  std::size_t next = 1;
  for (std::size_t const count : counts) {
    for (std::size_t i = 0; i < count; ++i, ++next) {
      RC_ASSERT(next < records.size());
      RC_ASSERT(records[next].size() == records[0].size());
      RC_ASSERT(names.insert(records[next][0]).second == (i == 0));
    }
  }
  RC_ASSERT(next == records.size());
}

RC_GTEST_PROP(CsvRendererProperty, LongShapeHasEachCombinationWhenEmptyOnesAreKept, ()) {
  Table table;
  MakeHostileTable(table);
  CsvOptions options;
  options.skipEmpty = false;
  double combinations = table.NDimensions() == 0 ? 0 : 1;
  for (int d = 0; d < table.NDimensions(); ++d) {
    OmVectorTreeWalk<OmDimension::ConstNode> walk(table.Dimension(d).Root());
    int categories = 0;
    while (walk.Next()) {
      categories += walk.Current().Value().group ? 0 : 1;
    }
    combinations *= categories;
  }
  RC_PRE(combinations < 20000);
  CsvRecords const records = ReadCsvRecords(Written(table, options));
  RC_ASSERT(static_cast<double>(records.size()) == combinations + 1);
  for (Fields const& record : records) {
    RC_ASSERT(record.size() == records.front().size());
  }
}

RC_GTEST_PROP(CsvRendererProperty, DisplayShapeReadsBackAsTheGrids, ()) {
  Table table;
  MakeHostileTable(table);
  CsvOptions const options = AnyOptions(CsvOptions::Shape::Display);
  CsvRecords const records = ReadCsvRecords(Written(table, options));
  bool const namesDimensions = !ShowsCells(table, options);
  std::size_t next = namesDimensions && !records.empty() ? 1 : 0;
  LayerGrids layers(table, options);
  while (DisplayGrid const* grid = layers.Next()) {
    PlainGrid const plain(*grid);
    next += plain.NamesLayer() ? 1 : 0;
    for (int row = 0; row < grid->Rows() && grid->Columns() > 0; ++row) {
      RC_ASSERT(next < records.size());
      Fields const& record = records[next++];
      RC_ASSERT(static_cast<int>(record.size()) == grid->Columns());
      for (int column = 0; column < grid->Columns(); ++column) {
        std::string const& field = record[static_cast<std::size_t>(column)];
        std::string const text = CleanText(plain.TextOnce(row, column));
        RC_ASSERT(Shows(field, text, options.safe));
        RC_ASSERT(!options.safe || plain.IsNumber(row, column) || !MayBeRun(field));
      }
    }
  }
  RC_ASSERT(next == records.size());
}
