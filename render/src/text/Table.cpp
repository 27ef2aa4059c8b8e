#include "text/Table.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "io/InBlocks.h"
#include "text/BoxDrawing.h"
#include "text/Slots.h"

namespace lakresvos::render {

namespace {

/// Draws runs of rows of a part of a grid.
class Drawing {
 public:
  /// All arguments must outlive the object.
  Drawing(TextPart const& part, TextSlots const& slots, BodyTexts const& texts, bool ascii)
      : texts_(texts),
        grid_(part.grid),
        layout_(part.layout),
        box_(ascii),
        slots_(slots),
        body_(slots.MakeBody()) {}

  /// @param drain called after each line, for the headings of a table may be many.
  template <class Drain>
  void Draw(RowRun const& run, std::string& out, Drain drain) {
    std::vector<bool> above = Start(run);
    for (int row = run.first; row < run.last; ++row) {
      bool const ruled = row <= grid_.HeadingRows() || layout_.tall || StartsGroup(row);
      StartRow(row);
      std::vector<bool> below = Edges(row);
      if (ruled) {
        WriteRule(row, above, below, out);
        drain();
      }
      for (int line = Height(row); line > 0; --line) {
        WriteLine(row, out);
        drain();
      }
      above = std::move(below);
    }
    if (run.last == grid_.Rows()) {
      headings_.clear();
      WriteRule(run.last, above, {}, out);
    }
  }

 private:
  /// Goes to the row before a run. Returns its edges.
  std::vector<bool> Start(RowRun const& run) {
    headings_.clear();
    if (run.first == 0) {
      headingRows_ = slots_.MakeHeadingRows();
      return {};
    }
    for (GridCell const* const cell : run.headings) {
      headings_.push_back({cell->column, cell->columnSpan, cell->row, cell->row + cell->rowSpan});
    }
    return Edges(run.first - 1);
  }

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
      BodyTexts::Row const texts = texts_.At(row);
      for (TextSlot& slot : body_) {
        slots_.Fill(slot, texts.At(grid_.FindWholeColumn(slot.column)));
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

  /// Writes one of the lines of a row.
  void WriteLine(int row, std::string& out) {
    for (TextSlot& slot : headings_) {
      out += box_.Vertical();
      WriteSlot(slot, out);
    }
    if (row >= grid_.HeadingRows()) {
      for (TextSlot& slot : body_) {
        out += box_.Vertical();
        WriteSlot(slot, out);
      }
    }
    out.append(box_.Vertical()) += '\n';
  }

  void WriteSlot(TextSlot& slot, std::string& out) const {
    out += ' ';
    slot.WriteLine(out, layout_.Width(slot.column, slot.columnSpan));
    out += ' ';
  }

  /// Writes the line before grid row `row`, broken where cells go on across it.
  /// @param above,below the edges of the rows on either side; empty outside the table.
  void WriteRule(int row, std::vector<bool> const& above, std::vector<bool> const& below,
                 std::string& out) {
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
    for (std::size_t column = 0; column <= columns;) {
      bool const crossed = crossing(column);
      bool const right = !crossed && column < columns;
      out += box_.Joint(
          {!above.empty() && above[column], !below.empty() && below[column], left, right}, strong);
      if (crossed) {
        WriteSlot(*slot, out);
        column += static_cast<std::size_t>(slot->columnSpan);
      } else {
        for (int i = right ? layout_.columns[column].width + 2 : 0; i > 0; --i) {
          out += box_.Horizontal(strong);
        }
        ++column;
      }
      left = right;
    }
    out += '\n';
  }

  BodyTexts const& texts_;
  GridPart const& grid_;
  TextLayout const& layout_;
  BoxDrawing box_;
  TextSlots const& slots_;
  std::vector<std::vector<TextSlot>> headingRows_;  // what starts in the heading rows still to come
  std::vector<TextSlot> headings_;                  // what of the headings crosses the present row
  std::vector<TextSlot> body_;
};

}  // namespace

TextTable::TextTable(DisplayGrid const& grid, FootnoteMarks const& marks,
                     TextOptions const& options)
    : grid_(grid), marks_(marks), options_(options), texts_(grid) {
  if (grid.Rows() > 0 && grid.Columns() > 0) {
    parts_ = LayOutText(grid, marks, std::max(options.maxColumnWidth, 2), options.width,
                        options.threads, texts_);
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
  if (parts_.empty()) {
    return;
  }
  std::size_t const rows =
      blockSizes.cells * parts_.size() / static_cast<std::size_t>(grid_.Columns());
  std::vector<RowRun> const runs = CutRows(grid_, marks_, std::max(static_cast<int>(rows), 1));
  OutputBuffer buffer(out);
  for (TextPart const& part : parts_) {
    buffer << (&part != &parts_.front() ? "\n" : "");
    WritePart(part, runs, buffer);
  }
  buffer.Flush();
}

void TextTable::WritePart(TextPart const& part, std::vector<RowRun> const& runs,
                          OutputBuffer& out) const {
  struct Block {
    RowRun const* run = nullptr;
    std::unique_ptr<Drawing> drawing;
    std::string text;
  };
  TextSlots const slots(part.grid, marks_, part.layout);
  auto next = runs.begin();
  DoInBlocks<Block>(
      options_.threads,
      [&](Block& block) {
        if (next == runs.end()) {
          return false;
        }
        block.run = &*next++;
        if (block.drawing == nullptr) {
          block.drawing = std::make_unique<Drawing>(part, slots, texts_, options_.ascii);
        }
        return true;
      },
      [&](Block& block) { block.drawing->Draw(*block.run, out.Text(), [&] { out.Drain(); }); },
      [](Block& block) {
        block.text.clear();
        block.drawing->Draw(*block.run, block.text, [] {});
      },
      [&](Block& block) { out.Append(block.text); });
}

}  // namespace lakresvos::render
