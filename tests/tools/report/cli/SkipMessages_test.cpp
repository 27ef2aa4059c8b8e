#include "cli/SkipMessages.h"

#include <algorithm>
#include <gtest/gtest.h>

using namespace lakresvos::report;
using namespace lakresvos::tabulate;

using Messages = std::vector<std::string>;

TEST(SkipMessages, ThereAreNoneWhenNothingWasSkipped) {
  EXPECT_EQ(MakeSkipMessages(WarningLog(), "a.csv"), Messages());
}

TEST(SkipMessages, OneLineForEachKindWithItsCountAndFirstPlace) {
  WarningLog log;
  log.Add({Skipped::Texts, 9, "x", "later"});
  log.Add({Skipped::Texts, 4, "y", "first"});
  log.Add({Skipped::Texts, 4, "z", "on the same line"});
  log.Add({Skipped::Lines, 7, "3", "the only one"});
  log.Count(Skipped::Rows, 5, "a");
  log.Count(Skipped::Rows, 6, "b");
  EXPECT_EQ(
      MakeSkipMessages(log, "a.csv"),
      (Messages{"a.csv: 1 line with too few or too many fields was skipped, the first on line "
                "7, column '3'",
                "a.csv: 3 values that are not numbers were treated as missing, the first on line "
                "4, column 'y'",
                "a.csv: 2 rows with missing values were left out of a table, the first on "
                "line 5, column 'a'"}));
}

TEST(SkipMessages, EveryKindHasWordsOfItsOwn) {
  WarningLog log;
  for (Skipped const kind : kAllSkipped) {
    log.Count(kind, 1, "x");
  }
  Messages messages = MakeSkipMessages(log, "a.csv");
  ASSERT_EQ(messages.size(), kAllSkipped.size());
  std::sort(messages.begin(), messages.end());
  EXPECT_EQ(std::unique(messages.begin(), messages.end()), messages.end());
}
