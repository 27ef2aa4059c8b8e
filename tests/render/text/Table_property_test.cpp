#include <gtest/gtest.h>
#include <map>
#include <rapidcheck/gtest.h>
#include <sstream>
#include <string>
#include <vector>

#include <lakresvos/OmVectorTreeWalk.h>
#include <lakresvos/render/LayerGrids.h>

#include "render/support/PlainGrid.h"
#include "render/support/RenderTables.h"
#include "support/RandomLayoutTable.h"
#include "text/BoxDrawing.h"
#include "text/Table.h"
#include "unicode/TextWidth.h"

using namespace lakresvos::render;
using namespace render_tables;

namespace {

/// Evenly distributed, however small the case is meant to be.
template <class... Values>
auto OneOf(Values... values) {
  return *rc::gen::resize(rc::kNominalSize, rc::gen::element(values...));
}

std::string AnyText() {
  return OneOf<std::string>("", "a", "same", "two words", "two\nlines", "日本語の長い見出し",
                            "e\u0301", "👩‍👩‍👧", "שלום",
                            "a text that is much longer than its column", "\xff\x01",
                            "antidisestablishmentarianism");
}

/// Gives every node another label; many of them become equal.
void Relabel(OmPivotTable& table) {
  for (int d = 0; d < table.NDimensions(); ++d) {
    OmVectorTreeWalk<OmDimension::Node> walk(table.Dimension(d).Root());
    while (walk.Next()) {
      OmDimensionNode& node = walk.Current().Value();
      OmCellText* const label = Utf8(AnyText()).Clone(node.childIndex.region);
      delete node.label;
      node.label = label;
    }
  }
}

/// Gives the stored cells texts, numbers and footnotes.
void Restore(OmPivotTable& table) {
  AddFootnote(table, "letter");
  AddFootnote(table, "marker", "***");
  int left = 200;
  for (std::vector<int> const& index : StoredCells(table)) {
    if (--left == 0) {
      break;
    }
    OmStringCellUTF8 text(AnyText());
    OmNumber number(OneOf(0.0, -1.5, 1e300, 12345.678), OneOf(-1, 0, 2));
    switch (OneOf(0, 1, 2, 3)) {
      case 0:
        table.Cell(index, text);
        break;
      case 1:
        table.Cell(index, WithFootnotes(number, {0}));
        break;
      case 2:
        table.Cell(index, WithFootnotes(number, {1, 0}));
        break;
      default:
        table.Cell(index, number);
    }
  }
}

std::vector<std::string> Lines(std::string const& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) {
    lines.push_back(line);
  }
  return lines;
}

/// The lines of each of several frames with an empty line between.
std::vector<std::vector<std::string>> Frames(std::string const& text) {
  std::vector<std::vector<std::string>> frames(1);
  for (std::string const& line : Lines(text)) {
    if (line.empty()) {
      frames.emplace_back();
    } else {
      frames.back().push_back(line);
    }
  }
  return frames;
}

/// Draws every layer of a random table and hands each frame to `check` line by line.
template <class Check>
void ForRandomDrawings(TextOptions options, Check check) {
  Table table;
  layout_tables::MakeRandomTable(table);
  Relabel(table);
  Restore(table);
  options.skipEmpty = *rc::gen::arbitrary<bool>();
  options.maxColumnWidth = OneOf(0, 2, 3, 10, 40);
  options.width = OneOf(0, 1, 20, 60);
  LabelTexts labels;
  FootnoteMarks const marks(table, labels, options.ascii);
  bool const dimNamesInCorner = *rc::gen::arbitrary<bool>();
  OmDisplayLayerHeading layers(table, options.skipEmpty);
  for (int layer = 0; layer < 5 && layers.NextLayer(); ++layer) {
    DisplayGrid const grid(layers, options.skipEmpty, dimNamesInCorner);
    if (static_cast<double>(grid.Rows()) * grid.Columns() > 4000) {
      continue;
    }
    std::ostringstream out;
    TextTable(grid, marks, options).Write(out);
    for (std::vector<std::string> const& frame : Frames(out.str())) {
      check(frame);
    }
  }
}

/// What is in each terminal column of a line; empty in the second one of a wide character.
std::vector<std::string> Columns(std::string const& line) {
  std::vector<std::string> columns;
  for (std::string_view rest = line; !rest.empty();) {
    Grapheme const grapheme = SplitGrapheme(rest);
    if (grapheme.width > 0) {
      columns.emplace_back(grapheme.bytes);
      columns.resize(columns.size() + static_cast<std::size_t>(grapheme.width) - 1);
    }
  }
  return columns;
}

std::map<std::string, Arms> AllJoints() {
  std::map<std::string, Arms> joints;
  for (bool const strong : {false, true}) {
    for (int i = 1; i < 16; ++i) {
      Arms const arms{(i & 1) != 0, (i & 2) != 0, (i & 4) != 0, (i & 8) != 0};
      joints[std::string(BoxDrawing(false).Joint(arms, strong))] = arms;
    }
  }
  // These two are the whole line when both arms are there, and cannot be told apart from half of
  // it.
  joints["─"] = joints["═"] = {false, false, true, true};
  return joints;
}

