#ifndef LAKRESVOS_RENDER_IO_DESCRIPTORBUFFER_H
#define LAKRESVOS_RENDER_IO_DESCRIPTORBUFFER_H

#include <streambuf>
#include <vector>

namespace lakresvos::render {

/// A stream buffer that writes to a file descriptor and keeps the error when it cannot.
///
/// What is not flushed is lost.
class DescriptorBuffer : public std::streambuf {
 public:
  /// @param descriptor open for writing; the caller keeps it and closes it.
  explicit DescriptorBuffer(int descriptor);

  /// The error number of the first write that failed; 0 when none failed.
  int Error() const { return error_; }

 protected:
  int_type overflow(int_type c) override;
  int sync() override;

 private:
  int descriptor_;
  int error_ = 0;
  std::vector<char> pending_;
};

}  // namespace lakresvos::render

#endif
