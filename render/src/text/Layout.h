#ifndef LAKRESVOS_RENDER_TEXT_LAYOUT_H
#define LAKRESVOS_RENDER_TEXT_LAYOUT_H

#include <vector>

#include <lakresvos/render/DisplayGrid.h>

#include "content/FootnoteMarks.h"
#include "grid/Part.h"
#include "text/BodyTexts.h"

namespace lakresvos::render {

/// One column of a table as text.
struct TextColumn {
  int width = 1;        ///< in terminal columns, without the space on either side
  int marks = 0;        ///< how many of these are kept free after numbers, for their marks
  bool numbers = true;  ///< whether the body shows nothing but numbers in it
};

/// The columns of a table as text.
struct TextLayout {
  std::vector<TextColumn> columns;  ///< one per grid column
  bool tall = false;                ///< whether some cell of the body takes more than one line

  /// The room that a cell has for its text, with the spaces and lines between the columns it spans.
  int Width(int column, int columnSpan) const;

  /// How wide the whole frame is.
  int Extent() const;
};

/// What of a grid is drawn in one frame.
struct TextPart {
  GridPart grid;
  TextLayout layout;
};

/// Makes each column as wide as its widest text, wrapped at `limit`. A heading that spans several
/// columns and is wider than they are together widens each by the same amount, up to `limit` in
/// all.
///
/// What is wider than `width` terminal columns (0: nothing) is cut into parts with as many columns
/// of the body as fit, at least one, next to all of the row headings. Columns that leave no room
/// for that wrap earlier, but not below a few characters, so that a part may still be too wide.
///
/// Looks at every cell of the grid once and adds the texts of the body to `texts`. Asks for the text
/// of each label.
/// @param threads how many may look at cells.
std::vector<TextPart> LayOutText(DisplayGrid const& grid, FootnoteMarks const& marks, int limit,
                                 int width, unsigned int threads, BodyTexts& texts);

}  // namespace lakresvos::render

#endif
