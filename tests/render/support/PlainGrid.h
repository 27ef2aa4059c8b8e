#ifndef TESTS_RENDER_SUPPORT_PLAINGRID_H
#define TESTS_RENDER_SUPPORT_PLAINGRID_H

#include <algorithm>
#include <string>

#include <cells/OmCellText.h>
#include <lakresvos/render/DisplayGrid.h>

#include "content/NumberCell.h"

/// What a grid shows at each position, looked up there and then.
class PlainGrid {
 public:
  explicit PlainGrid(lakresvos::render::DisplayGrid const& grid) : grid_(grid) {}

  /// Whether there is anything to say of the layer.
  bool NamesLayer() const {
    auto const hasText = [](OmCellText const* text) {
      return text != nullptr && !text->GetText().empty();
    };
    auto const& labels = grid_.LayerLabels();
    return std::any_of(labels.begin(), labels.end(), [&](auto const& label) {
      return hasText(label.dimension) ||
             std::any_of(label.categories.begin(), label.categories.end(), hasText);
    });
  }

  /// The cell of the headings that covers a position; null in the body.
  lakresvos::render::GridCell const* Heading(int row, int column) const {
    auto const covers = [&](lakresvos::render::GridCell const& cell) {
      return row >= cell.row && row < cell.row + cell.rowSpan && column >= cell.column &&
             column < cell.column + cell.columnSpan;
    };
    auto const found = std::find_if(grid_.Headings().begin(), grid_.Headings().end(), covers);
    return found != grid_.Headings().end() ? &*found : nullptr;
  }

  /// What formats without spans show: a label over several columns of row headings in the first.
  std::string TextOnce(int row, int column) const {
    auto const* const cell = Heading(row, column);
    bool const again = cell != nullptr && column < grid_.HeadingColumns() && column > cell->column;
    return again ? "" : Text(row, column);
  }

  std::string Text(int row, int column) const {
    if (auto const* const cell = Heading(row, column)) {
      return cell->label != nullptr ? cell->label->GetText() : "";
    }
    OmCellText const* const cell = grid_.Body(row).Cell(column);
    return cell != nullptr ? cell->GetText() : "";
  }

  /// Whether the body shows a number there.
  bool IsNumber(int row, int column) const {
    if (Heading(row, column) != nullptr) {
      return false;
    }
    OmCellText* const cell = grid_.Body(row).Cell(column);
    return cell != nullptr && lakresvos::render::FindNumber(*cell).has_value();
  }

 private:
  lakresvos::render::DisplayGrid const& grid_;
};

#endif
