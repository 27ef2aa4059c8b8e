#ifndef LAKRESVOS_RENDER_TEXT_BODYTEXTS_H
#define LAKRESVOS_RENDER_TEXT_BODYTEXTS_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <lakresvos/render/DisplayGrid.h>

namespace lakresvos::render {

/// What a cell of a grid's body shows, but for its marks; where there is no cell, an empty text.
struct BodyText {
  std::string_view text;
  bool number;  ///< whether it is one
  bool marked;  ///< whether it has marks
};

/// The texts of a grid's body, from measuring its columns to drawing it: a cell may find out at
/// some cost what it shows, so it is asked once. They share one string, without overhead for each.
class BodyTexts {
 public:
  /// Starts without any.
  explicit BodyTexts(DisplayGrid const& grid)
      : top_(grid.HeadingRows()),
        left_(grid.HeadingColumns()),
        columns_(static_cast<std::size_t>(grid.Columns() - grid.HeadingColumns())) {}

  /// Adds the text of the next cell, row by row.
  void Add(BodyText const& shown) {
    texts_ += shown.text;
    ends_.push_back(texts_.size() << kFlagBits | (shown.number ? kNumber : 0) |
                    (shown.marked ? kMarked : 0));
  }

  /// What the cell in a grid row and column shows. Valid until the next Add().
  /// Requires: it has been added.
  BodyText At(int row, int column) const {
    std::size_t const at =
        static_cast<std::size_t>(row - top_) * columns_ + static_cast<std::size_t>(column - left_);
    std::size_t const start = at > 0 ? ends_[at - 1] >> kFlagBits : 0;
    std::size_t const end = ends_[at];
    return {std::string_view(texts_).substr(start, (end >> kFlagBits) - start),
            (end & kNumber) != 0, (end & kMarked) != 0};
  }

 private:
  static constexpr int kFlagBits = 2;
  static constexpr std::size_t kNumber = 1;
  static constexpr std::size_t kMarked = 2;

  int top_;
  int left_;
  std::size_t columns_;
  std::string texts_;
  std::vector<std::size_t> ends_;  // per cell, where its text ends, and its flags
};

}  // namespace lakresvos::render

#endif
