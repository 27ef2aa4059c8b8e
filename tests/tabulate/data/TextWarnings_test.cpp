#include <gtest/gtest.h>

#include <lakresvos/tabulate/Statistic.h>

#include "tabulate/TextData.h"

using namespace lakresvos::tabulate;

TEST(TextWarnings, TellEachRowWithAText) {
  WarningLog warnings;
  DataSet const data = ReadData("a\n1\nx\nNA\nx\n", {"a"});
  WarnAboutTexts(data, ParseStatistics("count,mean:a"), warnings);
  ASSERT_EQ(warnings.Total(), 2u);
  EXPECT_EQ(warnings.First()[0].line, 3u);
  EXPECT_EQ(warnings.First()[0].column, "a");
  EXPECT_EQ(warnings.First()[0].problem, "'x' is not a number; treated as missing");
  EXPECT_EQ(warnings.First()[1].line, 5u);
}

TEST(TextWarnings, TellARowOnceHoweverManyStatisticsThereAre) {
  WarningLog warnings;
  DataSet const data = ReadData("a,b\nx,y\n1,2\n", {"a", "b"});
  WarnAboutTexts(data, ParseStatistics("mean:a,sd:a,max:b,min:b"), warnings);
  EXPECT_EQ(warnings.Total(), 2u);
}
