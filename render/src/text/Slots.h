#ifndef LAKRESVOS_RENDER_TEXT_SLOTS_H
#define LAKRESVOS_RENDER_TEXT_SLOTS_H

#include <string>
#include <vector>

#include <lakresvos/render/DisplayGrid.h>

#include "content/AreaAlignment.h"
#include "content/FootnoteMarks.h"
#include "grid/GridPart.h"
#include "text/Layout.h"
#include "unicode/Wrap.h"

namespace lakresvos::render {

/// A grid cell that is being drawn: one of its lines goes out with every terminal line that crosses
/// it, the lines between its rows included.
struct TextSlot {
  int column;
  int columnSpan;
  int row;     ///< the grid row in which it starts
  int rowEnd;  ///< the grid row behind its last
  HorizontalAlignment align = HorizontalAlignment::Left;
  int behind = 0;  ///< columns to keep free right behind the text
  std::vector<TextLine> lines = {};
  std::size_t next = 0;  ///< the line to go out next; past the last one, blanks do

  int LinesLeft() const { return next < lines.size() ? static_cast<int>(lines.size() - next) : 0; }

  /// Appends the next line to `out`, aligned in `width` columns.
  void WriteLine(std::string& out, int width);
};

/// Makes the slots of a part of a grid.
class TextSlots {
 public:
  /// All arguments must outlive the object.
  TextSlots(GridPart const& grid, FootnoteMarks const& marks, TextLayout const& layout)
      : grid_(grid),
        marks_(marks),
        layout_(layout),
        corner_(AlignmentOf(grid.Table(), FormatArea::AreaCorner)),
        columnLabels_(AlignmentOf(grid.Table(), FormatArea::AreaColumnLabels)),
        rowLabels_(AlignmentOf(grid.Table(), FormatArea::AreaRowLabels)),
        data_(AlignmentOf(grid.Table(), FormatArea::AreaData)) {}

  /// The slots that start in each heading row, their texts moved down to the last lines that they
  /// cross.
  std::vector<std::vector<TextSlot>> MakeHeadingRows() const;

  /// The slot of one cell of the frame, its text at the top.
  TextSlot MakeHeading(GridCell const& cell) const;

  /// Empty slots for the cells of one body row.
  std::vector<TextSlot> MakeBody() const;

  /// Gives a body slot another cell, which may be null, and its text.
  void Fill(TextSlot& slot, OmCellText* cell, std::string const& text) const;

 private:
  HorizontalAlignment AlignOf(GridCell const& cell) const;

  GridPart const& grid_;
  FootnoteMarks const& marks_;
  TextLayout const& layout_;
  HorizontalAlignment corner_;  // as the table wants it, on the other areas too
  HorizontalAlignment columnLabels_;
  HorizontalAlignment rowLabels_;
  HorizontalAlignment data_;
};

}  // namespace lakresvos::render

#endif
