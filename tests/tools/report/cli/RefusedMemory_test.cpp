#include <algorithm>
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
#include "support/ZipParts.h"
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

/// More than any run asks for.
constexpr std::size_t kNever = 1'000'000'000;

struct Outcome {
  int code;
  bool refused;
  std::string out;
  std::string err;
};

/// Runs the program in this process, with a request for memory refused in whatever thread makes it.
Outcome RunWithout(std::size_t n, FailAfter::Mode mode, std::vector<char const*> const& arguments) {
  TemporaryDirectory const directory;
  std::string const path = directory.Path("out");
  Outcome outcome{};
  {
    Messages const messages;
    {
      OutputToFile const output(path);
      FailAfter const failing(n, mode, FailAfter::Threads::All);
      outcome.code = RunProgram(static_cast<int>(arguments.size()), arguments.data());
      outcome.refused = failing.HasRefused();
    }
    outcome.err = messages.Text();
  }
  outcome.out = ReadFile(path);
  return outcome;
}

/// How many requests the program makes; threads make now more and now less.
std::size_t CountRequests(std::vector<char const*> const& arguments) {
  std::size_t most = kNever;
  for (std::size_t least = 0; least < most;) {
    std::size_t const n = least + (most - least) / 2;
    if (RunWithout(n + 1, FailAfter::Mode::Once, arguments).refused) {
      least = n + 1;
    } else {
      most = n;
    }
  }
  return most;
}

/// For TryRequests(): the first requests one by one, then each one further on by a part of its number.
constexpr std::size_t kMany = 32;
constexpr std::size_t kFew = 8;

/// Runs the program with single requests refused and with all from one on, and checks whether it
/// does all that it is to do or gives one message. Of many requests, more are tried at the start and
/// the end, which come before and after the work; of those between, others alone than with all that
/// follow.
/// @param part  the larger, the more are tried.
/// @param check called after each run; also after one without failures, which is returned.
template <class Check>
Outcome TryRequests(std::vector<char const*> const& arguments, std::size_t part, Check check) {
  constexpr std::size_t kEnd = 40;
  std::size_t const requests = CountRequests(arguments);
  Outcome whole = RunWithout(kNever, FailAfter::Mode::Once, arguments);
  EXPECT_EQ(whole.code, 0) << whole.err;
  check(whole, kNever);
  std::size_t failures = 0;
  for (FailAfter::Mode const mode : {FailAfter::Mode::FromThenOn, FailAfter::Mode::Once}) {
    std::size_t const dense = mode == FailAfter::Mode::Once ? part + 1 : part;
    for (std::size_t n = 1; n <= requests;) {
      Outcome const outcome = RunWithout(n, mode, arguments);
      check(outcome, n);
      if (outcome.code == 0) {
        EXPECT_EQ(ZipParts(outcome.out, kTimePart), ZipParts(whole.out, kTimePart)) << n;
        EXPECT_EQ(outcome.err, whole.err) << n;
      } else {
        ++failures;
        EXPECT_EQ(outcome.code, 2) << n;
        EXPECT_TRUE(whole.out.starts_with(outcome.out)) << n << outcome.out;
        EXPECT_TRUE(outcome.err.starts_with("lakresvos-report: ")) << outcome.err;
        EXPECT_EQ(outcome.err.find('\n') + 1, outcome.err.size()) << outcome.err;
      }
      n = std::max(n + 1, std::min(n < dense ? n + 1 : n + 1 + n / part,
                                   requests - std::min(requests, kEnd)));
    }
  }
  EXPECT_GT(failures, 50U);
  return whole;
}

/// What a run that fails may have written before.
enum class Before { Nothing, AnyPart };

void ExpectAllOrAMessage(std::vector<char const*> const& arguments, Before before,
                         std::size_t part = kMany) {
  Outcome const whole = TryRequests(arguments, part, [&](Outcome const& outcome, std::size_t n) {
    if (outcome.code != 0 && before == Before::Nothing) {
      EXPECT_EQ(outcome.out, "") << n;
    }
  });
  EXPECT_NE(whole.out, "");
}

}  // namespace

TEST(ProgramRefusedMemory, GivesTheWholeReportOrOneMessage) {
  TemporaryDirectory const directory;
  std::string const data =
      directory.Write("a.csv", "a,b,x,w\np,q,1.5,2\np,r,,1\nNA,q,2,1\ns,\"q\",3,1\n");
  std::string const style = directory.Write("style.json", R"({"data": {"font": "A font"}})");
  ExpectAllOrAMessage(
      {"lakresvos-report", data.c_str(), "--table", "a ~ b", "--weight", "w", "--style",
       style.c_str(), "--statistics", "count,mean:x", "--format", "html"},
      Before::AnyPart);
}

