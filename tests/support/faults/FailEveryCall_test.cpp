#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "support/SpyCell.h"

TEST(FailEveryCall, FailsEachCallAloneAndAllFromItOn) {
  SpyCell const cell("text");
  std::vector<std::string> runs;
  auto const readTwice = [&] {
    std::string& run = runs.emplace_back();
    bool failed = false;
    for (int i = 0; i < 2; ++i) {
      try {
        run += cell.GetText();
      } catch (SpyFailure::Exception const&) {
        run += "-";
        failed = true;
      }
    }
    if (failed) {
      throw SpyFailure::Exception("thrown on");
    }
  };
  int checks = 0;
  EXPECT_EQ(FailEveryCall(SpyCell::Operation::GetText, readTwice, [&] { ++checks; }), 2U);
  EXPECT_EQ(runs, (std::vector<std::string>{"--", "-text", "text-", "text-", "texttext"}));
  EXPECT_EQ(checks, 4);
  EXPECT_EQ(cell.GetText(), "text");
}
