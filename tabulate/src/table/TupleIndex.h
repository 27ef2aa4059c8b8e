#ifndef LAKRESVOS_TABULATE_TABLE_TUPLEINDEX_H
#define LAKRESVOS_TABULATE_TABLE_TUPLEINDEX_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "data/IdTable.h"

namespace lakresvos::tabulate {

/// The distinct tuples among many of one width, numbered in the order in which they first appear.
class TupleIndex {
 public:
  using Tuple = std::span<std::uint32_t const>;

  explicit TupleIndex(std::size_t width) : width_(width) {}

  /// The number of the tuple, which is added when it is new.
  /// Requires: `tuple` has the index's width and is not part of this index.
  std::uint32_t Intern(Tuple tuple) {
    std::uint32_t const known = Find(tuple);
    if (known != IdTable::kNone) {
      return known;
    }
    numbers_.insert(numbers_.end(), tuple.begin(), tuple.end());
    ids_.Add(Hash(tuple));
    return static_cast<std::uint32_t>(ids_.size() - 1);
  }

  /// The number of the tuple, or IdTable::kNone.
  std::uint32_t Find(Tuple tuple) const {
    return ids_.Find(Hash(tuple), [&](std::uint32_t id) {
      return std::equal(tuple.begin(), tuple.end(), (*this)[id].begin());
    });
  }

  /// How many distinct tuples there are.
  std::size_t size() const { return ids_.size(); }

  /// The tuple with this number, below size(). Valid until the next Intern().
  Tuple operator[](std::size_t id) const { return Tuple(numbers_).subspan(id * width_, width_); }

 private:
  static std::uint64_t Hash(Tuple tuple) {
    // Multiplies by 2^64 over the golden ratio: D. E. Knuth, The Art of Computer Programming 3, 6.4.
    std::uint64_t hash = 0;
    for (std::uint32_t const number : tuple) {
      hash = (hash ^ number) * 0x9E3779B97F4A7C15U;
      hash ^= hash >> 32;
    }
    return hash;
  }

  std::size_t width_;
  std::vector<std::uint32_t> numbers_;  // all tuples, one after the other
  IdTable ids_;
};

}  // namespace lakresvos::tabulate

#endif
