#ifndef LAKRESVOS_TABULATE_COUNT_CODEPLACES_H
#define LAKRESVOS_TABULATE_COUNT_CODEPLACES_H

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <vector>

#include "table/TupleIndex.h"

namespace lakresvos::tabulate {

/// Finds the cells of combinations of codes faster than by a hash as long as there are few codes:
/// each combination has a place of its own. Codes may turn up that are larger than any before.
class CodePlaces {
 public:
  /// @param width how many codes a combination has.
  explicit CodePlaces(std::size_t width) : bits_(width), cells_(1, IdTable::kNone) {}

  /// The cell of a combination; what `intern()` gives, which is asked once for each, if places are
  /// used.
  /// @param known all combinations that have cells so far.
  template <class Intern>
  std::uint32_t Find(TupleIndex::Tuple codes, TupleIndex const& known, Intern intern) {
    if (cells_.empty()) {
      return intern();
    }
    std::size_t place = 0;
    for (std::size_t i = 0; i < codes.size(); ++i) {
      std::uint32_t const digit = Digit(codes[i]);
      if (digit >> bits_[i] != 0) {
        MakeRoom(codes, known);
        return Find(codes, known, intern);
      }
      place = place << bits_[i] | digit;
    }
    if (cells_[place] == IdTable::kNone) {
      cells_[place] = intern();
    }
    return cells_[place];
  }

 private:
  static constexpr unsigned kMostBits = 18;  // 1 MiB of places

  /// Codes from 1 on; 0 is the code of a missing value.
  static std::uint32_t Digit(std::uint32_t code) { return code + 1; }

  void MakeRoom(TupleIndex::Tuple codes, TupleIndex const& known) {
    std::vector<unsigned> bits = bits_;
    for (std::size_t i = 0; i < codes.size(); ++i) {
      bits[i] = std::max<unsigned>(bits[i], std::bit_width(Digit(codes[i])));
    }
    std::vector<std::uint32_t> cells;
    unsigned const all = std::accumulate(bits.begin(), bits.end(), 0U);
    if (all <= kMostBits) {
      cells.assign(std::size_t{1} << all, IdTable::kNone);
      for (std::size_t cell = 0; cell < known.size(); ++cell) {
        cells[Place(known[cell], bits)] = static_cast<std::uint32_t>(cell);
      }
    }
    bits_.swap(bits);
    cells_.swap(cells);
  }

  static std::size_t Place(TupleIndex::Tuple codes, std::vector<unsigned> const& bits) {
    std::size_t place = 0;
    for (std::size_t i = 0; i < codes.size(); ++i) {
      place = place << bits[i] | Digit(codes[i]);
    }
    return place;
  }

  std::vector<unsigned> bits_;        // that each code takes in a place
  std::vector<std::uint32_t> cells_;  // by place; without any, there are too many
};

}  // namespace lakresvos::tabulate

#endif
