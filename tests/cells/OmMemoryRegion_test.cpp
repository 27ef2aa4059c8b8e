#include <cells/OmMemoryRegion.h>
// This header comes first to show that it is self-contained.
#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <map>
#include <memory>
#include <new>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

#include <cells/OmStringCell.h>

#include "support/Property.h"
#include "support/faults/FailingNew.h"

static_assert(!std::is_copy_constructible_v<OmMemoryRegion>);
static_assert(!std::is_copy_assignable_v<OmMemoryRegion>);
static_assert(!std::is_polymorphic_v<OmMemoryRegion>);
static_assert(!std::is_convertible_v<bool, OmMemoryRegion>);

namespace {

constexpr unsigned long kChunk = 64 << 10;

bool IsAligned(void const* block) {
  return reinterpret_cast<std::uintptr_t>(block) % 16 == 0;
}

/// The rounded size of a block, computed step by step.
unsigned long RoundedSize(unsigned long size) {
  unsigned long rounded = 16;
  while (rounded < size && rounded < 256) {
    rounded += 16;
  }
  for (unsigned long power = 256; rounded < size && power < kChunk / 4; power *= 2) {
    for (int quarter = 1; quarter <= 4 && rounded < size; ++quarter) {
      rounded = power + power / 4 * static_cast<unsigned long>(quarter);
    }
  }
  return rounded < size ? (size + 15) / 16 * 16 : rounded;
}

struct RegionTest : testing::Test {
  OmMemoryRegion region{false};
};

TEST_F(RegionTest, HoldsNothingUntilTheFirstBlock) {
  EXPECT_EQ(region.BytesInUse(), 0U);
  EXPECT_EQ(region.BytesReserved(), 0U);
}

TEST_F(RegionTest, HoldsItsBlocksAndNothingElse) {
  OmMemoryRegion other(false);
  std::vector<std::pair<char*, unsigned long>> blocks;
  for (unsigned long size = 1; size < 8 * kChunk; size += size / 2 + 1) {
    blocks.emplace_back(static_cast<char*>(region.Allocate(size)), size);
    other.Allocate(size);
  }
  for (auto const& [block, size] : blocks) {
    EXPECT_EQ(OmMemoryRegion::FindRegion(block), &region);
    EXPECT_EQ(OmMemoryRegion::FindRegion(block + std::min(size, kChunk / 2) - 1), &region);
  }
  int onTheStack = 0;
  static int const inTheProgram = 0;
  auto const onTheHeap = std::make_unique<int>();
  EXPECT_EQ(OmMemoryRegion::FindRegion(&onTheStack), nullptr);
  EXPECT_EQ(OmMemoryRegion::FindRegion(&inTheProgram), nullptr);
  EXPECT_EQ(OmMemoryRegion::FindRegion(onTheHeap.get()), nullptr);
  EXPECT_EQ(OmMemoryRegion::FindRegion(nullptr), nullptr);
  EXPECT_EQ(OmMemoryRegion::FindRegion(reinterpret_cast<void const*>(~std::uintptr_t{0})), nullptr);
}

TEST(Region, HoldsNothingAfterItsEnd) {
  std::vector<void*> blocks;
  {
    OmMemoryRegion region(false);
    for (int i = 0; i < 100; ++i) {
      blocks.push_back(region.Allocate(i % 2 == 0 ? kChunk / 4 : kChunk));
    }
    OmMemoryRegion::Release(blocks[1]);
    EXPECT_EQ(OmMemoryRegion::FindRegion(blocks[1]), nullptr) << "a block that stood alone";
  }
  for (void const* block : blocks) {
    EXPECT_EQ(OmMemoryRegion::FindRegion(block), nullptr);
  }
}

TEST_F(RegionTest, WhatFollowsABlockThatStandsAloneIsNotHeld) {
  auto const chunkOf = [](void const* block) {
    return reinterpret_cast<std::uintptr_t>(block) / kChunk;
  };
  std::vector<std::unique_ptr<char[]>> foreign;
  for (unsigned long const size : {kChunk / 4 + 1, kChunk / 2, kChunk - 4096, kChunk * 3 / 2}) {
    unsigned long const reserved = region.BytesReserved();
    auto* const block = static_cast<char*>(region.Allocate(size));
    EXPECT_GE(region.BytesReserved() - reserved, std::max(size, kChunk));
    EXPECT_EQ(OmMemoryRegion::FindRegion(block), &region);
    EXPECT_EQ(OmMemoryRegion::FindRegion(block + std::min(size, kChunk / 2) - 1), &region);
    for (int i = 0; i < 256; ++i) {
      foreign.push_back(std::make_unique<char[]>(1024));
      EXPECT_NE(chunkOf(foreign.back().get()), chunkOf(block)) << size;
      EXPECT_EQ(OmMemoryRegion::FindRegion(foreign.back().get()), nullptr);
    }
  }
}

TEST_F(RegionTest, ABlockThatStandsAloneStartsAfterItsHeaderAndEndsWhereItsMemoryEnds) {
  for (unsigned long const size : {kChunk, kChunk + 16, kChunk * 3 / 2, kChunk * 40}) {
    OmMemoryRegion alone(false);
    void const* const block = alone.Allocate(size);
    unsigned long const header = alone.BytesReserved() - size;
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block) % kChunk, header) << size;
    EXPECT_LT(header, 1024U) << size;
    EXPECT_EQ(alone.BytesInUse(), size);
  }
}

