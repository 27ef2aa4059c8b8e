#include "table/OmShortArray.h"
// This header comes first to show that it is self-contained.
#include <algorithm>
#include <gtest/gtest.h>
#include <new>
#include <numeric>
#include <utility>

#include "support/faults/FailingNew.h"

namespace {

using Array = OmShortArray<int, 4>;

/// The numbers from 1 to `size`.
Array Numbers(std::size_t size) {
  Array array(size);
  std::iota(array.begin(), array.end(), 1);
  return array;
}

TEST(OmShortArray, StartsWithAsManyZerosAsItIsLong) {
  for (std::size_t const size : {0U, 1U, 4U, 5U, 100U}) {
    Array const array(size);
    EXPECT_EQ(array.size(), size);
    EXPECT_EQ(array.empty(), size == 0);
    EXPECT_EQ(array.end() - array.begin(), static_cast<std::ptrdiff_t>(size));
    EXPECT_EQ(std::count(array.begin(), array.end(), 0), static_cast<std::ptrdiff_t>(size));
  }
}

TEST(OmShortArray, ACopyHasTheElementsAndStandsAlone) {
  for (std::size_t const size : {1U, 4U, 5U, 100U}) {
    Array const source = Numbers(size);
    Array copy(source);
    EXPECT_TRUE(std::equal(copy.begin(), copy.end(), source.begin(), source.end()));
    copy[size - 1] = 0;
    EXPECT_EQ(std::as_const(copy)[size - 1], 0);
    EXPECT_EQ(source[size - 1], static_cast<int>(size));
  }
}

TEST(OmShortArray, AllocatesOnlyBeyondWhatIsInPlace) {
  EXPECT_NO_THROW({
    FailAfter const failing(1);
    Array const array = Numbers(4);
    Array const copy(array);
  });
  EXPECT_THROW(
      {
        FailAfter const failing(1);
        Array const array(5);
      },
      std::bad_alloc);
}

}  // namespace
