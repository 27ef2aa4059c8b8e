#ifndef BENCH_STRUCTURES_FLATMAP_H
#define BENCH_STRUCTURES_FLATMAP_H

#include <algorithm>
#include <bit>
#include <cstdint>
#include <utility>
#include <vector>

#include "PlainCell.h"
#include "support/CellSet.h"

/// A hash map from the subscripts, packed into one number, to cells in an arena. It has no order: a
/// walk collects the entries and sorts them.
template <template <class Key, class Value> class Map>
class FlatMap {
 public:
  explicit FlatMap(Shape const& shape) {
    for (int const size : shape.sizes) {
      widths_.push_back(std::bit_width(static_cast<std::uint64_t>(size - 1)));
    }
  }

  void Write(std::vector<int> const& index, double value) {
    cells_[Pack(index)] = PlainCell(value).Clone(arena_);
  }

  double Read(std::vector<int> const& index) const {
    auto const found = cells_.find(Pack(index));
    return found != cells_.end() ? found->second->Value() : 0;
  }

  /// The cell itself stays in the arena.
  void Delete(std::vector<int> const& index) { cells_.erase(Pack(index)); }

  template <class Visit>
  void Walk(std::vector<int>& index, Visit const& visit) const {
    std::vector<std::pair<std::uint64_t, PlainCell const*>> entries(cells_.begin(), cells_.end());
    std::sort(entries.begin(), entries.end());
    index.resize(widths_.size());
    for (auto const& [key, cell] : entries) {
      Unpack(key, index);
      visit(cell->Value());
    }
  }

 private:
  std::uint64_t Pack(std::vector<int> const& index) const {
    std::uint64_t key = 0;
    for (std::size_t d = widths_.size(); d-- > 0;) {
      key = key << widths_[d] | static_cast<std::uint64_t>(index[d]);
    }
    return key;
  }

  void Unpack(std::uint64_t key, std::vector<int>& index) const {
    for (std::size_t d = 0; d < widths_.size(); ++d) {
      index[d] = static_cast<int>(key & ((std::uint64_t{1} << widths_[d]) - 1));
      key >>= widths_[d];
    }
  }

  std::vector<int> widths_;
  Map<std::uint64_t, PlainCell*> cells_;
  Arena arena_;
};

#endif
