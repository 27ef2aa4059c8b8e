#include <array>
#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

#include <lakresvos/render/OutputFile.h>

#include "io/Descriptor.h"
#include "io/DescriptorBuffer.h"
#include "io/SignalsHeld.h"
#include "io/WriteAll.h"

namespace lakresvos::render {

namespace {

namespace fs = std::filesystem;

constexpr int kMaxLinks = 40;  // as many as the system follows
constexpr int kMaxTemporaries = 1000;
constexpr mode_t kPermissionBits = 07777;

/// Finds the path that a symbolic link leads to in the end, whether or not anything is there;
/// nothing when links form a loop.
std::optional<fs::path> FollowLinks(fs::path path) {
  std::error_code error;
  for (int links = 0; links <= kMaxLinks; ++links) {
    fs::path const next = fs::read_symlink(path, error);
    if (error) {
      return path;
    }
    path = path.parent_path() / next;
  }
  return std::nullopt;
}

/// Tries temporary names until `make` returns anything but EEXIST; returns the last name and the
/// result of `make` for it.
template <class Make>
std::pair<std::string, int> MakeTemporary(Make make) {
  std::string const start = ".lakresvos-" + std::to_string(::getpid()) + "-";
  std::string name;
  int error = EEXIST;
  for (int number = 0; error == EEXIST && number < kMaxTemporaries; ++number) {
    name = start + std::to_string(number);
    error = make(name.c_str());
  }
  return {name, error};
}

Descriptor CreateFile(int directory, char const* name) {
  return Descriptor(::openat(directory, name, O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
}

/// Zero, or the error of the system call that failed.
int GetError(bool done) {
  return done ? 0 : errno;
}

/// Copies a whole file with its permissions; 0 or the error.
int CopyFile(int from, int to) {
  std::array<char, 1 << 16> piece{};
  off_t at = 0;
  while (ssize_t const count = ::pread(from, piece.data(), piece.size(), at)) {
    if (count < 0 || !WriteAll(to, {piece.data(), static_cast<std::size_t>(count)})) {
      return errno;
    }
    at += count;
  }
  struct stat state {};
  return GetError(::fstat(from, &state) == 0 && ::fchmod(to, state.st_mode & kPermissionBits) == 0);
}

/// Closes a duplicate, as some file systems report only on closing that there was no room.
int CloseDuplicate(int descriptor) {
  return GetError(::close(::dup(descriptor)) == 0);
}

/// Renames a temporary file to the target, or removes it when that fails.
int RenameFile(int directory, std::string const& temporary, std::string const& target) {
  int const error =
      GetError(::renameat(directory, temporary.c_str(), directory, target.c_str()) == 0);
  if (error != 0) {
    ::unlinkat(directory, temporary.c_str(), 0);
  }
  return error;
}

/// Creates a file without a name in a directory; not open when that fails, and errno says why. On a
/// file system that has no such files, removes the name at once.
Descriptor OpenUnnamed(int directory) {
  Descriptor file(::openat(directory, ".", O_TMPFILE | O_RDWR | O_CLOEXEC, 0666));
  if (file.IsOpen()) {
    return file;
  }
  SignalsHeld const held;
  auto const [temporary, error] = MakeTemporary([&](char const* name) {
    file = CreateFile(directory, name);
    return GetError(file.IsOpen());
  });
  if (error == 0) {
    ::unlinkat(directory, temporary.c_str(), 0);
  }
  errno = error;
  return file;
}

/// Replaces a target by a copy of a file; 0 or the error.
int CopyInPlace(int file, int directory, std::string const& target) {
  Descriptor copy;
  auto const [temporary, found] = MakeTemporary([&](char const* name) {
    copy = CreateFile(directory, name);
    return GetError(copy.IsOpen());
  });
  if (found != 0) {
    return found;
  }
  int error = CopyFile(file, copy.Number());
  error = error == 0 ? CloseDuplicate(copy.Number()) : error;
  if (error != 0) {
    ::unlinkat(directory, temporary.c_str(), 0);
    return error;
  }
  return RenameFile(directory, temporary, target);
}

/// Gives a file without a name the name of the target, or copies it there on file systems on which
/// such a file cannot get a name; 0 or the error.
int PutInPlace(int file, int directory, std::string const& target) {
  SignalsHeld const held;
  std::string const source = "/proc/self/fd/" + std::to_string(file);
  auto const link = [&](char const* name) {
    return GetError(::linkat(AT_FDCWD, source.c_str(), directory, name, AT_SYMLINK_FOLLOW) == 0);
  };
  int error = link(target.c_str());
  if (error == EEXIST) {
    auto const [temporary, found] = MakeTemporary(link);
    if (found == 0) {
      return RenameFile(directory, temporary, target);
    }
    error = found;
  }
  return error == 0 ? 0 : CopyInPlace(file, directory, target);
}

}  // namespace

class OutputFile::Target {
 public:
  explicit Target(fs::path const& path)
      : name_(path.string()), file_(Open()), buffer_(file_.Number()) {}

  Target(int descriptor, std::string const& name) : name_(name), buffer_(descriptor) {}

  std::ostream& Stream() { return stream_; }

  void Commit() {
    if (!stream_.flush()) {
      Fail(buffer_.Error());
    }
    int error = file_.IsOpen() ? CloseDuplicate(file_.Number()) : 0;
    if (error == 0 && directory_.IsOpen()) {
      error = PutInPlace(file_.Number(), directory_.Number(), target_);
    }
    if (error != 0) {
      Fail(error);
    }
  }

 private:
  Descriptor Open() {
    struct stat previous {};
    bool const exists = ::stat(name_.c_str(), &previous) == 0;
    if (!exists && errno != ENOENT) {
      Fail(errno);
    }
    if (exists && ::eaccess(name_.c_str(), W_OK) != 0) {
      Fail(errno);
    }
    Descriptor file;
    if (exists && !S_ISREG(previous.st_mode)) {
      file = Descriptor(::open(name_.c_str(), O_WRONLY | O_CLOEXEC));
    } else {
      FindTarget();
      file = OpenUnnamed(directory_.Number());
    }
    if (!file.IsOpen()) {
      Fail(errno);
    }
    if (exists && directory_.IsOpen()) {
      static_cast<void>(
          ::fchmod(file.Number(),
                   previous.st_mode & kPermissionBits));  // where there are permissions
    }
    return file;
  }

  /// Finds the file to replace, and opens its directory.
  void FindTarget() {
    std::optional<fs::path> const path = FollowLinks(name_);
    if (!path.has_value()) {
      Fail(ELOOP);
    }
    target_ = path->filename();
    std::string const parent = path->has_parent_path() ? path->parent_path() : ".";
    directory_ = Descriptor(::open(parent.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!directory_.IsOpen()) {
      Fail(errno);
    }
  }

  [[noreturn]] void Fail(int error) const {
    throw std::system_error(error, std::generic_category(), name_);
  }

  std::string name_;
  std::string target_;    // its name in the directory
  Descriptor directory_;  // of the target; not open when that is written to directly
  Descriptor file_;       // not open when the caller's is
  DescriptorBuffer buffer_;
  std::ostream stream_{&buffer_};
};

OutputFile::OutputFile(fs::path const& path) : target_(std::make_unique<Target>(path)) {}

OutputFile::OutputFile(int descriptor, std::string const& name)
    : target_(std::make_unique<Target>(descriptor, name)) {}

OutputFile::~OutputFile() = default;

std::ostream& OutputFile::Stream() {
  return target_->Stream();
}

void OutputFile::Commit() {
  target_->Commit();
}

}  // namespace lakresvos::render
