#include "text/RowRuns.h"

#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

#include <lakresvos/render/LayerGrids.h>

#include "render/support/RenderTables.h"

using namespace lakresvos::render;
using namespace render_tables;

namespace {

/// The first rows of the runs of a table, its heading rows not counted.
std::vector<int> Starts(Table& table, int rows) {
  LayerGrids layers(table);
  DisplayGrid const& grid = *layers.Next();
  LabelTexts labels;
  FootnoteMarks const marks(table, labels, false);
  std::vector<int> starts;
  int end = 0;
  for (RowRun const& run : CutRows(grid, marks, rows)) {
    EXPECT_EQ(run.first, end);
    EXPECT_EQ(run.headings.empty(), run.first == 0);
    starts.push_back(run.first == 0 ? 0 : run.first - grid.HeadingRows());
    end = run.last;
  }
  EXPECT_EQ(end, grid.Rows());
  return starts;
}

/// Adds a dimension of groups with as many categories as each says.
void AddGroups(Table& table, std::vector<std::pair<std::string, int>> const& groups) {
  OmDimension& rows = table.Add("rows");
  unsigned long subscript = 0;
  for (auto const& [label, count] : groups) {
    auto const group = Group(rows, rows.Root(), label);
    for (int i = 0; i < count; ++i) {
      Category(rows, group, "row", subscript++);
    }
  }
  table.Place({0}, {});
  table.PutAll();
}

}  // namespace

TEST(RowRuns, RowsOfOneLevelAreCutAnywhere) {
  Table table;
  table.AddFlat("r", 7);
  table.Place({0}, {});
  table.PutAll();
  EXPECT_EQ(Starts(table, 3), (std::vector<int>{0, 3, 6}));
  EXPECT_EQ(Starts(table, 7), std::vector<int>{0});
}

TEST(RowRuns, AGroupIsNotCutBeforeItsLabelCanHaveEnded) {
  Table table;
  AddGroups(table, {{"abc", 9}, {"d", 1}, {"efghij", 5}});
  EXPECT_EQ(Starts(table, 1), (std::vector<int>{0, 4, 5, 6, 7, 8, 9, 10}));
  EXPECT_EQ(Starts(table, 2), (std::vector<int>{0, 4, 6, 8, 10}));
}

TEST(RowRuns, ATableWithoutRowsIsOneRun) {
  Table table;
  table.AddFlat("c", 3);
  table.Place({}, {0});
  table.PutAll();
  EXPECT_EQ(Starts(table, 1), std::vector<int>{0});
}
