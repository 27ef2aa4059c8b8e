#include <algorithm>
#include <gtest/gtest.h>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include <cells/OmNumber.h>
#include <lakresvos/OmPivotTable.h>

#include "core/table/OmPivotTableStoreNodes.h"
#include "support/SmallStack.h"
#include "support/SpyCell.h"

namespace {

using Lines = std::vector<std::string>;

/// Takes the place of standard output and keeps what arrives between two flushes apart.
class FlushedOutput : public std::stringbuf {
 public:
  FlushedOutput() : before_(std::cout.rdbuf(this)) {}
  ~FlushedOutput() override { std::cout.rdbuf(before_); }
  FlushedOutput(FlushedOutput const&) = delete;
  FlushedOutput& operator=(FlushedOutput const&) = delete;

  /// Everything written, a piece for each flush, and what was not flushed as the last.
  Lines Pieces() {
    if (!str().empty()) {
      sync();
    }
    return pieces_;
  }

 protected:
  int sync() override {
    pieces_.push_back(str());
    str("");
    return 0;
  }

 private:
  std::streambuf* before_;
  Lines pieces_;
};

/// What `write` writes. Each line must have come with a flush of its own, and is given without its
/// end.
template <class Write>
Lines Written(Write write) {
  Lines pieces;
  {
    FlushedOutput output;
    write();
    pieces = output.Pieces();
  }
  for (std::string& piece : pieces) {
    bool const is_line = !piece.empty() && piece.find('\n') == piece.size() - 1;
    EXPECT_TRUE(is_line) << "not one line a flush: " << piece;
    if (is_line) {
      piece.pop_back();
    }
  }
  return pieces;
}

Lines Printed(OmPivotTable const& table) {
  return Written([&] { table.Print(); });
}

std::string PointerText(void const* pointer) {
  std::ostringstream out;
  out << pointer;
  return out.str();
}

/// A table with a title.
class TitledTable : public TestTable {
 public:
  explicit TitledTable(int dimensions = 0) : TestTable(dimensions) { SetTableTitle(Text("T")); }
  ~TitledTable() noexcept override = default;
};

/// The lines that `table` prints for its dimensions.
Lines NodeLines(OmPivotTable const& table) {
  Lines lines = Printed(table);
  lines.erase(lines.begin());
  while (lines.back() != "Cells") {
    lines.pop_back();
  }
  lines.pop_back();
  return lines;
}

/// The lines that `table` prints for its cells.
Lines CellLines(OmPivotTable const& table) {
  Lines lines = Printed(table);
  lines.pop_back();
  lines.erase(lines.begin(), std::find(lines.begin(), lines.end(), "Cells") + 1);
  return lines;
}

/// A dimension's own node without a label: subscript 0, a group, sorted up.
OmDimensionNode BareNode() {
  OmDimensionNode node;
  node.subscript = 0;
  node.group = true;
  node.sort = 0;
  return node;
}

/// The line of a dimension's own node.
std::string LineOf(OmDimensionNode const& node) {
  TitledTable table;
  table.AddDimension(OmDimension(node, nullptr));
  Lines const lines = NodeLines(table);
  EXPECT_EQ(lines.size(), 1U);
  return lines.front();
}

// Print: the frame

TEST(OmPivotTablePrint, ATableWithOneBareDimensionPrintsFourLines) {
  TitledTable table;
  table.AddDimension(OmDimension(BareNode(), nullptr));
  EXPECT_EQ(Printed(table), (Lines{"Starting table T",
                                   "Subscript: 0, Group: yes, hide: no, hideLabels: no, Sort: up",
                                   "Cells", "Done with table T"}));
}

TEST(OmPivotTablePrint, AnEmptyTablePrintsItsTitleTwice) {
  EXPECT_EQ(Printed(TitledTable()), (Lines{"Starting table T", "Cells", "Done with table T"}));
}

TEST(OmPivotTablePrint, ATableWithoutATitlePrintsNone) {
  EXPECT_EQ(Printed(TestTable()), (Lines{"Starting table ", "Cells", "Done with table "}));
}

TEST(OmPivotTablePrint, TheTitleIsPrintedByItsText) {
  TestTable table;
  table.SetTableTitle(OmNumber(2.5, 2));
  EXPECT_EQ(Printed(table), (Lines{"Starting table 2.50", "Cells", "Done with table 2.50"}));
}

TEST(OmPivotTablePrint, EverythingStandsInItsOrder) {
  TitledTable table(2);
  table.Put({0, 0}, "cell");
  table.Caption(&static_cast<OmCellText const&>(Text("the caption")));
  table.CornerText(&static_cast<OmCellText const&>(Text("the corner")));
  OmFootnote note;
  note.text = Text("the note").Clone(nullptr);
  table.Footnote(note, true);
  EXPECT_EQ(
      Printed(table),
      (Lines{"Starting table T", "Subscript: 0, Group: yes, hide: no, hideLabels: no, Text: 0",
             "Subscript: 1, Group: yes, hide: no, hideLabels: no, Text: 1", "Cells", "cell",
             "  Corner Text: the corner", "  Caption: the caption", "  Footnotes", "      the note",
             "Done with table T"}));
}

TEST(OmPivotTablePrint, PrintingChangesNothing) {
  TitledTable table(2);
  table.Put({1, 2}, "cell");
  Lines const first = Printed(table);
  EXPECT_EQ(Printed(table), first);
  EXPECT_EQ(table.At({1, 2}), "cell");
  EXPECT_EQ(table.getNumCells(), 1);
}

// Print: texts

TEST(OmPivotTablePrint, TheCornerTextStandsAlone) {
  TitledTable table;
  OmStringCell const text("corner");
  table.CornerText(&text);
  EXPECT_EQ(Printed(table),
            (Lines{"Starting table T", "Cells", "  Corner Text: corner", "Done with table T"}));
}

TEST(OmPivotTablePrint, TheCaptionStandsAlone) {
  TitledTable table;
  OmStringCell const text("caption");
  table.Caption(&text);
  EXPECT_EQ(Printed(table),
            (Lines{"Starting table T", "Cells", "  Caption: caption", "Done with table T"}));
}

TEST(OmPivotTablePrint, ClearedTextsAreNotPrinted) {
  TitledTable table;
  OmStringCell const text("text");
  table.Caption(&text);
  table.Caption(nullptr);
  table.CornerText(&text);
  table.CornerText(nullptr);
  EXPECT_EQ(Printed(table), (Lines{"Starting table T", "Cells", "Done with table T"}));
}

TEST(OmPivotTablePrint, AnEmptyCaptionIsACaption) {
  TitledTable table;
  OmStringCell const text("");
  table.Caption(&text);
  EXPECT_EQ(Printed(table),
            (Lines{"Starting table T", "Cells", "  Caption: ", "Done with table T"}));
}

TEST(OmPivotTablePrint, AFootnoteWithAMarkerPrintsOnlyItsText) {
  TitledTable table;
  OmFootnote note;
  note.text = Text("note").Clone(nullptr);
  note.marker = Text("marker").Clone(nullptr);
  table.Footnote(note, true);
  EXPECT_EQ(Printed(table),
            (Lines{"Starting table T", "Cells", "  Footnotes", "      note", "Done with table T"}));
}

TEST(OmPivotTablePrint, FootnotesArePrintedInTheirOrder) {
  TitledTable table;
  for (char const* text : {"b", "a", "b"}) {
    OmFootnote note;
    note.text = Text(text).Clone(nullptr);
    table.Footnote(note, true);
  }
  EXPECT_EQ(Printed(table), (Lines{"Starting table T", "Cells", "  Footnotes", "      b", "      a",
                                   "      b", "Done with table T"}));
}

TEST(OmPivotTablePrint, AFootnoteWithoutATextPrintsAnEmptyOne) {
  TitledTable table;
  table.Footnotes().emplace_back();
  EXPECT_EQ(Printed(table),
            (Lines{"Starting table T", "Cells", "  Footnotes", "      ", "Done with table T"}));
}

// Print: cells

TEST(OmPivotTablePrint, CellsStandAloneOnTheirLinesTheFirstDimensionFastest) {
  TitledTable table(2);
  AddCategories(table.Dimension(0), 3);
  AddCategories(table.Dimension(1), 2);
  for (Index const& index : {Index{2, 1}, Index{0, 1}, Index{1, 0}, Index{0, 0}}) {
    table.Put(index, std::to_string(index[0]) + "/" + std::to_string(index[1]));
  }
  EXPECT_EQ(CellLines(table), (Lines{"0/0", "1/0", "0/1", "2/1"}));
}

TEST(OmPivotTablePrint, CellsArePrintedByTheirTextAlone) {
  TitledTable table(1);
  table.Cell({0}, SpyCell("spy"));
  table.Cell({1}, OmNumber(2.5, 3));
  SpyLog const log;
  EXPECT_EQ(CellLines(table), (Lines{"spy", "2.500"}));
  EXPECT_EQ(log.Lines(), Lines{"GetText spy"});
}

TEST(OmPivotTablePrint, AClearedCellIsNotPrinted) {
  TitledTable table(3);
  table.Put({0, 0, 0}, "first");
  table.Put({1, 2, 3}, "last");
  table.Clear({1, 2, 3});
  EXPECT_EQ(CellLines(table), Lines{"first"});
}

TEST(OmPivotTablePrint, AStoreOfClearedBranchesPrintsNoCell) {
  TitledTable table(3);
  table.Put({0, 0, 0}, "cell");
  table.Put({0, 1, 1}, "cell");
  table.deleteCell({0, 0, 0});
  table.Clear({0, 1, 1});
  EXPECT_EQ(CellLines(table), Lines{});
}

// Print: nodes

TEST(OmPivotTablePrintNode, ANodeSortedDown) {
  OmDimensionNode node = BareNode();
  node.sort = 1;
  EXPECT_EQ(LineOf(node), "Subscript: 0, Group: yes, hide: no, hideLabels: no, Sort: down");
}

TEST(OmPivotTablePrintNode, AnyOtherSortOrderWritesNothing) {
  for (int const sort : {2, 3, -1}) {
    OmDimensionNode node = BareNode();
    node.sort = sort;
    EXPECT_EQ(LineOf(node), "Subscript: 0, Group: yes, hide: no, hideLabels: no");
  }
}

TEST(OmPivotTablePrintNode, ANodeThatIsNoGroup) {
  OmDimensionNode node = BareNode();
  node.group = false;
  EXPECT_EQ(LineOf(node), "Subscript: 0, Group: no, hide: no, hideLabels: no, Sort: up");
}

TEST(OmPivotTablePrintNode, AHiddenNode) {
  OmDimensionNode node = BareNode();
  node.hide = true;
  EXPECT_EQ(LineOf(node), "Subscript: 0, Group: yes, hide: yes, hideLabels: no, Sort: up");
}

TEST(OmPivotTablePrintNode, ANodeWithHiddenLabels) {
  OmDimensionNode node = BareNode();
  node.hideLabels = true;
  EXPECT_EQ(LineOf(node), "Subscript: 0, Group: yes, hide: no, hideLabels: yes, Sort: up");
}

TEST(OmPivotTablePrintNode, ALabelWritesItselfWithoutIndent) {
  TitledTable table;
  table.AddDimension(SpyCell("spy"));
  SpyLog const log;
  EXPECT_EQ(NodeLines(table),
            Lines{"Subscript: 0, Group: yes, hide: no, hideLabels: no, Text: spy"});
  ASSERT_EQ(log.Of(SpyCell::Operation::Dump).size(), 1U);
  EXPECT_EQ(log.Of(SpyCell::Operation::Dump)[0].number, 0);
}

TEST(OmPivotTablePrintNode, AnEmptyLabelIsALabel) {
  TitledTable table;
  table.AddDimension(Text(""));
  EXPECT_EQ(NodeLines(table), Lines{"Subscript: 0, Group: yes, hide: no, hideLabels: no, Text: "});
}

TEST(OmPivotTablePrintNode, SubscriptsAreSigned) {
  TitledTable table;
  OmDimension& dimension = table.AddDimension(OmDimension(BareNode(), nullptr));
  dimension.AddNewChild(dimension.Root(), Text("a"), kNoSubscript, true);
  dimension.AddNewChild(dimension.Root(), Text("b"), kNoSubscript - 1, true);
  dimension.AddNewChild(dimension.Root(), Text("c"), 0xFFFFFFFFUL, true);
  EXPECT_EQ(
      NodeLines(table),
      (Lines{"Subscript: 0, Group: yes, hide: no, hideLabels: no, Sort: up, Children: 0, 1, 2",
             "  Subscript: -1, Group: yes, hide: no, hideLabels: no, Text: a",
             "  Subscript: -2, Group: yes, hide: no, hideLabels: no, Text: b",
             "  Subscript: 4294967295, Group: yes, hide: no, hideLabels: no, Text: c"}));
}

TEST(OmPivotTablePrintNode, ChildNumbersStandInTheOrderOfTheIndex) {
  TitledTable table(1);
  OmDimension& dimension = table.Dimension(0);
  dimension.Child(dimension.Root(), Text("b"), 0, false);
  dimension.Child(dimension.Root(), Text("a"), 1, false);
  EXPECT_EQ(NodeLines(table),
            (Lines{"Subscript: 0, Group: yes, hide: no, hideLabels: no, Children: 1, 0, Text: 0",
                   "  Subscript: 0, Group: no, hide: no, hideLabels: no, Text: b",
                   "  Subscript: 1, Group: no, hide: no, hideLabels: no, Text: a"}));
}

TEST(OmPivotTablePrintNode, ChildNumbersAreThoseOfTheIndexNotOfTheChildren) {
  TitledTable table(1);
  OmDimension& dimension = table.Dimension(0);
  dimension.value.childIndex.push_back(7);
  EXPECT_EQ(NodeLines(table),
            Lines{"Subscript: 0, Group: yes, hide: no, hideLabels: no, Children: 7, Text: 0"});
}

TEST(OmPivotTablePrintNode, NestedNodesAreIndentedByTwoBlanksALevel) {
  TitledTable table;
  table.AddDimension(*Nested("d"));
  table.AddDimension(Text("e"));
  EXPECT_EQ(NodeLines(table),
            (Lines{"Subscript: 0, Group: yes, hide: no, hideLabels: no, Children: 0, 1, Text: d",
                   "  Subscript: -1, Group: yes, hide: no, hideLabels: no, Children: 0, 1, Text: g",
                   "    Subscript: 0, Group: no, hide: no, hideLabels: no, Text: a",
                   "    Subscript: 1, Group: no, hide: no, hideLabels: no, Text: b",
                   "  Subscript: 2, Group: no, hide: no, hideLabels: no, Text: c",
                   "Subscript: 1, Group: yes, hide: no, hideLabels: no, Text: e"}));
}

// PrintCells

/// The lines for the subtree at `node`, which may be a cell.
Lines Cells(TestTable const& table, void* node, unsigned long depth, unsigned long index) {
  return Written([&] { table.PrintCells(static_cast<Node*>(node), depth, index); });
}

TEST(OmPivotTablePrintCells, ACellStandsBehindItsAddress) {
  TestTable table(1);
  table.Put({0}, "cell");
  Node* const root = table.data().cells;
  EXPECT_EQ(Cells(table, root, 0, 0),
            (Lines{PointerText(root), "    [0] " + PointerText(root->Entry(0)) + " - cell"}));
}

TEST(OmPivotTablePrintCells, AnEmptySlotIsItsAddressAlone) {
  TestTable table(1);
  table.Put({2}, "cell");
  Node* const root = table.data().cells;
  EXPECT_EQ(Cells(table, root, 0, 0),
            (Lines{PointerText(root), "    [0] " + PointerText(nullptr),
                   "    [1] " + PointerText(nullptr),
                   "    [2] " + PointerText(root->Entry(2)) + " - cell"}));
}

TEST(OmPivotTablePrintCells, FarSubscriptsShowTheEmptyEntriesBeforeThem) {
  TestTable table(2);
  table.Put({5, 6}, "cell");
  Node* const root = table.data().cells;
  Node* const bottom = Below(root, 6);
  Lines expected{PointerText(root)};
  for (int i = 0; i < 6; ++i) {
    expected.push_back("    [" + std::to_string(i) + "] " + PointerText(nullptr));
  }
  expected.push_back("    [6] " + PointerText(bottom));
  for (int i = 0; i < 5; ++i) {
    std::string const number = "    [" + std::to_string(i) + "]";
    expected.push_back(number + " " + number + " " + PointerText(nullptr));
  }
  expected.push_back("    [5]     [5] " + PointerText(bottom->Entry(5)) + " - cell");
  EXPECT_EQ(Cells(table, root, 0, 0), expected);
}

TEST(OmPivotTablePrintCells, EveryEntryOfALongNodeIsShown) {
  TestTable table(1);
  for (int i = 0; i < 60; ++i) {
    table.Put({50 * i}, std::to_string(i));
  }
  Lines const lines = Cells(table, table.data().cells, 0, 0);
  ASSERT_EQ(lines.size(), 1U + 59 * 50 + 1);
  EXPECT_EQ(lines[1 + 49], "    [49] " + PointerText(nullptr));
  EXPECT_EQ(lines[1 + 50], "    [50] " + PointerText(table.Cell({50})) + " - 1");
}

TEST(OmPivotTablePrintCells, TheSameNumberStandsInEveryGroup) {
  TestTable table(2);
  table.Put({1, 1}, "b");
  table.Put({0, 0}, "a");
  Node* const root = table.data().cells;
  Node* const first = Below(root, 0);
  Node* const second = Below(root, 1);
  EXPECT_EQ(Cells(table, root, 0, 9),
            (Lines{PointerText(root), "    [0] " + PointerText(first),
                   "    [0]     [0] " + PointerText(first->Entry(0)) + " - a",
                   "    [1] " + PointerText(second), "    [0]     [0] " + PointerText(nullptr),
                   "    [1]     [1] " + PointerText(second->Entry(1)) + " - b"}));
}

TEST(OmPivotTablePrintCells, AtDepthTwoWithNumberThreeALineBeginsWithTwoGroups) {
  TestTable table(2);
  table.Put({3, 0}, "cell");
  void* const cell = Below(table.data().cells, 0)->Entry(3);
  EXPECT_EQ(Cells(table, cell, 2, 3), Lines{"    [3]     [3] " + PointerText(cell) + " - cell"});
}

TEST(OmPivotTablePrintCells, APartOfTheStoreCanBePrinted) {
  TestTable table(3);
  table.Put({0, 1, 0}, "cell");
  Node* const middle = Below(Below(table.data().cells, 0), 1);
  EXPECT_EQ(Cells(table, middle, 2, 1),
            (Lines{"    [1]     [1] " + PointerText(middle),
                   "    [0]     [0]     [0] " + PointerText(middle->Entry(0)) + " - cell"}));
}

TEST(OmPivotTablePrintCells, DeeperThanTheDimensionsEverythingIsACell) {
  TestTable table(1);
  OmStringCell text("cell");
  OmCellText* const cell = &text;
  EXPECT_EQ(Cells(table, cell, 3, 0),
            Lines{"    [0]     [0]     [0] " + PointerText(cell) + " - cell"});
}

TEST(OmPivotTablePrintCells, InATableWithoutDimensionsTheRootIsACell) {
  TestTable table;
  OmStringCell text("cell");
  OmCellText* const cell = &text;
  EXPECT_EQ(Cells(table, cell, 0, 0), Lines{PointerText(cell) + " - cell"});
  EXPECT_EQ(Cells(table, nullptr, 0, 0), Lines{PointerText(nullptr)});
}

TEST(OmPivotTablePrintCells, AnEmptyStoreIsANullNode) {
  TestTable table(2);
  EXPECT_EQ(Cells(table, table.data().cells, 0, 0), Lines{PointerText(nullptr)});
}

TEST(OmPivotTablePrintCells, AClearedBranchIsANullNode) {
  TestTable table(2);
  table.Put({0, 0}, "gone");
  table.Put({0, 1}, "cell");
  table.deleteCell({0, 0});
  Node* const root = table.data().cells;
  Node* const second = Below(root, 1);
  EXPECT_EQ(
      Cells(table, root, 0, 0),
      (Lines{PointerText(root), "    [0] " + PointerText(nullptr), "    [1] " + PointerText(second),
             "    [0]     [0] " + PointerText(second->Entry(0)) + " - cell"}));
}

// Depth

constexpr int kManyLevels = 4000;

TEST(OmPivotTablePrintNode, ADeepDimensionNeedsNoDeepStack) {
  TitledTable table(1);
  OmDimension& dimension = table.Dimension(0);
  OmDimension::Node node = dimension.Root();
  for (int level = 0; level < kManyLevels; ++level) {
    node = dimension.AddNewChild(node, Text("n"), kNoSubscript, true);
  }
  OnASmallStack([&] {
    Lines const lines = NodeLines(table);
    ASSERT_EQ(lines.size(), kManyLevels + 1U);
    EXPECT_EQ(lines.back().find_first_not_of(' '), 2U * kManyLevels);
  });
}

TEST(OmPivotTablePrintCells, ADeepStoreNeedsNoDeepStack) {
  TestTable table(kManyLevels);
  table.Put(Index(kManyLevels, 0), "cell");
  OnASmallStack([&] {
    Lines const lines = Cells(table, table.data().cells, 0, 0);
    ASSERT_EQ(lines.size(), kManyLevels + 1U);
    EXPECT_EQ(lines.back().find("0x"), 8U * kManyLevels);
  });
}

}  // namespace
