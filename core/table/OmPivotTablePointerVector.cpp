#include "table/OmPivotTablePointerVector.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <new>

#include "table/OmStorePage.h"

namespace {

using Node = OmPivotTable::PointerVector;

constexpr std::uint32_t kNoPosition = std::numeric_limits<std::uint32_t>::max();

/// How many entries a list has room for as it grows: each fills a block of the region.
constexpr unsigned long kListRooms[] = {2, 4, 8, 12, 20, 36};
constexpr unsigned long kMaxList = 36;

/// Entries that begin a node this low are probably followed by the next ones.
constexpr unsigned long kFirstSlots = 4;

// A node becomes dense when a quarter of it is filled and stays so down to a sixteenth: what takes
// entries out and puts others in does not rebuild it each time.
constexpr unsigned long kSlotsToBecomeDense = 4;
constexpr unsigned long kSlotsToGrowDense = 8;
constexpr unsigned long kSlotsToStayDense = 16;
constexpr unsigned long kAlwaysDense = 16;

constexpr unsigned long kPlaces = OmStorePage::kPlaces;

OmStorePage* AsPage(void* entry) {
  return static_cast<OmStorePage*>(entry);
}

unsigned int GetPlace(unsigned long position) {
  return static_cast<unsigned int>(position % kPlaces);
}

/// For how many slots a dense node of `size` entries that had room for `room` gets memory. Up to
/// where it will probably be filled it grows in large steps, but not past that.
unsigned long ChooseRoom(unsigned long size, unsigned long room, unsigned long expected) {
  unsigned long const step = size <= expected ? std::min(expected, 4 * room + 6) : 2 * room + 2;
  return std::max(size, step);
}

/// The room of a list that holds `count` entries, at most kMaxList.
unsigned long FindListRoom(unsigned long count) {
  return *std::lower_bound(std::begin(kListRooms), std::end(kListRooms) - 1, count);
}

}  // namespace

// Making and giving back

Node* Node::MakeDense(OmMemoryRegion& region, unsigned long slots, unsigned long size) {
  auto* const node = ::new (region.Allocate(sizeof(Node) + slots * sizeof(void*))) Node;
  node->room_ = static_cast<std::uint32_t>(slots);
  node->slots_ = node->size_ = static_cast<std::uint32_t>(size);
  std::fill_n(node->Slots(), size, nullptr);
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

Node* Node::MakePaged(OmMemoryRegion& region, unsigned long size) {
  auto* const node = ::new (region.Allocate(sizeof(Node) + sizeof(Node*))) Node;
  node->room_ = kPaged;
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
    Node* const directory = node->Directory();
    for (Found page = directory->FirstFrom(0); page.entry != nullptr;
         page = directory->FirstFrom(page.position + 1)) {
      OmMemoryRegion::Release(page.entry);
    }
    Release(directory);
  }
  OmMemoryRegion::Release(node);
}

// Reading

void* Node::AsEntry() {
  std::uintptr_t hints = (std::uintptr_t{1} << kHints) - 1;
  if (HasHints()) {
    hints = 0;
    for (std::uint32_t i = 0; i != filled_; ++i) {
      hints |= std::uintptr_t{1} << (Keys()[i] % kHints);
    }
  }
  return reinterpret_cast<void*>(reinterpret_cast<std::uintptr_t>(this) | hints << kAddressBits);
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
    return FindInPages(position);
  }
  // Without a branch, for nobody can predict where the search ends, and a wrong guess would wait
  // for memory while the next reads could be loading theirs. Past the last entry, where keys are
  // those of no position but -1 taken for one, the answer is masked out.
  std::uint32_t const rank = Rank(position);
  auto const inside = static_cast<std::uintptr_t>(rank < filled_);
  std::uint32_t const at = rank < room_ ? rank : 0;
  auto const found =
      std::uintptr_t{0} - (inside & static_cast<std::uintptr_t>(Keys()[at] == position));
  return reinterpret_cast<void*>(reinterpret_cast<std::uintptr_t>(Listed()[at]) & found);
}