std::map<std::string, Arms> const kJoints = AllJoints();

Arms ArmsAt(std::vector<std::vector<std::string>> const& page, std::size_t row,
            std::size_t column) {
  if (row >= page.size() || column >= page[row].size()) {
    return {};
  }
  auto const found = kJoints.find(page[row][column]);
  return found != kJoints.end() ? found->second : Arms{};
}

}  // namespace

RC_GTEST_PROP(TextTableProperty, AllLinesAreEquallyWide, ()) {
  TextOptions options;
  options.ascii = *rc::gen::arbitrary<bool>();
  ForRandomDrawings(options, [](std::vector<std::string> const& lines) {
    for (std::string const& line : lines) {
      RC_ASSERT(TextWidth(line) == TextWidth(lines.front()));
      RC_ASSERT(PrintableLines(line) == std::vector<std::string>{line});
    }
  });
}

RC_GTEST_PROP(TextTableProperty, PartsFitAndShowEveryColumnInOrder, ()) {
  Table table;
  layout_tables::MakeRandomTable(table);
  Relabel(table);
  Restore(table);
  LabelTexts labels;
  FootnoteMarks const marks(table, labels, false);
  bool const skipEmpty = *rc::gen::arbitrary<bool>();
  OmDisplayLayerHeading layers(table, skipEmpty);
  if (!layers.NextLayer()) {
    return;
  }
  auto const grid = std::make_unique<DisplayGrid>(layers, skipEmpty, *rc::gen::arbitrary<bool>());
  if (static_cast<double>(grid->Rows()) * grid->Columns() > 4000) {
    return;
  }
  int const headings = grid->HeadingColumns();
  int const width = OneOf(1, 20, 40, 100);
  bool const canFit = width >= 4 + (6 + 3) * headings + 6;
  PlainGrid const plain(*grid);
  BodyTexts texts(*grid);
  int shown = headings;
  for (TextPart const& part : LayOutText(*grid, marks, OneOf(2, 10, 40), width, 1, texts)) {
    RC_ASSERT(!canFit || part.layout.Extent() <= width);
    int const skipped = shown - headings;
    shown += part.grid.Columns() - headings;
    RC_ASSERT(part.grid.Rows() == grid->Rows());
    for (int row = 0; row < grid->Rows(); ++row) {
      for (GridCell const& cell : part.grid.Headings(row)) {
        for (int column = cell.column; column < cell.column + cell.columnSpan; ++column) {
          RC_ASSERT(column < part.grid.Columns());
          GridCell const* const whole =
              plain.Heading(row, column < headings ? column : column + skipped);
          RC_ASSERT((whole->label == cell.label && whole->role == cell.role));
          RC_ASSERT((whole->row == cell.row && whole->rowSpan == cell.rowSpan));
        }
      }
    }
    for (int column = headings; column < part.grid.Columns(); ++column) {
      RC_ASSERT(part.grid.FindWholeColumn(column) == column + skipped);
    }
  }
  RC_ASSERT(shown == grid->Columns());
}

RC_GTEST_PROP(TextTableProperty, LinesMeetWhereTheyJoin, ()) {
  ForRandomDrawings({}, [](std::vector<std::string> const& lines) {
    std::vector<std::vector<std::string>> page;
    page.reserve(lines.size());
    for (std::string const& line : lines) {
      page.push_back(Columns(line));
    }
    for (std::size_t row = 0; row < page.size(); ++row) {
      for (std::size_t column = 0; column < page[row].size(); ++column) {
        Arms const arms = ArmsAt(page, row, column);
        RC_ASSERT(arms.right == ArmsAt(page, row, column + 1).left);
        RC_ASSERT(arms.down == ArmsAt(page, row + 1, column).up);
        RC_ASSERT((row > 0 || !arms.up));
        RC_ASSERT((column > 0 || !arms.left));
      }
    }
  });
}

RC_GTEST_PROP(TextTableProperty, FrameIsClosedOnAllFourSides, ()) {
  ForRandomDrawings({}, [](std::vector<std::string> const& lines) {
    if (lines.empty()) {
      return;
    }
    RC_ASSERT(lines.size() >= 3U);
    RC_ASSERT(lines.front().find("┌") == 0U);
    RC_ASSERT(lines.back().find("└") == 0U);
    for (std::size_t i = 1; i + 1 < lines.size(); ++i) {
      std::vector<std::string> const columns = Columns(lines[i]);
      RC_ASSERT((columns.front() == "│" || columns.front() == "├" || columns.front() == "╞"));
      RC_ASSERT((columns.back() == "│" || columns.back() == "┤" || columns.back() == "╡"));
    }
  });
}
