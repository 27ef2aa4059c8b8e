#include "text/Layout.h"

#include <algorithm>
#include <string>
#include <utility>

#include "content/CellText.h"
#include "content/NumberCell.h"
#include "grid/BodyBlocks.h"
#include "unicode/CodePoint.h"
#include "unicode/TextWidth.h"
#include "unicode/Wrap.h"

namespace lakresvos::render {

namespace {

constexpr int kBetweenColumns = 3;  // a space, a line and a space
constexpr int kFrame = 4;           // a line and a space on either side
constexpr int kMinWidth = 6;        // what a column is left at least, wherever it would be wider

/// What the cells of some rows need of each column.
struct BodyMeasure {
  explicit BodyMeasure(std::size_t columns) : columns(columns), numbers(columns, 0) {}

  /// Takes in what other rows need.
  void Add(BodyMeasure const& other) {
    for (std::size_t i = 0; i < columns.size(); ++i) {
      TextColumn const& column = other.columns[i];
      columns[i].width = std::max(columns[i].width, column.width);
      columns[i].marks = std::max(columns[i].marks, column.marks);
      columns[i].numbers = columns[i].numbers && column.numbers;
      numbers[i] = std::max(numbers[i], other.numbers[i]);
    }
    tall = tall || other.tall;
  }

  std::vector<TextColumn> columns;
  std::vector<int> numbers;  // how wide the numbers of each column are
  bool tall = false;         // whether some cell takes more than one line
};

class LayoutBuilder {
 public:
  LayoutBuilder(DisplayGrid const& grid, FootnoteMarks const& marks, int limit,
                unsigned int threads, BodyTexts& texts)
      : grid_(grid), marks_(marks), threads_(threads), texts_(texts), limit_(limit) {
    layout_.columns.resize(static_cast<std::size_t>(grid.Columns()));
  }

  std::vector<TextPart> Run(int width) {
    MeasureColumns();
    TextPart whole = MakePart(0, BodyColumns());
    if (width > 0 && whole.layout.Extent() > width) {
      Narrow(width);
      return Cut(width);
    }
    std::vector<TextPart> parts;
    parts.push_back(std::move(whole));
    return parts;
  }

 private:
  TextColumn& At(int column) { return layout_.columns[static_cast<std::size_t>(column)]; }
  int BodyColumns() const { return grid_.Columns() - grid_.HeadingColumns(); }

  // The columns of the whole grid, without what headings over several columns of the body add

  void MeasureColumns() {
    for (GridCell const& cell : grid_.Headings()) {
      MeasureLabel(cell);
    }
    MeasureBody();
    // Inner headings first: what they add to their columns is room for the outer ones.
    std::for_each(grid_.Headings().rbegin(), grid_.Headings().rend(), [this](GridCell const& cell) {
      if (cell.role != GridRole::ColumnHeading && cell.columnSpan > 1) {
        Widen(layout_, cell);
      }
    });
  }

  /// The width of the text when wrapped, and whether that takes more than one line.
  int MeasureWrapped(std::string const& text, bool& tall) const {
    if (text.size() <= static_cast<std::size_t>(limit_) && IsPlainAscii(text)) {
      return static_cast<int>(text.size());
    }
    std::vector<TextLine> const lines = Wrap(text, limit_);
    tall = tall || lines.size() > 1;
    return MeasureWidestLine(lines);
  }

  void MeasureLabel(GridCell const& cell) {
    if (cell.columnSpan > 1) {
      return;
    }
    MarkedText const shown = ShowLabel(cell.label, marks_);
    bool tall = false;
    TextColumn& column = At(cell.column);
    column.width = std::max(column.width, MeasureWrapped(shown.text + shown.marks, tall));
    layout_.tall = layout_.tall || (tall && cell.role == GridRole::RowHeading && cell.rowSpan == 1);
  }

  void MeasureBody() {
    struct Block {
      std::vector<DisplayGrid::BodyRow> rows;
      BodyMeasure measure{0};
      CellTexts texts;
    };
    BodyBlocks blocks(grid_);
    BodyMeasure body(layout_.columns.size());
    DoInBlocks<Block>(
        threads_, [&](Block& block) { return blocks.Next(block.rows); },
        [&](Block& block) {
          block.measure = BodyMeasure(layout_.columns.size());
          for (DisplayGrid::BodyRow& row : block.rows) {
            MeasureRow(row, block.measure, block.texts);
          }
        },
        [&](Block& block) {
          body.Add(block.measure);
          texts_.Add(std::exchange(block.texts, {}), block.rows.size());
        });
    for (std::size_t i = 0; i < layout_.columns.size(); ++i) {
      TextColumn& column = layout_.columns[i];
      column = {std::max(column.width, body.columns[i].width), body.columns[i].marks,
                body.columns[i].numbers};
    }
    layout_.tall = layout_.tall || body.tall;
    MakeRoomForMarks(body.numbers);
  }

  void MeasureRow(DisplayGrid::BodyRow& row, BodyMeasure& measure, CellTexts& texts) const {
    for (int column = grid_.HeadingColumns(); column < grid_.Columns(); ++column) {
      if (OmCellText* const cell = row.Cell(column)) {
        MeasureCell(*cell, static_cast<std::size_t>(column), measure, texts);
      } else {
        texts.Add({{}, {}, false});
      }
    }
  }

