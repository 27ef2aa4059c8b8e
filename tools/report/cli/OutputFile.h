#ifndef LAKRESVOS_REPORT_CLI_OUTPUTFILE_H
#define LAKRESVOS_REPORT_CLI_OUTPUTFILE_H

#include <ostream>
#include <string>

#include "cli/Descriptor.h"
#include "cli/DescriptorBuffer.h"

namespace lakresvos::report {

/// A file that is there as a whole or not at all.
///
/// What is written goes to a file without a name in the target's directory, which takes the target's
/// place in one step with Commit(), and its permissions if there was one. So nothing is left of it
/// when the program ends before, in whatever way. Without Commit() the target stays as it was.
///
/// A target that is no regular file (a terminal, a pipe) is written to directly. A symbolic link
/// stays and what it names is written, whether or not that is there yet. A file that may not be
/// written is not replaced.
class OutputFile {
 public:
  /// @throws InputError when the file cannot be written.
  explicit OutputFile(std::string const& name);
  OutputFile(OutputFile const&) = delete;
  OutputFile& operator=(OutputFile const&) = delete;

  std::ostream& Stream() { return stream_; }

  /// Puts the file in its place.
  /// @throws InputError when any of it could not be written.
  void Commit();

 private:
  [[noreturn]] void Fail(int error) const;
  Descriptor Open();
  Descriptor OpenBeside();
  int PutInPlace() const;
  int CopyInPlace() const;

  std::string name_;
  std::string target_;    // its name in its directory
  Descriptor directory_;  // of the target; none when it is written to directly
  Descriptor file_;
  DescriptorBuffer buffer_;
  std::ostream stream_;
};

}  // namespace lakresvos::report

#endif
