#include <gtest/gtest.h>

#include <lakresvos/tabulate/RequiredColumns.h>

using namespace lakresvos::tabulate;

namespace {

std::string Describe(RequiredColumns const& columns) {
  std::string text;
  for (RequiredColumn const& column : columns) {
    text += column.name + " in " + column.DescribeSource() + "\n";
  }
  return text;
}

}  // namespace

TEST(RequiredColumns, AreThoseOfAllAxes) {
  EXPECT_EQ(Describe(ListColumns(ParseFormula("a/b ~ c | d"))),
            "a in formula 'a/b ~ c | d' at position 1\n"
            "b in formula 'a/b ~ c | d' at position 3\n"
            "c in formula 'a/b ~ c | d' at position 7\n"
            "d in formula 'a/b ~ c | d' at position 11\n");
}

TEST(RequiredColumns, AreThoseOfWhichStatisticsAreTaken) {
  EXPECT_EQ(Describe(ListColumns(ParseStatistics("count,mean:x,row%,sd:x"))),
            "x in statistics at position 12\n"
            "x in statistics at position 22\n");
}

TEST(RequiredColumns, OfATableAreThoseOfBoth) {
  EXPECT_EQ(Describe(ListColumns(ParseFormula("a ~"), ParseStatistics("max:x"))),
            "a in formula 'a ~' at position 1\n"
            "x in statistics at position 5\n");
}

TEST(RequiredColumns, SayNoMoreOfTheirSourceThanThereIs) {
  EXPECT_EQ((RequiredColumn{"w", "--weight"}).DescribeSource(), "--weight");
}
