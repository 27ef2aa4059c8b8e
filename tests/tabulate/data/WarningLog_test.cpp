#include <gtest/gtest.h>

#include <lakresvos/tabulate/WarningLog.h>

using namespace lakresvos::tabulate;

TEST(WarningLog, IsEmptyAtFirst) {
  WarningLog const log;
  EXPECT_EQ(log.Total(), 0u);
  EXPECT_TRUE(log.First().empty());
}

TEST(WarningLog, GivesWarningsByLine) {
  WarningLog log;
  log.Add({Skipped::Texts, 9, "a", "late"});
  log.Add({Skipped::Texts, 2, "b", "first of two"});
  log.Add({Skipped::Texts, 2, "c", "second of two"});
  std::vector<Warning> const first = log.First();
  ASSERT_EQ(first.size(), 3u);
  EXPECT_EQ(first[0].column, "b");
  EXPECT_EQ(first[1].column, "c");
  EXPECT_EQ(first[2].problem, "late");
}

TEST(WarningLog, KeepsTheFirstHundredByLineWhicheverCameFirst) {
  WarningLog log;
  for (std::size_t i = 1000; i > 0; --i) {
    log.Add({Skipped::Texts, i, "", std::to_string(i)});
  }
  EXPECT_EQ(log.Total(), 1000u);
  std::vector<Warning> const first = log.First();
  ASSERT_EQ(first.size(), WarningLog::kMaxKept);
  for (std::size_t i = 0; i < first.size(); ++i) {
    EXPECT_EQ(first[i].line, i + 1);
    EXPECT_EQ(first[i].problem, std::to_string(i + 1));
  }
}

TEST(WarningLog, CountsEachKindAndKnowsItsFirstPlace) {
  WarningLog log;
  EXPECT_FALSE(log.HasAny());
  log.Add({Skipped::Lines, 9, "a", "late"});
  log.Add({Skipped::Lines, 2, "b", "early"});
  log.Add({Skipped::Texts, 1, "c", "other"});
  EXPECT_TRUE(log.HasAny());
  EXPECT_EQ(log.Summary(Skipped::Lines).count, 2u);
  EXPECT_EQ(log.Summary(Skipped::Lines).line, 2u);
  EXPECT_EQ(log.Summary(Skipped::Lines).column, "b");
  EXPECT_EQ(log.Summary(Skipped::Texts).count, 1u);
  EXPECT_EQ(log.Summary(Skipped::Rows).count, 0u);
}

TEST(WarningLog, KeepsNoWarningOfWhatIsOnlyCounted) {
  WarningLog log;
  log.Count(Skipped::Rows, 3, "a");
  EXPECT_TRUE(log.HasAny());
  EXPECT_EQ(log.Total(), 0u);
  EXPECT_TRUE(log.First().empty());
}

TEST(WarningLog, TakesOverAnotherLogFurtherDown) {
  WarningLog log;
  log.Add({Skipped::Lines, 7, "a", "seventh"});
  log.Count(Skipped::Rows, 9, "late");
  WarningLog below;
  below.Add({Skipped::Lines, 1, "b", "first below"});
  below.Add({Skipped::Texts, 2, "c", "second below"});
  below.Count(Skipped::Rows, 3, "r");
  log.Append(below, 5);
  EXPECT_EQ(log.Total(), 3u);
  std::vector<Warning> const first = log.First();
  ASSERT_EQ(first.size(), 3u);
  EXPECT_EQ(first[0].line, 6u);
  EXPECT_EQ(first[0].problem, "first below");
  EXPECT_EQ(first[1].problem, "seventh");
  EXPECT_EQ(first[2].line, 7u);
  EXPECT_EQ(log.Summary(Skipped::Lines).count, 2u);
  EXPECT_EQ(log.Summary(Skipped::Lines).line, 6u);
  EXPECT_EQ(log.Summary(Skipped::Lines).column, "b");
  EXPECT_EQ(log.Summary(Skipped::Texts).line, 7u);
  EXPECT_EQ(log.Summary(Skipped::Rows).count, 2u);
  EXPECT_EQ(log.Summary(Skipped::Rows).line, 8u);
  EXPECT_EQ(log.Summary(Skipped::Rows).column, "r");
}

TEST(WarningLog, KeepsItsFirstPlaceWhenAnotherLogIsBelow) {
  WarningLog log;
  log.Count(Skipped::Rows, 6, "own");
  WarningLog below;
  below.Count(Skipped::Rows, 1, "other");
  log.Append(below, 5);
  EXPECT_EQ(log.Summary(Skipped::Rows).column, "own");
  log.Append(WarningLog(), 0);
  EXPECT_EQ(log.Summary(Skipped::Rows).count, 2u);
}

TEST(WarningLog, KeepsTheFirstHundredOfSeveralLogs) {
  WarningLog log;
  for (std::size_t part = 5; part > 0; --part) {
    WarningLog below;
    for (std::size_t i = 1; i <= 90; ++i) {
      below.Add({Skipped::Texts, i, "", std::to_string(100 * part + i)});
    }
    log.Append(below, 100 * part);
  }
  EXPECT_EQ(log.Total(), 450u);
  std::vector<Warning> const first = log.First();
  ASSERT_EQ(first.size(), WarningLog::kMaxKept);
  EXPECT_EQ(first.front().problem, "101");
  EXPECT_EQ(first[89].problem, "190");
  EXPECT_EQ(first.back().line, 210u);
}
