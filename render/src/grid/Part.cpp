#include "grid/Part.h"

#include <algorithm>

namespace lakresvos::render {

GridPart::GridPart(DisplayGrid const& grid, int first, int last)
    : grid_(&grid), first_(first), last_(last), starts_{0} {
  int const begin = HeadingColumns() + first;
  int const end = HeadingColumns() + last;
  for (int row = 0; row < HeadingRows(); ++row) {
    GridCells const cells = grid.Headings(row);
    auto const* const corner = std::find_if(cells.begin(), cells.end(), [](GridCell const& cell) {
      return cell.role != GridRole::Corner;
    });
    columnHeadings_.insert(columnHeadings_.end(), cells.begin(), corner);
    auto const* cell = std::partition_point(corner, cells.end(), [begin](GridCell const& before) {
      return before.column + before.columnSpan <= begin;
    });
    for (; cell != cells.end() && cell->column < end; ++cell) {
      columnHeadings_.push_back(Cut(*cell));
    }
    starts_.push_back(columnHeadings_.size());
  }
}

GridCell GridPart::Cut(GridCell cell) const {
  int const begin = std::max(cell.column, HeadingColumns() + first_);
  int const end = std::min(cell.column + cell.columnSpan, HeadingColumns() + last_);
  cell.column = begin - first_;
  cell.columnSpan = end - begin;
  return cell;
}

GridCells GridPart::Headings(int row) const {
  if (row >= HeadingRows()) {
    return grid_->Headings(row);
  }
  auto const at = static_cast<std::size_t>(row);
  return {columnHeadings_.data() + starts_[at], columnHeadings_.data() + starts_[at + 1]};
}

}  // namespace lakresvos::render
