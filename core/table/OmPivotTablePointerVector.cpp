#include "table/OmPivotTablePointerVector.h"

#include <algorithm>
#include <bit>
#include <iterator>
#include <limits>
#include <new>

namespace {

using Node = OmPivotTable::PointerVector;

constexpr std::uint32_t kNoPosition = std::numeric_limits<std::uint32_t>::max();

/// How many entries a list has room for as it grows: each fills a block of the region.
constexpr unsigned long kListRooms[] = {2, 4, 8, 16, 36};
constexpr unsigned long kMaxList = 36;

/// A list keeps room for at most so many times its entries.
constexpr unsigned long kRoomToKeep = 4;

/// Entries that begin a node this low are probably followed by the next ones.
constexpr unsigned long kFirstSlots = 4;

// A node becomes dense when a quarter of it is filled, from eight entries on an eighth, grows while a
// twelfth is and stays dense down to a sixteenth: what puts entries in or takes them out does not
// rebuild it each time.
constexpr unsigned long kFewEntries = 8;
constexpr unsigned long kSlotsForFew = 4;
constexpr unsigned long kSlotsForMore = 8;
constexpr unsigned long kSlotsToGrowDense = 12;
constexpr unsigned long kSlotsToStayDense = 16;
constexpr unsigned long kAlwaysDense = 16;

/// One for each subscript.
constexpr unsigned long kMostSlots = 1UL << 31;

// How many entries a page has on average: when it is made, when pages have become too long, and by
// how many the pages may outnumber the entries.
constexpr unsigned long kEntriesInPage = 4;
constexpr unsigned long kMostInPage = 8;
constexpr unsigned long kPagesPerEntry = 2;
constexpr unsigned long kPagesToKeep = 8;

/// Whether a node of `size` entries is to be dense when `filled` of them are not null.
bool IsFullEnough(unsigned long size, unsigned long filled) {
  return size <= (filled <= kFewEntries ? kSlotsForFew : kSlotsForMore) * filled;
}

/// For how many slots a dense node of `size` entries that had `slots` gets memory. Up to where it
/// will probably be filled it grows in large steps, but not past that, unless that grows with it.
unsigned long ChooseSlots(unsigned long size, unsigned long slots, unsigned long expected) {
  unsigned long step = 2 * slots + 2;
  if (size <= expected) {
    unsigned long const large = 4 * slots + 6;
    step = expected <= large + large / 8 ? expected : large;
    step = std::max(step, slots + slots / 8 + 2);
  }
  return std::max(size, std::min(step, kMostSlots));
}

/// The room of a list that holds `count` entries, at most kMaxList.
unsigned long FindListRoom(unsigned long count) {
  return *std::lower_bound(std::begin(kListRooms), std::end(kListRooms) - 1, count);
}

}  // namespace

// Making and giving back

Node* Node::MakeDense(OmMemoryRegion& region, unsigned long slots, unsigned long size) {
  auto* const node = ::new (region.Allocate(sizeof(Node) + slots * sizeof(void*))) Node;
  node->slots_ = static_cast<std::uint32_t>(slots);
  node->size_ = static_cast<std::uint32_t>(size);
  std::fill_n(node->Slots(), slots, nullptr);
  return node;
}

Node* Node::MakeList(OmMemoryRegion& region, unsigned long room, unsigned long size) {
  unsigned long const keys = CountKeys(room);
  auto* const node =
      ::new (region.Allocate(sizeof(Node) + room * sizeof(void*) + keys * sizeof(std::uint32_t)))
          Node;
  node->room_ = static_cast<std::uint32_t>(room);
  node->size_ = static_cast<std::uint32_t>(size);
  std::fill_n(node->Keys(), keys, kNoPosition);
  return node;
}

Node* Node::MakePaged(OmMemoryRegion& region, unsigned long size, unsigned long filled) {
  auto* const node = ::new (region.Allocate(sizeof(Node) + sizeof(void*))) Node;
  node->room_ = kPaged + static_cast<std::uint32_t>(std::bit_width(kEntriesInPage * size / filled));
  node->size_ = static_cast<std::uint32_t>(size);
  node->Directory() = nullptr;
  return node;
}

