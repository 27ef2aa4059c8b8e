#include "text/Slots.h"

#include <algorithm>

#include "content/CellText.h"
#include "unicode/TextWidth.h"

namespace lakresvos::render {

void TextSlot::WriteLine(std::string& out, int width) {
  if (above > 0 || next == lines.size()) {
    above = std::max(above - 1, 0);
    out.append(static_cast<std::size_t>(width), ' ');
    return;
  }
  TextLine const& line = lines[next++];
  int const spaces = std::max(0, width - line.width);
  int const before = CountSpacesBefore(align, std::max(0, spaces - after));
  out.append(static_cast<std::size_t>(before), ' ');
  out += line.text;
  out.append(static_cast<std::size_t>(spaces - before), ' ');
}

std::vector<std::vector<TextSlot>> TextSlots::MakeHeadingRows() const {
  auto const rows = static_cast<std::size_t>(grid_.HeadingRows());
  std::vector<std::vector<TextSlot>> starting(rows);
  std::vector<std::vector<TextSlot*>> ending(rows);
  for (std::size_t row = 0; row < rows; ++row) {
    for (GridCell const& cell : grid_.Headings(static_cast<int>(row))) {
      starting[row].push_back(MakeHeading(cell));
    }
    for (TextSlot& slot : starting[row]) {
      ending[static_cast<std::size_t>(slot.rowEnd) - 1].push_back(&slot);
    }
  }
  std::vector<int> top(rows + 1, 0);  // the terminal line where each row starts, rules counted
  for (std::size_t row = 0; row < rows; ++row) {
    int height = 1;
    for (TextSlot const* slot : ending[row]) {
      int const above = top[row] - top[static_cast<std::size_t>(slot->row)];
      height = std::max(height, slot->LinesLeft() - above);
    }
    top[row + 1] = top[row] + height + 1;
    for (TextSlot* slot : ending[row]) {
      int const room = top[row + 1] - top[static_cast<std::size_t>(slot->row)] - 1;
      slot->above = room - slot->LinesLeft();
    }
  }
  return starting;
}

TextSlot TextSlots::MakeHeading(GridCell const& cell) const {
  MarkedText const shown = ShowLabel(cell.label, marks_);
  TextSlot slot{cell.column, cell.columnSpan, cell.row, cell.row + cell.rowSpan};
  slot.align = AlignCell(cell);
  slot.lines = Wrap(shown.text + shown.marks, layout_.Width(cell.column, cell.columnSpan));
  return slot;
}

HorizontalAlignment TextSlots::AlignCell(GridCell const& cell) const {
  switch (cell.role) {
    case GridRole::Corner:
      return ChooseAlignment(corner_, HorizontalAlignment::Left);
    case GridRole::RowHeading:
      return ChooseAlignment(rowLabels_, HorizontalAlignment::Left);
    case GridRole::ColumnHeading:
      break;
  }
  if (cell.columnSpan > 1) {
    return ChooseAlignment(columnLabels_, HorizontalAlignment::Center);
  }
  bool const numbers = layout_.columns[static_cast<std::size_t>(cell.column)].numbers;
  return ChooseAlignment(columnLabels_,
                         numbers ? HorizontalAlignment::Right : HorizontalAlignment::Left);
}

std::vector<TextSlot> TextSlots::MakeBody() const {
  std::vector<TextSlot> slots;
  slots.reserve(static_cast<std::size_t>(grid_.Columns() - grid_.HeadingColumns()));
  for (int column = grid_.HeadingColumns(); column < grid_.Columns(); ++column) {
    slots.push_back({column, 1, 0, 0});
  }
  return slots;
}

void TextSlots::Fill(TextSlot& slot, BodyText const& shown) const {
  TextColumn const& column = layout_.columns[static_cast<std::size_t>(slot.column)];
  slot.next = 0;
  slot.align =
      ChooseAlignment(data_, shown.number ? HorizontalAlignment::Right : HorizontalAlignment::Left);
  slot.after = shown.number ? column.marks : 0;
  if (shown.marks.empty()) {
    Wrap(shown.text, column.width, slot.lines);
    return;
  }
  if (slot.after > 0) {
    slot.after -= TextWidth(PrintableLines(shown.marks).front());
  }
  Wrap(std::string(shown.text).append(shown.marks), column.width, slot.lines);
}

}  // namespace lakresvos::render
