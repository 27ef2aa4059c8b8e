#include "support/CannotRun.h"

#include <gtest/gtest-spi.h>
#include <string>

#include "support/Setting.h"

namespace {

void Test(bool& wentOn) {
  CANNOT_RUN("this machine has no wings");
  wentOn = true;
}

struct Outcome {
  bool fails;
  bool isSkipped;
  std::string message;
  bool wentOn = false;
};

Outcome RunTest() {
  testing::TestPartResultArray results;
  bool wentOn = false;
  {
    testing::ScopedFakeTestPartResultReporter const reporter(&results);
    Test(wentOn);
  }
  EXPECT_EQ(results.size(), 1);
  testing::TestPartResult const& result = results.GetTestPartResult(0);
  return {result.fatally_failed(), result.skipped(), result.message(), wentOn};
}

}  // namespace

TEST(CannotRun, Fails) {
  Setting const setting("LAKRESVOS_MAY_SKIP", nullptr);
  Outcome const outcome = RunTest();
  EXPECT_TRUE(outcome.fails);
  EXPECT_FALSE(outcome.wentOn);
  EXPECT_NE(outcome.message.find("this machine has no wings; set LAKRESVOS_MAY_SKIP"),
            std::string::npos);
}

TEST(CannotRun, IsSkippedWhereThatIsAllowed) {
  Setting const setting("LAKRESVOS_MAY_SKIP", "1");
  Outcome const outcome = RunTest();
  EXPECT_TRUE(outcome.isSkipped);
  EXPECT_FALSE(outcome.wentOn);
  EXPECT_NE(outcome.message.find("this machine has no wings"), std::string::npos);
}