Node* Node::Make(OmMemoryRegion& region, unsigned long position, void* entry) {
  Node* const node = position < kFirstSlots ? MakeDense(region, kFirstSlots, position + 1)
                                            : MakeList(region, kListRooms[0], position + 1);
  return entry != nullptr ? node->Set(position, entry) : node;
}

void Node::Release(Node* node) {
  if (node != nullptr && node->IsPaged() && node->Directory() != nullptr) {
    Node* const directory = FromEntry(node->Directory());
    for (Found page = directory->FirstFrom(0); page.entry != nullptr;
         page = directory->FirstFrom(page.position + 1)) {
      Release(FromEntry(page.entry));
    }
    Release(directory);
  }
  OmMemoryRegion::Release(node);
}

// Reading

void* Node::AsEntry() {
  std::uintptr_t says = kMost;
  if (IsDense()) {
    says = std::min<std::uintptr_t>(slots_, kMost);
  } else if (!IsPaged()) {
    says = 0;
    for (std::uint32_t i = 0; i != filled_; ++i) {
      says |= std::uintptr_t{1} << (Keys()[i] % kHints);
    }
  }
  return reinterpret_cast<void*>(reinterpret_cast<std::uintptr_t>(this) | says << kAddressBits |
                                 (IsDense() ? kDenseEntry : 0));
}

std::uint32_t Node::Rank(unsigned long position) const {
  std::uint32_t const* const keys = Keys();
  std::uint32_t rank = 0;
  std::uint32_t i = 0;
  do {
    for (std::uint32_t const last = i + 4; i != last; ++i) {
      rank += static_cast<std::uint32_t>(keys[i] < position);
    }
  } while (i < room_);
  return rank;
}

void* Node::FindEntry(unsigned long position) const {
  if (IsDense()) {
    return nullptr;
  }
  if (IsPaged()) {
    return Look(Look(Directory(), FindPage(position)), FindPlace(position));
  }
  // Without a branch, for nobody can predict where the search ends, and a wrong guess would wait
  // for memory while the next reads could be loading theirs. The answer is masked out past the
  // last entry, where an unused key would be that of a subscript of -1.
  std::uint32_t const rank = Rank(position);
  auto const inside = static_cast<std::uintptr_t>(rank < filled_);
  std::uint32_t const at = rank < room_ ? rank : 0;
  auto const found =
      std::uintptr_t{0} - (inside & static_cast<std::uintptr_t>(Keys()[at] == position));
  return reinterpret_cast<void*>(AsBits(Listed()[at]) & found);
}

void** Node::FindSparseSlot(unsigned long position) {
  if (IsDense() || position >= size_) {
    return nullptr;
  }
  if (IsPaged()) {
    Node* const page = FromEntry(Look(Directory(), FindPage(position)));
    return page != nullptr ? page->FindSlot(FindPlace(position)) : nullptr;
  }
  std::uint32_t const rank = Rank(position);
  return rank < filled_ && Keys()[rank] == position ? &Listed()[rank] : nullptr;
}

Node::Found Node::SearchFrom(unsigned long position) const {
  if (IsPaged()) {
    return SearchPages(position);
  }
  if (IsDense()) {
    while (position < size_ && Slots()[position] == nullptr) {
      ++position;
    }
    return position < size_ ? Found{position, Slots()[position]} : Found();
  }
  std::uint32_t const rank = Rank(position);
  return rank < filled_ ? Found{Keys()[rank], Listed()[rank]} : Found();
}

Node::Found Node::SearchPages(unsigned long position) const {
  if (position >= size_) {
    return {};
  }
  Node const* const directory = FromEntry(Directory());
  Found page = directory->FirstFrom(FindPage(position));
  unsigned long place = page.position == FindPage(position) ? FindPlace(position) : 0;
  for (; page.entry != nullptr; page = directory->FirstFrom(page.position + 1), place = 0) {
    Found const found = FromEntry(page.entry)->FirstFrom(place);
    if (found.entry != nullptr) {
      if (place == 0) {
        directory->PrefetchAfter(page.position, false);
      }
      return {(page.position << PageBits()) + found.position, found.entry};
    }
  }
  return {};
}