  void MeasureCell(OmCellText& cell, std::size_t at, BodyMeasure& measure, CellTexts& texts) const {
    MarkedText shown = ShowCell(&cell, marks_);
    bool const number = FindNumber(cell).has_value();
    texts.Add({shown.text, shown.marks, number});
    TextColumn& column = measure.columns[at];
    if (number) {
      int& widest = measure.numbers[at];
      widest = std::max(widest, MeasureWrapped(shown.text, measure.tall));
      if (shown.marks.empty()) {
        return;
      }
      column.marks = std::max(column.marks, TextWidth(PrintableLines(shown.marks).front()));
    } else {
      column.numbers = false;
    }
    shown.text += shown.marks;
    column.width = std::max(column.width, MeasureWrapped(shown.text, measure.tall));
  }

  /// Lets marks hang after the numbers, whose digits then are below one another, where there is
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

  void Widen(TextLayout& layout, GridCell const& cell) const {
    if (cell.label == nullptr) {
      return;
    }
    int const room = layout.Width(cell.column, cell.columnSpan);
    MarkedText const shown = ShowLabel(cell.label, marks_);
    int const missing =
        MeasureWidestLine(Wrap(shown.text + shown.marks, std::max(room, limit_))) - room;
    auto const columns = layout.columns.begin() + cell.column;
    for (int i = 0; i < cell.columnSpan && missing > 0; ++i) {
      columns[i].width += missing / cell.columnSpan + (i < missing % cell.columnSpan ? 1 : 0);
    }
  }

  // Parts

  /// The body's columns from `first` up to but not including `last`, after the row headings.
  TextPart MakePart(int first, int last) const {
    auto const headings = layout_.columns.begin() + grid_.HeadingColumns();
    TextPart part{GridPart(grid_, first, last), {}};
    part.layout.tall = layout_.tall;
    part.layout.columns.assign(layout_.columns.begin(), headings);
    part.layout.columns.insert(part.layout.columns.end(), headings + first, headings + last);
    std::vector<GridCell> const& cells = part.grid.ColumnHeadings();
    std::for_each(cells.rbegin(), cells.rend(), [&](GridCell const& cell) {
      if (cell.role == GridRole::ColumnHeading) {
        Widen(part.layout, cell);
      }
    });
    return part;
  }

  /// Lets columns wrap so early that one of the body has room next to the row headings.
  void Narrow(int width) {
    int const headings = grid_.HeadingColumns();
    int const room = std::max(0, width - kFrame - kBetweenColumns * headings);
    // A heading over several columns may be wider than they are.
    int widest = std::min(kMinWidth, limit_);
    for (int column = headings; column < grid_.Columns(); ++column) {
      widest = std::max(widest, At(column).width);
    }
    int const headingLimit = FindHeadingLimit(std::max(room - widest, room / 2));
    int left = room;
    for (int column = 0; column < headings; ++column) {
      Limit(At(column), headingLimit);
      left -= At(column).width;
    }
    limit_ = std::clamp(left, std::min(kMinWidth, limit_), limit_);
    for (int column = headings; column < grid_.Columns(); ++column) {
      Limit(At(column), limit_);
    }
  }

  /// How wide a heading column may be so that all of them together are no wider than `room`.
  int FindHeadingLimit(int room) const {
    auto const end = layout_.columns.begin() + grid_.HeadingColumns();
    int widest = kMinWidth;
    std::for_each(layout_.columns.begin(), end,
                  [&](TextColumn const& column) { widest = std::max(widest, column.width); });
    int fits = kMinWidth;
    while (fits < widest) {
      int const limit = fits + (widest - fits + 1) / 2;
      long total = 0;
      std::for_each(layout_.columns.begin(), end,
                    [&](TextColumn const& column) { total += std::min(column.width, limit); });
      if (total <= room) {
        fits = limit;
      } else {
        widest = limit - 1;
      }
    }
    return fits;
  }

  void Limit(TextColumn& column, int limit) {
    if (column.width > limit) {
      column.width = limit;
      column.marks = 0;
      layout_.tall = true;
    }
  }

  std::vector<TextPart> Cut(int width) const {
    std::vector<TextPart> parts;
    int first = 0;
    do {
      parts.push_back(MakeWidestPart(first, width));
      first += parts.back().grid.Columns() - grid_.HeadingColumns();
    } while (first < BodyColumns());
    return parts;
  }

  /// The part that starts with the body's column `first` and has as many more as fit.
  TextPart MakeWidestPart(int first, int width) const {
    int fits = std::min(first + 1, BodyColumns());
    int last = std::max(fits, FindUnspannedEnd(first, width));
    // Headings over several columns may need more room than these: usually not.
    for (int tried = last; fits < last; tried = fits + (last - fits + 1) / 2) {
      if (MakePart(first, tried).layout.Extent() <= width) {
        fits = tried;
      } else {
        last = tried - 1;
      }
    }
    return MakePart(first, fits);
  }

  /// After the last of the body's columns that fit from `first` on, as wide as they are themselves.
  int FindUnspannedEnd(int first, int width) const {
    int const headings = grid_.HeadingColumns();
    auto const body = layout_.columns.begin() + headings;
    int extent = kFrame + layout_.Width(0, headings);
    int last = first;
    while (last < BodyColumns() && extent <= width) {
      extent += kBetweenColumns + body[last++].width;
    }
    return extent <= width ? last : last - 1;
  }

  DisplayGrid const& grid_;
  FootnoteMarks const& marks_;
  unsigned int threads_;
  BodyTexts& texts_;
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

int TextLayout::Extent() const {
  auto const count = static_cast<int>(columns.size());
  return count == 0 ? 0 : Width(0, count) + kFrame;
}

std::vector<TextPart> LayOutText(DisplayGrid const& grid, FootnoteMarks const& marks, int limit,
                                 int width, unsigned int threads, BodyTexts& texts) {
  return LayoutBuilder(grid, marks, limit, threads, texts).Run(width);
}

}  // namespace lakresvos::render
