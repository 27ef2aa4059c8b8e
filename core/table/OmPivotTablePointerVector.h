#ifndef LAKRESVOS_CORE_TABLE_OMPIVOTTABLEPOINTERVECTOR_H
#define LAKRESVOS_CORE_TABLE_OMPIVOTTABLEPOINTERVECTOR_H

#include <cstdint>

#include <cells/OmMemoryRegion.h>
#include <lakresvos/OmPivotTable.h>

/// One node of the cell store: entries at positions from 0 on, each of them null, a node of the next
/// level (see FromEntry()) or, at the bottom, a cell.
///
/// To whoever asks, a node is a vector of pointers that is as long as the largest position written.
/// It keeps them in the form that suits their number:
///
/// - dense, a slot per position, while at least every eighth or so holds something: a step leads to
///   the entry, so that a full table is read like an array;
/// - a list, the positions in order and then their entries, while there are at most 36: most nodes
///   of a sparse table have two or three;
/// - paged in between: nodes for equal stretches of positions, in a directory that is a node too.
///   Pages are as long as suits the number of entries, a few for each, so that the directory is
///   never much longer than that number; where entries crowd, a page is dense or paged itself.
///
/// Why all this: a table of a few dimensions has millions of combinations, of which one per cent
/// is used or all of them are, and nobody says beforehand. A vector alone needs memory for the
/// largest subscript in each branch; a hash table alone has no order and costs as much for each cell
/// of a full table as for one of an empty.
///
/// Why entries that lead to nodes say more than where they are (see Look()): a random read waits for
/// memory at each step. The entry of a dense node says how many slots it has, so that the read goes
/// to the slot without a look at the node's header, and that of a list which positions it may have,
/// so that reading an index without a cell, which a renderer does for each empty place, mostly ends
/// before the list.
///
/// The slots lie in the node's own block, after its header. A node that needs another form or more
/// room therefore moves, and what changes a node returns where it is now, for the caller to put into
/// the entry above.
struct OmPivotTable::PointerVector {
 public:
  /// An entry and where it is.
  struct Found {
    unsigned long position = 0;
    void* entry = nullptr;  ///< null when nothing was found
  };

  PointerVector(PointerVector const&) = delete;
  PointerVector& operator=(PointerVector const&) = delete;

  /// A node in `region` that ends with `entry`, which may be null, at `position`.
  /// @throws std::bad_alloc.
  static PointerVector* Make(OmMemoryRegion& region, unsigned long position, void* entry);

  /// Gives back a node, but nothing that its entries lead to. Null does nothing.
  static void Release(PointerVector* node);

  /// The node that an entry above the bottom leads to; null for null.
  static PointerVector* FromEntry(void* entry) {
    return reinterpret_cast<PointerVector*>(AsBits(entry) & kAddress);
  }

  /// The entry at `position` of the node that `entry` leads to; null for null.
  static void* Look(void* entry, unsigned long position) {
    std::uintptr_t const bits = AsBits(entry);
    if ((bits & kDenseEntry) != 0 && position < bits >> kAddressBits) {
      return FromEntry(entry)->Slots()[position];
    }
    return MayHave(entry, position) ? FromEntry(entry)->Entry(position) : nullptr;
  }

  /// Whether the node that `entry` leads to may have an entry that is not null at `position`. Tells
  /// without a look at the node: false for null, and mostly for a list that has none there.
  static bool MayHave(void* entry, unsigned long position) {
    std::uintptr_t const bits = AsBits(entry);
    return (bits & kDenseEntry) != 0 || (bits >> (kAddressBits + position % kHints) & 1) != 0;
  }

  /// This node as the entry of the node above, with what Look() takes from it.
  void* AsEntry();

  /// The entry of a node that stayed where it was when an entry was added at `position`.
  static void* WithPosition(void* entry, unsigned long position) {
    std::uintptr_t const hint = std::uintptr_t{1} << (kAddressBits + position % kHints);
    std::uintptr_t const bits = AsBits(entry);
    return reinterpret_cast<void*>((bits & kDenseEntry) != 0 ? bits : bits | hint);
  }

  /// The number of entries, null or not.
  unsigned long size() const { return size_; }

  /// The number of entries that are not null. Constant time.
  unsigned long CountFilled() const { return filled_; }

  /// The entry at `position`, or null past the end.
  void* Entry(unsigned long position) const {
    return position < slots_ ? Slots()[position] : FindEntry(position);
  }

  /// Where the entry at `position` is kept; null for a null entry that takes no memory. Valid until
  /// the node changes.
  void** FindSlot(unsigned long position) {
    return position < slots_ ? &Slots()[position] : FindSparseSlot(position);
  }

  /// The first entry from `position` on that is not null.
  Found FirstFrom(unsigned long position) const {
    if (position < slots_ && Slots()[position] != nullptr) {
      return {position, Slots()[position]};
    }
    return SearchFrom(position);
  }

  /// Whether `position` is the next one of a dense node that has room for it.
  bool CanAppend(unsigned long position) const { return position == size_ && position < slots_; }

  /// Makes `entry`, which is not null, the next entry. Requires: CanAppend(size()).
  void Append(void* entry) {
    Slots()[size_++] = entry;
    ++filled_;
  }

