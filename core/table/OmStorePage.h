#ifndef LAKRESVOS_CORE_TABLE_OMSTOREPAGE_H
#define LAKRESVOS_CORE_TABLE_OMSTOREPAGE_H

#include <bit>
#include <cstdint>

#include <cells/OmMemoryRegion.h>

/// Up to 64 entries of a node of the cell store: one bit per place says whether there is an entry,
/// and the entries that there are lie packed in the order of their places.
///
/// A page lives in a region and is as long as its entries need, to within a block of the region; how
/// many it has room for follows from how many it has, so that it keeps no capacity.
class OmStorePage {
 public:
  static constexpr unsigned int kPlaces = 64;

  /// A page in `region` with one entry, which is not null.
  /// @throws std::bad_alloc.
  static OmStorePage* Make(OmMemoryRegion& region, unsigned int place, void* entry);

  /// Whether `place`, which is below 64, has an entry.
  bool Has(unsigned int place) const { return (bits_ >> place & 1) != 0; }

  /// The entry at `place`, or null.
  void* Entry(unsigned int place) const { return Has(place) ? Entries()[Rank(place)] : nullptr; }

  /// Where the entry at `place` is. Requires: Has(place).
  void** FindSlot(unsigned int place) { return &Entries()[Rank(place)]; }

  /// The first place from `place` on that has an entry; 64 when there is none.
  unsigned int FirstFrom(unsigned int place) const {
    std::uint64_t const rest = place < kPlaces ? bits_ >> place << place : 0;
    return static_cast<unsigned int>(std::countr_zero(rest));
  }

  /// Adds an entry, which is not null, at a place that has none, and returns the page, which may
  /// have moved.
  /// @throws std::bad_alloc; nothing has changed then.
  OmStorePage* Insert(unsigned int place, void* entry);

  /// Takes out the entry at `place` and returns the page, which may have moved; null when that was
  /// its last entry, and the page is given back then. Requires: Has(place).
  OmStorePage* Erase(unsigned int place);

 private:
  static unsigned long BytesFor(unsigned int count);

  /// The number of entries before `place`.
  unsigned int Rank(unsigned int place) const {
    return static_cast<unsigned int>(std::popcount(bits_ & ((std::uint64_t{1} << place) - 1)));
  }

  /// The entries follow the page in its block.
  void** Entries() { return reinterpret_cast<void**>(this + 1); }
  void* const* Entries() const { return reinterpret_cast<void* const*>(this + 1); }

  std::uint64_t bits_;
};

#endif
