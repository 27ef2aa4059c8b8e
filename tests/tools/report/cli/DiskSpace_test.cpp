// What runs of the program leave on a disk that has room for some of what they write.

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <string>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/CannotRun.h"
#include "support/ChildProcess.h"
#include "support/TemporaryDirectory.h"
#include "support/faults/WriteFaults.h"
#include "tools/report/cli/WrittenReport.h"

namespace {

constexpr char kFormer[] = "as it was";

enum Outcome { IsNew, IsAsItWas, IsDamaged, HasMore, IsWrongStatus, HasNoDisk };

class DiskSpace : public testing::TestWithParam<char const*> {
 protected:
  void SetUp() override {
    if (!CanEnterOwnMounts()) {
      CANNOT_RUN("this machine does not let tests mount a disk");
    }
    ASSERT_EQ(RunInChild([&] { return report_.Write(output_, disk_.Path(""), STDERR_FILENO); }), 0);
    expected_ = report_.Read(output_);
    std::filesystem::remove(output_);
  }

  /// Writes to a disk of this many pages of memory, which has temporary files too.
  Outcome WriteToDisk(int pages, bool replaces) const {
    int const errors = creat(messages_.Path("errors").c_str(), 0600);
    int const status = RunInChild([&] {
      std::string const size = "size=" + std::to_string(pages * sysconf(_SC_PAGESIZE));
      if (!EnterOwnMounts() ||
          mount("none", disk_.Path("").c_str(), "tmpfs", 0, size.c_str()) != 0) {
        return HasNoDisk;
      }
      if (replaces) {
        disk_.Write("output", kFormer);
      }
      return Judge(report_.Write(output_, disk_.Path(""), errors), replaces);
    });
    close(errors);
    EXPECT_TRUE(WIFEXITED(status));
    return static_cast<Outcome>(WEXITSTATUS(status));
  }

  Outcome Judge(int exitCode, bool replaces) const {
    bool const exists = std::filesystem::exists(output_);
    if (disk_.Entries() != (exists ? 1U : 0U)) {
      return HasMore;
    }
    std::string const written = report_.Read(output_);
    if (written == expected_) {
      return exitCode == 0 ? IsNew : IsWrongStatus;
    }
    bool const isFormer = exists == replaces && written == (replaces ? kFormer : "");
    return !isFormer ? IsDamaged : exitCode == 2 ? IsAsItWas : IsWrongStatus;
  }

  void FillEverySize(bool replaces) const {
    std::string message = "lakresvos-report: " + output_;
    message += report_.IsWorkbook() ? ": cannot write the workbook: " : ": ";
    message += std::strerror(ENOSPC);
    message += '\n';
    int pages = 1;
    for (Outcome outcome = IsAsItWas; outcome != IsNew; pages += kSweepStep) {
      outcome = WriteToDisk(pages, replaces);
      ASSERT_LE(outcome, IsAsItWas) << pages << " pages";
      EXPECT_EQ(ReadFile(messages_.Path("errors")), outcome == IsNew ? "" : message)
          << pages << " pages";
    }
    EXPECT_GT(pages, 5);
  }

  TemporaryDirectory messages_;
  TemporaryDirectory disk_;
  WrittenReport report_{GetParam()};
  std::string output_ = disk_.Path("output");
  std::string expected_;
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(Formats, DiskSpace, EveryFormat(), FormatName);

TEST_P(DiskSpace, HasTheWholeFileOrNone) {
  FillEverySize(false);
}

TEST_P(DiskSpace, HasTheWholeFileOrTheFormerOne) {
  FillEverySize(true);
}
