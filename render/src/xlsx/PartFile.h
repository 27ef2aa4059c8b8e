#ifndef LAKRESVOS_RENDER_XLSX_PARTFILE_H
#define LAKRESVOS_RENDER_XLSX_PARTFILE_H

#include <cstdio>
#include <set>

namespace lakresvos::render {

/// The files in which the XLSX library keeps parts of a workbook until it is complete: those that it
/// makes in this thread as long as the object lives, and no younger one does.
///
/// The library has them made by a function that can be replaced, lxw_tmpfile(). It does not see when
/// they cannot be written: on a full disk, a workbook would be whole by all its checksums and lack
/// rows. Neither does it close all of them when it fails. The files made here have no names, tell of
/// their errors, and are closed in the end.
class PartFiles {
 public:
  PartFiles();
  PartFiles(PartFiles const&) = delete;
  PartFiles& operator=(PartFiles const&) = delete;

  /// The library must be done with the files.
  ~PartFiles();

  /// Whether any file was made. A library that was loaded before this one has a function of its own
  /// make them.
  bool HasMade() const { return made_; }

  /// The error number of the first call that failed; 0 when none failed.
  int Error() const { return error_; }

  /// Makes a file, which the library may close; null when that fails.
  std::FILE* Make();

 private:
  struct Part;

  void Keep(int error);

  bool made_ = false;
  int error_ = 0;
  std::set<Part*> open_;
  PartFiles* former_;
};

}  // namespace lakresvos::render

#endif
