#include "TextLayout.h"

#include <algorithm>
#include <string>

#include "CellText.h"
#include "CodePoint.h"
#include "NumberCell.h"
#include "TextWidth.h"
#include "Wrap.h"

namespace lakresvos::render {

namespace {

constexpr int kBetweenColumns = 3;  // a blank, a line and a blank

class Measurer {
 public:
  Measurer(DisplayGrid const& grid, FootnoteMarks const& marks, int limit)
      : grid_(grid), marks_(marks), limit_(limit) {
    layout_.columns.resize(static_cast<std::size_t>(grid.Columns()));
  }

  TextLayout Run() {
    for (GridCell const& cell : grid_.Frame()) {
      MeasureLabel(cell);
    }
    std::vector<int> numbers(layout_.columns.size(), 0);
    for (int row = grid_.HeadingRows(); row < grid_.Rows(); ++row) {
      DisplayGrid::BodyRow body = grid_.Body(row);
      for (int column = grid_.HeadingColumns(); column < grid_.Columns(); ++column) {
        if (OmCellText* cell = body.Cell(column)) {
          MeasureCell(*cell, At(column), numbers[static_cast<std::size_t>(column)]);
        }
      }
    }
    MakeRoomForMarks(numbers);
    // Inner headings first: what they add to their columns is room for the outer ones.
    std::for_each(grid_.Frame().rbegin(), grid_.Frame().rend(),
                  [this](GridCell const& cell) { Widen(cell); });
    return std::move(layout_);
  }

 private:
  TextColumn& At(int column) { return layout_.columns[static_cast<std::size_t>(column)]; }

  /// The width of the text when wrapped, and whether that takes more than one line.
  int Wrapped(std::string const& text, bool& tall) const {
    if (text.size() <= static_cast<std::size_t>(limit_) && IsPlainAscii(text)) {
      return static_cast<int>(text.size());
    }
    std::vector<TextLine> const lines = Wrap(text, limit_);
    tall = tall || lines.size() > 1;
    return WidestLine(lines);
  }

  void MeasureLabel(GridCell const& cell) {
    if (cell.columnSpan > 1) {
      return;
    }
    MarkedText const shown = ShownText(cell.label, marks_);
    bool tall = false;
    TextColumn& column = At(cell.column);
    column.width = std::max(column.width, Wrapped(shown.text + shown.marks, tall));
    layout_.tall = layout_.tall || (tall && cell.role == GridRole::RowHeading && cell.rowSpan == 1);
  }

  void MeasureCell(OmCellText& cell, TextColumn& column, int& numbers) {
    MarkedText shown = ShownText(&cell, marks_);
    if (NumberOf(cell).has_value()) {
      numbers = std::max(numbers, Wrapped(shown.text, layout_.tall));
      if (shown.marks.empty()) {
        return;
      }
      column.marks = std::max(column.marks, TextWidth(PrintableLines(shown.marks).front()));
    } else {
      column.numbers = false;
    }
    shown.text += shown.marks;
    column.width = std::max(column.width, Wrapped(shown.text, layout_.tall));
  }

  /// Lets marks hang behind the numbers, whose digits then stand below one another, where there is
  /// room.
  void MakeRoomForMarks(std::vector<int> const& numbers) {
    for (std::size_t i = 0; i < numbers.size(); ++i) {
      TextColumn& column = layout_.columns[i];
      if (numbers[i] + column.marks > limit_) {
        column.marks = 0;
      }
      column.width = std::max(column.width, numbers[i] + column.marks);
    }
  }

  void Widen(GridCell const& cell) {
    if (cell.columnSpan == 1 || cell.label == nullptr) {
      return;
    }
    int const room = layout_.Width(cell.column, cell.columnSpan);
    MarkedText const shown = ShownText(cell.label, marks_);
    int const missing = WidestLine(Wrap(shown.text + shown.marks, std::max(room, limit_))) - room;
    for (int i = 0; i < cell.columnSpan && missing > 0; ++i) {
      At(cell.column + i).width +=
          missing / cell.columnSpan + (i < missing % cell.columnSpan ? 1 : 0);
    }
  }

  DisplayGrid const& grid_;
  FootnoteMarks const& marks_;
  int limit_;
  TextLayout layout_;
};

}  // namespace

int TextLayout::Width(int column, int columnSpan) const {
  int width = kBetweenColumns * (columnSpan - 1);
  for (int i = column; i < column + columnSpan; ++i) {
    width += columns[static_cast<std::size_t>(i)].width;
  }
  return width;
}

TextLayout MeasureText(DisplayGrid const& grid, FootnoteMarks const& marks, int limit) {
  return Measurer(grid, marks, limit).Run();
}

}  // namespace lakresvos::render
