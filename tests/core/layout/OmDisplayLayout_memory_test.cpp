#include <gtest/gtest.h>
#include <memory>
#include <tuple>
#include <vector>

#include <lakresvos/OmDisplayColumnHeading.h>
#include <lakresvos/OmDisplayLayerHeading.h>
#include <lakresvos/OmDisplayRowHeading.h>

#include "support/LayoutTables.h"
#include "support/faults/FailingNew.h"

namespace {

using layout_tables::Category;
using layout_tables::Group;
using layout_tables::Table;
using PathNode = OmDisplayLayerHeading::PathNode;
using Index = std::vector<int>;

/// Dimensions R, C and L on an axis each, R with a group, and a cell for every second combination.
class OmDisplayLayoutMemory : public testing::Test {
 protected:
  OmDisplayLayoutMemory() {
    table.AddFlat("R", 3);
    table.AddFlat("C", 2);
    table.AddFlat("L", 4);
    OmDimension& rows = table.Dimension(0);
    Category(rows, Group(rows, rows.Root(), "group"), "deep", 3);
    table.Place({0}, {1}, {2});
    for (int r = 0; r < 4; ++r) {
      table.Put({r, r % 2, (r + 1) % 4});
    }
  }

  Table table;
};

}  // namespace

TEST_F(OmDisplayLayoutMemory, RunsOutWithoutALeakWhileALayerHeadingIsMade) {
  auto const make = [&] { OmDisplayLayerHeading const layers(table, true); };
  EXPECT_GT(FailEveryAllocation(make, [] {}), 0U);
}

TEST_F(OmDisplayLayoutMemory, RunsOutWithoutATraceWhileRowAndColumnHeadingsAreMade) {
  OmDisplayLayerHeading layers(table, true);
  layers.NextLayer();
  Index const before = layers.getCurrentCellIndex();
  auto const make = [&] {
    OmDisplayRowHeading const rows(layers, true, true);
    OmDisplayColumnHeading const columns(layers, true);
  };
  auto const check = [&] { EXPECT_EQ(layers.getCurrentCellIndex(), before); };
  EXPECT_GT(FailEveryAllocation(make, check), 0U);
}

TEST_F(OmDisplayLayoutMemory, RunsOutWithTheLayerUnchangedWhileItIsSwitched) {
  std::size_t failures = 0;
  for (bool skipEmpty : {false, true}) {
    OmDisplayLayerHeading layers(table, skipEmpty);
    auto const check = [&] {
      EXPECT_EQ(layers.getLayer(), -1);
      EXPECT_EQ(layers.getCurrentCellIndex(), (Index{0, 0, 0}));
    };
    failures += FailEveryAllocation([&] { layers.SwitchLayer(3); }, check);
    EXPECT_EQ(layers.getLayer(), 3);
    EXPECT_EQ(layers.getCurrentCellIndex(), (Index{0, 0, 3}));
  }
  EXPECT_GT(failures, 0U);
}

TEST_F(OmDisplayLayoutMemory, RunsOutWithTheLayerUnchangedWhileItIsChanged) {
  table.setLayerLoc(2);
  std::size_t failures = 0;
  for (bool skipEmpty : {false, true}) {
    OmDisplayLayerHeading layers(table, skipEmpty);
    auto const unchanged = [&](int layer) {
      return [&layers, layer, before = layers.getCurrentCellIndex()] {
        EXPECT_EQ(layers.getLayer(), layer);
        EXPECT_EQ(layers.getCurrentCellIndex(), before);
      };
    };
    failures += FailEveryAllocation([&] { layers.NextLayer(); }, unchanged(-1));
    EXPECT_EQ(layers.getLayer(), 0);
    failures += FailEveryAllocation([&] { layers.LastLayer(); }, unchanged(0));
    EXPECT_EQ(layers.getLayer(), 3);
    failures += FailEveryAllocation([&] { layers.restoreLayer(); }, unchanged(3));
    EXPECT_EQ(layers.getLayer(), 2);
  }
  EXPECT_GT(failures, 0U);
}