TEST_F(RegionTest, SizeZeroCountsAsOne) {
  void* block = region.Allocate(0);
  ASSERT_NE(block, nullptr);
  EXPECT_TRUE(IsAligned(block));
  EXPECT_EQ(region.BytesInUse(), 16U);
  EXPECT_NE(region.Allocate(0), block);
}

TEST_F(RegionTest, ReleasingNullDoesNothing) {
  OmMemoryRegion::Release(nullptr);
  EXPECT_EQ(region.BytesInUse(), 0U);
}

TEST_F(RegionTest, EverySizeIsAlignedWritableAndRoundedAsDocumented) {
  for (unsigned long size = 1; size <= 20000; ++size) {
    unsigned long const before = region.BytesInUse();
    void* block = region.Allocate(size);
    std::memset(block, 0xA5, size);
    ASSERT_TRUE(IsAligned(block)) << size;
    ASSERT_EQ(region.BytesInUse() - before, RoundedSize(size)) << size;
    ASSERT_EQ(OmMemoryRegion::FindOwner(block), &region) << size;
    OmMemoryRegion::Release(block);
    ASSERT_EQ(region.BytesInUse(), before) << size;
  }
}

TEST_F(RegionTest, ACellOfUpTo64BytesCostsAtMost8MoreThanItsSize) {
  for (unsigned long size = 8; size <= 64; size += 8) {
    unsigned long const before = region.BytesInUse();
    region.Allocate(size);
    EXPECT_LE(region.BytesInUse() - before, size + 8);
  }
}

TEST_F(RegionTest, ManyBlocksOfOneSizeReserveLittleMoreThanTheirSizes) {
  for (int i = 0; i < 100000; ++i) {
    region.Allocate(32);
  }
  EXPECT_EQ(region.BytesInUse(), 3200000U);
  EXPECT_LE(region.BytesReserved(), 3200000U * 4 / 3);
}

TEST_F(RegionTest, ARegionGrowsInLargerStepsTheLargerItIsUpToAHugePage) {
  constexpr unsigned long kHugePage = 2UL << 20;
  unsigned long largest = 0;
  while (region.BytesReserved() < 32 * kHugePage) {
    unsigned long const before = region.BytesReserved();
    region.Allocate(256);
    if (unsigned long const step = region.BytesReserved() - before; step != 0) {
      EXPECT_EQ(step % kChunk, 0U);
      EXPECT_GE(step, std::min(std::max(before / 8, kChunk), kHugePage)) << before;
      EXPECT_LE(step, std::max(before / 2, kChunk)) << before;
      largest = std::max(largest, step);
    }
  }
  EXPECT_EQ(largest, kHugePage);
}

