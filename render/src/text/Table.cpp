#include "text/Table.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "text/BoxDrawing.h"
#include "text/Slots.h"

namespace lakresvos::render {

namespace {

class Drawing {
 public:
  Drawing(std::ostream& out, TextPart const& part, BodyTexts const& texts,
          FootnoteMarks const& marks, bool ascii)
      : out_(out),
        texts_(texts),
        grid_(part.grid),
        layout_(part.layout),
        box_(ascii),
        slots_(part.grid, marks, part.layout),
        headingRows_(slots_.MakeHeadingRows()),
        body_(slots_.MakeBody()) {}

  void Run() {
    std::vector<bool> above;
    for (int row = 0; row < grid_.Rows(); ++row) {
      bool const ruled = row <= grid_.HeadingRows() || layout_.tall || StartsGroup(row);
      StartRow(row);
      std::vector<bool> below = Edges(row);
      if (ruled) {
        WriteRule(row, above, below);
      }
      WriteRow(row);
      above = std::move(below);
    }
    headings_.clear();
    WriteRule(grid_.Rows(), above, {});
  }

 private:
  /// Whether outer row headings change before this row of the body, not the innermost ones alone.
  bool StartsGroup(int row) const {
    GridCells const starting = grid_.Headings(row);
    if (starting.begin() == starting.end()) {
      return false;
    }
    int const column = starting.begin()->column;
    auto const reachesBody = [this](auto const& cell) {
      return cell.column + cell.columnSpan == grid_.HeadingColumns();
    };
    auto const before =
        std::find_if(headings_.begin(), headings_.end(),
                     [column](TextSlot const& slot) { return slot.column == column; });
    return !reachesBody(*starting.begin()) || before == headings_.end() || !reachesBody(*before);
  }

  /// Drops the slots that end before grid row `row` and adds those that start in it.
  void StartRow(int row) {
    auto const done = [row](TextSlot const& slot) { return slot.rowEnd <= row; };
    headings_.erase(std::remove_if(headings_.begin(), headings_.end(), done), headings_.end());
    auto const kept = std::ssize(headings_);
    if (row < grid_.HeadingRows()) {
      std::vector<TextSlot>& starting = headingRows_[static_cast<std::size_t>(row)];
      std::move(starting.begin(), starting.end(), std::back_inserter(headings_));
    } else {
      for (GridCell const& cell : grid_.Headings(row)) {
        headings_.push_back(slots_.MakeHeading(cell));
      }
      GridPart::BodyRow cells = grid_.Body(row);
      for (TextSlot& slot : body_) {
        BodyText const shown = texts_.At(row, grid_.FindWholeColumn(slot.column));
        slots_.Fill(slot, shown, shown.marked ? cells.Cell(slot.column) : nullptr);
      }
    }
    std::inplace_merge(headings_.begin(), headings_.begin() + kept, headings_.end(),
                       [](TextSlot const& a, TextSlot const& b) { return a.column < b.column; });
  }

  /// The column boundaries at which the row has a vertical line.
  std::vector<bool> Edges(int row) const {
    std::vector<bool> edges(layout_.columns.size() + 1, row >= grid_.HeadingRows());
    std::fill_n(edges.begin(), grid_.HeadingColumns(), false);
    for (TextSlot const& slot : headings_) {
      edges[static_cast<std::size_t>(slot.column)] = true;
    }
    edges.back() = true;
    return edges;
  }

  int Height(int row) const {
    int height = 1;
    for (TextSlot const& slot : headings_) {
      if (slot.rowEnd == row + 1) {
        height = std::max(height, slot.LinesLeft());
      }
    }
    if (row >= grid_.HeadingRows()) {
      for (TextSlot const& slot : body_) {
        height = std::max(height, slot.LinesLeft());
      }
    }
    return height;
  }

  void WriteRow(int row) {
    for (int line = Height(row); line > 0; --line) {
      line_.clear();
      for (TextSlot& slot : headings_) {
        line_ += box_.Vertical();
        WriteSlot(slot);
      }
      if (row >= grid_.HeadingRows()) {
        for (TextSlot& slot : body_) {
          line_ += box_.Vertical();
          WriteSlot(slot);
        }
      }
      line_ += box_.Vertical();
      EndLine();
    }
  }

  void WriteSlot(TextSlot& slot) {
    line_ += ' ';
    slot.WriteLine(line_, layout_.Width(slot.column, slot.columnSpan));
    line_ += ' ';
  }

  /// Writes the line before grid row `row`, broken where cells go on across it.
  /// @param above,below the edges of the rows on either side; empty outside the table.
  void WriteRule(int row, std::vector<bool> const& above, std::vector<bool> const& below) {
    bool const strong = row > 0 && row == grid_.HeadingRows() && row < grid_.Rows();
    std::size_t const columns = layout_.columns.size();
    auto slot = headings_.begin();
    auto const crossing = [&](std::size_t column) {
      while (slot != headings_.end() &&
             (slot->row == row || static_cast<std::size_t>(slot->column) < column)) {
        ++slot;
      }
      return slot != headings_.end() && static_cast<std::size_t>(slot->column) == column;
    };
    bool left = false;
    line_.clear();
    for (std::size_t column = 0; column <= columns;) {
      bool const crossed = crossing(column);
      bool const right = !crossed && column < columns;
      line_ += box_.Joint(
          {!above.empty() && above[column], !below.empty() && below[column], left, right}, strong);
      if (crossed) {
        WriteSlot(*slot);
        column += static_cast<std::size_t>(slot->columnSpan);
      } else {
        for (int i = right ? layout_.columns[column].width + 2 : 0; i > 0; --i) {
          line_ += box_.Horizontal(strong);
        }
        ++column;
      }
      left = right;
    }
    EndLine();
  }

  void EndLine() {
    line_ += '\n';
    out_.write(line_.data(), static_cast<std::streamsize>(line_.size()));
  }

  std::ostream& out_;
  BodyTexts const& texts_;
  GridPart const& grid_;
  TextLayout const& layout_;
  BoxDrawing box_;
  TextSlots slots_;
  std::vector<std::vector<TextSlot>> headingRows_;  // what starts in the heading rows still to come
  std::vector<TextSlot> headings_;                  // what of the headings crosses the present row
  std::vector<TextSlot> body_;
  std::string line_;
};

}  // namespace

TextTable::TextTable(DisplayGrid const& grid, FootnoteMarks const& marks,
                     TextOptions const& options)
    : marks_(marks), ascii_(options.ascii), texts_(grid) {
  if (grid.Rows() > 0 && grid.Columns() > 0) {
    parts_ = LayOutText(grid, marks, std::max(options.maxColumnWidth, 2), options.width, texts_);
  }
}

int TextTable::Width() const {
  int widest = 0;
  for (TextPart const& part : parts_) {
    widest = std::max(widest, part.layout.Extent());
  }
  return widest;
}

void TextTable::Write(std::ostream& out) const {
  for (TextPart const& part : parts_) {
    if (&part != &parts_.front()) {
      out << '\n';
    }
    Drawing(out, part, texts_, marks_, ascii_).Run();
  }
}

}  // namespace lakresvos::render
