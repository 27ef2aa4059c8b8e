#include "html/Frame.h"

#include <algorithm>

namespace lakresvos::render {

std::vector<GridCell> const& HtmlFrame::Row(int row) {
  TakeStarting(row);
  pieces_.clear();
  for (GridCell cell : starting_) {
    if (cell.rowSpan > kMostHtmlRows) {
      GridCell rest = cell;
      rest.row += kMostHtmlRows;
      rest.rowSpan -= kMostHtmlRows;
      below_.push_back(rest);
      cell.rowSpan = kMostHtmlRows;
    }
    int const end = cell.column + cell.columnSpan;
    for (; cell.column < end; cell.column += kMostHtmlColumns) {
      cell.columnSpan = std::min(end - cell.column, kMostHtmlColumns);
      pieces_.push_back(cell);
    }
  }
  return pieces_;
}

void HtmlFrame::TakeStarting(int row) {
  GridCells const cells = grid_.Frame(row);
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
