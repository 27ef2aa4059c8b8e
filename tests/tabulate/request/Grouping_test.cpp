#include <gtest/gtest.h>

#include <lakresvos/tabulate/Grouping.h>

#include "support/ErrorOf.h"

using namespace lakresvos::tabulate;

namespace {

std::vector<std::string> Names(std::vector<NameToken> const& named) {
  std::vector<std::string> names;
  for (NameToken const& one : named) {
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

TEST(Grouping, SpacesDoNotMatterAndOneCategoryWillDo) {
  Grouping const grouping = ParseGrouping(" Class:Staff=Crew ");
  EXPECT_EQ(grouping.group.name, "Staff");
  EXPECT_EQ(Names(grouping.categories), (std::vector<std::string>{"Crew"}));
}

TEST(Grouping, AnyNameMayBeInBackQuotes) {
  Grouping const grouping = ParseGrouping("`a:b`: `c = d` = `e, f`, ```g`");
  EXPECT_EQ(grouping.column.name, "a:b");
  EXPECT_EQ(grouping.group.name, "c = d");
  EXPECT_EQ(Names(grouping.categories), (std::vector<std::string>{"e, f", "`g"}));
}

TEST(Grouping, WhatIsMissingIsNamed) {
  EXPECT_EQ(ErrorIn(""), "group '': expected a column name at position 1");
  EXPECT_EQ(ErrorIn("a"), "group 'a': expected ':' at position 2");
  EXPECT_EQ(ErrorIn("a:"), "group 'a:': expected a group name at position 3");
  EXPECT_EQ(ErrorIn("a: b"), "group 'a: b': expected '=' at position 5");
  EXPECT_EQ(ErrorIn("a: b ="), "group 'a: b =': expected a category at position 7");
  EXPECT_EQ(ErrorIn("a: b = c,"), "group 'a: b = c,': expected a category at position 10");
  EXPECT_EQ(ErrorIn("a: b = c d"), "group 'a: b = c d': expected ',' or the end at position 10");
}

TEST(CheckGroupings, ColumnHasToBeInATable) {
  Grouping const grouping = ParseGrouping("kind: x = cat");
  EXPECT_EQ(ErrorOf([&] { CheckGroupings({grouping}, {{"kind", ""}}); }), "none");
  EXPECT_EQ(ErrorOf([&] {
              CheckGroupings({grouping}, {{"home", ""}});
            }),
            "group 'kind: x = cat': column 'kind' is in no table at position 1");
}

TEST(CheckGroupings, GroupsOfAColumnHaveDifferentNames) {
  EXPECT_EQ(ErrorOf([] {
              CheckGroupings({ParseGrouping("kind: x = cat"), ParseGrouping("kind: x = dog")},
                             {{"kind", ""}});
            }),
            "group 'kind: x = dog': duplicate group 'x' at position 7");
}

TEST(CheckGroupings, EqualCategoriesOfSeveralColumnsAreDifferent) {
  EXPECT_EQ(ErrorOf([] {
              CheckGroupings({ParseGrouping("kind: x = a"), ParseGrouping("home: x = a")},
                             {{"kind", ""}, {"home", ""}});
            }),
            "none");
}
