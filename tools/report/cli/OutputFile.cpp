#include "cli/OutputFile.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

#include <lakresvos/tabulate/InputError.h>

#include "cli/WriteAll.h"

namespace lakresvos::report {

namespace {

namespace fs = std::filesystem;

constexpr int kMaxLinks = 40;  // as many as the system follows
constexpr int kMaxTemporaries = 1000;
constexpr mode_t kPermissionBits = 07777;

/// Finds the path that a symbolic link leads to in the end, whether or not anything is there; nothing
/// when links form a loop.
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

/// Runs an action that no signal can interrupt.
template <class Action>
auto RunUninterrupted(Action action) {
  sigset_t all;
  sigset_t previous;
  sigfillset(&all);
  pthread_sigmask(SIG_BLOCK, &all, &previous);
  auto result = action();
  pthread_sigmask(SIG_SETMASK, &previous, nullptr);
  return result;
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

}  // namespace

OutputFile::OutputFile(std::string const& name)
    : name_(name), file_(Open()), buffer_(file_.Number()), stream_(&buffer_) {}

Descriptor OutputFile::Open() {
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
    file = OpenUnnamed();
  }
  if (!file.IsOpen()) {
    Fail(errno);
  }
  if (exists && directory_.IsOpen()) {
    static_cast<void>(::fchmod(file.Number(),
                               previous.st_mode & kPermissionBits));  // where there are permissions
  }
  return file;
}

/// Opens a file without a name in the target's directory. On a file system that has no such files,
/// removes the name at once.
Descriptor OutputFile::OpenUnnamed() {
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
  int const directory = directory_.Number();
  Descriptor file(::openat(directory, ".", O_TMPFILE | O_RDWR | O_CLOEXEC, 0666));
  if (file.IsOpen()) {
    return file;
  }
  return RunUninterrupted([directory] {
    Descriptor named;
    auto const [temporary, error] = MakeTemporary([&](char const* name) {
      named = CreateFile(directory, name);
      return GetError(named.IsOpen());
    });
    if (error == 0) {
      ::unlinkat(directory, temporary.c_str(), 0);
    }
    errno = error;
    return named;
  });
}

void OutputFile::Commit() {
  if (!stream_.flush()) {
    Fail(buffer_.Error());
  }
  int error = CloseDuplicate(file_.Number());
  if (error == 0 && directory_.IsOpen()) {
    error = RunUninterrupted([this] { return PutInPlace(); });
  }
  if (error != 0) {
    Fail(error);
  }
}

/// Gives the file the name of the target; 0 or the error.
int OutputFile::PutInPlace() const {
  std::string const file = "/proc/self/fd/" + std::to_string(file_.Number());
  int const directory = directory_.Number();
  auto const link = [&](char const* name) {
    return GetError(::linkat(AT_FDCWD, file.c_str(), directory, name, AT_SYMLINK_FOLLOW) == 0);
  };
  int error = link(target_.c_str());
  if (error == EEXIST) {
    auto const [temporary, found] = MakeTemporary(link);
    if (found == 0) {
      return RenameFile(directory, temporary, target_);
    }
    error = found;
  }
  return error == 0 ? 0 : CopyInPlace();
}

/// Replaces the target by a copy, for file systems on which a file without a name cannot get one.
int OutputFile::CopyInPlace() const {
  int const directory = directory_.Number();
  Descriptor copy;
  auto const [temporary, found] = MakeTemporary([&](char const* name) {
    copy = CreateFile(directory, name);
    return GetError(copy.IsOpen());
  });
  if (found != 0) {
    return found;
  }
  int error = CopyFile(file_.Number(), copy.Number());
  error = error == 0 ? CloseDuplicate(copy.Number()) : error;
  if (error != 0) {
    ::unlinkat(directory, temporary.c_str(), 0);
    return error;
  }
  return RenameFile(directory, temporary, target_);
}

void OutputFile::Fail(int error) const {
  throw tabulate::InputError(name_ + ": " + std::generic_category().message(error));
}

}  // namespace lakresvos::report
