#include "WarningLog.h"

#include <gtest/gtest.h>

using namespace lakresvos::report;

TEST(WarningLog, IsEmptyAtFirst) {
  WarningLog const log;
  EXPECT_EQ(log.Total(), 0u);
  EXPECT_TRUE(log.First().empty());
}

TEST(WarningLog, GivesWarningsByLine) {
  WarningLog log;
  log.Add({9, "a", "late"});
  log.Add({2, "b", "first of two"});
  log.Add({2, "c", "second of two"});
  std::vector<Warning> const first = log.First();
  ASSERT_EQ(first.size(), 3u);
  EXPECT_EQ(first[0].column, "b");
  EXPECT_EQ(first[1].column, "c");
  EXPECT_EQ(first[2].problem, "late");
}

TEST(WarningLog, KeepsTheFirstHundredByLineWhicheverCameFirst) {
  WarningLog log;
  for (std::size_t i = 1000; i > 0; --i) {
    log.Add({i, "", std::to_string(i)});
  }
  EXPECT_EQ(log.Total(), 1000u);
  std::vector<Warning> const first = log.First();
  ASSERT_EQ(first.size(), WarningLog::kKept);
  for (std::size_t i = 0; i < first.size(); ++i) {
    EXPECT_EQ(first[i].line, i + 1);
    EXPECT_EQ(first[i].problem, std::to_string(i + 1));
  }
}
