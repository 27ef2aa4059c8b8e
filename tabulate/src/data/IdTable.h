#ifndef LAKRESVOS_TABULATE_DATA_IDTABLE_H
#define LAKRESVOS_TABULATE_DATA_IDTABLE_H

#include <bit>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <vector>

namespace lakresvos::tabulate {

/// A hash table of the numbers 0, 1, 2, ... of things that are kept elsewhere, by open addressing.
class IdTable {
 public:
  /// What Find() returns when there is nothing to find, and the one number that is never given.
  static constexpr std::uint32_t kNone = 0xFFFFFFFF;

  /// @param most how many numbers there are to give.
  explicit IdTable(std::uint32_t most = kNone) : most_(most) {}

  /// The number with this hash for which `same(number)` holds, or kNone. Hashes may be similar to
  /// one another: they are spread here.
  template <class Same>
  std::uint32_t Find(std::uint64_t hash, Same same) const {
    if (slots_.empty()) {
      return kNone;
    }
    for (std::size_t at = Home(hash); slots_[at].id != kNone; at = (at + 1) & mask()) {
      if (slots_[at].hash == hash && same(slots_[at].id)) {
        return slots_[at].id;
      }
    }
    return kNone;
  }

  /// Has the memory fetched that Find() with this hash looks at first.
  void Prefetch(std::uint64_t hash) const {
    if (!slots_.empty()) {
      __builtin_prefetch(&slots_[Home(hash)]);
    }
  }

  /// Adds the next number, for a thing that Find() does not find.
  /// @throws std::length_error when there is no number left.
  void Add(std::uint64_t hash) {
    if (count_ == most_) {
      throw std::length_error("more than 4,294,967,295 distinct values");
    }
    if (2 * (static_cast<std::size_t>(count_) + 1) > slots_.size()) {
      Grow();
    }
    Place({hash, count_});
    ++count_;
  }

  std::size_t size() const { return count_; }

 private:
  struct Slot {
    std::uint64_t hash;
    std::uint32_t id;
  };

  std::size_t mask() const { return slots_.size() - 1; }

  /// Where a slot belongs: by the highest bits of a product that all bits of the hash go into
  /// (D. E. Knuth, The Art of Computer Programming 3, 6.4).
  std::size_t Home(std::uint64_t hash) const { return (hash * 0x9E3779B97F4A7C15U) >> shift_; }

  void Place(Slot slot) {
    std::size_t at = Home(slot.hash);
    while (slots_[at].id != kNone) {
      at = (at + 1) & mask();
    }
    slots_[at] = slot;
  }

  void Grow() {
    std::vector<Slot> former(slots_.empty() ? 16 : slots_.size() * 2, Slot{0, kNone});
    former.swap(slots_);
    shift_ = 64 - std::countr_zero(slots_.size());
    for (Slot const& slot : former) {
      if (slot.id != kNone) {
        Place(slot);
      }
    }
  }

  std::uint32_t most_;
  std::vector<Slot> slots_;
  int shift_ = 0;  // of a product, down to as many bits as number the slots
  std::uint32_t count_ = 0;
};

}  // namespace lakresvos::tabulate

#endif
