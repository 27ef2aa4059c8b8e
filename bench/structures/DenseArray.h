#ifndef BENCH_STRUCTURES_DENSEARRAY_H
#define BENCH_STRUCTURES_DENSEARRAY_H

#include <vector>

#include "PlainCell.h"
#include "support/CellSet.h"

/// A pointer for every position, and the cells in an arena.
class DenseArray {
 public:
  explicit DenseArray(Shape const& shape)
      : sizes_(shape.sizes), cells_(static_cast<std::size_t>(shape.Positions())) {}

  void Write(std::vector<int> const& index, double value) {
    cells_[Position(index)] = PlainCell(value).Clone(arena_);
  }

  double Read(std::vector<int> const& index) const {
    PlainCell const* const cell = cells_[Position(index)];
    return cell != nullptr ? cell->Value() : 0;
  }

  /// Calls `visit` with each value while its subscripts are in `index`, which is the caller's.
  template <class Visit>
  void Walk(std::vector<int>& index, Visit const& visit) const {
    std::vector<int> at(sizes_.size());
    for (PlainCell const* const cell : cells_) {
      if (cell != nullptr) {
        index.assign(at.begin(), at.end());
        visit(cell->Value());
      }
      Advance(at);
    }
  }

 private:
  std::size_t Position(std::vector<int> const& index) const {
    std::size_t position = 0;
    for (std::size_t d = sizes_.size(); d-- > 0;) {
      position =
          position * static_cast<std::size_t>(sizes_[d]) + static_cast<std::size_t>(index[d]);
    }
    return position;
  }

  void Advance(std::vector<int>& index) const {
    for (std::size_t d = 0; d < sizes_.size() && ++index[d] == sizes_[d]; ++d) {
      index[d] = 0;
    }
  }

  std::vector<int> sizes_;
  std::vector<PlainCell*> cells_;
  Arena arena_;
};

#endif
