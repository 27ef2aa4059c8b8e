#include <gtest/gtest.h>

#include <lakresvos/tabulate/Grouping.h>

#include "support/ErrorOf.h"

using namespace lakresvos::tabulate;

namespace {

std::vector<std::string> Names(std::vector<NamedColumn> const& named) {
  std::vector<std::string> names;
  for (NamedColumn const& one : named) {
    names.push_back(one.name);
  }
  return names;
}

std::string ErrorIn(std::string const& text) {
  return ErrorOf([&] { ParseGrouping(text); });
}

}  // namespace

TEST(Grouping, NamesColumnGroupAndCategories) {
  Grouping const grouping = ParseGrouping("Class: Staff = Crew, 3rd");
  EXPECT_EQ(grouping.text, "Class: Staff = Crew, 3rd");
  EXPECT_EQ(grouping.column.name, "Class");
  EXPECT_EQ(grouping.column.position, 1u);
  EXPECT_EQ(grouping.group.name, "Staff");
  EXPECT_EQ(Names(grouping.categories), (std::vector<std::string>{"Crew", "3rd"}));
  EXPECT_EQ(grouping.group.position, 8u);
  EXPECT_EQ(grouping.categories[1].position, 22u);
}

TEST(Grouping, BlanksDoNotMatterAndOneCategoryWillDo) {
  Grouping const grouping = ParseGrouping(" Class:Staff=Crew ");
  EXPECT_EQ(grouping.group.name, "Staff");
  EXPECT_EQ(Names(grouping.categories), (std::vector<std::string>{"Crew"}));
}

TEST(Grouping, AnyNameStandsInBackQuotes) {
  Grouping const grouping = ParseGrouping("`a:b`: `c = d` = `e, f`, ```g`");
  EXPECT_EQ(grouping.column.name, "a:b");
  EXPECT_EQ(grouping.group.name, "c = d");
  EXPECT_EQ(Names(grouping.categories), (std::vector<std::string>{"e, f", "`g"}));
}

TEST(Grouping, WhatIsMissingIsNamed) {
  EXPECT_EQ(ErrorIn(""), "--group '': position 1: there should be the name of a column");
  EXPECT_EQ(ErrorIn("a"), "--group 'a': position 2: there should be ':'");
  EXPECT_EQ(ErrorIn("a:"), "--group 'a:': position 3: there should be the name of the group");
  EXPECT_EQ(ErrorIn("a: b"), "--group 'a: b': position 5: there should be '='");
  EXPECT_EQ(ErrorIn("a: b ="), "--group 'a: b =': position 7: there should be a category");
  EXPECT_EQ(ErrorIn("a: b = c,"), "--group 'a: b = c,': position 10: there should be a category");
  EXPECT_EQ(ErrorIn("a: b = c d"),
            "--group 'a: b = c d': position 10: there should be ',' or the end");
}
