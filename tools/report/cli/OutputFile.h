#ifndef LAKRESVOS_REPORT_CLI_OUTPUTFILE_H
#define LAKRESVOS_REPORT_CLI_OUTPUTFILE_H

#include <ostream>
#include <string>

#include "cli/Descriptor.h"
#include "cli/DescriptorBuffer.h"

namespace lakresvos::report {

/// A file that is written as a whole or not at all.
///
/// What is written goes to a file without a name in the target's directory. Commit() replaces the
/// target with it in one step, and keeps the target's permissions. So nothing is left over when the
/// program ends earlier, in whatever way, and without Commit() the target stays as it was.
///
/// A target that is no regular file (a terminal, a pipe) is written to directly. A symbolic link is
/// kept and what it names is replaced, or made if it does not exist. A file without write permission
/// is not replaced.
class OutputFile {
 public:
  /// @throws InputError when the file cannot be written.
  explicit OutputFile(std::string const& name);
  OutputFile(OutputFile const&) = delete;
  OutputFile& operator=(OutputFile const&) = delete;

  std::ostream& Stream() { return stream_; }

  /// Replaces the target.
  /// @throws InputError when any of it could not be written.
  void Commit();

 private:
  [[noreturn]] void Fail(int error) const;
  Descriptor Open();
  Descriptor OpenUnnamed();
  int PutInPlace() const;
  int CopyInPlace() const;

  std::string name_;
  std::string target_;    // its name in the directory
  Descriptor directory_;  // of the target; not open when that is written to directly
  Descriptor file_;
  DescriptorBuffer buffer_;
  std::ostream stream_;
};

}  // namespace lakresvos::report

#endif