TEST(ProgramRefusedMemory, HoldsAWholeReportBackWithStrict) {
  TemporaryDirectory const directory;
  std::string const data = directory.Write("a.csv", "a,b\np,q\np,r\ns,q\n");
  ExpectAllOrAMessage({"lakresvos-report", data.c_str(), "--table", "a ~ b", "--strict"},
                      Before::Nothing);
}

TEST(ProgramRefusedMemory, GivesTheWholeHelpOrOneMessage) {
  ExpectAllOrAMessage({"lakresvos-report", "--help"}, Before::AnyPart);
}

TEST(ProgramRefusedMemory, ReplacesTheFileOrGivesOneMessage) {
  TemporaryDirectory const directory;
  std::string const data = directory.Write("a.csv", "a,b,x,w\np,q,1,1\nq,q,y,2\nq,r,2,\nr\n");
  std::string const output = directory.Path("out.txt");
  std::vector<char const*> const arguments = {
      "lakresvos-report", data.c_str(), "--table", "a ~ b",       "--weight", "w",
      "--statistics",     "mean:x",     "-o",      output.c_str()};
  std::string report;
  Outcome const whole = TryRequests(arguments, kMany, [&](Outcome const& outcome, std::size_t n) {
    if (report.empty()) {
      report = ReadFile(output);
    }
    EXPECT_EQ(ReadFile(output), outcome.code == 0 ? report : "former") << n;
    EXPECT_EQ(directory.Entries(), 2u) << n;
    directory.Write("out.txt", "former");
  });
  EXPECT_NE(report, "");
  EXPECT_NE(whole.err, "");
}

// The other formats and sources

class ProgramRefusedMemoryRun : public testing::TestWithParam<std::vector<char const*>> {
 protected:
  TemporaryDirectory const directory;
  std::string const data =
      directory.Write("a.csv", "a,b,x,w\np,q,1.5,2\np,r,,1\nNA,q,2,1\ns,\"q\",3,1\np,r,4,1\n");
};

TEST_P(ProgramRefusedMemoryRun, GivesTheWholeReportOrOneMessage) {
  std::vector<char const*> arguments{"lakresvos-report", data.c_str()};
  arguments.insert(arguments.end(), GetParam().begin(), GetParam().end());
  ExpectAllOrAMessage(arguments, Before::AnyPart, kFew);
}

TEST_P(ProgramRefusedMemoryRun, ReplacesTheFileOrGivesOneMessage) {
  std::string const output = directory.Write("out", "former");
  std::vector<char const*> arguments{"lakresvos-report", data.c_str(), "-o", output.c_str()};
  arguments.insert(arguments.end(), GetParam().begin(), GetParam().end());
  std::string report;
  TryRequests(arguments, kFew, [&](Outcome const& outcome, std::size_t n) {
    std::string const written = ZipParts(ReadFile(output), kTimePart);
    report = report.empty() ? written : report;
    EXPECT_EQ(written == report, outcome.code == 0) << n;
    EXPECT_EQ(written == "former", outcome.code != 0) << n;
    EXPECT_EQ(directory.Entries(), 2u) << n;
    directory.Write("out", "former");
  });
}

INSTANTIATE_TEST_SUITE_P(
    EveryFormat, ProgramRefusedMemoryRun,
    testing::Values(std::vector<char const*>{"--table", "a ~ b", "--format", "text"},
                    std::vector<char const*>{"--table", "a ~ b", "--format", "csv", "--totals"},
                    std::vector<char const*>{"--table", "a / b ~", "--format", "json"},
                    std::vector<char const*>{"--table", "a ~ b", "--format", "markdown", "--group",
                                             "a: g = p, s"},
                    std::vector<char const*>{"--table", "a ~ b", "--format", "xlsx"},
                    std::vector<char const*>{"--table", "a ~ b", "--format", "html", "--threads",
                                             "3"}));

TEST(ProgramRefusedMemory, GivesTheWholeDocumentThatItReadsOrOneMessage) {
  TemporaryDirectory const directory;
  std::string const data = directory.Write("a.csv", "a,b\np,q\np,r\ns,q\n");
  std::string const document = directory.Path("a.json");
  std::vector<char const*> const write = {
      "lakresvos-report", data.c_str(), "--table", "a ~ b",
      "--format",         "json",       "-o",      document.c_str()};
  ASSERT_EQ(RunWithout(kNever, FailAfter::Mode::Once, write).code, 0);
  ExpectAllOrAMessage({"lakresvos-report", "--from", document.c_str(), "--format", "text"},
                      Before::AnyPart, kFew);
}

TEST(ProgramRefusedMemory, GivesTheWholeChartOrOneMessage) {
  TemporaryDirectory const directory;
  std::string const data = directory.Write("a.csv", "a,b\np,q\np,r\ns,q\n");
  ExpectAllOrAMessage(
      {"lakresvos-report", data.c_str(), "--table", "a ~ b", "--chart", "--format", "html"},
      Before::AnyPart, kFew);
}
