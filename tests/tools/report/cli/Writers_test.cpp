// What runs of the program leave when calls of the system fail or end it.

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>

#include "support/CannotRun.h"
#include "support/TemporaryDirectory.h"
#include "support/faults/WriteFaults.h"
#include "tools/report/cli/WrittenReport.h"

using Kind = WriteFault::Kind;

namespace {

constexpr char kFormer[] = "as it was";

/// Runs under faults.
class Writers : public testing::TestWithParam<char const*> {
 protected:
  void SetUp() override {
    if (!CanRunUnderFaults()) {
      CANNOT_RUN("this machine does not let a process watch the calls of another");
    }
    ASSERT_EQ(Run({}).ExitCode(), 0);
    expected_ = Written();
  }

  /// Clears what the last run left.
  void Prepare(bool replaces) {
    for (TemporaryDirectory const* directory : {&outputs_, &temporary_}) {
      for (auto const& entry : std::filesystem::directory_iterator(directory->Path(""))) {
        std::filesystem::remove(entry);
      }
    }
    if (replaces) {
      outputs_.Write("output", kFormer);
    }
  }

  FaultedRun Run(WriteFault const& fault) const {
    int const errors = creat(messages_.Path("errors").c_str(), 0600);
    FaultedRun const run =
        RunUnderFault(fault, [&] { return report_.Write(output_, temporary_.Path(""), errors); });
    close(errors);
    return run;
  }

  std::string Written() const { return report_.Read(output_); }

  /// The file is the former one or the new one, and nothing stands beside it.
  /// @param placing whether the fault may have befallen a file with a name that is to get another,
  ///                to which the new one is copied in the end.
  void ExpectOldOrNew(FaultedRun const& run, bool replaces, bool placing, std::string const& what) {
    bool const exists = std::filesystem::exists(output_);
    bool const isFormer = exists == replaces && Written() == (replaces ? kFormer : "");
    EXPECT_TRUE(isFormer || Written() == expected_) << what;
    // What is killed as it renames leaves a name, and so does what cannot remove it.
    bool const staysNamed = run.Befell("unlink");
    bool const mayLeaveOne = (run.Killed() && (run.Befell("rename") || placing)) || staysNamed;
    EXPECT_LE(outputs_.Entries(), (exists ? 1U : 0U) + (mayLeaveOne ? 1U : 0U)) << what;
    EXPECT_LE(temporary_.Entries(), staysNamed ? 1U : 0U) << what;
    if (!run.Killed()) {
      EXPECT_EQ(isFormer, run.ExitCode() != 0) << what;
    }
  }

  /// An error is one line that names the file, or where there is no room for temporary ones, and the
  /// reason.
  void ExpectMessage(FaultedRun const& run, int error, std::string const& what) const {
    std::string const message = ReadFile(messages_.Path("errors"));
    if (run.ExitCode() == 0) {
      EXPECT_EQ(message, "") << what;
      return;
    }
    EXPECT_EQ(run.ExitCode(), 2) << what;
    std::string const reason = std::string(": ") + std::strerror(error) + '\n';
    std::string const start = "lakresvos-report: ";
    std::string const more = report_.IsWorkbook() ? ": cannot write the workbook" : "";
    EXPECT_TRUE(message == start + output_ + reason || message == start + output_ + more + reason ||
                message ==
                    start + "cannot create a temporary file in " + temporary_.Path("") + reason)
        << what << message;
  }

  /// Each call that can change a file has the fault once, or from then on.
  void Sweep(WriteFault fault, bool replaces) {
    Prepare(replaces);
    std::size_t const calls = Run({.noUnnamed = fault.noUnnamed}).calls;
    for (fault.first = 1;; fault.first += kSweepStep) {
      Prepare(replaces);
      FaultedRun const run = Run(fault);
      std::string const call = run.faulted.empty() ? "none" : run.faulted.front();
      std::string const what =
          std::string(GetParam()) + ", call " + std::to_string(fault.first) + ", " + call + '\n';
      ExpectOldOrNew(run, replaces, fault.noUnnamed && 3 * fault.first > calls, what);
      if (fault.kind == Kind::Kill) {
        EXPECT_EQ(run.Killed(), !run.faulted.empty()) << what;
      } else {
        ExpectMessage(run, fault.error, what);
      }
      if (run.faulted.empty()) {
        break;
      }
    }
    EXPECT_GT(fault.first, 3U);
  }

