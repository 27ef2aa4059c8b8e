#include "harness/Target.h"

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <cells/OmMemoryRegion.h>

#include "harness/ProcessorTime.h"
#include "support/Assertions.h"
#include "support/TemporaryDirectory.h"

void Exercise(std::string_view input) {
  if (input == "assertion") {
    RC_ASSERT(input.empty());
  } else if (input == "discarded") {
    RC_PRE(input.empty());
  } else if (input == "expectation") {
    EXPECT_EQ(input, "");
  } else if (input == "exception") {
    throw std::runtime_error("exception");
  } else if (input == "left") {
    OmMemoryRegion::DefaultHeap()->Allocate(16);
  } else if (input == "left on the general heap") {
    static std::vector<std::string> kept;
    kept.emplace_back(100, 'x');
  } else if (input == "made once") {
    static std::string const once(100, 'x');
  } else if (input == "65 MB in a thread") {
    std::thread([] { std::string const large(65U << 20U, 'x'); }).join();
  } else if (input == "slow") {
    for (double const start = ProcessorTime(); ProcessorTime() - start < 1.01;) {
    }
  } else if (input.starts_with("65 MB")) {
    std::string const large(65U << 20U, 'x');
  }
}

namespace {

int RunOn(std::string const& input) noexcept {
  return LLVMFuzzerTestOneInput(reinterpret_cast<std::uint8_t const*>(input.data()), input.size());
}

}  // namespace

TEST(FuzzTarget, LetsInputsPassThatBreakNothing) {
  EXPECT_EQ(RunOn(""), 0);
  EXPECT_EQ(RunOn("discarded"), 0);
  EXPECT_EXIT(std::_Exit(RunOn("made once")), testing::ExitedWithCode(0), "");
}

TEST(FuzzTarget, ReportsWhatAPropertyAsserts) {
  EXPECT_ABORT(RunOn("assertion"), "finding: ");
}

TEST(FuzzTarget, ReportsWhatATestExpects) {
  EXPECT_DEATH(RunOn("expectation"), "");
}

TEST(FuzzTarget, ReportsExceptions) {
  EXPECT_ABORT(RunOn("exception"), "exception");
}

TEST(FuzzTarget, ReportsMemoryBeyondWhatTheInputNeeds) {
  EXPECT_ABORT(RunOn("65 MB"), "finding: .* bytes of memory for an input of 5");
  EXPECT_ABORT(RunOn("65 MB in a thread"), "finding: .* bytes of memory for an input of 17");
  EXPECT_EQ(RunOn("65 MB" + std::string(1024, ' ')), 0);
}

TEST(FuzzTarget, ReportsMemoryThatIsLeft) {
  EXPECT_ABORT(RunOn("left"), "finding: memory is left: .* on the default heap");
  EXPECT_ABORT(RunOn("left on the general heap"),
               "finding: memory is left: .* on the general heap");
}

TEST(FuzzTarget, KeepsInputsThatTakeMoreThanASecondWhereAskedTo) {
  TemporaryDirectory const folder;
  EXPECT_EQ(RunOn("slow"), 0);
  setenv(kSlowInputs, folder.Path("").c_str(), 1);
  EXPECT_EQ(RunOn("quick"), 0);
  EXPECT_EQ(folder.Entries(), 0U);
  EXPECT_EQ(RunOn("slow"), 0);
  unsetenv(kSlowInputs);
  ASSERT_EQ(folder.Entries(), 1U);
  auto const kept = std::filesystem::directory_iterator(folder.Path(""));
  EXPECT_EQ(ReadFile(kept->path()), "slow");
}
