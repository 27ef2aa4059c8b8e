#ifndef TESTS_TOOLS_REPORT_CLI_WRITTENREPORT_H
#define TESTS_TOOLS_REPORT_CLI_WRITTENREPORT_H

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>
#include <utility>
#include <vector>

#include "cli/Program.h"
#include "support/ChildProcess.h"
#include "support/TemporaryDirectory.h"
#include "support/ZipParts.h"

/// One report that is written again and again, in several pieces.
class WrittenReport {
 public:
  explicit WrittenReport(std::string format) : format_(std::move(format)) {
    int const categories = IsWorkbook() ? 750 : 3000;  // workbooks are written in smaller pieces
    std::string rows = "a,b\n";
    for (int i = 0; i < 4 * categories; ++i) {
      rows += std::to_string(i % categories) + "," + std::to_string(i % 3) + "\n";
    }
    std::string const data = inputs_.Write("data.csv", rows);
    EXPECT_EQ(RunInChild([&] {
                return Run({data, "--table", "a ~ b", "--format", "json", "-o", document_});
              }),
              0);
    std::filesystem::permissions(inputs_.Path(""), std::filesystem::perms::all);
  }

  bool IsWorkbook() const { return format_ == "xlsx"; }

  /// Runs the program in this process, which is to end then.
  /// @param errors a file that is open, to which goes what the program complains of.
  /// @return the exit status of the program.
  int Write(std::string const& output, std::string const& temporary, int errors) const {
    dup2(errors, STDERR_FILENO);
    setenv("TMPDIR", temporary.c_str(), 1);
    return Run({"--from", document_, "--threads", "2", "--format", format_, "-o", output});
  }

  /// What was written, but for the time in it.
  std::string Read(std::string const& output) const {
    std::string const bytes = ReadFile(output);
    return IsWorkbook() ? ZipParts(bytes, kTimePart) : bytes;
  }

 private:
  static int Run(std::vector<std::string> const& options) {
    std::vector<char const*> arguments{"lakresvos-report"};
    for (std::string const& option : options) {
      arguments.push_back(option.c_str());
    }
    return lakresvos::report::RunProgram(static_cast<int>(arguments.size()), arguments.data());
  }

  TemporaryDirectory inputs_;
  std::string format_;
  std::string document_ = inputs_.Path("document.json");
};

/// Every format that the program writes, to instantiate tests with.
inline auto EveryFormat() {
  return testing::Values("text", "html", "markdown", "csv", "json", "xlsx");
}

inline std::string FormatName(testing::TestParamInfo<char const*> const& info) {
  return info.param;
}

#endif
