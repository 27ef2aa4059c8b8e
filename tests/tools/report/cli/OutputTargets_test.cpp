// What the program does with outputs of every kind, in every format.

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/CannotRun.h"
#include "support/ChildProcess.h"
#include "support/TemporaryDirectory.h"
#include "tools/report/cli/WrittenReport.h"

namespace fs = std::filesystem;

namespace {

constexpr char kFormer[] = "as it was";

class OutputTargets : public testing::TestWithParam<char const*> {
 protected:
  OutputTargets() {
    for (TemporaryDirectory const* directory : {&outputs_, &temporary_}) {
      fs::permissions(directory->Path(""), fs::perms::all);
    }
    EXPECT_EQ(Write(messages_.Path("expected")), 0);
    expected_ = report_.Read(messages_.Path("expected"));
  }

  /// Runs the program in a process that makes itself ready before.
  /// @return the status as waitpid() gives it.
  template <class Prepare>
  int WriteAfter(Prepare prepare, std::string const& output) const {
    int const errors = creat(messages_.Path("errors").c_str(), 0600);
    int const status = RunInChild([&] {
      prepare();
      return report_.Write(output, temporary_.Path(""), errors);
    });
    close(errors);
    return status;
  }

  int Write(std::string const& output) const {
    return WriteAfter([] {}, output);
  }

  std::string Message() const { return ReadFile(messages_.Path("errors")); }

  /// The run failed for this reason, and said so.
  void ExpectFailure(int status, std::string const& output, int error) const {
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 2);
    EXPECT_EQ(Message(), "lakresvos-report: " + output + ": " + std::strerror(error) + '\n');
    EXPECT_EQ(temporary_.Entries(), 0U);
  }

  void ExpectSuccess(int status, std::string const& file) const {
    EXPECT_EQ(status, 0);
    EXPECT_EQ(Message(), "");
    EXPECT_TRUE(report_.Read(file) == expected_);
    EXPECT_EQ(temporary_.Entries(), 0U);
  }

  /// A new file and a former one in a directory that a run with this preparation may not change.
  template <class Prepare>
  void ExpectUnchanged(Prepare prepare, int error) const {
    std::string const former = outputs_.Write("former", kFormer);
    fs::permissions(former, fs::perms::all);
    for (std::string const& output : {outputs_.Path("new"), former}) {
      ExpectFailure(WriteAfter(prepare, output), output, error);
      EXPECT_EQ(ReadFile(former), kFormer);
      EXPECT_EQ(outputs_.Entries(), 1U);
    }
  }

  /// The superuser may change whatever others may not.
  static void BecomeNobody() {
    constexpr uid_t kNobody = 65534;
    if (geteuid() == 0 && setuid(kNobody) != 0) {
      _exit(3);
    }
  }