void Node::PrefetchFirst(Node const* node) {
  if (node != nullptr && node->filled_ != 0 && !node->IsPaged()) {
    void* const* const entries = node->IsDense() ? node->Slots() : node->Listed();
    __builtin_prefetch(FromEntry(entries[0]));
    if (node->filled_ != 1) {
      __builtin_prefetch(FromEntry(entries[1]));
    }
  }
}

// Changing

Node* Node::Set(unsigned long position, void* entry, unsigned long expected) {
  if (position < slots_) {
    return SetSlot(position, entry);
  }
  if (IsDense()) {
    return AddToDense(position, entry, expected);
  }
  return IsPaged() ? SetInPages(position, entry, expected) : SetInList(position, entry, expected);
}

Node* Node::SetSlot(unsigned long position, void* entry) {
  void*& slot = Slots()[position];
  bool const removes = slot != nullptr && entry == nullptr;
  filled_ += static_cast<std::uint32_t>(slot == nullptr && entry != nullptr);
  filled_ -= static_cast<std::uint32_t>(removes);
  slot = entry;
  size_ = std::max(size_, static_cast<std::uint32_t>(position + 1));
  return removes ? Shrink() : this;
}

Node* Node::SetInList(unsigned long position, void* entry, unsigned long expected) {
  std::uint32_t const rank = Rank(position);
  bool const has = rank < filled_ && Keys()[rank] == position;
  if (!has && entry != nullptr) {
    return AddToList(rank, position, entry, expected);
  }
  size_ = std::max(size_, static_cast<std::uint32_t>(position + 1));
  if (has && entry != nullptr) {
    Listed()[rank] = entry;
  } else if (has) {
    --filled_;
    std::copy(Listed() + rank + 1, Listed() + filled_ + 1, Listed() + rank);
    std::copy(Keys() + rank + 1, Keys() + filled_ + 1, Keys() + rank);
    Keys()[filled_] = kNoPosition;
    return Shrink();
  }
  return this;
}

Node* Node::SetInPages(unsigned long position, void* entry, unsigned long expected) {
  unsigned long const size = std::max(static_cast<unsigned long>(size_), position + 1);
  bool const grows = entry != nullptr && position >= size_;
  if (grows && FindPage(position) > kPagesPerEntry * (filled_ + 1UL)) {
    return MoveTo(MakePaged(Region(), size, filled_ + 1UL), position, entry);
  }
  Node* const directory = FromEntry(Directory());
  void** const slot = directory != nullptr ? directory->FindSlot(FindPage(position)) : nullptr;
  if (slot != nullptr && *slot != nullptr) {
    SetInPage(*slot, position, entry);
  } else if (entry != nullptr) {
    AddPage(position, entry);
  }
  size_ = static_cast<std::uint32_t>(size);
  if (entry == nullptr) {
    return Shrink();
  }
  bool const full = IsFullEnough(size, filled_);
  if (!full && filled_ <= kMostInPage * (FindPage(size) + 1)) {
    return this;
  }
  try {
    return MoveTo(full ? MakeDense(Region(), ChooseSlots(size, size / 2, expected), size)
                       : MakePaged(Region(), size, filled_),
                  position, entry);
  } catch (std::bad_alloc const&) {
    return this;  // as good, but slower
  }
}

/// Sets an entry of the page that `slot` leads to. A page that is empty then goes.
void Node::SetInPage(void*& slot, unsigned long position, void* entry) {
  Node* const page = FromEntry(slot);
  unsigned long const place = FindPlace(position);
  if (entry == nullptr && page->Entry(place) == nullptr) {
    return;
  }
  std::uint32_t const before = page->filled_;
  Node* const changed = page->Set(place, entry);
  filled_ += changed->filled_ - before;
  slot = changed == page ? WithPosition(slot, place) : changed->AsEntry();
  if (changed->filled_ == 0) {
    Directory() = FromEntry(Directory())->Set(FindPage(position), nullptr)->AsEntry();
    Release(changed);
  }
}