TEST_F(RegionTest, OneBlockOfEverySharedSizeFitsIntoFewChunks) {
  for (unsigned long size = 16; size <= 1024; size = RoundedSize(size + 1)) {
    region.Allocate(size);
  }
  EXPECT_EQ(region.BytesReserved(), kChunk);
}

TEST_F(RegionTest, BlocksOfOneSizeLieInOrderOfAllocation) {
  auto* previous = static_cast<char*>(region.Allocate(48));
  int neighbors = 0;
  for (int i = 1; i < 1000; ++i) {
    region.Allocate(100);
    auto* next = static_cast<char*>(region.Allocate(48));
    neighbors += next == previous + 48 ? 1 : 0;
    previous = next;
  }
  EXPECT_GE(neighbors, 980);
}

TEST_F(RegionTest, ReleasedBlocksAreHandedOutAgainLastFirst) {
  for (unsigned long size : {24UL, 300UL, 5000UL}) {
    void* first = region.Allocate(size);
    void* second = region.Allocate(size);
    unsigned long const reserved = region.BytesReserved();
    OmMemoryRegion::Release(first);
    OmMemoryRegion::Release(second);
    EXPECT_EQ(region.Allocate(size), second);
    EXPECT_EQ(region.Allocate(size), first);
    EXPECT_EQ(region.BytesReserved(), reserved);
  }
}

TEST_F(RegionTest, TheLargestSharedSizeStaysWhenReleased) {
  void* block = region.Allocate(kChunk / 4);
  OmMemoryRegion::Release(block);
  EXPECT_EQ(region.BytesReserved(), kChunk);
}

TEST_F(RegionTest, ABlockOverAQuarterChunkGoesBackWhenReleased) {
  void* block = region.Allocate(kChunk / 4 + 1);
  std::memset(block, 1, kChunk / 4 + 1);
  EXPECT_EQ(region.BytesInUse(), kChunk / 4 + 16);
  EXPECT_GE(region.BytesReserved(), region.BytesInUse());
  OmMemoryRegion::Release(block);
  EXPECT_EQ(region.BytesInUse(), 0U);
  EXPECT_EQ(region.BytesReserved(), 0U);
}

TEST_F(RegionTest, LoneBlocksGoBackInAnyOrder) {
  std::vector<void*> blocks;
  for (int i = 0; i < 5; ++i) {
    blocks.push_back(region.Allocate(100000));
  }
  for (std::size_t i : {2UL, 0UL, 4UL, 3UL, 1UL}) {
    OmMemoryRegion::Release(blocks[i]);
  }
  EXPECT_EQ(region.BytesReserved(), 0U);
}

TEST_F(RegionTest, AnAbsurdSizeIsRefusedAndChangesNothing) {
  unsigned long const most = std::numeric_limits<unsigned long>::max();
  for (unsigned long size : {most, most - 15, most - kChunk, most / 2, (1UL << 40) + 1}) {
    EXPECT_THROW(region.Allocate(size), std::bad_alloc);
  }
  EXPECT_EQ(region.BytesReserved(), 0U);
  EXPECT_NE(region.Allocate(1), nullptr);
}

TEST_F(RegionTest, WithoutWorkingReleaseBlocksAreNotTakenBack) {
  void* small = region.Allocate(40);
  void* large = region.Allocate(50000);
  unsigned long const inUse = region.BytesInUse();
  region.WorkingRelease(false);
  OmMemoryRegion::Release(small);
  OmMemoryRegion::Release(large);
  EXPECT_EQ(region.BytesInUse(), inUse);
  EXPECT_NE(region.Allocate(40), small);
}

TEST_F(RegionTest, WorkingReleaseCanBeSwitchedOnAgain) {
  region.WorkingRelease(false);
  region.WorkingRelease(true);
  void* block = region.Allocate(40);
  OmMemoryRegion::Release(block);
  EXPECT_EQ(region.Allocate(40), block);
}

