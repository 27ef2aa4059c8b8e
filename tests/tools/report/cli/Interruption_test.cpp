// What runs of the program leave when a signal ends them.

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "tools/report/cli/ReportRun.h"

namespace {

constexpr char const* kFormats[] = {"text", "html", "markdown", "csv", "json", "xlsx"};
constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP, SIGXFSZ, SIGKILL};

/// A run of the program that writes `output`, with temporary files in `temporary`.
class Run {
 public:
  Run(std::string const& data, std::string const& format, std::string const& output,
      std::string const& temporary) {
    process_ = fork();
    if (process_ == 0) {
      // Runs in the background ignore some.
      for (int const signal : kSignals) {
        std::signal(signal, SIG_DFL);
      }
      setenv("TMPDIR", temporary.c_str(), 1);
      execl(LAKRESVOS_REPORT_PROGRAM, "lakresvos-report", data.c_str(), "--table", "a ~ b | c",
            "--format", format.c_str(), "-o", output.c_str(), nullptr);
      _exit(127);
    }
  }

  void Send(int signal) const { kill(process_, signal); }

  /// Waits for the end and returns the status.
  int End() const {
    int status = 0;
    waitpid(process_, &status, 0);
    return status;
  }

 private:
  pid_t process_;
};

std::string Data() {
  std::string data = "a,b,c\n";
  for (int i = 0; i < 2000; ++i) {
    data +=
        std::to_string(i % 300) + "," + std::to_string(i % 7) + "," + std::to_string(i % 5) + "\n";
  }
  return data;
}

/// Ends runs with signals at moments spread over their duration.
void InterruptRuns(std::string const& format, bool replaces) {
  TemporaryDirectory const inputs;
  TemporaryDirectory const outputs;
  std::string const data = inputs.Write("data.csv", Data());
  std::string const output = outputs.Path("output");
  using Clock = std::chrono::steady_clock;
  Clock::time_point const start = Clock::now();
  EXPECT_EQ(Run(data, format, output, inputs.Path("")).End(), 0);
  Clock::duration const whole = Clock::now() - start;
  int ended = 0;
  constexpr int kMoments = 15;
  for (int moment = 0; moment < kMoments; ++moment) {
    int const signal = kSignals[static_cast<std::size_t>(moment) % std::size(kSignals)];
    std::remove(output.c_str());
    if (replaces) {
      outputs.Write("output", "as it was");
    }
    TemporaryDirectory const temporary;
    Run const run(data, format, output, temporary.Path(""));
    std::this_thread::sleep_for(whole * moment / kMoments);
    run.Send(signal);
    int const status = run.End();
    bool const finished = WIFEXITED(status);
    ended += finished ? 0 : 1;
    if (finished) {
      EXPECT_EQ(WEXITSTATUS(status), 0);
    } else {
      EXPECT_EQ(WTERMSIG(status), signal);
    }
    bool const written = std::filesystem::exists(output) && ReadFile(output) != "as it was";
    std::size_t const names = written || replaces ? 1 : 0;
    // A run that is killed just before it renames leaves a name.
    std::size_t const most = replaces && signal == SIGKILL && !written ? 2 : names;
    EXPECT_GE(outputs.Entries(), names) << format << " " << moment;
    EXPECT_LE(outputs.Entries(), most) << format << " " << moment;
    EXPECT_EQ(temporary.Entries(), 0U) << format << " " << moment;
  }
  EXPECT_GT(ended, 0);
}

}  // namespace

TEST(Interruption, LeavesNothingOfAnyFormat) {
  for (char const* format : kFormats) {
    InterruptRuns(format, false);
  }
}

TEST(Interruption, LeavesNothingBesideAFileThatWasThere) {
  for (char const* format : kFormats) {
    InterruptRuns(format, true);
  }
}

TEST(Interruption, AFileThatMayNotGrowIsAnError) {
  for (char const* format : kFormats) {
    TemporaryDirectory const directory;
    TemporaryDirectory const temporary;
    std::string const data = directory.Write("data.csv", Data());
    std::string const output = directory.Write("output", "as it was");
    std::string const command =
        "ulimit -f 4; TMPDIR=" + temporary.Path("") + " " LAKRESVOS_REPORT_PROGRAM " " + data +
        " --table 'a ~ b | c' --format " + format + " -o " + output + " 2>" + directory.Path("err");
    EXPECT_EQ(WEXITSTATUS(std::system(command.c_str())), 2) << format;
    std::string const complaint = ReadFile(directory.Path("err"));
    std::string const what = std::string(format) == "xlsx" ? ": cannot write the workbook" : "";
    EXPECT_EQ(complaint, "lakresvos-report: " + output + what + ": File too large\n");
    EXPECT_EQ(ReadFile(output), "as it was");
    EXPECT_EQ(directory.Entries(), 3U) << format;
    EXPECT_EQ(temporary.Entries(), 0U) << format;
  }
}
