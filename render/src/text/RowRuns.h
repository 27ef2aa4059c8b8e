#ifndef LAKRESVOS_RENDER_TEXT_ROWRUNS_H
#define LAKRESVOS_RENDER_TEXT_ROWRUNS_H

#include <vector>

#include <lakresvos/render/DisplayGrid.h>

#include "content/FootnoteMarks.h"

namespace lakresvos::render {

/// Grid rows that can be drawn as text without those above them.
struct RowRun {
  int first;
  int last;                               ///< the row after them
  std::vector<GridCell const*> headings;  ///< of the row before the first, left to right
};

/// Cuts a grid into runs; the first one starts with the heading rows. Valid as long as the grid.
///
/// Drawing goes on after a cut without knowing how far it has come with the texts of headings that
/// reach over it, so it is made only where these are at their end.
///
/// @param rows how many rows of the body are in a run, or more where it cannot be cut; the last run
///        has the rest. At least 1.
std::vector<RowRun> CutRows(DisplayGrid const& grid, FootnoteMarks const& marks, int rows);

}  // namespace lakresvos::render

#endif