TEST_F(OmDisplayLayoutMemory, RunsOutWithTheIndexUnchangedWhileItIsFilledForARow) {
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, false, false);
  Index index{5};
  auto const check = [&] { EXPECT_EQ(index, Index{5}); };
  EXPECT_GT(FailEveryAllocation([&] { rows.Fill(index, 1); }, check), 0U);
  EXPECT_EQ(index, (Index{1, 0, 0}));
}

TEST_F(OmDisplayLayoutMemory, RunsOutWithTheIndexUnchangedWhileItIsFilledForALayer) {
  table.setLayerLoc(2);
  OmDisplayLayerHeading layers(table, true);
  layers.restoreLayer();
  Index index{5};
  auto const check = [&] { EXPECT_EQ(index, Index{5}); };
  EXPECT_GT(FailEveryAllocation([&] { layers.Fill(index); }, check), 0U);
  EXPECT_EQ(index, (Index{5, 0, 2}));
}

TEST_F(OmDisplayLayoutMemory, RunsOutWithTheListUnchangedWhileALayersPathIsAppended) {
  OmDisplayLayerHeading layers(table, false);
  layers.SwitchLayer(1);
  std::vector<PathNode*> out{nullptr};
  auto const check = [&] { EXPECT_EQ(out, std::vector<PathNode*>{nullptr}); };
  EXPECT_GT(FailEveryAllocation([&] { layers.DimAllNodes(0, out); }, check), 0U);
  EXPECT_EQ(out.size(), 3U);
  PathNode* first = nullptr;
  PathNode* last = nullptr;
  FailEveryAllocation([&] { layers.DimCatNodes(0, first, last); },
                      [&] {
                        EXPECT_EQ(first, nullptr);
                        EXPECT_EQ(last, nullptr);
                      });
  EXPECT_EQ(first, out[1]);
  EXPECT_EQ(last, out[2]);
}

TEST_F(OmDisplayLayoutMemory, RunsOutWithTheListsUnchangedWhileARowsPathsAreAppended) {
  OmDisplayLayerHeading layers(table, false);
  table.Place({0, 1, 2}, {});
  OmDisplayRowHeading const rows(layers, false, false);
  std::vector<PathNode*> out{nullptr};
  auto const check = [&] { EXPECT_EQ(out, std::vector<PathNode*>{nullptr}); };
  EXPECT_GT(FailEveryAllocation([&] { rows.DimAllNodes(3, out); }, check), 0U);
  EXPECT_EQ(out.size(), 8U);

  std::vector<PathNode*> outermost;
  std::vector<PathNode*> categories{nullptr};
  auto const checkEnds = [&] {
    EXPECT_TRUE(outermost.empty());
    EXPECT_EQ(categories.size(), 1U);
  };
  auto const ends = [&] { rows.DimCatNodes(3, outermost, categories); };
  EXPECT_GT(FailEveryAllocation(ends, checkEnds), 0U);
  EXPECT_EQ(outermost.size(), 3U);
  EXPECT_EQ(categories.size(), 4U);
}

TEST_F(OmDisplayLayoutMemory, RunsOutAndStillListsEveryPlaceNextTime) {
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, false, false);
  EXPECT_GT(FailEveryAllocation([&] { rows.getNonEmptyRows(); }, [] {}), 0U);
  EXPECT_EQ(rows.getNonEmptyRows(), (std::vector<unsigned long long>{0, 1, 2, 3}));
}

TEST_F(OmDisplayLayoutMemory, RunsOutWithTheAxisUnchangedWhileItIsLengthened) {
  OmDisplayLayerHeading const layers(table, false);
  auto const check = [&] { EXPECT_EQ(layers.NDimensions(), 1); };
  EXPECT_GT(FailEveryAllocation([&] { layers.getDimensionIndex(9); }, check), 0U);
  EXPECT_EQ(layers.NDimensions(), 10);
}

