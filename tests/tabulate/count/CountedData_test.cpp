#include <gtest/gtest.h>

#include <lakresvos/tabulate/CountedData.h>

using namespace lakresvos::tabulate;

TEST(CountedData, FindsColumnsByName) {
  CountedData data;
  data.columns.emplace_back("a");
  data.columns.emplace_back("b");
  EXPECT_EQ(data.FindColumn("b"), 1u);
  EXPECT_EQ(data.FindColumn("c"), 2u);
}

TEST(CountedData, CanBeMoved) {
  CountedData data;
  data.columns.emplace_back("a");
  CountedData moved = std::move(data);
  EXPECT_EQ(moved.FindColumn("a"), 0u);
  CountedData assigned;
  assigned = std::move(moved);
  EXPECT_EQ(assigned.columns.size(), 1u);
}
