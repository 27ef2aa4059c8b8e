#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <iostream>
#include <streambuf>
#include <string>
#include <unistd.h>
#include <vector>

#include "cli/Program.h"
#include "support/TemporaryDirectory.h"
#include "support/faults/FailingNew.h"

using namespace lakresvos::report;

namespace {

/// Has standard output go to a file, until it is to go on.
class OutputToFile {
 public:
  explicit OutputToFile(std::string const& path) : before_(::dup(STDOUT_FILENO)) {
    std::fflush(stdout);
    int const file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    ::dup2(file, STDOUT_FILENO);
    ::close(file);
  }
  OutputToFile(OutputToFile const&) = delete;
  OutputToFile& operator=(OutputToFile const&) = delete;
  ~OutputToFile() {
    ::dup2(before_, STDOUT_FILENO);
    ::close(before_);
  }

 private:
  int before_;
};

/// Takes the messages, without asking for memory.
class Messages : public std::streambuf {
 public:
  Messages() : before_(std::cerr.rdbuf(this)) { setp(text_, text_ + sizeof text_); }
  Messages(Messages const&) = delete;
  Messages& operator=(Messages const&) = delete;
  ~Messages() override { std::cerr.rdbuf(before_); }

  std::string Text() const { return {pbase(), pptr()}; }

 private:
  std::streambuf* before_;
  char text_[4096] = {};
};

struct Outcome {
  int code;
  bool refused;
  std::string out;
  std::string err;
};

/// Runs the program in this process, with a request for memory refused.
Outcome RunWithout(std::size_t n, FailAfter::Mode mode, std::vector<char const*> const& arguments) {
  TemporaryDirectory const directory;
  std::string const path = directory.Path("out");
  Outcome outcome{};
  {
    Messages const messages;
    {
      OutputToFile const output(path);
      FailAfter const failing(n, mode);
      outcome.code = RunProgram(static_cast<int>(arguments.size()), arguments.data());
      outcome.refused = failing.HasRefused();
    }
    outcome.err = messages.Text();
  }
  outcome.out = ReadFile(path);
  return outcome;
}

/// Tries requests that lie closer at the start of the program than later.
void ExpectAllOrAMessage(std::vector<char const*> const& arguments) {
  constexpr std::size_t kAll = 1'000'000'000;
  Outcome const whole = RunWithout(kAll, FailAfter::Mode::Once, arguments);
  ASSERT_EQ(whole.code, 0) << whole.err;
  ASSERT_NE(whole.out, "");
  std::size_t failures = 0;
  for (FailAfter::Mode const mode : {FailAfter::Mode::FromThenOn, FailAfter::Mode::Once}) {
    for (std::size_t n = 1;; n += 1 + n / 32) {
      Outcome const outcome = RunWithout(n, mode, arguments);
      if (!outcome.refused) {
        break;
      }
      if (outcome.code == 0) {
        EXPECT_EQ(outcome.out, whole.out) << n;
      } else {
        ++failures;
        EXPECT_EQ(outcome.code, 2) << n;
        EXPECT_TRUE(outcome.err.starts_with("lakresvos-report: ")) << outcome.err;
        EXPECT_EQ(outcome.err.find('\n') + 1, outcome.err.size()) << outcome.err;
      }
    }
  }
  EXPECT_GT(failures, 100U);
}

}  // namespace

TEST(ProgramRefusedMemory, GivesTheWholeReportOrOneMessage) {
  TemporaryDirectory const directory;
  std::string const data =
      directory.Write("a.csv", "a,b,x,w\np,q,1.5,2\np,r,,1\nNA,q,2,1\ns,\"q\",3,1\n");
  std::string const style = directory.Write("style.json", R"({"data": {"font": "A font"}})");
  ExpectAllOrAMessage({"lakresvos-report", data.c_str(), "--table", "a ~ b", "--weight", "w",
                       "--style", style.c_str(), "--statistics", "count,mean:x", "--format",
                       "html"});
}

TEST(ProgramRefusedMemory, HoldsAWholeReportBackWithStrict) {
  TemporaryDirectory const directory;
  std::string const data = directory.Write("a.csv", "a,b\np,q\np,r\ns,q\n");
  ExpectAllOrAMessage({"lakresvos-report", data.c_str(), "--table", "a ~ b", "--strict"});
}

TEST(ProgramRefusedMemory, GivesTheWholeHelpOrOneMessage) {
  ExpectAllOrAMessage({"lakresvos-report", "--help"});
}
