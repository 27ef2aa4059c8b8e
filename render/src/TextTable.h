#ifndef LAKRESVOS_RENDER_TEXTTABLE_H
#define LAKRESVOS_RENDER_TEXTTABLE_H

#include <ostream>

#include <lakresvos/render/DisplayGrid.h>
#include <lakresvos/render/TextRenderer.h>

#include "FootnoteMarks.h"
#include "TextLayout.h"

namespace lakresvos::render {

/// A grid in a frame, as text; nothing for a grid without rows or without columns.
class TextTable {
 public:
  /// Measures the grid. All arguments must outlive the object.
  TextTable(DisplayGrid const& grid, FootnoteMarks const& marks, TextOptions const& options);

  /// How wide the frame is, in terminal columns.
  int Width() const;

  /// Draws it, row by row.
  void Write(std::ostream& out) const;

 private:
  DisplayGrid const& grid_;
  FootnoteMarks const& marks_;
  bool ascii_;
  TextLayout layout_;  // of no columns when there is nothing to draw
};

}  // namespace lakresvos::render

#endif
