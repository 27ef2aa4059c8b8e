#ifndef TESTS_TOOLS_REPORT_CLI_REPORTRUN_H
#define TESTS_TOOLS_REPORT_CLI_REPORTRUN_H

#include <cstdlib>
#include <string>
#include <sys/wait.h>
#include <vector>

#include "cli/ShellWord.h"
#include "support/TemporaryDirectory.h"

/// The result of one run of the program.
struct ReportRun {
  int exitCode;
  std::string out;
  std::string err;
};

/// Runs the program with these arguments.
inline ReportRun RunReport(std::vector<std::string> const& arguments) {
  TemporaryDirectory const directory;
  std::string command = LAKRESVOS_REPORT_PROGRAM;
  for (std::string const& argument : arguments) {
    command += ' ';
    command += lakresvos::report::QuoteShellWord(argument);
  }
  command += " >" + directory.Path("out") + " 2>" + directory.Path("err");
  int const status = std::system(command.c_str());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ReadFile(directory.Path("out")),
          ReadFile(directory.Path("err"))};
}

/// The path of a data set that comes with the project.
inline std::string DataPath(std::string const& name) {
  return std::string(LAKRESVOS_DATA_DIRECTORY) + "/" + name;
}

#endif
