#include "data/IdTable.h"

#include <gtest/gtest.h>
#include <stdexcept>

using namespace lakresvos::tabulate;

TEST(IdTable, FindsNothingWhenEmpty) {
  EXPECT_EQ(IdTable().Find(7, [](std::uint32_t) { return true; }), IdTable::kNone);
}

TEST(IdTable, TellsThingsOfOneHashApart) {
  IdTable table;
  for (int i = 0; i < 100; ++i) {
    table.Add(42);
  }
  EXPECT_EQ(table.Find(42, [](std::uint32_t id) { return id == 77; }), 77u);
  EXPECT_EQ(table.Find(42, [](std::uint32_t) { return false; }), IdTable::kNone);
  EXPECT_EQ(table.Find(43, [](std::uint32_t) { return true; }), IdTable::kNone);
}

TEST(IdTable, PrefetchesNothingWhenEmpty) {
  IdTable table;
  table.Prefetch(7);
  table.Add(7);
  table.Prefetch(7);
  EXPECT_EQ(table.size(), 1u);
}

TEST(IdTable, GivesNoMoreNumbersThanThereAre) {
  IdTable table(3);
  for (std::uint64_t hash = 0; hash < 3; ++hash) {
    table.Add(hash);
  }
  EXPECT_THROW(table.Add(3), std::length_error);
  EXPECT_EQ(table.size(), 3u);
  EXPECT_EQ(table.Find(2, [](std::uint32_t) { return true; }), 2u);
}
