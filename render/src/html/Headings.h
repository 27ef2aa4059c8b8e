#ifndef LAKRESVOS_RENDER_HTML_HEADINGS_H
#define LAKRESVOS_RENDER_HTML_HEADINGS_H

#include <vector>

#include <lakresvos/render/DisplayGrid.h>

namespace lakresvos::render {

/// How far a cell of an HTML table can reach (HTML Living Standard, 4.9.11); browsers cut off the
/// rest.
constexpr int kMaxHtmlColumns = 1000;
constexpr int kMaxHtmlRows = 65'534;

/// The headings of a grid in cells that are no larger than HTML allows: a larger cell comes in
/// several pieces with the same label.
class HtmlHeadings {
 public:
  /// @param grid must outlive the object.
  explicit HtmlHeadings(DisplayGrid const& grid) : grid_(grid) {}

  /// The cells that start in grid row `row`, left to right; valid until the next call.
  /// Requires: the rows are asked for one by one from the first.
  std::vector<GridCell> const& Row(int row);

 private:
  void CollectStarting(int row);

  DisplayGrid const& grid_;
  std::vector<GridCell> starting_;  // cells of any width
  std::vector<GridCell> pieces_;
  std::vector<GridCell> below_;  // what starts in a later row of cells that are too high
};

}  // namespace lakresvos::render

#endif
