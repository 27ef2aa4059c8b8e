#ifndef LAKRESVOS_RENDER_TEXT_SLOTS_H
#define LAKRESVOS_RENDER_TEXT_SLOTS_H

#include <string>
#include <vector>

#include <lakresvos/render/DisplayGrid.h>

#include "content/AreaAlignment.h"
#include "content/FootnoteMarks.h"
#include "grid/Part.h"
#include "text/BodyTexts.h"
#include "text/Layout.h"
#include "unicode/Wrap.h"

namespace lakresvos::render {

/// A grid cell that is being drawn: one of its lines goes out with every terminal line that crosses
/// it, the lines between its rows included.
struct TextSlot {
  int column;
  int columnSpan;
  int row;     ///< the grid row in which it starts
  int rowEnd;  ///< the grid row after its last
  HorizontalAlignment align = HorizontalAlignment::Left;
  int after = 0;  ///< columns to keep free right after the text
  int above = 0;  ///< how many empty lines go out before the text
  std::vector<TextLine> lines = {};
  std::size_t next = 0;  ///< the line to go out next; past the last one, spaces do

  int LinesLeft() const {
    return above + (next < lines.size() ? static_cast<int>(lines.size() - next) : 0);
  }

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
        corner_(FindAlignment(grid.Table(), FormatArea::AreaCorner)),
        columnLabels_(FindAlignment(grid.Table(), FormatArea::AreaColumnLabels)),
        rowLabels_(FindAlignment(grid.Table(), FormatArea::AreaRowLabels)),
        data_(FindAlignment(grid.Table(), FormatArea::AreaData)) {}

  /// The slots that start in each heading row, their texts moved down to the last lines that they
  /// cross.
  std::vector<std::vector<TextSlot>> MakeHeadingRows() const;

  /// The slot of one cell of the headings, its text at the top.
  TextSlot MakeHeading(GridCell const& cell) const;

  /// Empty slots for the cells of one body row.
  std::vector<TextSlot> MakeBody() const;

  /// Gives a body slot what another cell shows.
  void Fill(TextSlot& slot, BodyText const& shown) const;

 private:
  HorizontalAlignment AlignCell(GridCell const& cell) const;

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
