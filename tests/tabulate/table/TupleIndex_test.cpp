#include "table/TupleIndex.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <vector>

using namespace lakresvos::tabulate;

TEST(TupleIndex, KnowsOneTupleOfWidthZero) {
  TupleIndex index(0);
  EXPECT_EQ(index.Find({}), IdTable::kNone);
  EXPECT_EQ(index.Intern({}), 0u);
  EXPECT_EQ(index.Intern({}), 0u);
  EXPECT_EQ(index.size(), 1u);
}

RC_GTEST_PROP(TupleIndex, AgreesWithASearchThroughAList, ()) {
  auto const width = *rc::gen::inRange<std::size_t>(1, 4);
  auto const tuples = *rc::gen::container<std::vector<std::vector<std::uint32_t>>>(
      rc::gen::container<std::vector<std::uint32_t>>(width, rc::gen::inRange(0u, 4u)));
  TupleIndex index(width);
  std::vector<std::vector<std::uint32_t>> list;
  for (auto const& tuple : tuples) {
    auto const known = std::find(list.begin(), list.end(), tuple);
    auto const expected = static_cast<std::uint32_t>(known - list.begin());
    RC_ASSERT(index.Find(tuple) == (known == list.end() ? IdTable::kNone : expected));
    if (known == list.end()) {
      list.push_back(tuple);
    }
    RC_ASSERT(index.Intern(tuple) == expected);
    RC_ASSERT(std::equal(tuple.begin(), tuple.end(), index[expected].begin()));
  }
  RC_ASSERT(index.size() == list.size());
}
