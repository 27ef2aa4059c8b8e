#ifndef LAKRESVOS_RENDER_GRID_PART_H
#define LAKRESVOS_RENDER_GRID_PART_H

#include <cstddef>
#include <vector>

#include <lakresvos/render/DisplayGrid.h>

namespace lakresvos::render {

/// A grid without some of its columns: the row headings and a run of the body's columns, numbered
/// as if there were no others. Headings that reach over others as well are cut.
class GridPart {
 public:
  /// The body's columns from `first` up to but not including `last`, counted from 0.
  /// @param grid must outlive the object.
  GridPart(DisplayGrid const& grid, int first, int last);

  OmPivotTable const& Table() const { return grid_->Table(); }

  int HeadingRows() const { return grid_->HeadingRows(); }
  int HeadingColumns() const { return grid_->HeadingColumns(); }
  int Rows() const { return grid_->Rows(); }
  int Columns() const { return HeadingColumns() + last_ - first_; }

  /// Which column of the whole grid a column of the body is.
  int FindWholeColumn(int column) const { return column + first_; }

  /// The corner and the column headings, by the row and then by the column in which they start.
  std::vector<GridCell> const& ColumnHeadings() const { return columnHeadings_; }

  /// The heading cells that start in grid row `row`, from 0 up to Rows().
  GridCells Headings(int row) const;

 private:
  GridCell Cut(GridCell cell) const;

  DisplayGrid const* grid_;
  int first_;
  int last_;
  std::vector<GridCell> columnHeadings_;
  std::vector<std::size_t> starts_;  // per heading row, where its cells start; and the end
};

}  // namespace lakresvos::render

#endif
