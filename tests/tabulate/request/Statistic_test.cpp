#include <gtest/gtest.h>

#include <lakresvos/tabulate/Statistic.h>

#include "support/ErrorOf.h"

using namespace lakresvos::tabulate;

namespace {

std::string Parsed(std::string const& text) {
  std::string parsed;
  for (Statistic const& statistic : ParseStatistics(text)) {
    parsed += MakeStatisticLabel(statistic)->GetText() + "; ";
  }
  return parsed;
}

std::string ErrorIn(std::string const& text) {
  std::string const error = ErrorOf([&] { ParseStatistics(text); });
  std::string const start = "statistics '" + text + "': ";
  return error.starts_with(start) ? error.substr(start.size()) : error;
}

}  // namespace

TEST(Statistics, ReadsEveryOne) {
  EXPECT_EQ(Parsed("count,row%,column%,total%,mean:X,sd:X,sum:X,min:X,max:X"),
            "Count; Row %; Column %; Total %; Mean of X; Std. deviation of X; Sum of X; "
            "Minimum of X; Maximum of X; ");
}

TEST(Statistics, TakesSpacesAndBackQuotes) {
  EXPECT_EQ(Parsed(" mean : `Solar, R` , count "), "Mean of Solar, R; Count; ");
}

TEST(Statistics, TakesOneMeasureOfSeveralColumns) {
  EXPECT_EQ(Parsed("mean:X,mean:Y"), "Mean of X; Mean of Y; ");
}

TEST(Statistics, TakesNamesWithColonsOnceTheColonIsThere) {
  EXPECT_EQ(Parsed("mean:a:b"), "Mean of a:b; ");
}

TEST(Statistics, KnowWhichNeedAColumn) {
  std::vector<Statistic> const statistics = ParseStatistics("count,total%,mean:X,max:X");
  EXPECT_FALSE(NeedsColumn(statistics[0]));
  EXPECT_FALSE(NeedsColumn(statistics[1]));
  EXPECT_TRUE(NeedsColumn(statistics[2]));
  EXPECT_TRUE(NeedsColumn(statistics[3]));
}

TEST(StatisticErrors, Nothing) {
  EXPECT_EQ(ErrorIn(""), "expected a statistic at position 1");
  EXPECT_EQ(ErrorIn("count,"), "expected a statistic at position 7");
}

TEST(StatisticErrors, Unknown) {
  EXPECT_EQ(ErrorIn("count,median:X"), "unknown statistic 'median' at position 7");
}

TEST(StatisticErrors, ColumnMissing) {
  EXPECT_EQ(ErrorIn("mean"), "expected ':' and a column name at position 5");
  EXPECT_EQ(ErrorIn("mean:,count"), "expected a column name at position 6");
}

TEST(StatisticErrors, ColumnTooMany) {
  EXPECT_EQ(ErrorIn("count:X"), "expected ',' or the end at position 6");
}

TEST(StatisticErrors, Twice) {
  EXPECT_EQ(ErrorIn("count, count"), "duplicate statistic 'count' at position 8");
  EXPECT_EQ(ErrorIn("sd:X,sd:`X`"), "duplicate statistic 'sd:X' at position 6");
}

TEST(Statistic, ListsEveryOneAsItIsParsed) {
  std::vector<std::string> const list = ListStatistics();
  EXPECT_EQ(list, (std::vector<std::string>{"count", "row%", "column%", "total%", "mean:X", "sd:X",
                                            "sum:X", "min:X", "max:X"}));
  for (std::string const& one : list) {
    EXPECT_EQ(ParseStatistics(one).size(), 1u) << one;
  }
}
