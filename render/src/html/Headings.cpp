#include "html/Headings.h"

#include <algorithm>

namespace lakresvos::render {

std::vector<GridCell> const& HtmlHeadings::Row(int row) {
  CollectStarting(row);
  pieces_.clear();
  for (GridCell cell : starting_) {
    if (cell.rowSpan > kMaxHtmlRows) {
      GridCell rest = cell;
      rest.row += kMaxHtmlRows;
      rest.rowSpan -= kMaxHtmlRows;
      below_.push_back(rest);
      cell.rowSpan = kMaxHtmlRows;
    }
    int const end = cell.column + cell.columnSpan;
    for (; cell.column < end; cell.column += kMaxHtmlColumns) {
      cell.columnSpan = std::min(end - cell.column, kMaxHtmlColumns);
      pieces_.push_back(cell);
    }
  }
  return pieces_;
}

void HtmlHeadings::CollectStarting(int row) {
  GridCells const cells = grid_.Headings(row);
  starting_.assign(cells.begin(), cells.end());
  auto const due = std::partition(below_.begin(), below_.end(),
                                  [row](GridCell const& cell) { return cell.row != row; });
  if (due == below_.end()) {
    return;
  }
  starting_.insert(starting_.end(), due, below_.end());
  below_.erase(due, below_.end());
  std::sort(starting_.begin(), starting_.end(),
            [](GridCell const& a, GridCell const& b) { return a.column < b.column; });
}

}  // namespace lakresvos::render
