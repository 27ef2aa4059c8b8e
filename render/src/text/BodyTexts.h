#ifndef LAKRESVOS_RENDER_TEXT_BODYTEXTS_H
#define LAKRESVOS_RENDER_TEXT_BODYTEXTS_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <lakresvos/render/DisplayGrid.h>

namespace lakresvos::render {

/// The texts of a grid's body, from measuring its columns to drawing it: a cell may find out at
/// some cost what it shows, so it is asked once. They share one string, without overhead for each.
class BodyTexts {
 public:
  /// Starts without any.
  explicit BodyTexts(DisplayGrid const& grid)
      : top_(grid.HeadingRows()),
        left_(grid.HeadingColumns()),
        columns_(static_cast<std::size_t>(grid.Columns() - grid.HeadingColumns())) {}

  /// Adds the text of the next cell, row by row; an empty one where there is no cell.
  void Add(std::string_view text) {
    texts_ += text;
    ends_.push_back(texts_.size());
  }

  /// The text of the cell in a grid row and column.
  /// Requires: it has been added.
  std::string Text(int row, int column) const {
    std::size_t const at =
        static_cast<std::size_t>(row - top_) * columns_ + static_cast<std::size_t>(column - left_);
    std::size_t const start = at > 0 ? ends_[at - 1] : 0;
    return texts_.substr(start, ends_[at] - start);
  }

 private:
  int top_;
  int left_;
  std::size_t columns_;
  std::string texts_;
  std::vector<std::size_t> ends_;  // per cell, where its text ends
};

}  // namespace lakresvos::render

#endif
