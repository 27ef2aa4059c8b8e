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

constexpr int kMostLinks = 40;  // as many as the system follows
constexpr int kMostDrafts = 1000;
constexpr mode_t kAccess = 07777;

/// The path that a symbolic link leads to in the end, whether or not anything is there; nothing when
/// links go in a circle.
std::optional<fs::path> BehindLinks(fs::path path) {
  std::error_code error;
  for (int links = 0; links <= kMostLinks; ++links) {
    fs::path const next = fs::read_symlink(path, error);
    if (error) {
      return path;
    }
    path = path.parent_path() / next;
  }
  return std::nullopt;
}

/// Runs an action that no signal can end halfway.
template <class Action>
auto Undisturbed(Action action) {
  sigset_t all;
  sigset_t former;
  sigfillset(&all);
  pthread_sigmask(SIG_BLOCK, &all, &former);
  auto result = action();
  pthread_sigmask(SIG_SETMASK, &former, nullptr);
  return result;
}

/// Tries names beside the target, for the moment in which one is needed, until `make` does not say
/// EEXIST; gives the name and what it said.
template <class Make>
std::pair<std::string, int> MakeDraft(Make make) {
  std::string const start = ".lakresvos-" + std::to_string(::getpid()) + "-";
  std::string name;
  int error = EEXIST;
  for (int number = 0; error == EEXIST && number < kMostDrafts; ++number) {
    name = start + std::to_string(number);
    error = make(name.c_str());
  }
  return {name, error};
}

Descriptor Create(int directory, char const* name) {
  return Descriptor(::openat(directory, name, O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
}

int ErrorUnless(bool done) {
  return done ? 0 : errno;
}

/// Copies a whole file with its permissions; 0 or the reason why not.
int Copy(int from, int to) {
  std::array<char, 1 << 16> piece{};
  off_t at = 0;
  while (ssize_t const count = ::pread(from, piece.data(), piece.size(), at)) {
    if (count < 0 || !WriteAll(to, {piece.data(), static_cast<std::size_t>(count)})) {
      return errno;
    }
    at += count;
  }
  struct stat state {};
  return ErrorUnless(::fstat(from, &state) == 0 && ::fchmod(to, state.st_mode & kAccess) == 0);
}

/// Some file systems say only on closing that there was no room.
int CloseCopyOf(int descriptor) {
  return ErrorUnless(::close(::dup(descriptor)) == 0);
}

/// Puts the draft in the target's place or, if it cannot be there, removes it.
int Rename(int directory, std::string const& draft, std::string const& target) {
  int const error =
      ErrorUnless(::renameat(directory, draft.c_str(), directory, target.c_str()) == 0);
  if (error != 0) {
    ::unlinkat(directory, draft.c_str(), 0);
  }
  return error;
}

}  // namespace

OutputFile::OutputFile(std::string const& name)
    : name_(name), file_(Open()), buffer_(file_.Number()), stream_(&buffer_) {}

Descriptor OutputFile::Open() {
  struct stat former {};
  bool const exists = ::stat(name_.c_str(), &former) == 0;
  if (!exists && errno != ENOENT) {
    Fail(errno);
  }
  if (exists && ::eaccess(name_.c_str(), W_OK) != 0) {
    Fail(errno);
  }
  Descriptor file;
  if (exists && !S_ISREG(former.st_mode)) {
    file = Descriptor(::open(name_.c_str(), O_WRONLY | O_CLOEXEC));
  } else {
    file = OpenBeside();
  }
  if (!file.IsOpen()) {
    Fail(errno);
  }
  if (exists && directory_.IsOpen()) {
    static_cast<void>(::fchmod(file.Number(), former.st_mode & kAccess));  // where there are any
  }
  return file;
}

/// Opens a file without a name in the target's directory. Where the file system has no such files,
/// it loses its name at once.
Descriptor OutputFile::OpenBeside() {
  std::optional<fs::path> const path = BehindLinks(name_);
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
  return Undisturbed([directory] {
    Descriptor named;
    auto const [draft, error] = MakeDraft([&](char const* name) {
      named = Create(directory, name);
      return ErrorUnless(named.IsOpen());
    });
    if (error == 0) {
      ::unlinkat(directory, draft.c_str(), 0);
    }
    errno = error;
    return named;
  });
}

void OutputFile::Commit() {
  if (!stream_.flush()) {
    Fail(buffer_.Error());
  }
  int error = CloseCopyOf(file_.Number());
  if (error == 0 && directory_.IsOpen()) {
    error = Undisturbed([this] { return PutInPlace(); });
  }
  if (error != 0) {
    Fail(error);
  }
}

/// Gives the file its name; 0 or the reason why it cannot have it.
int OutputFile::PutInPlace() const {
  std::string const file = "/proc/self/fd/" + std::to_string(file_.Number());
  int const directory = directory_.Number();
  auto const link = [&](char const* name) {
    return ErrorUnless(::linkat(AT_FDCWD, file.c_str(), directory, name, AT_SYMLINK_FOLLOW) == 0);
  };
  int error = link(target_.c_str());
  if (error == EEXIST) {
    auto const [draft, found] = MakeDraft(link);
    if (found == 0) {
      return Rename(directory, draft, target_);
    }
    error = found;
  }
  return error == 0 ? 0 : CopyInPlace();
}

/// For a file system on which a file without a name cannot get one.
int OutputFile::CopyInPlace() const {
  int const directory = directory_.Number();
  Descriptor copy;
  auto const [draft, found] = MakeDraft([&](char const* name) {
    copy = Create(directory, name);
    return ErrorUnless(copy.IsOpen());
  });
  if (found != 0) {
    return found;
  }
  int error = Copy(file_.Number(), copy.Number());
  error = error == 0 ? CloseCopyOf(copy.Number()) : error;
  if (error != 0) {
    ::unlinkat(directory, draft.c_str(), 0);
    return error;
  }
  return Rename(directory, draft, target_);
}

void OutputFile::Fail(int error) const {
  throw tabulate::InputError(name_ + ": " + std::generic_category().message(error));
}

}  // namespace lakresvos::report
