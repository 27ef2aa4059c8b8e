#include <gtest/gtest.h>

#include <lakresvos/tabulate/Statistic.h>

#include "support/ErrorOf.h"

using namespace lakresvos::tabulate;

namespace {

std::string Parsed(std::string const& text) {
  std::string parsed;
  for (Statistic const& statistic : ParseStatistics(text)) {
    parsed += std::string(LabelOf(statistic.measure)) + "[" + statistic.column.name + "]";
  }
  return parsed;
}

std::string ErrorIn(std::string const& text) {
  std::string const error = ErrorOf([&] { ParseStatistics(text); });
  std::string const start = "--statistics '" + text + "': ";
  return error.starts_with(start) ? error.substr(start.size()) : error;
}

}  // namespace

TEST(Statistics, ReadsEveryOne) {
  EXPECT_EQ(Parsed("count,row%,column%,total%,mean:X,sd:X,sum:X,min:X,max:X"),
            "Count[]Row %[]Column %[]Total %[]Mean[X]Std. deviation[X]Sum[X]Minimum[X]Maximum[X]");
}

TEST(Statistics, TakesBlanksAndBackQuotes) {
  EXPECT_EQ(Parsed(" mean : `Solar, R` , count "), "Mean[Solar, R]Count[]");
}

TEST(Statistics, TakesOneMeasureOfSeveralColumns) {
  EXPECT_EQ(Parsed("mean:X,mean:Y"), "Mean[X]Mean[Y]");
}

TEST(Statistics, TakesNamesWithColonsOnceTheColonIsThere) {
  EXPECT_EQ(Parsed("mean:a:b"), "Mean[a:b]");
}

TEST(Statistics, KnowsWhichNeedAColumn) {
  EXPECT_FALSE(NeedsColumn(Measure::Count));
  EXPECT_FALSE(NeedsColumn(Measure::TotalPercent));
  EXPECT_TRUE(NeedsColumn(Measure::Mean));
  EXPECT_TRUE(NeedsColumn(Measure::Maximum));
}

TEST(Statistics, KnowsWhichAreShares) {
  EXPECT_FALSE(IsPercent(Measure::Count));
  EXPECT_TRUE(IsPercent(Measure::RowPercent));
  EXPECT_TRUE(IsPercent(Measure::ColumnPercent));
  EXPECT_TRUE(IsPercent(Measure::TotalPercent));
  EXPECT_FALSE(IsPercent(Measure::Mean));
}

TEST(StatisticErrors, Nothing) {
  EXPECT_EQ(ErrorIn(""), "position 1: there should be a statistic");
  EXPECT_EQ(ErrorIn("count,"), "position 7: there should be a statistic");
}

TEST(StatisticErrors, Unknown) {
  EXPECT_EQ(ErrorIn("count,median:X"), "position 7: there is no statistic 'median'");
}

TEST(StatisticErrors, ColumnMissing) {
  EXPECT_EQ(ErrorIn("mean"), "position 5: there should be ':' and the name of a column");
  EXPECT_EQ(ErrorIn("mean:,count"), "position 6: there should be the name of a column");
}

TEST(StatisticErrors, ColumnTooMany) {
  EXPECT_EQ(ErrorIn("count:X"), "position 6: there should be ',' or the end");
}

TEST(StatisticErrors, Twice) {
  EXPECT_EQ(ErrorIn("count, count"), "position 8: the statistic comes twice");
  EXPECT_EQ(ErrorIn("sd:X,sd:`X`"), "position 6: the statistic comes twice");
}