TEST_F(RegionTest, ARefusedChunkLeavesTheRegionUsable) {
  std::size_t const failures = FailEveryAllocation(
      [&] {
        region.Allocate(100);
        region.Allocate(70000);
      },
      [&] { EXPECT_LE(region.BytesInUse(), 112U * 8); });
  EXPECT_GE(failures, 6U);
}

TEST(OmMemoryRegionProbe, SeesEveryRequestOfEveryRegionAndMayRefuseIt) {
  static std::vector<unsigned long> seen;
  OmMemoryRegion one(false);
  OmMemoryRegion two(true);
  one.Allocate(24);
  seen.clear();
  OmMemoryRegion::setAllocationProbe([](unsigned long size) {
    seen.push_back(size);
    if (size == 7) {
      throw std::bad_alloc();
    }
  });
  one.Allocate(24);
  two.Allocate(1000);
  one.Allocate(40000);
  EXPECT_THROW(one.Allocate(7), std::bad_alloc);
  OmMemoryRegion::setAllocationProbe(nullptr);
  one.Allocate(7);
  EXPECT_EQ(seen, (std::vector<unsigned long>{24, 1000, 40000, 7}));
  EXPECT_EQ(one.BytesInUse(), 32U + 32 + 40000 + 16);
  std::vector<unsigned long>().swap(seen);
}

TEST(OmMemoryRegionDefaultHeap, IsOneSharedRegionThatTakesBlocksBack) {
  OmMemoryRegion* heap = OmMemoryRegion::DefaultHeap();
  EXPECT_EQ(heap, OmMemoryRegion::DefaultHeap());
  unsigned long const before = heap->BytesInUse();
  void* block = heap->Allocate(100);
  EXPECT_EQ(heap->BytesInUse(), before + 112);
  EXPECT_EQ(OmMemoryRegion::FindOwner(block), heap);
  OmMemoryRegion::Release(block);
  EXPECT_EQ(heap->BytesInUse(), before);
}

TEST(OmMemoryRegionDefaultHeap, CountsTheSmallBlocksOfSeveralThreads) {
  OmMemoryRegion* const heap = OmMemoryRegion::DefaultHeap();
  unsigned long const before = heap->BytesInUse();
  std::atomic<int> ready = 0;
  auto const work = [&] {
    for (++ready; ready != 2;) {  // what starts later might find the other one done
    }
    for (int round = 0; round < 1'000'000; ++round) {
      OmMemoryRegion::Release(heap->Allocate(16));
    }
  };
  std::thread one(work);
  std::thread two(work);
  one.join();
  two.join();
  EXPECT_EQ(heap->BytesInUse(), before);
}

