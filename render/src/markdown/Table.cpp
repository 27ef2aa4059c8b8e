#include "markdown/Table.h"

#include <algorithm>
#include <vector>

#include "content/AreaAlignment.h"
#include "content/NumberCell.h"
#include "grid/BodyBlocks.h"
#include "grid/RepeatedHeadings.h"
#include "markdown/Text.h"

namespace lakresvos::render {

namespace {

class MarkdownTable {
 public:
  MarkdownTable(OutputBuffer& out, DisplayGrid const& grid, MarkdownNotes& notes,
                unsigned int threads)
      : out_(out), grid_(grid), notes_(notes), threads_(threads) {}

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
    for (std::string const& heading : headings) {
      AppendField(out_.Text(), heading);
    }
    out_ << "|\n";
    WriteAlignments();
    WriteBody(cells);
  }

 private:
  static void AppendField(std::string& out, std::string const& markdown) {
    out.append("| ").append(markdown) += ' ';
  }

  void WriteBody(RepeatedHeadings& cells) {
    WriteBodyRows<std::string>(
        out_, BodyBlocks(grid_), threads_,
        [&](int /*row*/, std::string& headings) {
          cells.Next();
          headings.clear();
          for (int column = 0; column < grid_.HeadingColumns(); ++column) {
            AppendField(headings, notes_.MarkLabel(cells.Label(column)));
          }
        },
        [this](std::string const& headings, DisplayGrid::BodyRow& row, std::string& out) {
          out += headings;
          for (int column = grid_.HeadingColumns(); column < grid_.Columns(); ++column) {
            AppendField(out, notes_.MarkCell(row.Cell(column)));
          }
          out += "|\n";
        });
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

  /// What a column shows in the body.
  struct Kinds {
    bool numbers = false;
    bool texts = false;
  };

  /// Which columns show a number in the body and nothing else.
  std::vector<bool> NumberColumns() const {
    struct Block {
      std::vector<DisplayGrid::BodyRow> rows;
      std::vector<Kinds> kinds;  // per column
    };
    BodyBlocks blocks(grid_);
    std::vector<Kinds> kinds(static_cast<std::size_t>(grid_.Columns()));
    DoInBlocks<Block>(
        threads_, [&](Block& block) { return blocks.Next(block.rows); },
        [&](Block& block) {
          block.kinds.assign(kinds.size(), {});
          for (DisplayGrid::BodyRow& row : block.rows) {
            FindKinds(row, block.kinds);
          }
        },
        [&](Block const& block) {
          for (std::size_t column = 0; column < kinds.size(); ++column) {
            kinds[column].numbers = kinds[column].numbers || block.kinds[column].numbers;
            kinds[column].texts = kinds[column].texts || block.kinds[column].texts;
          }
        });
    std::vector<bool> numbers(kinds.size());
    std::transform(kinds.begin(), kinds.end(), numbers.begin(),
                   [](Kinds const& column) { return column.numbers && !column.texts; });
    return numbers;
  }

  void FindKinds(DisplayGrid::BodyRow& row, std::vector<Kinds>& kinds) const {
    for (int column = grid_.HeadingColumns(); column < grid_.Columns(); ++column) {
      if (OmCellText* const cell = row.Cell(column)) {
        Kinds& seen = kinds[static_cast<std::size_t>(column)];
        (FindNumber(*cell).has_value() ? seen.numbers : seen.texts) = true;
      }
    }
  }

  OutputBuffer& out_;
  DisplayGrid const& grid_;
  MarkdownNotes& notes_;
  unsigned int threads_;
};

}  // namespace

std::string MarkdownNotes::Mark(std::size_t footnote) const {
  return "[^t" + std::to_string(number_) + "n" + std::to_string(footnote + 1) + "]";
}

std::string MarkdownNotes::AddMarks(OmCellText const& label, std::string const& text) {
  std::string marked = MarkdownText(text);
  for (std::size_t const footnote : footnotes_.Find(label)) {
    marked += Mark(footnote);
    used_[footnote] = true;
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
  for (std::size_t footnote = 0; footnote < used_.size(); ++footnote) {
    if (used_[footnote]) {
      definitions += (definitions.empty() ? "" : "\n") + Mark(footnote) + ": " +
                     AtLineStart(MarkdownText(footnotes_.Text(footnote)));
    }
  }
  return definitions;
}

std::string MarkdownNotes::Rest() const {
  std::string rest;
  for (std::size_t footnote = 0; footnote < used_.size(); ++footnote) {
    if (!used_[footnote]) {
      rest += (rest.empty() ? "" : "\n\n") + AtLineStart(MarkdownText(footnotes_.Text(footnote)));
    }
  }
  return rest;
}

void WriteMarkdownTable(OutputBuffer& out, DisplayGrid const& grid, MarkdownNotes& notes,
                        unsigned int threads) {
  MarkdownTable(out, grid, notes, threads).Write();
}

}  // namespace lakresvos::render
