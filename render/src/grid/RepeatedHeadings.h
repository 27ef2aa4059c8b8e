#ifndef LAKRESVOS_RENDER_GRID_REPEATEDHEADINGS_H
#define LAKRESVOS_RENDER_GRID_REPEATEDHEADINGS_H

#include <cstddef>
#include <vector>

#include <lakresvos/render/DisplayGrid.h>

namespace lakresvos::render {

/// The headings of a grid for formats without spans: row by row, at every position the cell that
/// reaches over it.
class RepeatedHeadings {
 public:
  /// Starts before the first row. The grid must outlive the object.
  explicit RepeatedHeadings(DisplayGrid const& grid)
      : grid_(grid), cells_(static_cast<std::size_t>(grid.Columns()), nullptr) {}

  /// Steps to the next row; false after the last one.
  bool Next() {
    if (++row_ >= grid_.Rows()) {
      return false;
    }
    for (GridCell const& cell : grid_.Headings(row_)) {
      for (int column = cell.column; column < cell.column + cell.columnSpan; ++column) {
        cells_[static_cast<std::size_t>(column)] = &cell;
      }
    }
    return true;
  }

  int Row() const { return row_; }
  bool InHeading() const { return row_ < grid_.HeadingRows(); }

  /// Requires: a row is current, and the position is not in the body.
  GridCell const& At(int column) const { return *cells_[static_cast<std::size_t>(column)]; }

  /// The label to show at a position: a label of the corner or of a row that reaches over several
  /// columns is in the first of them alone, where nobody takes it for several labels.
  /// Requires: as At().
  OmCellText const* Label(int column) const {
    GridCell const& cell = At(column);
    bool const again = column != cell.column && cell.role != GridRole::ColumnHeading;
    return again ? nullptr : cell.label;
  }

 private:
  DisplayGrid const& grid_;
  std::vector<GridCell const*> cells_;
  int row_ = -1;
};

}  // namespace lakresvos::render

#endif