TEST(OmMemoryRegionDefaultHeap, ServesSeveralThreadsAtOnce) {
  auto work = [](unsigned char mark) {
    std::vector<unsigned char*> blocks;
    for (unsigned int round = 0; round < 20000; ++round) {
      unsigned long const size = 1 + round * 37 % (round % 500 == 0 ? 40000 : 600);
      auto* block = static_cast<unsigned char*>(OmMemoryRegion::DefaultHeap()->Allocate(size));
      block[0] = mark;
      block[size - 1] = mark;
      blocks.push_back(block);
      if (round % 3 != 0) {
        std::size_t const victim = round * 7919 % blocks.size();
        EXPECT_EQ(blocks[victim][0], mark);
        OmMemoryRegion::Release(blocks[victim]);
        blocks[victim] = blocks.back();
        blocks.pop_back();
      }
    }
    for (unsigned char* block : blocks) {
      EXPECT_EQ(block[0], mark);
      OmMemoryRegion::Release(block);
    }
  };
  unsigned long const before = OmMemoryRegion::DefaultHeap()->BytesInUse();
  std::vector<std::thread> threads;
  for (unsigned char mark = 1; mark <= 4; ++mark) {
    threads.emplace_back(work, mark);
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  EXPECT_EQ(OmMemoryRegion::DefaultHeap()->BytesInUse(), before);
}

TEST(Region, AThreadMayReleaseABlockThatStandsAloneWhileAnotherMakesCellsBesideIt) {
  for (unsigned long const size : {kChunk / 4 + 1, kChunk / 2, kChunk - 4096}) {
    OmMemoryRegion region(false);
    void* const block = region.Allocate(size);
    // Enough other memory to fill what the system has left beside the block.
    std::vector<std::unique_ptr<char[]>> foreign;
    for (int i = 0; i < 256; ++i) {
      foreign.push_back(std::make_unique<char[]>(i % 16 == 0 ? kChunk + size : 1024));
    }
    std::thread owner([&] {
      // Late, so that the cells are made before; that alone is no order between the threads.
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
      OmMemoryRegion::Release(block);
    });
    for (auto const& memory : foreign) {
      auto* const cell = ::new (static_cast<void*>(memory.get())) OmStringCell("a text");
      EXPECT_EQ(cell->GetText(), "a text");
      EXPECT_EQ(OmMemoryRegion::FindRegion(cell), nullptr);
      cell->~OmStringCell();
    }
    owner.join();
  }
}

/// Random requests and releases against a plain map of the live blocks.
void CompareWithModel(OmMemoryRegion& region) {
  struct Live {
    unsigned long size;
    unsigned char mark;
  };
  std::map<unsigned char*, Live> live;
  unsigned long inUse = 0;
  auto const steps = *rc::gen::container<std::vector<std::pair<int, unsigned int>>>(
      300, rc::gen::pair(rc::gen::inRange(0, 10), rc::gen::arbitrary<unsigned int>()));
  unsigned char mark = 0;
  for (auto const& [kind, random] : steps) {
    if (kind < 6 || live.empty()) {
      unsigned long const limit = kind == 0 ? 40000 : kind < 3 ? 3000 : 300;
      unsigned long const size = random % limit;
      auto* block = static_cast<unsigned char*>(region.Allocate(size));
      RC_ASSERT(IsAligned(block));
      auto const after = live.lower_bound(block);
      bool const clear_of_next = after == live.end() || block + size <= after->first;
      bool const clear_of_previous =
          after == live.begin() || std::prev(after)->first + std::prev(after)->second.size <= block;
      RC_ASSERT(clear_of_next);
      RC_ASSERT(clear_of_previous);
      std::memset(block, ++mark, size);
      live[block] = {size, mark};
      inUse += RoundedSize(size);
    } else {
      auto const victim = std::next(live.begin(), static_cast<long>(random % live.size()));
      unsigned char* const bytes = victim->first;
      Live const block = victim->second;
      bool const untouched = std::all_of(bytes, bytes + block.size,
                                         [&](unsigned char byte) { return byte == block.mark; });
      RC_ASSERT(untouched);
      inUse -= RoundedSize(block.size);
      OmMemoryRegion::Release(bytes);
      live.erase(victim);
    }
    RC_ASSERT(region.BytesInUse() == inUse);
    RC_ASSERT(region.BytesReserved() >= inUse);
  }
}

PROPERTY(OmMemoryRegionModel, AgreesWithAMapOfLiveBlocksInAnOwnedRegion) {
  OmMemoryRegion region(false);
  CompareWithModel(region);
}

PROPERTY(OmMemoryRegionModel, AgreesWithAMapOfLiveBlocksInASharedRegion) {
  OmMemoryRegion region(true);
  CompareWithModel(region);
}

#if defined(__SANITIZE_ADDRESS__)
TEST_F(RegionTest, BytesBehindABlockAreForbiddenUnderTheAddressSanitizer) {
  auto* block = static_cast<volatile char*>(region.Allocate(20));
  EXPECT_DEATH(block[20] = 1, "use-after-poison");
}

TEST_F(RegionTest, AReleasedBlockIsForbiddenUnderTheAddressSanitizer) {
  auto* block = static_cast<volatile char*>(region.Allocate(20));
  OmMemoryRegion::Release(const_cast<char*>(block));
  EXPECT_DEATH(block[0] = 1, "use-after-poison");
}
#endif

}  // namespace