/// Adds a page with its first entry.
void Node::AddPage(unsigned long position, void* entry) {
  Node* const page = Make(Region(), FindPlace(position), entry);
  Node* directory = FromEntry(Directory());
  unsigned long const number = FindPage(position);
  try {
    directory = directory != nullptr ? directory->Set(number, page->AsEntry(), FindPage(size_) + 1)
                                     : Make(Region(), number, page->AsEntry());
  } catch (...) {
    Release(page);
    throw;
  }
  Directory() = directory->AsEntry();
  ++filled_;
}

/// The entries of this node and one more in `fresh`, which takes this node's place.
Node* Node::MoveTo(Node* fresh, unsigned long position, void* entry) {
  try {
    for (Found found = FirstFrom(0); found.entry != nullptr;
         found = FirstFrom(found.position + 1)) {
      fresh = fresh->Set(found.position, found.entry, size_);
    }
    fresh = fresh->Set(position, entry, size_);
  } catch (...) {
    Release(fresh);
    throw;
  }
  Release(this);
  return fresh;
}

Node* Node::AddToDense(unsigned long position, void* entry, unsigned long expected) {
  unsigned long const size = position + 1;
  unsigned long const filled = filled_ + (entry != nullptr ? 1UL : 0UL);
  if (size > std::max(kSlotsToGrowDense * filled, kAlwaysDense)) {
    return MoveTo(filled <= kMaxList ? MakeList(Region(), FindListRoom(filled), size)
                                     : MakePaged(Region(), size, filled),
                  position, entry);
  }
  Node* const node = MakeDense(Region(), ChooseSlots(size, slots_, expected), size);
  std::copy_n(Slots(), size_, node->Slots());
  node->Slots()[position] = entry;
  node->filled_ = static_cast<std::uint32_t>(filled);
  Release(this);
  return node;
}

/// Adds an entry of which `rank` others come before.
Node* Node::AddToList(std::uint32_t rank, unsigned long position, void* entry,
                      unsigned long expected) {
  unsigned long const size = std::max<unsigned long>(size_, position + 1);
  Node* node = this;
  if (filled_ == room_) {
    if (IsFullEnough(size, filled_ + 1UL)) {
      return MoveTo(MakeDense(Region(), ChooseSlots(size, size / 2, expected), size), position,
                    entry);
    }
    if (filled_ == kMaxList) {
      return MoveTo(MakePaged(Region(), size, filled_ + 1UL), position, entry);
    }
    node = MakeList(Region(), FindListRoom(filled_ + 1), size);
    for (std::uint32_t i = 0; i != rank; ++i) {
      node->Keys()[i] = Keys()[i];
      node->Listed()[i] = Listed()[i];
    }
  }
  // Lists are short, too short for a call of the library that moves memory.
  for (std::uint32_t i = filled_; i != rank; --i) {
    node->Keys()[i] = Keys()[i - 1];
    node->Listed()[i] = Listed()[i - 1];
  }
  node->Keys()[rank] = static_cast<std::uint32_t>(position);
  node->Listed()[rank] = entry;
  node->filled_ = filled_ + 1;
  node->size_ = static_cast<std::uint32_t>(size);
  if (node != this) {
    Release(this);
  }
  return node;
}

/// Another form where so few entries are left that they take too much memory in this one.
Node* Node::Shrink() {
  bool const few = filled_ <= kMaxList / 2;
  bool sparse = false;
  if (IsDense()) {
    sparse = slots_ > std::max(kSlotsToStayDense * filled_, kAlwaysDense);
  } else if (IsPaged()) {
    sparse = few || FindPage(size_) > kPagesToKeep * filled_;
  } else {
    sparse = room_ > kListRooms[0] && kRoomToKeep * filled_ <= room_;
  }
  if (!sparse) {
    return this;
  }
  try {
    return MoveTo(few ? MakeList(Region(), FindListRoom(filled_), size_)
                      : MakePaged(Region(), size_, filled_),
                  size_ - 1, Entry(size_ - 1));
  } catch (std::bad_alloc const&) {
    return this;
  }
}