void** Node::FindSparseSlot(unsigned long position) {
  if (IsDense() || position >= size_) {
    return nullptr;
  }
  if (IsPaged()) {
    OmStorePage* const page = FindPage(position);
    return page != nullptr && page->Has(GetPlace(position)) ? page->FindSlot(GetPlace(position))
                                                            : nullptr;
  }
  std::uint32_t const rank = Rank(position);
  return rank < filled_ && Keys()[rank] == position ? &Listed()[rank] : nullptr;
}

OmStorePage* Node::FindPage(unsigned long position) const {
  return Directory() != nullptr ? AsPage(Directory()->Entry(position / kPlaces)) : nullptr;
}

void* Node::FindInPages(unsigned long position) const {
  OmStorePage const* const page = FindPage(position);
  return page != nullptr ? page->Entry(GetPlace(position)) : nullptr;
}

Node::Found Node::SearchFrom(unsigned long position) const {
  if (IsPaged()) {
    return SearchPages(position);
  }
  if (IsDense()) {
    while (position < slots_ && Slots()[position] == nullptr) {
      ++position;
    }
    return position < slots_ ? Found{position, Slots()[position]} : Found();
  }
  std::uint32_t const rank = Rank(position);
  return rank < filled_ ? Found{Keys()[rank], Listed()[rank]} : Found();
}

Node::Found Node::SearchPages(unsigned long position) const {
  if (Directory() == nullptr || position >= size_) {
    return {};
  }
  Found found = Directory()->FirstFrom(position / kPlaces);
  unsigned int place = found.position == position / kPlaces ? GetPlace(position) : 0;
  while (found.entry != nullptr) {
    OmStorePage* const page = AsPage(found.entry);
    place = page->FirstFrom(place);
    if (place < kPlaces) {
      return {found.position * kPlaces + place, *page->FindSlot(place)};
    }
    found = Directory()->FirstFrom(found.position + 1);
    place = 0;
  }
  return {};
}

// Changing

Node* Node::Set(unsigned long position, void* entry, unsigned long expected) {
  if (void** const slot = FindSlot(position)) {
    if (entry == nullptr) {
      return *slot != nullptr ? Remove(position) : this;
    }
    filled_ += static_cast<std::uint32_t>(*slot == nullptr);
    *slot = entry;
    return this;
  }
  if (entry == nullptr && (position < size_ || !IsDense())) {
    size_ = std::max(size_, static_cast<std::uint32_t>(position + 1));
    return this;
  }
  if (IsDense()) {
    return AddToDense(position, entry, expected);
  }
  return IsPaged() ? AddToPages(position, entry, expected) : AddToList(position, entry, expected);
}

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
  OmMemoryRegion& region = *OmMemoryRegion::FindOwner(this);
  unsigned long const size = position + 1;
  unsigned long const filled = filled_ + (entry != nullptr ? 1UL : 0UL);
  if (size > std::max(kSlotsToGrowDense * filled, kAlwaysDense)) {
    return MoveTo(
        filled <= kMaxList ? MakeList(region, FindListRoom(filled), size) : MakePaged(region, size),
        position, entry);
  }
  Node* node = this;
  if (size > room_) {
    node = MakeDense(region, ChooseRoom(size, room_, expected), slots_);
    std::copy_n(Slots(), slots_, node->Slots());
    Release(this);
  }
  std::fill(node->Slots() + node->slots_, node->Slots() + position, nullptr);
  node->Slots()[position] = entry;
  node->slots_ = node->size_ = static_cast<std::uint32_t>(size);
  node->filled_ = static_cast<std::uint32_t>(filled);
  return node;
}

