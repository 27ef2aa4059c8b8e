#include "text/RowRuns.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "grid/RepeatedHeadings.h"

namespace lakresvos::render {

namespace {

/// Whether the text of a heading may have lines left below its first `rows` rows. It has at most one
/// line more than bytes, and one goes out with every row.
bool MayHaveLines(GridCell const& heading, int rows, FootnoteMarks const& marks) {
  MarkedText const shown = ShowLabel(heading.label, marks);
  return static_cast<std::size_t>(rows) <= shown.text.size() + shown.marks.size();
}

/// The headings of the row that `at` is at.
std::vector<GridCell const*> FindHeadings(RepeatedHeadings const& at, int columns) {
  std::vector<GridCell const*> headings;
  for (int column = 0; column < columns; column += headings.back()->columnSpan) {
    headings.push_back(&at.At(column));
  }
  return headings;
}

}  // namespace

std::vector<RowRun> CutRows(DisplayGrid const& grid, FootnoteMarks const& marks, int rows) {
  std::vector<RowRun> runs;
  runs.push_back({0, 0, {}});
  RepeatedHeadings at(grid);
  while (at.Next()) {
    int const next = runs.back().last = at.Row() + 1;
    int const drawn = next - std::max(runs.back().first, grid.HeadingRows());
    if (drawn < rows || next == grid.Rows()) {
      continue;
    }
    std::vector<GridCell const*> headings = FindHeadings(at, grid.HeadingColumns());
    auto const goesOn = [&](GridCell const* heading) {
      return heading->row + heading->rowSpan > next &&
             MayHaveLines(*heading, next - heading->row, marks);
    };
    if (std::none_of(headings.begin(), headings.end(), goesOn)) {
      runs.push_back({next, next, std::move(headings)});
    }
  }
  return runs;
}

}  // namespace lakresvos::render
