#include <algorithm>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <string>

#include <lakresvos/tabulate/Dictionary.h>
#include <lakresvos/tabulate/IdTable.h>

#include "TupleIndex.h"

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

TEST(Dictionary, NumbersTextsByFirstAppearance) {
  Dictionary texts;
  EXPECT_EQ(texts.Intern("b"), 0u);
  EXPECT_EQ(texts.Intern(""), 1u);
  EXPECT_EQ(texts.Intern("a"), 2u);
  EXPECT_EQ(texts.Intern("b"), 0u);
  EXPECT_EQ(texts.size(), 3u);
  EXPECT_EQ(texts[0], "b");
  EXPECT_EQ(texts[1], "");
  EXPECT_EQ(texts[2], "a");
}

RC_GTEST_PROP(Dictionary, AgreesWithASearchThroughAList, (std::vector<std::string> const& texts)) {
  Dictionary dictionary;
  std::vector<std::string> list;
  for (std::string const& text : texts) {
    auto const known = std::find(list.begin(), list.end(), text);
    auto const expected = static_cast<std::uint32_t>(known - list.begin());
    if (known == list.end()) {
      list.push_back(text);
    }
    RC_ASSERT(dictionary.Intern(text) == expected);
    RC_ASSERT(dictionary.size() == list.size());
    RC_ASSERT(dictionary[expected] == text);
  }
}

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