  /// Has memory load what a walk will want some steps after `position`: in a dense node of cells a
  /// cell, in one of nodes a node and the first cells of another.
  void PrefetchAfter(unsigned long position, bool leadsToCells) const {
    if (position + kFarAhead < slots_) {
      __builtin_prefetch(FromEntry(Slots()[position + kFarAhead]));
      if (!leadsToCells) {
        PrefetchFirst(FromEntry(Slots()[position + kNearAhead]));
      }
    }
  }

  /// Makes `entry`, which may be null, the entry at `position`, after null entries where the node
  /// was shorter. Returns the node, which may have moved. Amortized constant time in a dense node;
  /// elsewhere in proportion to a page or a list.
  /// @param expected up to where the node will probably be filled; 0 when nobody knows.
  /// @throws std::bad_alloc, unless there is an entry, which is made null or replaced; nothing has
  ///         changed then.
  [[nodiscard]] PointerVector* Set(unsigned long position, void* entry, unsigned long expected = 0);

 private:
  static constexpr std::uint32_t kPaged = 0xFFFFFF00;

  // Regions have no addresses of more than 48 bits, and blocks start where 16 divides the address.
  // That leaves the upper 16 bits of an entry: of a dense node the number of its slots, as far as it
  // fits; of a list a hint for each remainder of the positions that it has.
  static constexpr unsigned int kAddressBits = 48;
  static constexpr unsigned int kHints = 16;
  static constexpr std::uintptr_t kMost = 0xFFFF;
  static constexpr std::uintptr_t kDenseEntry = 1;
  static constexpr std::uintptr_t kAddress = (std::uintptr_t{1} << kAddressBits) - 16;

  static constexpr unsigned long kNearAhead = 4;
  static constexpr unsigned long kFarAhead = 8;

  PointerVector() = default;

  /// The region that the node lies in. Looks at memory far from the node, so to be asked only by
  /// what allocates.
  OmMemoryRegion& Region() const { return *OmMemoryRegion::FindOwner(this); }

  static std::uintptr_t AsBits(void* entry) { return reinterpret_cast<std::uintptr_t>(entry); }

  static PointerVector* MakeDense(OmMemoryRegion& region, unsigned long slots, unsigned long size);
  static PointerVector* MakeList(OmMemoryRegion& region, unsigned long room, unsigned long size);
  static PointerVector* MakePaged(OmMemoryRegion& region, unsigned long size, unsigned long filled);

  bool IsDense() const { return slots_ != 0; }
  bool IsPaged() const { return room_ >= kPaged; }

  void** Slots() { return reinterpret_cast<void**>(this + 1); }
  void* const* Slots() const { return reinterpret_cast<void* const*>(this + 1); }

  /// Of a list: the positions, followed by ones past every position up to the room that there is.
  /// They come before the entries, for a search that finds nothing ends with them.
  std::uint32_t* Keys() { return reinterpret_cast<std::uint32_t*>(this + 1); }
  std::uint32_t const* Keys() const { return reinterpret_cast<std::uint32_t const*>(this + 1); }

  /// Of a list: the entries.
  void** Listed() { return Slots() + CountKeys(room_) / 2; }
  void* const* Listed() const { return Slots() + CountKeys(room_) / 2; }

  /// How many keys a list with room for `room` entries has: a number that a search without a
  /// branch takes in one step, or several.
  static constexpr unsigned long CountKeys(unsigned long room) { return room < 4 ? 4 : room; }

  /// Of a list: the number of entries before `position`.
  std::uint32_t Rank(unsigned long position) const;

  /// Of a paged node: how many bits of a position say where in its page it is. The others are the
  /// number of the page.
  unsigned int PageBits() const { return room_ - kPaged; }
  unsigned long FindPage(unsigned long position) const { return position >> PageBits(); }
  unsigned long FindPlace(unsigned long position) const {
    return position & ((1UL << PageBits()) - 1);
  }

  /// Of a paged node: the entry that leads to its directory, whose entries lead to its pages.
  void*& Directory() { return Slots()[0]; }
  void* Directory() const { return Slots()[0]; }

  static void PrefetchFirst(PointerVector const* node);

  void* FindEntry(unsigned long position) const;
  void** FindSparseSlot(unsigned long position);
  Found SearchFrom(unsigned long position) const;
  Found SearchPages(unsigned long position) const;

  PointerVector* SetSlot(unsigned long position, void* entry);
  PointerVector* SetInList(unsigned long position, void* entry, unsigned long expected);
  PointerVector* SetInPages(unsigned long position, void* entry, unsigned long expected);
  PointerVector* AddToDense(unsigned long position, void* entry, unsigned long expected);
  PointerVector* AddToList(std::uint32_t rank, unsigned long position, void* entry,
                           unsigned long expected);
  void SetInPage(void*& slot, unsigned long position, void* entry);
  void AddPage(unsigned long position, void* entry);
  PointerVector* Shrink();

  /// The entries of this node and one more in `fresh`, which takes this node's place.
  PointerVector* MoveTo(PointerVector* fresh, unsigned long position, void* entry);

  std::uint32_t slots_ = 0;   ///< of a dense node for how many entries it has slots; of others 0
  std::uint32_t size_ = 0;    ///< the number of entries
  std::uint32_t filled_ = 0;  ///< the number of entries that are not null
  std::uint32_t room_ = 0;  ///< of a list for how many entries it has memory; from kPaged on, paged
};

#endif
