#ifndef TOOLS_REPORT_OUTPUTFILE_H
#define TOOLS_REPORT_OUTPUTFILE_H

#include <filesystem>
#include <fstream>
#include <ostream>
#include <string>

namespace lakresvos::report {

/// A file that is there as a whole or not at all.
///
/// What is written goes to a file beside the target, which takes the target's place in one step
/// with Commit(), and its permissions if there was one. Without Commit() the target stays as it
/// was. A target that is no regular file (a terminal, a pipe) is written to directly.
class OutputFile {
 public:
  /// @throws ReportError when the file cannot be written.
  explicit OutputFile(std::string const& name);
  OutputFile(OutputFile const&) = delete;
  OutputFile& operator=(OutputFile const&) = delete;

  /// Removes what was not committed.
  ~OutputFile();

  std::ostream& Stream() { return stream_; }

  /// Puts the file in its place.
  /// @throws ReportError when any of it could not be written.
  void Commit();

 private:
  [[noreturn]] void Fail(int error) const;
  void OpenBeside();

  std::string name_;
  std::filesystem::path target_;
  std::filesystem::path draft_;  // empty when the target is written to directly or is in place
  std::ofstream stream_;
};

}  // namespace lakresvos::report

#endif
