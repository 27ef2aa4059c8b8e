#ifndef LAKRESVOS_RENDER_TEXT_TABLE_H
#define LAKRESVOS_RENDER_TEXT_TABLE_H

#include <ostream>
#include <vector>

#include <lakresvos/render/DisplayGrid.h>
#include <lakresvos/render/TextRenderer.h>

#include "content/FootnoteMarks.h"
#include "io/OutputBuffer.h"
#include "text/Layout.h"
#include "text/RowRuns.h"

namespace lakresvos::render {

/// A grid in a frame, as text, or in several below one another when it is too wide; nothing for a
/// grid without rows or without columns.
class TextTable {
 public:
  /// Measures the grid. All arguments must outlive the object.
  TextTable(DisplayGrid const& grid, FootnoteMarks const& marks, TextOptions const& options);

  /// How wide the widest frame is, in terminal columns.
  int Width() const;

  /// Draws it, row by row.
  void Write(std::ostream& out) const;

 private:
  void WritePart(TextPart const& part, std::vector<RowRun> const& runs, OutputBuffer& out) const;

  DisplayGrid const& grid_;
  FootnoteMarks const& marks_;
  TextOptions const& options_;
  BodyTexts texts_;
  std::vector<TextPart> parts_;  // none when there is nothing to draw
};

}  // namespace lakresvos::render

#endif
