#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "support/Property.h"
#include "support/faults/FailingNew.h"

namespace {

/// Every test must leave as much memory as it found, whatever else it checks.
class MemoryBalance : public testing::EmptyTestEventListener {
  void OnTestStart(testing::TestInfo const& /*info*/) override { before_ = HeldMemory::Now(); }
  void OnTestEnd(testing::TestInfo const& info) override {
    HeldMemory const after = HeldMemory::Now();
    if (after != before_ && !HasReported(info)) {
      ADD_FAILURE() << info.name() << " leaves\n  " << after << "\nand found\n  " << before_;
    }
  }

  /// What a test that failed or was skipped has said is kept with its result.
  static bool HasReported(testing::TestInfo const& info) {
    return info.result()->total_part_count() != 0;
  }

  HeldMemory before_;
};

template <class... Types>
void KeepGenerators() {
  (static_cast<void>(rc::gen::arbitrary<Types>()), ...);
}

template <class... Types>
void KeepGeneratorsOfArguments() {
  KeepGenerators<Types..., std::tuple<Types>...>();
}

/// Makes what RapidCheck makes when it is first used and keeps to the end: what it was told by the
/// environment, the list of those that supply draws, and a generator for each type that a property
/// takes as its argument or draws without saying more.
void BeginToUseRapidCheck() {
  rc::detail::checkTestable([] { static_cast<void>(*rc::gen::inRange(0, 1)); });
  KeepGenerators<char, unsigned int, std::vector<std::pair<bool, std::string>>>();
  KeepGeneratorsOfArguments<bool, int, unsigned long, double, std::string,
                            std::vector<std::string>>();
}

/// Makes what GoogleTest keeps to the end: the room for what the last death test wrote, and what the
/// first failure of all makes.
void BeginToUseGoogleTest() {
  testing::internal::DeathTest::set_last_death_test_message(std::string(1U << 16U, ' '));
  testing::TestPartResultArray failures;
  testing::ScopedFakeTestPartResultReporter const reporter(&failures);
  SCOPED_TRACE("");
  ADD_FAILURE();
}

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  MultiplyPropertyRuns();
  if (!testing::GTEST_FLAG(list_tests)) {
    BeginToUseRapidCheck();
    BeginToUseGoogleTest();
  }
  testing::UnitTest::GetInstance()->listeners().Append(new MemoryBalance);
  return RUN_ALL_TESTS();
}
