#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

#include <lakresvos/OmDisplayLayerHeading.h>
#include <lakresvos/OmDisplayRowHeading.h>

#include "support/LayoutTables.h"
#include "support/OmDisplayTestAccess.h"

namespace {

using layout_tables::Category;
using layout_tables::Group;
using layout_tables::Node;
using layout_tables::Table;
using Labels = std::vector<std::string>;

Labels Texts(std::vector<OmCellText const*> const& corner) {
  Labels texts;
  for (OmCellText const* text : corner) {
    texts.push_back(text == nullptr ? "-" : text->GetText());
  }
  return texts;
}

/// Row dimensions A, flat, and B, one level deeper; B is outermost.
class OmDisplayRowHeadingCorner : public testing::Test {
 protected:
  OmDisplayRowHeadingCorner() {
    a = &table.AddFlat("A", 2);
    b = &table.Add("B");
    Node const group = Group(*b, b->Root(), "group");
    Category(*b, group, "B0", 0);
    table.Place({0, 1}, {});
    OmStringCell const text("corner");
    table.CornerText(&text);
  }

  Labels Corner(bool namesInCorner, bool skipEmpty = false) {
    OmDisplayLayerHeading layers(table, false);
    return Texts(OmDisplayRowHeading(layers, skipEmpty, namesInCorner).CornerText());
  }

  static void Unlabel(OmDimension& dimension) {
    delete std::exchange(dimension.Root().Value().label, nullptr);
  }

  Table table;
  OmDimension* a;
  OmDimension* b;
};

}  // namespace

TEST_F(OmDisplayRowHeadingCorner, HasASlotPerHeadingColumnAndTheTablesTextInTheFirst) {
  EXPECT_EQ(Corner(false), (Labels{"corner", "-", "-", "-", "-"}));
}

TEST_F(OmDisplayRowHeadingCorner, IsEmptyButForItsSlotsWithoutACornerText) {
  table.CornerText(nullptr);
  EXPECT_EQ(Corner(false), (Labels{"-", "-", "-", "-", "-"}));
}

TEST_F(OmDisplayRowHeadingCorner, HoldsTheTablesOwnText) {
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, false, false);
  EXPECT_EQ(rows.CornerText()[0], table.CornerText());
}

TEST_F(OmDisplayRowHeadingCorner, HasEachDimensionsNameAboveItsFirstHeadingColumn) {
  EXPECT_EQ(Corner(true), (Labels{"B", "-", "A"}));
}

TEST_F(OmDisplayRowHeadingCorner, HoldsTheDimensionsOwnLabels) {
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, false, true);
  EXPECT_EQ(rows.CornerText()[0], b->Root().Value().label);
  EXPECT_EQ(rows.CornerText()[2], a->Root().Value().label);
}

TEST_F(OmDisplayRowHeadingCorner, TakesOneHeadingColumnFromEachNamedDimension) {
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, false, true);
  EXPECT_EQ(rows.VisibleWidth(0), 2);
  EXPECT_EQ(rows.VisibleWidth(1), 1);
  EXPECT_EQ(rows.NColumns(), 3);
}

TEST_F(OmDisplayRowHeadingCorner, HasNoSlotForADimensionThatOnlyItsNameWouldShow) {
  b->Root().Value().hideLabels = false;
  b->Root().Child(0).Value().hideLabels = true;
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, false, true);
  EXPECT_EQ(rows.VisibleWidth(0), 0);
  EXPECT_EQ(Texts(rows.CornerText()), Labels{"A"});
}

TEST_F(OmDisplayRowHeadingCorner, HasNoSlotForADimensionWithoutLevels) {
  b->Root().Value().hideLabels = true;
  EXPECT_EQ(Corner(true), Labels{"A"});
}

TEST_F(OmDisplayRowHeadingCorner, HasABlockOfNullsForADimensionWithAHiddenRoot) {
  b->Root().Value().hide = true;
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, false, true);
  EXPECT_EQ(rows.VisibleWidth(0), 2);
  EXPECT_EQ(Texts(rows.CornerText()), (Labels{"-", "-", "A"}));
}

TEST_F(OmDisplayRowHeadingCorner, FallsBackToTheTablesTextWhenNoNameCouldBePlaced) {
  a->Root().Value().hide = true;
  b->Root().Value().hide = true;
  EXPECT_EQ(Corner(true), (Labels{"corner", "-", "-"}));
}

TEST_F(OmDisplayRowHeadingCorner, FallsBackToTheTablesTextWhenNoDimensionHasALabel) {
  Unlabel(*a);
  Unlabel(*b);
  EXPECT_EQ(Corner(true), (Labels{"corner", "-", "-"}));
}

TEST_F(OmDisplayRowHeadingCorner, KeepsTheNameThatWasPlacedBesideADimensionWithoutALabel) {
  Unlabel(*a);
  EXPECT_EQ(Corner(true), (Labels{"B", "-", "-"}));
}

TEST_F(OmDisplayRowHeadingCorner, FallsBackToTheTablesTextWithoutRowDimensionsButHasNoSlotForIt) {
  table.Place({}, {0, 1});
  EXPECT_EQ(Corner(true), Labels{});
  EXPECT_EQ(Corner(false), Labels{});
}

TEST_F(OmDisplayRowHeadingCorner, IsLeftEmptyWhenThereAreNoRows) {
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, true, false);
  EXPECT_EQ(rows.NRows(), 0);
  EXPECT_EQ(rows.NColumns(), 5);
  EXPECT_TRUE(rows.CornerText().empty());
}

TEST_F(OmDisplayRowHeadingCorner, HasTheNamesEvenWhenThereAreNoRows) {
  EXPECT_EQ(Corner(true, true), (Labels{"B", "-", "A"}));
}

TEST_F(OmDisplayRowHeadingCorner, LeavesOutADimensionWithoutLeaves) {
  Node group = b->Root().Child(0);
  b->Delete(group);
  EXPECT_EQ(Corner(true), Labels{"A"});
}

TEST_F(OmDisplayRowHeadingCorner, LeavesOutEntriesThatNameNoDimension) {
  table.Place({0, -1, 1, 50}, {});
  EXPECT_EQ(Corner(true), (Labels{"B", "-", "A"}));
}

TEST_F(OmDisplayRowHeadingCorner, IsReadAsACopy) {
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, false, true);
  std::vector<OmCellText const*> corner = rows.CornerText();
  corner.clear();
  EXPECT_EQ(rows.CornerText().size(), 3U);
}

TEST_F(OmDisplayRowHeadingCorner, TellsWhetherANameWasPlaced) {
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const named(layers, false, true);
  OmDisplayRowHeading const unnamed(layers, false, false);
  EXPECT_TRUE(OmDisplayTestAccess::GetData(named).CollectCornerLabels());
  EXPECT_FALSE(OmDisplayTestAccess::GetData(unnamed).CollectCornerLabels());
}
