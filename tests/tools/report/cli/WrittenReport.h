#ifndef TESTS_TOOLS_REPORT_CLI_WRITTENREPORT_H
#define TESTS_TOOLS_REPORT_CLI_WRITTENREPORT_H

#include <cstdlib>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>
#include <utility>
#include <vector>

#include "cli/Program.h"
#include "support/TemporaryDirectory.h"
#include "support/ZipParts.h"

/// One report that is written again and again, in several pieces.
class WrittenReport {
 public:
  explicit WrittenReport(std::string format) : format_(std::move(format)) {
    std::string rows = "a,b\n";
    for (int i = 0; i < 3000; ++i) {
      rows += std::to_string(i % 750) + "," + std::to_string(i % 4) + "\n";
    }
    data_ = inputs_.Write("data.csv", rows);
  }

  std::string const& Format() const { return format_; }

  bool IsWorkbook() const { return format_ == "xlsx"; }

  /// Runs the program in this process, which is to end then; what it complains of goes to a file
  /// that the process has open as `errors`.
  /// @return its exit status.
  int Write(std::string const& output, std::string const& temporary, int errors) const {
    dup2(errors, STDERR_FILENO);
    setenv("TMPDIR", temporary.c_str(), 1);
    std::vector<char const*> const arguments{
        "lakresvos-report", data_.c_str(),   "--table", "a ~ b",       "--threads", "2",
        "--format",         format_.c_str(), "-o",      output.c_str()};
    return lakresvos::report::RunProgram(static_cast<int>(arguments.size()), arguments.data());
  }

  /// What was written, but for the time in it.
  std::string Read(std::string const& output) const {
    std::string const bytes = ReadFile(output);
    return IsWorkbook() ? ZipParts(bytes, "docProps/core.xml") : bytes;
  }

 private:
  TemporaryDirectory inputs_;
  std::string format_;
  std::string data_;
};

/// Every format that the program writes, to instantiate tests with.
inline auto EveryFormat() {
  return testing::Values("text", "html", "markdown", "csv", "json", "xlsx");
}

inline std::string FormatName(testing::TestParamInfo<char const*> const& info) {
  return info.param;
}

#endif
