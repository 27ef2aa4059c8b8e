#include "support/Property.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <iostream>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>

#include "support/Setting.h"

namespace {

int sequences = 0;

/// How many sequences a random program tries in an environment with these values.
int SequencesWith(char const* runs, char const* params) {
  Setting const givenRuns("LAKRESVOS_PROPERTY_RUNS", runs);
  Setting const givenParams("RC_PARAMS", params);
  MultiplyPropertyRuns();
  sequences = 0;
  CheckRandomProgram([] { ++sequences; });
  return sequences;
}

/// What RC_PARAMS is for the other properties.
std::string ParamsWith(char const* runs, char const* params) {
  Setting const givenRuns("LAKRESVOS_PROPERTY_RUNS", runs);
  Setting const givenParams("RC_PARAMS", params);
  MultiplyPropertyRuns();
  char const* const result = std::getenv("RC_PARAMS");
  return result != nullptr ? result : "(none)";
}

class PropertyRuns : public testing::Test {
 protected:
  void TearDown() override { MultiplyPropertyRuns(); }
};

TEST_F(PropertyRuns, AreMultipliedForRandomPrograms) {
  int const once = SequencesWith(nullptr, nullptr);
  EXPECT_GE(once, 500);
  EXPECT_EQ(SequencesWith("2", nullptr), 2 * once);
  EXPECT_EQ(SequencesWith("0.5", "seed=1"), once / 2);
  EXPECT_EQ(SequencesWith("1e-9", nullptr), 1);
}

TEST_F(PropertyRuns, AreMultipliedForOtherProperties) {
  EXPECT_EQ(ParamsWith(nullptr, nullptr), "(none)");
  EXPECT_EQ(ParamsWith("1", "seed=1"), "seed=1");
  EXPECT_EQ(ParamsWith("3", nullptr), " max_success=300");
  EXPECT_EQ(ParamsWith("0.1", "seed=1"), "seed=1 max_success=10");
}

TEST_F(PropertyRuns, AreThoseOfRcParamsWhereItNamesThem) {
  // Which reads the variable once.
  EXPECT_EQ(SequencesWith("2", "max_success=7"), rc::detail::configuration().testParams.maxSuccess);
  EXPECT_EQ(ParamsWith("2", "max_success=7"), "max_success=7");
}

TEST_F(PropertyRuns, NeedANumberAboveZero) {
  for (char const* const runs : {"0", "-1", "x", "2x", "inf", "nan", " 1"}) {
    EXPECT_THROW(ParamsWith(runs, nullptr), std::invalid_argument) << runs;
  }
}

TEST(RandomProgram, HasSequencesUpToTheMostSteps) {
  for (int const size : {99, 1000}) {
    std::set<int> counts;
    for (unsigned int seed = 0; seed < 10'000; ++seed) {
      counts.insert(StepCounts()(rc::Random(seed), size).value());
    }
    EXPECT_EQ(*counts.begin(), 0);
    EXPECT_EQ(*counts.rbegin(), kMostSteps);
    EXPECT_EQ(counts.size(), kMostSteps + 1U);
  }
}

TEST(RandomProgram, FailsWithItsShortestSequence) {
  EXPECT_EXIT(
      {
        CheckRandomProgram([] { RC_ASSERT(DrawStepCount() < 17); });
        std::cerr << test_info_->result()->GetTestPartResult(0).message();
        std::_Exit(1);
      },
      testing::ExitedWithCode(1), "int:\n17\n");
}

}  // namespace
