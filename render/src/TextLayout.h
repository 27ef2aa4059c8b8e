#ifndef LAKRESVOS_RENDER_TEXTLAYOUT_H
#define LAKRESVOS_RENDER_TEXTLAYOUT_H

#include <vector>

#include <lakresvos/render/DisplayGrid.h>

#include "FootnoteMarks.h"

namespace lakresvos::render {

/// One column of a table as text.
struct TextColumn {
  int width = 1;        ///< in terminal columns, without the blank on either side
  int marks = 0;        ///< how many of these are kept free behind numbers, for their marks
  bool numbers = true;  ///< whether the body shows nothing but numbers in it
};

/// The columns of a grid as text.
struct TextLayout {
  std::vector<TextColumn> columns;  ///< one per grid column
  bool tall = false;                ///< whether some cell of the body takes more than one line

  /// The room that a cell has for its text, with the blanks and lines between the columns it spans.
  int Width(int column, int columnSpan) const;
};

/// Makes each column as wide as its widest text, wrapped at `limit`. A heading that spans several
/// columns and is wider than they are together widens each by the same amount, up to `limit` in
/// all. Looks at every cell of the grid once and keeps none.
TextLayout MeasureText(DisplayGrid const& grid, FootnoteMarks const& marks, int limit);

}  // namespace lakresvos::render

#endif
