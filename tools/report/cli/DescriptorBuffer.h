#ifndef LAKRESVOS_REPORT_CLI_DESCRIPTORBUFFER_H
#define LAKRESVOS_REPORT_CLI_DESCRIPTORBUFFER_H

#include <streambuf>
#include <vector>

namespace lakresvos::report {

/// Writes to an open file and remembers the system's reason when it cannot.
///
/// What is not flushed is lost.
class DescriptorBuffer : public std::streambuf {
 public:
  /// @param descriptor an open file, which stays the caller's.
  explicit DescriptorBuffer(int descriptor);

  /// The error number of the first write that failed; 0 when none has.
  int Error() const { return error_; }

 protected:
  int_type overflow(int_type c) override;
  int sync() override;

 private:
  int descriptor_;
  int error_ = 0;
  std::vector<char> pending_;
};

}  // namespace lakresvos::report

#endif