  TemporaryDirectory messages_;
  TemporaryDirectory outputs_;
  TemporaryDirectory temporary_;
  WrittenReport report_{GetParam()};
  std::string expected_;
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(Formats, OutputTargets, EveryFormat(), FormatName);

TEST_P(OutputTargets, DirectoryThatDoesNotExist) {
  for (char const* name : {"none/output", "none/"}) {
    ExpectFailure(Write(outputs_.Path(name)), outputs_.Path(name), ENOENT);
  }
  EXPECT_EQ(outputs_.Entries(), 0U);
}

TEST_P(OutputTargets, FileAsDirectory) {
  outputs_.Write("file", kFormer);
  ExpectFailure(Write(outputs_.Path("file/output")), outputs_.Path("file/output"), ENOTDIR);
  EXPECT_EQ(ReadFile(outputs_.Path("file")), kFormer);
}

TEST_P(OutputTargets, Directory) {
  fs::create_directory(outputs_.Path("output"));
  ExpectFailure(Write(outputs_.Path("output")), outputs_.Path("output"), EISDIR);
  EXPECT_TRUE(fs::is_empty(outputs_.Path("output")));
  EXPECT_EQ(outputs_.Entries(), 1U);
}

TEST_P(OutputTargets, LinkToAFile) {
  outputs_.Write("file", kFormer);
  fs::create_symlink("file", outputs_.Path("link"));
  ExpectSuccess(Write(outputs_.Path("link")), outputs_.Path("file"));
  EXPECT_TRUE(fs::is_symlink(outputs_.Path("link")));
  EXPECT_EQ(outputs_.Entries(), 2U);
}

TEST_P(OutputTargets, DanglingLink) {
  fs::create_symlink("file", outputs_.Path("link"));
  ExpectSuccess(Write(outputs_.Path("link")), outputs_.Path("file"));
  EXPECT_TRUE(fs::is_symlink(outputs_.Path("link")));
  EXPECT_EQ(outputs_.Entries(), 2U);
}

TEST_P(OutputTargets, LinkIntoADirectoryThatDoesNotExist) {
  fs::create_symlink("none/file", outputs_.Path("link"));
  ExpectFailure(Write(outputs_.Path("link")), outputs_.Path("link"), ENOENT);
  EXPECT_TRUE(fs::is_symlink(outputs_.Path("link")));
  EXPECT_EQ(outputs_.Entries(), 1U);
}

TEST_P(OutputTargets, DirectoryThatMayNotBeChanged) {
  fs::permissions(outputs_.Path(""),
                  fs::perms::owner_all | fs::perms::others_read | fs::perms::others_exec);
  auto const prepare = [&] {
    chmod(outputs_.Path("").c_str(), 0555);
    BecomeNobody();
  };
  ExpectUnchanged(prepare, EACCES);
  fs::permissions(outputs_.Path(""), fs::perms::all);
}

TEST_P(OutputTargets, FileSystemThatMayNotBeChanged) {
  if (!CanEnterOwnMounts()) {
    CANNOT_RUN("this machine does not let tests mount a file system");
  }
  auto const prepare = [&] {
    std::string const path = outputs_.Path("");
    constexpr unsigned long kReadOnly = MS_REMOUNT | MS_BIND | MS_RDONLY;
    if (!EnterOwnMounts() || mount(path.c_str(), path.c_str(), nullptr, MS_BIND, nullptr) != 0 ||
        mount(nullptr, path.c_str(), nullptr, kReadOnly, nullptr) != 0) {
      _exit(3);
    }
  };
  ExpectUnchanged(prepare, EROFS);
}

TEST_P(OutputTargets, FileThatMayNotBeChanged) {
  std::string const former = outputs_.Write("former", kFormer);
  fs::permissions(former, fs::perms::owner_read | fs::perms::others_read);
  ExpectFailure(WriteAfter(BecomeNobody, former), former, EACCES);
  EXPECT_EQ(ReadFile(former), kFormer);
  EXPECT_EQ(outputs_.Entries(), 1U);
}

TEST_P(OutputTargets, FullDevice) {
  ExpectFailure(Write("/dev/full"), "/dev/full", ENOSPC);
  EXPECT_TRUE(fs::is_character_file("/dev/full"));
}

TEST_P(OutputTargets, NullDevice) {
  EXPECT_EQ(Write("/dev/null"), 0);
  EXPECT_EQ(Message(), "");
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST_P(OutputTargets, StandardOutputThatIsAppended) {
  std::string const log = outputs_.Write("log", kFormer);
  for (std::size_t runs = 1; runs <= 2; ++runs) {
    auto const prepare = [&] { dup2(open(log.c_str(), O_WRONLY | O_APPEND), STDOUT_FILENO); };
    std::string const before = ReadFile(log);
    EXPECT_EQ(WriteAfter(prepare, "/dev/stdout"), 0);
    std::string const after = ReadFile(log);
    EXPECT_TRUE(after.starts_with(before));
    std::string const added = outputs_.Write("added", after.substr(before.size()));
    EXPECT_TRUE(report_.Read(added) == expected_);
  }
  EXPECT_EQ(outputs_.Entries(), 2U);
}

TEST_P(OutputTargets, ClosedPipeEndsTheProgramWithoutAWord) {
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  close(ends[0]);
  auto const prepare = [&] {
    std::signal(SIGPIPE, SIG_DFL);
    dup2(ends[1], STDOUT_FILENO);
  };
  int const status = WriteAfter(prepare, "/dev/stdout");
  EXPECT_TRUE(WIFSIGNALED(status));
  EXPECT_EQ(WTERMSIG(status), SIGPIPE);
  EXPECT_EQ(Message(), "");
  EXPECT_EQ(temporary_.Entries(), 0U);
  close(ends[1]);
}

TEST_P(OutputTargets, ClosedPipeIsAnErrorWhereItsSignalIsIgnored) {
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  close(ends[0]);
  auto const prepare = [&] {
    std::signal(SIGPIPE, SIG_IGN);
    dup2(ends[1], STDOUT_FILENO);
  };
  ExpectFailure(WriteAfter(prepare, "/dev/stdout"), "/dev/stdout", EPIPE);
  close(ends[1]);
}