  TemporaryDirectory messages_;
  TemporaryDirectory outputs_;
  TemporaryDirectory temporary_;
  WrittenReport report_{GetParam()};
  std::string output_ = outputs_.Path("output");
  std::string expected_;
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(Formats, Writers, EveryFormat(), FormatName);

TEST_P(Writers, KilledAtEachCall) {
  Sweep({Kind::Kill}, false);
  Sweep({Kind::Kill}, true);
}

TEST_P(Writers, DiskThatIsFullFromEachCallOn) {
  Sweep({Kind::Error, 1, true, ENOSPC}, false);
  Sweep({Kind::Error, 1, true, ENOSPC}, true);
}

TEST_P(Writers, DiskThatIsFullForOneCall) {
  Sweep({Kind::Error, 1, false, ENOSPC}, true);
}

TEST_P(Writers, DiskThatFailsFromEachCallOn) {
  Sweep({Kind::Error, 1, true, EIO}, true);
}

TEST_P(Writers, DiskThatFailsForOneCall) {
  Sweep({Kind::Error, 1, false, EIO}, true);
}

TEST_P(Writers, InterruptedCalls) {
  Sweep({Kind::Error, 1, false, EINTR}, true);
}

TEST_P(Writers, KilledAtEachCallWhereAllFilesHaveNames) {
  Sweep({.kind = Kind::Kill, .noUnnamed = true}, false);
  Sweep({.kind = Kind::Kill, .noUnnamed = true}, true);
}

TEST_P(Writers, DiskThatIsFullFromEachCallOnWhereAllFilesHaveNames) {
  Sweep({.kind = Kind::Error, .onwards = true, .error = ENOSPC, .noUnnamed = true}, false);
  Sweep({.kind = Kind::Error, .onwards = true, .error = ENOSPC, .noUnnamed = true}, true);
}

TEST_P(Writers, DiskThatFailsForOneCallWhereAllFilesHaveNames) {
  Sweep({.kind = Kind::Error, .error = EIO, .noUnnamed = true}, true);
}

TEST_P(Writers, InterruptedCallsWhereAllFilesHaveNames) {
  Sweep({.kind = Kind::Error, .error = EINTR, .noUnnamed = true}, true);
}

TEST_P(Writers, ShortWrites) {
  for (bool const replaces : {false, true}) {
    Prepare(replaces);
    FaultedRun const run = Run({Kind::Short, 1, true});
    EXPECT_EQ(run.ExitCode(), 0);
    EXPECT_TRUE(run.Befell("write"));
    EXPECT_TRUE(Written() == expected_);
    EXPECT_EQ(outputs_.Entries(), 1U);
  }
}

TEST_P(Writers, WhatAKilledRunLeavesGoesWithTheNextOne) {
  for (bool const noUnnamed : {false, true}) {
    Prepare(true);
    std::size_t left = 0;
    std::size_t const calls = Run({.noUnnamed = noUnnamed}).calls;
    outputs_.Write("output", kFormer);
    constexpr std::size_t kLast = 6;  // calls, in which the file is put in place
    WriteFault fault{.kind = Kind::Kill, .first = calls - kLast, .noUnnamed = noUnnamed};
    for (; !Run(fault).faulted.empty(); ++fault.first) {
      left = std::max(left, outputs_.Entries());
      outputs_.Write("output", kFormer);
    }
    EXPECT_EQ(left, 2U);
    EXPECT_TRUE(Written() == expected_);
    EXPECT_EQ(outputs_.Entries(), 1U);
  }
}
