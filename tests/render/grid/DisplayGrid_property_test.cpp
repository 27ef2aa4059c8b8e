#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <vector>

#include <lakresvos/render/DisplayGrid.h>

#include "render/grid/GridModel.h"
#include "support/RandomLayoutTable.h"

using lakresvos::render::DisplayGrid;
using lakresvos::render::GridCell;
using lakresvos::render::GridRole;

namespace {

constexpr int kMaxRows = 300;  // the model takes time cubic in this

GridRole RoleAt(GridModel const& model, GridCell const& cell) {
  if (cell.row >= model.HeadingRows()) {
    return GridRole::RowHeading;
  }
  return cell.column < model.HeadingColumns() ? GridRole::Corner : GridRole::ColumnHeading;
}

void CheckFrame(DisplayGrid const& grid, GridModel const& model) {
  auto const rows = static_cast<std::size_t>(grid.Rows());
  auto const columns = static_cast<std::size_t>(grid.Columns());
  std::vector<std::vector<GridCell const*>> owners(rows, std::vector<GridCell const*>(columns));
  GridCell const* before = nullptr;
  for (GridCell const& cell : grid.Headings()) {
    RC_ASSERT((before == nullptr ||
               std::pair(before->row, before->column) < std::pair(cell.row, cell.column)));
    before = &cell;
    RC_ASSERT((cell.rowSpan > 0 && cell.row >= 0 && cell.row + cell.rowSpan <= grid.Rows()));
    RC_ASSERT((cell.columnSpan > 0 && cell.column >= 0 &&
               cell.column + cell.columnSpan <= grid.Columns()));
    RC_ASSERT(cell.role == RoleAt(model, cell));
    for (int row = cell.row; row < cell.row + cell.rowSpan; ++row) {
      for (int column = cell.column; column < cell.column + cell.columnSpan; ++column) {
        GridCell const*& owner =
            owners[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
        RC_ASSERT(owner == nullptr);
        owner = &cell;
      }
    }
  }
  for (int row = 0; row < grid.Rows(); ++row) {
    for (int column = 0; column < grid.Columns(); ++column) {
      GridCell const* owner =
          owners[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
      if (row >= grid.HeadingRows() && column >= grid.HeadingColumns()) {
        RC_ASSERT(owner == nullptr);
        continue;
      }
      RC_ASSERT(owner != nullptr);
      GridModel::Position const shown{{owner->row, owner->column},
                                      owner->label,
                                      owner->node != nullptr ? owner->node->element : nullptr};
      RC_ASSERT(shown == model.At(row, column));
    }
  }
}

void CheckRows(DisplayGrid const& grid) {
  std::size_t seen = 0;
  for (int row = 0; row < grid.Rows(); ++row) {
    for (GridCell const& cell : grid.Headings(row)) {
      RC_ASSERT(&cell == &grid.Headings()[seen]);
      RC_ASSERT(cell.row == row);
      ++seen;
    }
  }
  RC_ASSERT(seen == grid.Headings().size());
}

void CheckBody(DisplayGrid const& grid, GridModel const& model) {
  for (int row = grid.HeadingRows(); row < grid.Rows(); ++row) {
    DisplayGrid::BodyRow body = grid.Body(row);
    for (int column = grid.HeadingColumns(); column < grid.Columns(); ++column) {
      RC_ASSERT(body.Cell(column) == model.Body(row, column));
    }
  }
}

/// Lays out every layer of a random table and hands grid and model to `check`.
template <class Check>
void ForRandomGrids(Check check) {
  layout_tables::Table table;
  layout_tables::MakeRandomTable(table);
  bool const skipEmpty = *rc::gen::arbitrary<bool>();
  bool const dimNamesInCorner = *rc::gen::arbitrary<bool>();
  OmDisplayLayerHeading layers(table, skipEmpty);
  for (int layer = 0; layer < 20 && layers.NextLayer(); ++layer) {
    GridModel const model(layers, skipEmpty, dimNamesInCorner);
    if (model.Rows() <= kMaxRows && model.Columns() <= kMaxRows) {
      check(DisplayGrid(layers, skipEmpty, dimNamesInCorner), model);
    }
  }
}

}  // namespace

RC_GTEST_PROP(DisplayGridProperty, ExtentIsThatOfTheHeadings, ()) {
  ForRandomGrids([](DisplayGrid const& grid, GridModel const& model) {
    RC_ASSERT(grid.HeadingRows() == model.HeadingRows());
    RC_ASSERT(grid.HeadingColumns() == model.HeadingColumns());
    RC_ASSERT(grid.Rows() == model.Rows());
    RC_ASSERT(grid.Columns() == model.Columns());
  });
}

RC_GTEST_PROP(DisplayGridProperty, FrameIsTiledAsReadingEveryPositionSays, ()) {
  ForRandomGrids(CheckFrame);
}

RC_GTEST_PROP(DisplayGridProperty, FrameByRowIsTheFrameInOrder, ()) {
  ForRandomGrids([](DisplayGrid const& grid, GridModel const&) { CheckRows(grid); });
}

RC_GTEST_PROP(DisplayGridProperty, BodyShowsTheCellOfItsRowAndColumn, ()) {
  ForRandomGrids(CheckBody);
}

// A heading of many levels is read in another way than others.
TEST(DisplayGrid, FramesDeepHeadingsAsReadingEveryPositionSays) {
  for (bool const inColumns : {false, true}) {
    layout_tables::Table table;
    OmDimension& dimension = table.Add("deep");
    layout_tables::Node at = dimension.Root();
    for (unsigned int level = 0; level < 1200; ++level) {
      at = layout_tables::Group(dimension, at, "g" + std::to_string(level));
      at.Value().hide = level % 7 == 0;
      if (level % 300 == 0) {
        layout_tables::Node const parent = at.Parent();
        layout_tables::Category(dimension, parent, "c", level / 300);
        at = parent.Child(0);
      }
    }
    layout_tables::Category(dimension, at, "last", 4);
    table.PutAll();
    (inColumns ? table.Columns() : table.Rows()).push_back(0);
    OmDisplayLayerHeading layers(table, true);
    ASSERT_TRUE(layers.NextLayer());
    GridModel const model(layers, true, true);
    CheckFrame(DisplayGrid(layers, true, true), model);
    EXPECT_GT(inColumns ? model.HeadingRows() : model.HeadingColumns(), 1000);
  }
}
