#ifndef LAKRESVOS_RENDER_OUTPUTFILE_H
#define LAKRESVOS_RENDER_OUTPUTFILE_H

#include <filesystem>
#include <memory>
#include <ostream>
#include <string>

#include <lakresvos/render/Export.h>

namespace lakresvos::render {

/// A file to render to that is written as a whole or not at all.
///
/// What is written goes to a file without a name in the target's directory. Commit() replaces the
/// target with it in one step, and keeps the target's permissions; the new file belongs to the
/// writer. So nothing is left over when the program ends earlier, in whatever way, and without
/// Commit() the target stays as it was.
///
/// - To replace a file, the new one has a temporary name (".lakresvos-0", or a higher number) beside
///   it, between one call of the system and the next, and while it is copied where a file system
///   has no files without names. Signals wait that long. What a process that is killed there leaves
///   goes when the next file of the directory is replaced.
/// - Nothing is forced to the disk: what is there after a power cut is the file system's affair.
/// - A target that is no regular file (a terminal, a pipe) is written to directly, and so is an open
///   file of this process, to which /dev/stdout leads, at its position.
/// - A symbolic link is kept and what it names is replaced, or made if it does not exist.
/// - A file without write permission is not replaced.
///
/// Thread safety: none; one thread at a time uses the object. Several objects may have one target,
/// in one process or in several: the last Commit() counts.
class LAKRESVOS_RENDER_EXPORT OutputFile {
 public:
  /// @param path the target.
  /// @throws std::system_error whose what() is the path and the reason, when the target cannot be
  ///         written.
  explicit OutputFile(std::filesystem::path const& path);

  /// Writes to an open file directly, whatever it is; for standard output.
  /// @param descriptor open for writing; the caller keeps it, open as long as the object lives.
  /// @param name what errors call it.
  OutputFile(int descriptor, std::string const& name);

  OutputFile(OutputFile const&) = delete;
  OutputFile& operator=(OutputFile const&) = delete;

  /// Closes; what was not committed is lost.
  ~OutputFile();

  /// Where to write; valid as long as the object, and not to be written to after Commit().
  std::ostream& Stream();

  /// Writes all there is and replaces the target. Once that is done, another call does nothing.
  /// @throws std::system_error whose what() is the path or name and the reason, when any of it
  ///         could not be written; the reason is EIO when the stream is not good for another cause.
  ///         The target is as it was then, unless it is written to directly.
  void Commit();

 private:
  class Target;

  std::unique_ptr<Target> target_;
};

}  // namespace lakresvos::render

#endif
