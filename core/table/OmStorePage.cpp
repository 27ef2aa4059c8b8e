#include "table/OmStorePage.h"

#include <algorithm>
#include <new>

namespace {

/// The sizes of the blocks that pages lie in: few, so that an entry more seldom moves a page.
constexpr unsigned long kBlocks[] = {16, 32, 48, 64, 96, 128, 192, 256, 384, 520};

}  // namespace

unsigned long OmStorePage::BytesFor(unsigned int count) {
  return *std::lower_bound(std::begin(kBlocks), std::end(kBlocks) - 1, (1UL + count) * 8);
}

OmStorePage* OmStorePage::Make(OmMemoryRegion& region, unsigned int place, void* entry) {
  auto* const page = ::new (region.Allocate(BytesFor(1))) OmStorePage;
  page->bits_ = std::uint64_t{1} << place;
  page->Entries()[0] = entry;
  return page;
}

OmStorePage* OmStorePage::Insert(unsigned int place, void* entry) {
  auto const count = static_cast<unsigned int>(std::popcount(bits_));
  unsigned int const rank = Rank(place);
  OmStorePage* page = this;
  if (unsigned long const bytes = BytesFor(count + 1); bytes != BytesFor(count)) {
    page = ::new (OmMemoryRegion::FindOwner(this)->Allocate(bytes)) OmStorePage;
    std::copy_n(Entries(), rank, page->Entries());
  }
  std::copy_backward(Entries() + rank, Entries() + count, page->Entries() + count + 1);
  page->Entries()[rank] = entry;
  page->bits_ = bits_ | std::uint64_t{1} << place;
  if (page != this) {
    OmMemoryRegion::Release(this);
  }
  return page;
}

OmStorePage* OmStorePage::Erase(unsigned int place) {
  unsigned int const rank = Rank(place);
  bits_ &= ~(std::uint64_t{1} << place);
  auto const count = static_cast<unsigned int>(std::popcount(bits_));
  std::copy(Entries() + rank + 1, Entries() + count + 1, Entries() + rank);
  if (count == 0) {
    OmMemoryRegion::Release(this);
    return nullptr;
  }
  if (unsigned long const bytes = BytesFor(count); bytes != BytesFor(count + 1)) {
    try {
      auto* const page = ::new (OmMemoryRegion::FindOwner(this)->Allocate(bytes)) OmStorePage;
      page->bits_ = bits_;
      std::copy_n(Entries(), count, page->Entries());
      OmMemoryRegion::Release(this);
      return page;
    } catch (std::bad_alloc const&) {
      // The page stays in a block that is longer than it needs.
    }
  }
  return this;
}
