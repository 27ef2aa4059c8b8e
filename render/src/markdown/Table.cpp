#include "markdown/Table.h"

#include <vector>

#include "content/AreaAlignment.h"
#include "content/NumberCell.h"
#include "grid/RepeatedHeadings.h"
#include "markdown/Text.h"

namespace lakresvos::render {

namespace {

class MarkdownTable {
 public:
  MarkdownTable(OutputBuffer& out, DisplayGrid const& grid, MarkdownNotes& notes)
      : out_(out), grid_(grid), notes_(notes) {}

  void Write() {
    RepeatedHeadings cells(grid_);
    std::vector<std::string> headings(static_cast<std::size_t>(grid_.Columns()));
    std::vector<GridCell const*> last(headings.size(), nullptr);
    while (cells.Row() + 1 < grid_.HeadingRows() && cells.Next()) {
      for (std::size_t column = 0; column < headings.size(); ++column) {
        auto const at = static_cast<int>(column);
        GridCell const& cell = cells.At(at);
        std::string const text = &cell != last[column] ? notes_.MarkLabel(cells.Label(at)) : "";
        headings[column] += (headings[column].empty() || text.empty() ? "" : " / ") + text;
        last[column] = &cell;
      }
    }
    WriteRow(headings);
    WriteAlignments();
    while (cells.Next()) {
      for (int column = 0; column < grid_.HeadingColumns(); ++column) {
        WriteField(notes_.MarkLabel(cells.Label(column)));
      }
      DisplayGrid::BodyRow row = grid_.Body(cells.Row());
      for (int column = grid_.HeadingColumns(); column < grid_.Columns(); ++column) {
        WriteField(notes_.MarkCell(row.Cell(column)));
      }
      EndRow();
    }
  }

 private:
  void WriteField(std::string const& markdown) { out_ << "| " << markdown << ' '; }

  void EndRow() {
    out_ << "|\n";
    out_.Drain();
  }

  void WriteRow(std::vector<std::string> const& fields) {
    for (std::string const& field : fields) {
      WriteField(field);
    }
    EndRow();
  }

  void WriteAlignments() {
    HorizontalAlignment const wanted = FindAlignment(grid_.Table(), FormatArea::AreaData);
    std::vector<bool> const numbers = NumberColumns();
    for (int column = 0; column < grid_.Columns(); ++column) {
      bool const body = column >= grid_.HeadingColumns();
      bool const number = numbers[static_cast<std::size_t>(column)];
      HorizontalAlignment const choice =
          number ? HorizontalAlignment::Right : HorizontalAlignment::Any;
      out_ << Alignment(body ? ChooseAlignment(wanted, choice) : HorizontalAlignment::Any);
    }
    out_ << "|\n";
  }

  static std::string_view Alignment(HorizontalAlignment alignment) {
    switch (alignment) {
      case HorizontalAlignment::Left:
        return "| :--- ";
      case HorizontalAlignment::Center:
        return "| :---: ";
      case HorizontalAlignment::Right:
        return "| ---: ";
      case HorizontalAlignment::Any:
        break;
    }
    return "| --- ";
  }

  /// Which columns show a number in the body and nothing else.
  std::vector<bool> NumberColumns() const {
    std::vector<bool> numbers(static_cast<std::size_t>(grid_.Columns()), false);
    std::vector<bool> texts(numbers.size(), false);
    for (int r = grid_.HeadingRows(); r < grid_.Rows(); ++r) {
      DisplayGrid::BodyRow row = grid_.Body(r);
      for (int column = grid_.HeadingColumns(); column < grid_.Columns(); ++column) {
        OmCellText* const cell = row.Cell(column);
        if (cell != nullptr) {
          auto& seen = FindNumber(*cell).has_value() ? numbers : texts;
          seen[static_cast<std::size_t>(column)] = true;
        }
      }
    }
    for (std::size_t column = 0; column < numbers.size(); ++column) {
      numbers[column] = numbers[column] && !texts[column];
    }
    return numbers;
  }

  OutputBuffer& out_;
  DisplayGrid const& grid_;
  MarkdownNotes& notes_;
};

}  // namespace

std::string MarkdownNotes::Mark(std::size_t footnote) const {
  return "[^t" + std::to_string(number_) + "n" + std::to_string(footnote + 1) + "]";
}

std::string MarkdownNotes::AddMarks(OmCellText const& label, std::string const& text) {
  std::string marked = MarkdownText(text);
  for (std::size_t const footnote : footnotes_.Find(label)) {
    marked += Mark(footnote);
    used_.insert(footnote);
  }
  return marked;
}

std::string MarkdownNotes::MarkLabel(OmCellText const* label) {
  return label != nullptr ? AddMarks(*label, footnotes_.Labels().Text(label)) : std::string();
}

std::string MarkdownNotes::MarkCell(OmCellText const* cell) {
  return cell != nullptr ? AddMarks(*cell, cell->GetText()) : std::string();
}

std::string MarkdownNotes::Definitions() const {
  std::string definitions;
  for (std::size_t const footnote : used_) {
    definitions += (definitions.empty() ? "" : "\n") + Mark(footnote) + ": " +
                   AtLineStart(MarkdownText(footnotes_.Text(footnote)));
  }
  return definitions;
}

std::string MarkdownNotes::Rest() const {
  std::string rest;
  for (std::size_t footnote = 0; footnote < footnotes_.Count(); ++footnote) {
    if (used_.count(footnote) == 0) {
      rest += (rest.empty() ? "" : "\n\n") + AtLineStart(MarkdownText(footnotes_.Text(footnote)));
    }
  }
  return rest;
}

void WriteMarkdownTable(OutputBuffer& out, DisplayGrid const& grid, MarkdownNotes& notes) {
  MarkdownTable(out, grid, notes).Write();
}

}  // namespace lakresvos::render