Node* Node::AddToList(unsigned long position, void* entry, unsigned long expected) {
  OmMemoryRegion& region = *OmMemoryRegion::FindOwner(this);
  unsigned long const size = std::max<unsigned long>(size_, position + 1);
  Node* node = this;
  if (filled_ == room_) {
    unsigned long const slots = room_ < kMaxList ? kSlotsToBecomeDense : kSlotsToGrowDense;
    if (size <= slots * (filled_ + 1)) {
      return MoveTo(MakeDense(region, ChooseRoom(size, size / 2, expected), size), position, entry);
    }
    if (filled_ == kMaxList) {
      return MoveTo(MakePaged(region, size), position, entry);
    }
    node = MakeList(region, FindListRoom(filled_ + 1), size);
    node->filled_ = filled_;
    std::copy_n(Listed(), filled_, node->Listed());
    std::copy_n(Keys(), filled_, node->Keys());
    Release(this);
  }
  void** const entries = node->Listed();
  std::uint32_t* const keys = node->Keys();
  std::uint32_t const rank = node->Rank(position);
  std::uint32_t const count = node->filled_;
  std::copy_backward(entries + rank, entries + count, entries + count + 1);
  std::copy_backward(keys + rank, keys + count, keys + count + 1);
  entries[rank] = entry;
  keys[rank] = static_cast<std::uint32_t>(position);
  node->filled_ = count + 1;
  node->size_ = static_cast<std::uint32_t>(size);
  return node;
}

Node* Node::AddToPages(unsigned long position, void* entry, unsigned long expected) {
  OmMemoryRegion& region = *OmMemoryRegion::FindOwner(this);
  unsigned long const size = std::max<unsigned long>(size_, position + 1);
  if (size <= kSlotsToBecomeDense * (filled_ + 1UL)) {
    return MoveTo(MakeDense(region, ChooseRoom(size, size / 2, expected), size), position, entry);
  }
  unsigned long const key = position / kPlaces;
  Node*& directory = Directory();
  void** const slot = directory != nullptr ? directory->FindSlot(key) : nullptr;
  if (slot != nullptr && *slot != nullptr) {
    *slot = AsPage(*slot)->Insert(GetPlace(position), entry);
  } else {
    OmStorePage* const page = OmStorePage::Make(region, GetPlace(position), entry);
    try {
      directory = directory != nullptr ? directory->Set(key, page, expected / kPlaces + 1)
                                       : Make(region, key, page);
    } catch (...) {
      OmMemoryRegion::Release(page);
      throw;
    }
  }
  ++filled_;
  size_ = static_cast<std::uint32_t>(size);
  return this;
}

Node* Node::Remove(unsigned long position) {
  --filled_;
  if (IsDense()) {
    Slots()[position] = nullptr;
  } else if (IsPaged()) {
    void** const slot = Directory()->FindSlot(position / kPlaces);
    OmStorePage* const page = AsPage(*slot)->Erase(GetPlace(position));
    if (page != nullptr) {
      *slot = page;
    } else {
      Directory() = Directory()->Set(position / kPlaces, nullptr);
    }
  } else {
    std::uint32_t const rank = Rank(position);
    std::copy(Listed() + rank + 1, Listed() + filled_ + 1, Listed() + rank);
    std::copy(Keys() + rank + 1, Keys() + filled_ + 1, Keys() + rank);
    Keys()[filled_] = kNoPosition;
  }
  return Shrink();
}

Node* Node::Shrink() {
  bool const sparse = IsDense() ? size_ > std::max(kSlotsToStayDense * filled_, kAlwaysDense)
                                : IsPaged() && filled_ <= kMaxList / 2;
  if (!sparse) {
    return this;
  }
  try {
    OmMemoryRegion& region = *OmMemoryRegion::FindOwner(this);
    return MoveTo(filled_ <= kMaxList / 2 ? MakeList(region, FindListRoom(filled_), size_)
                                          : MakePaged(region, size_),
                  size_ - 1, Entry(size_ - 1));
  } catch (std::bad_alloc const&) {
    return this;
  }
}
