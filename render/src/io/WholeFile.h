#ifndef LAKRESVOS_RENDER_IO_WHOLEFILE_H
#define LAKRESVOS_RENDER_IO_WHOLEFILE_H

#include <filesystem>
#include <fstream>

namespace lakresvos::render {

/// Writes a file atomically: what is written goes to a draft beside it, which Commit() puts in its
/// place. Without Commit() the draft is deleted and the file stays as it was.
class WholeFile {
 public:
  /// @param path a file that is there keeps its permissions, a symbolic link to one stays a link.
  /// @throws std::system_error that names the file when it cannot be written or is no regular file.
  explicit WholeFile(std::filesystem::path const& path);
  WholeFile(WholeFile const&) = delete;
  WholeFile& operator=(WholeFile const&) = delete;

  std::ostream& Stream() { return stream_; }

  /// @throws std::system_error that names the file when any of it could not be written.
  void Commit();

 private:
  /// The file beside the target; goes with the object unless its path is empty.
  struct Draft {
    Draft() = default;
    Draft(Draft const&) = delete;
    Draft& operator=(Draft const&) = delete;
    ~Draft();

    std::filesystem::path path;
  };

  std::filesystem::path target_;
  Draft draft_;
  std::ofstream stream_;
};

}  // namespace lakresvos::render

#endif
