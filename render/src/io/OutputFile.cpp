#include <array>
#include <cerrno>
#include <charconv>
#include <fcntl.h>
#include <optional>
#include <string>
#include <sys/file.h>
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

/// Zero, or the error of the system call that failed.
int GetError(bool done) {
  return done ? 0 : errno;
}

/// The open file of this process that a path names, as what /dev/stdout leads to does.
std::optional<int> FindOpenFile(fs::path const& path) {
  std::error_code ignored;
  std::string const name = path.filename();
  int number = 0;
  auto const [end, error] = std::from_chars(name.data(), name.data() + name.size(), number);
  if (error != std::errc() || *end != '\0' || !path.has_parent_path() ||
      !fs::equivalent(path.parent_path(), "/proc/self/fd", ignored)) {
    return std::nullopt;
  }
  return number;
}

/// Finds the path that a symbolic link leads to in the end, whether or not anything is there;
/// nothing when links form a loop.
std::optional<fs::path> FollowLinks(fs::path path) {
  std::error_code error;
  for (int links = 0; links <= kMaxLinks; ++links) {
    fs::path const next = fs::read_symlink(path, error);
    if (error || FindOpenFile(path).has_value()) {
      return path;
    }
    path = path.parent_path() / next;
  }
  return std::nullopt;
}

// A process that is killed may leave a file with a temporary name. While a process works on one, it
// holds a lock on it, which goes with the process.

bool LockTemporary(int file) {
  return ::flock(file, LOCK_EX | LOCK_NB) == 0;
}

bool AreSame(struct stat const& one, struct stat const& other) {
  return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

/// Removes a file with a temporary name if no process works on it.
/// @return whether the name may be free now.
bool RemoveAbandoned(int directory, char const* name) {
  Descriptor const file(::openat(directory, name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
  if (!file.IsOpen()) {
    return errno == ENOENT;
  }
  struct stat locked {};
  struct stat named {};
  // Nobody else renames or removes what is locked; it may have been renamed before that.
  return LockTemporary(file.Number()) && ::fstat(file.Number(), &locked) == 0 &&
         ::fstatat(directory, name, &named, AT_SYMLINK_NOFOLLOW) == 0 && S_ISREG(named.st_mode) &&
         AreSame(locked, named) && ::unlinkat(directory, name, 0) == 0;
}

/// Tries temporary names other than the target's until `make` returns anything but EEXIST; returns
/// the last name and the result of `make` for it. After that it needs no memory.
template <class Make>
std::pair<std::string, int> MakeTemporary(int directory, std::string const& target, Make make) {
  std::string name;
  int error = EEXIST;
  for (int number = 0; error == EEXIST && number < kMaxTemporaries; ++number) {
    name = ".lakresvos-" + std::to_string(number);
    if (name == target) {
      continue;
    }
    error = make(name.c_str());
    if (error == EEXIST && RemoveAbandoned(directory, name.c_str())) {
      error = make(name.c_str());
    }
  }
  return {std::move(name), error};
}

/// Locks a file that this process has just created, and tells whether another process took it for
/// an abandoned one before that, and has removed it or is about to. No process does on file systems
/// without locks.
bool IsTakenOnLocking(int file) {
  if (!LockTemporary(file)) {
    return errno == EWOULDBLOCK;
  }
  struct stat state {};
  return ::fstat(file, &state) == 0 && state.st_nlink == 0;
}

/// Creates a file with a temporary name and locks it; not open when that fails, and errno says why.
Descriptor CreateLocked(int directory, char const* name) {
  Descriptor file(::openat(directory, name, O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
  if (file.IsOpen() && IsTakenOnLocking(file.Number())) {
    file = Descriptor();
    errno = EEXIST;
  }
  return file;
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
  int const duplicate = ::fcntl(descriptor, F_DUPFD_CLOEXEC, 0);
  return GetError(duplicate >= 0 && (::close(duplicate) == 0 || errno == EINTR));
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

/// Creates a file without a name in the directory of a target; not open when that fails, and errno
/// says why. On a file system that has no such files, removes the name at once.
Descriptor OpenUnnamed(int directory, std::string const& target) {
  Descriptor file(::openat(directory, ".", O_TMPFILE | O_RDWR | O_CLOEXEC, 0666));
  if (file.IsOpen()) {
    return file;
  }
  SignalsHeld const held;
  auto const [temporary, error] = MakeTemporary(directory, target, [&](char const* name) {
    file = CreateLocked(directory, name);
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
  auto const [temporary, found] = MakeTemporary(directory, target, [&](char const* name) {
    copy = CreateLocked(directory, name);
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
    LockTemporary(file);
    auto const [temporary, found] = MakeTemporary(directory, target, link);
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
      Fail(buffer_.Error() != 0 ? buffer_.Error() : EIO);
    }
    int error = file_.IsOpen() ? CloseDuplicate(file_.Number()) : 0;
    if (error == 0 && directory_.IsOpen()) {
      error = PutInPlace(file_.Number(), directory_.Number(), target_);
    }
    if (error != 0) {
      Fail(error);
    }
    directory_ = Descriptor();
  }

 private:
  Descriptor Open() {
    std::optional<fs::path> const path = FollowLinks(name_);
    if (!path.has_value()) {
      Fail(ELOOP);
    }
    std::optional<int> const open = FindOpenFile(*path);
    Descriptor file =
        open.has_value() ? Descriptor(::fcntl(*open, F_DUPFD_CLOEXEC, 0)) : OpenFile(*path);
    if (!file.IsOpen()) {
      Fail(errno);
    }
    return file;
  }

  Descriptor OpenFile(fs::path const& path) {
    struct stat previous {};
    bool const exists = ::stat(name_.c_str(), &previous) == 0;
    if (!exists && errno != ENOENT) {
      return Descriptor();
    }
    if (exists && ::eaccess(name_.c_str(), W_OK) != 0) {
      return Descriptor();
    }
    if (exists && !S_ISREG(previous.st_mode)) {
      return OpenDirectly();
    }
    target_ = path.filename();
    std::string const parent = path.has_parent_path() ? path.parent_path() : ".";
    directory_ = Descriptor(::open(parent.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!directory_.IsOpen()) {
      return Descriptor();
    }
    Descriptor file = OpenUnnamed(directory_.Number(), target_);
    if (exists && file.IsOpen()) {
      static_cast<void>(
          ::fchmod(file.Number(),
                   previous.st_mode & kPermissionBits));  // where there are permissions
    }
    return file;
  }

  /// A named pipe is open once somebody reads it, and waiting for that may be interrupted.
  Descriptor OpenDirectly() const {
    int file = -1;
    do {
      file = ::open(name_.c_str(), O_WRONLY | O_CLOEXEC);
    } while (file < 0 && errno == EINTR);
    return Descriptor(file);
  }

  [[noreturn]] void Fail(int error) const {
    throw std::system_error(error, std::generic_category(), name_);
  }

  std::string name_;
  std::string target_;    // its name in the directory
  Descriptor directory_;  // of the target; not open when that is written to directly, or in place
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
