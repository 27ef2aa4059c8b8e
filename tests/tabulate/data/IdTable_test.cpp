#include "data/IdTable.h"

#include <gtest/gtest.h>

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
