#ifndef LAKRESVOS_CORE_TABLE_OMPIVOTTABLEPOINTERVECTOR_H
#define LAKRESVOS_CORE_TABLE_OMPIVOTTABLEPOINTERVECTOR_H

#include <cstdint>

#include <cells/OmMemoryRegion.h>
#include <lakresvos/OmPivotTable.h>

class OmStorePage;

/// One node of the cell store: entries at positions from 0 on, each of them null, a node of the next
/// level (see FromEntry()) or, at the bottom, a cell.
///
/// To whoever asks, a node is a vector of pointers that is as long as the largest position written.
/// It keeps them in the form that suits their number:
///
/// - dense, a slot per position, while at least every eighth or so holds something: one test and one
///   step lead to the entry, so that a full table is read like an array;
/// - a list, the positions in order and then their entries, while there are at most 36: most nodes
///   of a sparse table have two or three;
/// - paged in between: OmStorePages of 64 positions, in a directory that is such a node itself and
///   therefore sparse where the pages are.
///
/// Why all this: a table of a few dimensions has millions of combinations, of which one per cent
/// is used or all of them are, and nobody says beforehand. A vector alone needs memory for the
/// largest subscript in each branch; a hash table alone has no order and costs as much for each cell
/// of a full table as for one of an empty.
///
/// Why hints in the entries of nodes: reading an index without a cell, which a renderer does for each
/// empty place, would else end with a look at a node that nothing has been loaded of yet.
///
/// The slots lie in the node's own block, after its header: a step down the tree loads one line of
/// memory instead of two. A node that needs another form or more room therefore moves, and what
/// changes a node returns where it is now, for the caller to put into the entry above.
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
    return reinterpret_cast<PointerVector*>(reinterpret_cast<std::uintptr_t>(entry) & kAddress);
  }

  /// Whether the node that `entry` leads to may have an entry that is not null at `position`. Tells
  /// without a look at the node: false for null, and mostly for a list that has none there.
  static bool MayHave(void* entry, unsigned long position) {
    return (reinterpret_cast<std::uintptr_t>(entry) >> (kAddressBits + position % kHints) & 1) != 0;
  }

  /// This node as the entry of the node above. It says which positions the node may have.
  void* AsEntry();

  /// Whether AsEntry() says more than that the node may have any position, and has to be asked again
  /// after each change.
  bool HasHints() const { return !IsDense() && !IsPaged(); }

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
  bool CanAppend(unsigned long position) const {
    return position == slots_ && position < room_ && IsDense();
  }

  /// Makes `entry`, which is not null, the next entry. Requires: CanAppend(size()).
  void Append(void* entry) {
    Slots()[slots_++] = entry;
    ++size_;
    ++filled_;
  }

  /// Makes `entry`, which may be null, the entry at `position`, after null entries where the node
  /// was shorter. Returns the node, which may have moved. Amortized constant time in a dense node;
  /// elsewhere in proportion to a page or a list.
  /// @param expected up to where the node will probably be filled; 0 when nobody knows.
  /// @throws std::bad_alloc, unless an entry is made null or replaced; nothing has changed then.
  [[nodiscard]] PointerVector* Set(unsigned long position, void* entry, unsigned long expected = 0);

 private:
  static constexpr std::uint32_t kPaged = 0xFFFFFFFF;

  // Regions have no addresses of more than 48 bits. The upper 16 of an entry are hints: one for
  // each remainder of the positions that the node below has.
  static constexpr unsigned int kAddressBits = 48;
  static constexpr unsigned int kHints = 16;
  static constexpr std::uintptr_t kAddress = (std::uintptr_t{1} << kAddressBits) - 1;

  PointerVector() = default;

  static PointerVector* MakeDense(OmMemoryRegion& region, unsigned long slots, unsigned long size);
  static PointerVector* MakeList(OmMemoryRegion& region, unsigned long room, unsigned long size);
  static PointerVector* MakePaged(OmMemoryRegion& region, unsigned long size);

  bool IsDense() const { return slots_ != 0; }
  bool IsPaged() const { return room_ == kPaged && !IsDense(); }

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

  /// Of a paged node: its directory, whose entries are OmStorePages.
  PointerVector*& Directory() { return *reinterpret_cast<PointerVector**>(Slots()); }
  PointerVector const* Directory() const {
    return *reinterpret_cast<PointerVector* const*>(Slots());
  }

  void* FindEntry(unsigned long position) const;
  void* FindInPages(unsigned long position) const;
  OmStorePage* FindPage(unsigned long position) const;
  void** FindSparseSlot(unsigned long position);
  Found SearchFrom(unsigned long position) const;
  Found SearchPages(unsigned long position) const;

  PointerVector* Add(unsigned long position, void* entry, unsigned long expected);
  PointerVector* AddToDense(unsigned long position, void* entry, unsigned long expected);
  PointerVector* AddToList(unsigned long position, void* entry, unsigned long expected);
  PointerVector* AddToPages(unsigned long position, void* entry, unsigned long expected);
  PointerVector* Remove(unsigned long position);
  PointerVector* Shrink();

  /// The entries of this node and one more in `fresh`, which takes this node's place.
  PointerVector* MoveTo(PointerVector* fresh, unsigned long position, void* entry);

  std::uint32_t slots_ = 0;   ///< of a dense node the number of entries, of others 0
  std::uint32_t size_ = 0;    ///< the number of entries
  std::uint32_t filled_ = 0;  ///< the number of entries that are not null
  std::uint32_t room_ = 0;    ///< for how many entries there is memory; kPaged in a paged node
};

#endif
