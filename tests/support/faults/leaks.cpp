// Tests that leave memory behind, which the balance of memory has to notice.

#include <gtest/gtest.h>
#include <new>

#include <cells/OmMemoryRegion.h>

namespace {

void* volatile left = nullptr;

TEST(Leaks, ABlock) {
  left = ::operator new(40);
}

TEST(Leaks, ABlockOfTheDefaultHeap) {
  left = OmMemoryRegion::DefaultHeap()->Allocate(40);
}

TEST(Leaks, ARegion) {
  auto* const region = new OmMemoryRegion(false);
  left = region->Allocate(40);
}

TEST(Leaks, Nothing) {
  ::operator delete(::operator new(40));
  OmMemoryRegion::Release(OmMemoryRegion::DefaultHeap()->Allocate(40));
  OmMemoryRegion region(false);
  left = region.Allocate(40);
}

}  // namespace
