#ifndef LAKRESVOS_RENDER_TEMPORARYFILE_H
#define LAKRESVOS_RENDER_TEMPORARYFILE_H

#include <string>

namespace lakresvos::render {

/// A file that goes with the object, in the directory that TMPDIR names or else in /tmp.
class TemporaryFile {
 public:
  /// @throws std::runtime_error when there can be none.
  TemporaryFile();
  TemporaryFile(TemporaryFile const&) = delete;
  TemporaryFile& operator=(TemporaryFile const&) = delete;
  ~TemporaryFile();

  std::string const& Name() const { return name_; }
  int Descriptor() const { return descriptor_; }  ///< to read from and to write to

 private:
  std::string name_;
  int descriptor_;
};

}  // namespace lakresvos::render

#endif
