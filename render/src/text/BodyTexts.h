#ifndef LAKRESVOS_RENDER_TEXT_BODYTEXTS_H
#define LAKRESVOS_RENDER_TEXT_BODYTEXTS_H

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <lakresvos/render/DisplayGrid.h>

namespace lakresvos::render {

/// What a cell of a grid's body shows; where there is no cell, nothing.
struct BodyText {
  std::string_view text;
  std::string_view marks;  ///< to be put right after the text
  bool number;             ///< whether the text is one
};

/// The texts of some cells. They share one string, without overhead for each.
class CellTexts {
 public:
  /// Adds what the next cell shows.
  void Add(BodyText const& shown) {
    if (!shown.marks.empty()) {
      marks_.emplace_back(ends_.size(), shown.marks);
    }
    texts_ += shown.text;
    ends_.push_back(texts_.size() << kFlagBits | (shown.number ? kNumber : 0) |
                    (shown.marks.empty() ? 0 : kMarked));
  }

  /// What a cell shows, counted from 0. Valid until the next Add().
  /// Requires: it has been added.
  BodyText At(std::size_t cell) const {
    std::size_t const start = cell > 0 ? ends_[cell - 1] >> kFlagBits : 0;
    std::size_t const end = ends_[cell];
    return {std::string_view(texts_).substr(start, (end >> kFlagBits) - start),
            (end & kMarked) != 0 ? FindMarks(cell) : std::string_view(), (end & kNumber) != 0};
  }

 private:
  static constexpr int kFlagBits = 2;
  static constexpr std::size_t kNumber = 1;
  static constexpr std::size_t kMarked = 2;

  std::string_view FindMarks(std::size_t cell) const {
    auto const isBefore = [cell](auto const& marked) { return marked.first < cell; };
    return std::partition_point(marks_.begin(), marks_.end(), isBefore)->second;
  }

  std::string texts_;
  std::vector<std::size_t> ends_;                           // per cell, where its text ends; flags
  std::vector<std::pair<std::size_t, std::string>> marks_;  // of the cells that have some
};

/// The texts of a grid's body, from measuring its columns to drawing it: a cell may find out at
/// some cost what it shows, so it is asked once.
class BodyTexts {
 public:
  class Row;

  /// Starts without any.
  explicit BodyTexts(DisplayGrid const& grid)
      : top_(grid.HeadingRows()),
        left_(grid.HeadingColumns()),
        columns_(static_cast<std::size_t>(grid.Columns() - grid.HeadingColumns())) {}

  /// Adds the texts of the next rows.
  /// @param rows how many these are: the same number every time, but for the last.
  void Add(CellTexts texts, std::size_t rows) {
    rowsPerBlock_ = blocks_.empty() ? rows : rowsPerBlock_;
    blocks_.push_back(std::move(texts));
  }

  /// The texts of a grid row. Valid until the next Add(). Requires: they have been added.
  Row At(int row) const;

 private:
  int top_;
  int left_;
  std::size_t columns_;
  std::size_t rowsPerBlock_ = 1;
  std::vector<CellTexts> blocks_;
};

/// The texts of one row.
class BodyTexts::Row {
 public:
  /// What the cell in a grid column shows. Valid as the row.
  BodyText At(int column) const {
    return texts_.At(start_ + static_cast<std::size_t>(column - left_));
  }

 private:
  friend class BodyTexts;

  Row(CellTexts const& texts, std::size_t start, int left)
      : texts_(texts), start_(start), left_(left) {}

  CellTexts const& texts_;
  std::size_t start_;
  int left_;
};

inline BodyTexts::Row BodyTexts::At(int row) const {
  auto const at = static_cast<std::size_t>(row - top_);
  return {blocks_[at / rowsPerBlock_], at % rowsPerBlock_ * columns_, left_};
}

}  // namespace lakresvos::render

#endif