TEST_F(OmDisplayLayoutMemory, RunsOutWithoutALeakInEveryList) {
  OmDisplayLayerHeading layers(table, true);
  layers.NextLayer();
  OmDisplayRowHeading const rows(layers, true, false);
  OmDisplayColumnHeading const columns(layers, false);
  auto const inTurn = [&] {
    return std::tuple(layers.Nodes(0), layers.getCurrentCellIndex(), rows.Row(0), rows.Column(0),
                      rows.RowCategories(0), rows.CornerText());
  };
  EXPECT_GT(FailEveryAllocationOf(inTurn), 5U);
  auto const ofColumns = [&] {
    return std::tuple(columns.Column(1), columns.Row(0), columns.ColumnCategories(1),
                      columns.getNonEmptyColumns());
  };
  EXPECT_GT(FailEveryAllocationOf(ofColumns), 3U);
}

TEST_F(OmDisplayLayoutMemory, RunsOutWithTheListsUnchangedWhileAColumnsPathsAreAppended) {
  table.Place({}, {0, 1, 2});
  OmDisplayLayerHeading layers(table, false);
  layers.NextLayer();
  OmDisplayColumnHeading const columns(layers, false);
  Index index{5};
  EXPECT_GT(
      FailEveryAllocation([&] { columns.Fill(index, 1); }, [&] { EXPECT_EQ(index, Index{5}); }),
      0U);
  EXPECT_EQ(index.size(), 3U);
  std::vector<PathNode*> out{nullptr};
  EXPECT_GT(FailEveryAllocation([&] { columns.DimAllNodes(3, out); },
                                [&] { EXPECT_EQ(out, std::vector<PathNode*>{nullptr}); }),
            0U);
  EXPECT_EQ(out.size(), 8U);
  std::vector<PathNode*> outermost;
  std::vector<PathNode*> categories{nullptr};
  EXPECT_GT(FailEveryAllocation([&] { columns.DimCatNodes(3, outermost, categories); },
                                [&] {
                                  EXPECT_TRUE(outermost.empty());
                                  EXPECT_EQ(categories.size(), 1U);
                                }),
            0U);
  EXPECT_EQ(outermost.size(), 3U);
  EXPECT_EQ(categories.size(), 4U);
}

// The dense search keeps sets for what it found no cell of yet.

TEST(OmDisplayLayoutSearchMemory, FollowsTheLeavesAndNotTheirSubscripts) {
  Table table;
  table.AddFlat("C", 2);
  OmDimension& far = table.AddFlat("B", 1);
  Category(far, far.Root(), "far", 1'000'000);
  far.setCategoryCount(2);
  table.AddFlat("A", 2000);
  table.AddFlat("O", 2);
  table.Place({2, 1, 0}, {3});
  for (int a = 0; a < 2000; ++a) {
    table.Put({0, 0, a, 0});
  }
  OmDisplayLayerHeading layers(table, false);
  layers.NextLayer();
  MemoryMeter const meter;
  OmDisplayRowHeading const rows(layers, true, true);
  EXPECT_LT(meter.Peak(), 2U << 20);
  EXPECT_EQ(rows.NRows(), 2000);
}

TEST(OmDisplayLayoutSearchMemory, FollowsTheCellsAndNotTheCombinations) {
  Table table;
  table.AddFlat("C", 1);
  table.AddFlat("B", 3000);
  table.AddFlat("A", 3000);
  table.AddFlat("O", 1);
  table.Place({2, 1, 0}, {3});
  for (int cell = 0; cell < 100'000; ++cell) {
    table.Put({0, cell * 89 % 3000, cell / 34 % 3000, 0});
  }
  OmDisplayLayerHeading layers(table, false);
  layers.NextLayer();
  MemoryMeter const meter;
  OmDisplayRowHeading const rows(layers, true, true);
  EXPECT_LT(meter.Peak(), 10U << 20);
  EXPECT_GT(rows.NRows(), 90'000);
}
