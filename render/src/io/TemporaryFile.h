#ifndef LAKRESVOS_RENDER_IO_TEMPORARYFILE_H
#define LAKRESVOS_RENDER_IO_TEMPORARYFILE_H

#include <string>

namespace lakresvos::render {

/// Opens a file as TemporaryFile has one, which the caller closes.
/// @param directory where; null: where TemporaryFile has it.
/// @return -1 when that fails; errno says why.
int OpenTemporaryFile(char const* directory = nullptr);

/// A file without a name that goes with the object or with the process, however that ends, in the
/// directory that TMPDIR names or else in /tmp.
class TemporaryFile {
 public:
  /// @throws std::runtime_error that says why, when it cannot be created.
  TemporaryFile();
  TemporaryFile(TemporaryFile const&) = delete;
  TemporaryFile& operator=(TemporaryFile const&) = delete;
  ~TemporaryFile();

  /// A path by which this process, and no other, can open the file once more.
  std::string Path() const { return "/proc/self/fd/" + std::to_string(descriptor_); }

  int Descriptor() const { return descriptor_; }  ///< to read from and to write to

 private:
  int descriptor_;
};

}  // namespace lakresvos::render

#endif
