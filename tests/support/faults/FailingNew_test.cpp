#include "support/faults/FailingNew.h"

#include <algorithm>
#include <cstddef>
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>
#include <memory>
#include <new>
#include <string>
#include <thread>
#include <vector>

#include <cells/OmMemoryRegion.h>

namespace {

using Mode = FailAfter::Mode;
using Threads = FailAfter::Threads;

/// Allocates so often and says which requests were refused.
std::vector<bool> Refused(std::size_t requests) {
  std::vector<bool> refused(requests, false);
  for (std::size_t i = 0; i < requests; ++i) {
    try {
      ::operator delete(::operator new(8));
    } catch (std::bad_alloc const&) {
      refused[i] = true;
    }
  }
  return refused;
}

// Refusing

TEST(FailAfter, RefusesOneRequestOrAllFromItOn) {
  std::vector<bool> refused(4);
  for (Mode const mode : {Mode::Once, Mode::FromThenOn}) {
    {
      FailAfter const failing(3, mode);  // the list of answers is the first request
      refused = Refused(4);
    }
    EXPECT_EQ(refused,
              (std::vector<bool>{false, true, mode == Mode::FromThenOn, mode == Mode::FromThenOn}));
  }
}

TEST(FailAfter, CountsTheRequestsToRegionsToo) {
  OmMemoryRegion region(false);
  region.Allocate(16);
  FailAfter const failing(2);
  region.Allocate(16);
  EXPECT_FALSE(failing.HasRefused());
  EXPECT_THROW(region.Allocate(16), std::bad_alloc);
  EXPECT_TRUE(failing.HasRefused());
}

TEST(FailAfter, LeavesOtherThreadsAloneUnlessTold) {
  for (Threads const threads : {Threads::This, Threads::All}) {
    std::vector<bool> refused;
    {
      auto const allocate = [&] { refused = Refused(3); };
      FailAfter const failing(4, Mode::FromThenOn, threads);
      std::thread(allocate).join();  // the thread itself is the first request
    }
    bool const reached = threads == Threads::All;
    EXPECT_EQ(refused, (std::vector<bool>{false, reached, reached}));
  }
}

TEST(FailEveryAllocation, RefusesRequestsThatMoveUpWhenOthersAreNoLongerMade) {
  std::string first;
  std::string second;
  std::vector<std::size_t> refused;
  refused.reserve(100);
  auto const request = [&](std::size_t size) {
    try {
      ::operator delete(::operator new(size));
    } catch (std::bad_alloc const&) {
      refused.push_back(size);
      throw;
    }
  };
  auto const attempt = [&] {
    first.reserve(100);
    second.reserve(200);
    request(300);
    request(400);
  };
  EXPECT_GT(FailEveryAllocation(attempt, [] {}), 0U);
  EXPECT_NE(std::find(refused.begin(), refused.end(), 300U), refused.end());
  EXPECT_NE(std::find(refused.begin(), refused.end(), 400U), refused.end());
}

TEST(FailEveryAllocation, GoesOnWhereARefusalIsDoneWithout) {
  std::size_t checks = 0;
  std::size_t runs = 0;
  auto const attempt = [&] {
    ++runs;
    ::operator delete(::operator new(8, std::nothrow));
    ::operator delete(::operator new(8));
  };
  EXPECT_EQ(FailEveryAllocation(attempt, [&] { ++checks; }), 3U);
  EXPECT_EQ(checks, 3U) << "the second request alone, and with the first one";
  EXPECT_EQ(runs, 5U);
}

/// What FailEveryAllocationOf() says about an operation; empty when all is well.
template <class Make>
std::string Complaint(Make make) {
  testing::TestPartResultArray complaints;
  {
    testing::ScopedFakeTestPartResultReporter const reporter(&complaints);
    FailEveryAllocationOf(make);
  }
  return complaints.size() == 0 ? "" : complaints.GetTestPartResult(0).message();
}

TEST(FailEveryAllocationOf, WantsTheSameValueWheneverThereIsOne) {
  EXPECT_EQ(Complaint([] { return std::string(100, 'x'); }), "");
  std::string const complaint = Complaint([] {
    void* const spare = ::operator new(8, std::nothrow);
    ::operator delete(spare);
    return spare == nullptr;
  });
  EXPECT_NE(complaint.find("same"), std::string::npos);
}

TEST(FailEveryAllocationOf, WantsNothingLeftAfterAFailure) {
  std::vector<std::unique_ptr<int>> left;
  std::string const complaint = Complaint([&] {
    left.push_back(std::make_unique<int>(0));
    return std::string(100, 'x');
  });
  EXPECT_NE(complaint.find("blocks"), std::string::npos);
}

// Counting

TEST(HeldMemory, CountsWhatTheGeneralHeapHasGivenOut) {
  HeldMemory const before = HeldMemory::Now();
  auto const block = std::make_unique<char[]>(64);
  HeldMemory const held = HeldMemory::Now();
  EXPECT_EQ(held.blocks, before.blocks + 1);
  EXPECT_GE(held.bytes, before.bytes + 64);
  EXPECT_EQ(held.defaultHeapBytes, before.defaultHeapBytes);
  EXPECT_EQ(held.regionBytes, before.regionBytes);
}

TEST(HeldMemory, CountsWhatTheDefaultHeapHasGivenOutAndNotWhatItKeeps) {
  std::vector<void*> blocks(1000);
  HeldMemory const before = HeldMemory::Now();
  for (void*& block : blocks) {
    block = OmMemoryRegion::DefaultHeap()->Allocate(256);
  }
  HeldMemory expected = before;
  expected.defaultHeapBytes += 256000;
  EXPECT_EQ(HeldMemory::Now(), expected);
  for (void* const block : blocks) {
    OmMemoryRegion::Release(block);
  }
  EXPECT_EQ(HeldMemory::Now(), before);
}

TEST(HeldMemory, CountsWhatOtherRegionsHaveFromTheSystem) {
  HeldMemory const before = HeldMemory::Now();
  {
    OmMemoryRegion region(false);
    EXPECT_EQ(HeldMemory::Now(), before);
    region.Allocate(16);
    region.Allocate(3U << 20U);
    HeldMemory const held = HeldMemory::Now();
    EXPECT_EQ(held.blocks, before.blocks);
    EXPECT_GE(held.regionBytes, before.regionBytes + (3 << 20));
  }
  EXPECT_EQ(HeldMemory::Now(), before);
}

TEST(HeldMemory, CountsAllThreads) {
  HeldMemory const before = HeldMemory::Now();
  std::unique_ptr<int> made;
  std::thread([&] { made = std::make_unique<int>(1); }).join();
  EXPECT_EQ(HeldMemory::Now().blocks, before.blocks + 1);
  made.reset();
  EXPECT_EQ(HeldMemory::Now(), before);
}

}  // namespace
