#include <cstddef>
#include <cstdint>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <type_traits>
#include <vector>

#include <lakresvos/OmVector.h>

#include "support/TrackedValue.h"
#include "support/faults/FailingNew.h"

template class OmVector<int>;
template class OmVector<TrackedValue>;

namespace {

using Numbers = OmVector<int>;

static_assert(!std::is_copy_constructible_v<Numbers>);
static_assert(!std::is_copy_assignable_v<Numbers>);
static_assert(!std::is_convertible_v<OmMemoryRegion*, Numbers>);
static_assert(offsetof(Numbers, region) < offsetof(Numbers, begin));
static_assert(offsetof(Numbers, begin) < offsetof(Numbers, end));
static_assert(offsetof(Numbers, end) < offsetof(Numbers, capacityEnd));
static_assert(sizeof(Numbers) == 4 * sizeof(void*));

template <class Vector>
void Append(Vector& vector, int count) {
  for (int i = 0; i < count; ++i) {
    vector.push_back(static_cast<int>(vector.size()));
  }
}

std::vector<int> Contents(Numbers const& vector) {
  std::vector<int> contents;
  for (int const value : vector.Elements()) {
    contents.push_back(value);
  }
  return contents;
}

// Construction and destruction

TEST(OmVector, ANullRegionMeansTheDefaultHeap) {
  Numbers const vector(nullptr);
  EXPECT_EQ(vector.region, OmMemoryRegion::DefaultHeap());
}

TEST(OmVector, KeepsTheRegionThatItWasGiven) {
  OmMemoryRegion region(false);
  Numbers const vector(&region);
  EXPECT_EQ(vector.region, &region);
}

TEST(OmVector, HoldsNoBufferWhileItNeverReceivedAnElement) {
  OmMemoryRegion region(false);
  Numbers const vector(&region);
  EXPECT_EQ(vector.begin, nullptr);
  EXPECT_EQ(vector.end, nullptr);
  EXPECT_EQ(vector.capacityEnd, nullptr);
  EXPECT_EQ(vector.size(), 0U);
  EXPECT_EQ(vector.capacity(), 0U);
  EXPECT_EQ(region.BytesInUse(), 0U);
}

TEST(OmVector, TakesItsBufferFromItsRegion) {
  OmMemoryRegion region(false);
  Numbers vector(&region);
  vector.push_back(1);
  EXPECT_EQ(OmMemoryRegion::FindOwner(vector.begin), &region);
}

TEST(OmVector, ReleasesItsBufferWhenDestroyed) {
  OmMemoryRegion region(false);
  {
    Numbers vector(&region);
    Append(vector, 100);
    EXPECT_GE(region.BytesInUse(), 100 * sizeof(int));
  }
  EXPECT_EQ(region.BytesInUse(), 0U);
}

TEST(OmVector, NeverDestroysItsElements) {
  std::vector<int> destroyed;
  {
    OmVector<TrackedValue> vector;
    for (int i = 0; i < 5; ++i) {
      vector.emplace_back(i);
    }
    TrackedValue::destroyed = &destroyed;
    vector.erase(1);
    vector.Clear();
  }
  TrackedValue::destroyed = nullptr;
  EXPECT_TRUE(destroyed.empty());
  TrackedValue::live -= 5;
}

// Growth

TEST(OmVector, TheFirstElementAllocatesRoomForFour) {
  Numbers vector;
  Append(vector, 1);
  EXPECT_EQ(vector.capacity(), 4U);
}

TEST(OmVector, TheFourthElementDoesNotGrow) {
  Numbers vector;
  Append(vector, 4);
  EXPECT_EQ(vector.capacity(), 4U);
}

TEST(OmVector, TheFifthElementGrowsToEight) {
  Numbers vector;
  Append(vector, 5);
  EXPECT_EQ(vector.capacity(), 8U);
}

TEST(OmVector, TheNinthElementGrowsToSixteen) {
  Numbers vector;
  Append(vector, 9);
  EXPECT_EQ(vector.capacity(), 16U);
}

TEST(OmVector, TheSeventeenthElementGrowsToThirtyTwo) {
  Numbers vector;
  Append(vector, 17);
  EXPECT_EQ(vector.capacity(), 32U);
}

TEST(OmVector, GrowingKeepsTheElementsAndReleasesTheOldBuffer) {
  OmMemoryRegion region(false);
  Numbers vector(&region);
  Append(vector, 33);
  EXPECT_EQ(vector.capacity(), 64U);
  EXPECT_EQ(region.BytesInUse(), 64 * sizeof(int));
  for (int i = 0; i < 33; ++i) {
    EXPECT_EQ(vector[static_cast<std::size_t>(i)], i);
  }
}

TEST(OmVector, GrowingNeitherCopiesNorDestroysElements) {
  long const live = TrackedValue::live;
  OmVector<TrackedValue> vector;
  TrackedValue::copies = 0;
  for (int i = 0; i < 100; ++i) {
    TrackedValue const value(i);
    vector.push_back(value);
  }
  EXPECT_EQ(TrackedValue::copies, 100);
  EXPECT_EQ(TrackedValue::live, live + 100);
  TrackedValue::live -= 100;
}

TEST(OmVector, AFullVectorOfOneToThreeElementsGrowsToFour) {
  for (int size = 1; size <= 3; ++size) {
    Numbers vector;
    vector.reserve(static_cast<std::size_t>(size));
    Append(vector, size);
    ASSERT_EQ(vector.capacity(), static_cast<std::size_t>(size));
    Append(vector, 1);
    EXPECT_EQ(vector.capacity(), 4U) << size;
  }
}

TEST(OmVector, AnInsertionIntoAFullVectorGrowsLikeAnAppend) {
  Numbers vector;
  Append(vector, 4);
  vector.insert(0, 9);
  EXPECT_EQ(vector.capacity(), 8U);
  EXPECT_EQ(Contents(vector), (std::vector<int>{9, 0, 1, 2, 3}));
}

// Reserving

TEST(OmVector, ReservingIsExact) {
  OmMemoryRegion region(false);
  Numbers vector(&region);
  vector.reserve(5);
  EXPECT_EQ(vector.capacity(), 5U);
  EXPECT_EQ(vector.size(), 0U);
}

TEST(OmVector, FilledAsACopyOfFiveElementsItHasRoomForFiveAndGrowsToEightNext) {
  Numbers source;
  Append(source, 5);
  Numbers copy;
  copy.reserve(source.size());
  for (int const value : source.Elements()) {
    copy.push_back(value);
  }
  EXPECT_EQ(copy.capacity(), 5U);
  copy.push_back(5);
  EXPECT_EQ(copy.capacity(), 8U);
}

TEST(OmVector, ReservingLessThanTheCapacityDoesNothing) {
  Numbers vector;
  Append(vector, 5);
  int const* const before = vector.begin;
  for (std::size_t less : {0U, 3U, 8U}) {
    vector.reserve(less);
    EXPECT_EQ(vector.begin, before);
    EXPECT_EQ(vector.capacity(), 8U);
  }
}

TEST(OmVector, ReservingNothingAllocatesNothing) {
  Numbers vector;
  vector.reserve(0);
  EXPECT_EQ(vector.begin, nullptr);
}

TEST(OmVector, ReservingMoreKeepsTheElements) {
  Numbers vector;
  Append(vector, 3);
  vector.reserve(50);
  EXPECT_EQ(vector.capacity(), 50U);
  EXPECT_EQ(Contents(vector), (std::vector<int>{0, 1, 2}));
}

TEST(OmVector, ReservingMoreThanAnyMachineHasIsRefused) {
  Numbers vector;
  Append(vector, 3);
  EXPECT_THROW(vector.reserve(SIZE_MAX), std::bad_alloc);
  EXPECT_THROW(vector.reserve(SIZE_MAX / sizeof(int) + 2), std::bad_alloc);
  EXPECT_EQ(vector.capacity(), 4U);
  EXPECT_EQ(Contents(vector), (std::vector<int>{0, 1, 2}));
}

// Inserting and erasing

TEST(OmVector, InsertsAtTheBeginningInTheMiddleAndAtTheEnd) {
  Numbers vector;
  Append(vector, 3);
  vector.insert(0, 10);
  vector.insert(2, 11);
  vector.insert(5, 12);
  EXPECT_EQ(Contents(vector), (std::vector<int>{10, 0, 11, 1, 2, 12}));
}

TEST(OmVector, InsertingPastTheEndAppends) {
  Numbers vector;
  vector.insert(7, 1);
  vector.insert(SIZE_MAX, 2);
  EXPECT_EQ(Contents(vector), (std::vector<int>{1, 2}));
}

TEST(OmVector, ErasesAtTheBeginningInTheMiddleAndAtTheEnd) {
  Numbers vector;
  Append(vector, 6);
  vector.erase(0);
  vector.erase(2);
  vector.erase(3);
  EXPECT_EQ(Contents(vector), (std::vector<int>{1, 2, 4}));
}

TEST(OmVector, ErasingKeepsTheBuffer) {
  Numbers vector;
  Append(vector, 5);
  int const* const before = vector.begin;
  while (vector.size() != 0) {
    vector.erase(0);
  }
  EXPECT_EQ(vector.begin, before);
  EXPECT_EQ(vector.capacity(), 8U);
}

TEST(OmVector, ErasingPastTheEndDropsTheLast) {
  Numbers vector;
  Append(vector, 3);
  vector.erase(3);
  vector.erase(SIZE_MAX);
  EXPECT_EQ(Contents(vector), (std::vector<int>{0}));
}

TEST(OmVector, ErasingFromAnEmptyVectorDoesNothing) {
  Numbers vector;
  vector.erase(0);
  EXPECT_EQ(vector.size(), 0U);
  EXPECT_EQ(vector.begin, nullptr);
}

TEST(OmVector, AppendsAndInsertsItsOwnElements) {
  Numbers vector;
  vector.reserve(1);
  vector.push_back(7);
  vector.push_back(vector[0]);
  vector.push_back(8);
  vector.push_back(vector[2]);
  vector.insert(0, vector[3]);
  vector.insert(1, vector[4]);
  EXPECT_EQ(Contents(vector), (std::vector<int>{8, 8, 7, 7, 8, 8}));
}

TEST(OmVector, ClearingReleasesTheBufferAndKeepsTheRegion) {
  OmMemoryRegion region(false);
  Numbers vector(&region);
  Append(vector, 5);
  vector.Clear();
  EXPECT_EQ(vector.begin, nullptr);
  EXPECT_EQ(vector.end, nullptr);
  EXPECT_EQ(vector.capacityEnd, nullptr);
  EXPECT_EQ(vector.region, &region);
  EXPECT_EQ(region.BytesInUse(), 0U);
  Append(vector, 1);
  EXPECT_EQ(vector.capacity(), 4U);
}

TEST(OmVector, AccessByIndexAndTheRangeReachTheSameElements) {
  Numbers vector;
  Append(vector, 3);
  vector[1] = 5;
  for (int& value : vector.Elements()) {
    ++value;
  }
  Numbers const& reading = vector;
  EXPECT_EQ(reading[0], 1);
  EXPECT_EQ(reading[1], 6);
  EXPECT_EQ(reading[2], 3);
}

// Failures

TEST(OmVector, ARefusedAllocationChangesNothing) {
  OmMemoryRegion region(false);
  Numbers vector(&region);
  Append(vector, 4);
  int const* const buffer = vector.begin;
  std::vector<int> const before = Contents(vector);
  auto const unchanged = [&] {
    EXPECT_EQ(vector.begin, buffer);
    EXPECT_EQ(vector.capacity(), 4U);
    EXPECT_EQ(Contents(vector), before);
    EXPECT_EQ(region.BytesInUse(), 4 * sizeof(int));
  };
  EXPECT_EQ(FailEveryAllocation([&] { vector.reserve(5); }, unchanged), 2U);
  Append(vector, 1);
  EXPECT_EQ(
      FailEveryAllocation([&] { vector.push_back(1); }, [&] { EXPECT_EQ(vector.size(), 5U); }), 2U);
}

TEST(OmVector, AnInsertionThatIsRefusedChangesNothing) {
  Numbers vector;
  Append(vector, 4);
  EXPECT_EQ(FailEveryAllocation([&] { vector.insert(1, 9); },
                                [&] {
                                  EXPECT_EQ(Contents(vector), (std::vector<int>{0, 1, 2, 3}));
                                }),
            2U);
  EXPECT_EQ(Contents(vector), (std::vector<int>{0, 9, 1, 2, 3}));
}

TEST(OmVector, AnElementThatCannotBeCopiedChangesNothing) {
  OmMemoryRegion region(false);
  TrackedValue const value(1);
  long const live = TrackedValue::live;
  for (std::size_t room : {1U, 2U}) {
    OmVector<TrackedValue> vector(&region);
    vector.reserve(room);
    vector.push_back(value);
    unsigned long const inUse = region.BytesInUse();
    auto const unchanged = [&] {
      EXPECT_EQ(vector.size(), 1U);
      EXPECT_EQ(vector.capacity(), room);
      EXPECT_EQ(region.BytesInUse(), inUse);
      EXPECT_EQ(TrackedValue::live, live + 1);
    };
    EXPECT_EQ(FailEveryCopy([&] { vector.push_back(value); }, unchanged), 1U);
    TrackedValue::live -= 2;
  }
  EXPECT_EQ(TrackedValue::live, live);
}

// Against a plain vector

std::size_t PlainCapacity(std::size_t capacity, std::size_t size) {
  if (size < capacity) {
    return capacity;
  }
  if (size < 4) {
    return 4;
  }
  std::size_t grown = 4;
  while (!(grown > size)) {
    grown = grown + grown;
  }
  return grown;
}

RC_GTEST_PROP(OmVector, BehavesLikeAPlainVectorUnderAnySequence, ()) {
  OmMemoryRegion region(false);
  Numbers vector(&region);
  std::vector<int> model;
  std::size_t capacity = 0;
  int const steps = *rc::gen::inRange(0, 200);
  for (int step = 0; step < steps; ++step) {
    auto const position = *rc::gen::inRange<std::size_t>(0, model.size() + 3);
    switch (*rc::gen::weightedElement<int>({{4, 0}, {4, 1}, {3, 2}, {1, 3}})) {
      case 0:
        capacity = PlainCapacity(capacity, model.size());
        vector.push_back(step);
        model.push_back(step);
        break;
      case 1:
        capacity = PlainCapacity(capacity, model.size());
        vector.insert(position, step);
        model.insert(model.begin() + static_cast<long>(std::min(position, model.size())), step);
        break;
      case 2:
        vector.erase(position);
        if (!model.empty()) {
          model.erase(model.begin() + static_cast<long>(std::min(position, model.size() - 1)));
        }
        break;
      default: {
        auto const room = *rc::gen::inRange<std::size_t>(0, 2 * model.size() + 3);
        vector.reserve(room);
        capacity = std::max(capacity, room);
      }
    }
    RC_ASSERT(Contents(vector) == model);
    RC_ASSERT(vector.capacity() == capacity);
  }
}

}  // namespace
