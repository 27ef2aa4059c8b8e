#include "grid/TableCost.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "render/support/RenderTables.h"

using lakresvos::render::EstimateShownCost;
using namespace render_tables;

namespace {

/// The cost of a table of two dimensions of this many categories, full of cells.
double EstimateSquare(unsigned int size, std::initializer_list<short> rows,
                      std::initializer_list<short> columns) {
  Table table;
  table.AddFlat("r", size);
  table.AddFlat("c", size);
  table.Place(rows, columns);
  return EstimateShownCost(table, std::size_t{size} * size);
}

}  // namespace

TEST(TableCost, GrowsWithTheCellsOfAnOrdinaryTable) {
  double const small = EstimateSquare(10, {0}, {1});
  double const large = EstimateSquare(100, {0}, {1});
  EXPECT_GT(small, 0);
  EXPECT_LE(large, 110 * small);
}

TEST(TableCost, BodyCountsWhereADimensionIsPlacedTwice) {
  constexpr double kCells = 100 * 100;
  double const once = EstimateSquare(100, {0}, {1});
  EXPECT_GE(EstimateSquare(100, {0, 1}, {1}), once + kCells * 100);
  EXPECT_GE(EstimateSquare(100, {0, 0}, {1}), once + kCells * 100);
}

TEST(TableCost, BodyCountsWhereCategoriesShareASubscript) {
  Table table;
  OmDimension& rows = table.Add("r");
  table.Place({0}, {});
  for (int i = 0; i < 3; ++i) {
    Category(rows, rows.Root(), "", static_cast<unsigned long>(i));
  }
  double const apart = EstimateShownCost(table, 3);
  Category(rows, rows.Root(), "", 2);
  EXPECT_GT(EstimateShownCost(table, 3), apart + 3);
}

TEST(TableCost, LabelOfAGroupCountsForEachOfItsCategories) {
  auto const estimate = [](std::string const& name) {
    Table table;
    OmDimension& rows = table.Add("r");
    table.Place({0}, {});
    auto const group = Group(rows, rows.Root(), name);
    for (unsigned long i = 0; i < 50; ++i) {
      Category(rows, group, "", i);
    }
    return EstimateShownCost(table, 0);
  };
  EXPECT_EQ(estimate(std::string(1000, 'x')) - estimate(""), 50 * 1000);
}

TEST(TableCost, ADimensionAgainOnAnAxisCountsAtEachOfItsCategories) {
  auto const estimate = [](std::vector<short> const& columns) {
    Table table;
    table.AddFlat("c", 10);
    table.Columns().elements = columns;
    return EstimateShownCost(table, 1);
  };
  double const once = estimate({0});
  EXPECT_GT(estimate({0, 0, 0}), 50 * once);
  EXPECT_GT(estimate({0, 0, 0, 0}), 500 * once);
}

TEST(TableCost, GroupsCountOnceForEachCombinationFurtherOut) {
  auto const estimate = [](std::vector<short> const& columns) {
    Table table;
    table.AddFlat("many", 1000);
    OmDimension& deep = table.Add("deep");
    OmDimension::Node parent = deep.Root();
    for (int i = 0; i < 100; ++i) {
      parent = Group(deep, parent, "");
    }
    Category(deep, parent, "", 0);
    table.Columns().elements = columns;
    return EstimateShownCost(table, 1000);
  };
  constexpr short kMany = 0;
  constexpr short kDeep = 1;
  EXPECT_GT(estimate({kDeep, kMany}), 10 * estimate({kMany, kDeep}));  // the last one is outermost
}

TEST(TableCost, LabelOfAColumnCountsWhereverItIsRepeated) {
  auto const estimate = [](std::string const& label) {
    Table table;
    table.AddFlat("r", 100);
    OmDimension& columns = table.Add("c");
    Category(columns, columns.Root(), label, 0);
    table.Place({}, {1, 0});
    return EstimateShownCost(table, 100);
  };
  EXPECT_GE(estimate(std::string(1000, 'x')) - estimate(""), 100 * 1000);
}

TEST(TableCost, LayersThatShowCellsAgainCountEachWithTheirHeadings) {
  auto const estimate = [](std::vector<short> const& layers) {
    Table table;
    table.AddFlat("c", 50);
    table.Place({}, {0});
    table.Layers().elements = layers;
    return EstimateShownCost(table, 50);
  };
  EXPECT_GT(estimate({0}), 40 * estimate({}));
}

TEST(TableCost, AxisMayNameNoDimension) {
  Table table;
  table.AddFlat("r", 2);
  table.Place({0, 7, -1}, {});
  EXPECT_GT(EstimateShownCost(table, 2), 0);
}

TEST(TableCost, HeadingsHaveNoMorePlacesThanTheyHaveCategories) {
  Table table;
  table.AddFlat("c", 5);
  table.AddFlat("d", 5);
  table.Place({}, {0}, {1, 1});
  EXPECT_LT(EstimateShownCost(table, 100000), 1e6);
}
