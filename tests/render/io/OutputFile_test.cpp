#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <ios>
#include <string>
#include <string_view>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <system_error>
#include <unistd.h>
#include <utility>

#include <lakresvos/render/OutputFile.h>

#include "io/Descriptor.h"
#include "support/TemporaryDirectory.h"
#include "support/faults/FailingNew.h"

using lakresvos::render::Descriptor;
using lakresvos::render::OutputFile;

namespace fs = std::filesystem;

namespace {

enum class FileSystem { Whole, WithoutUnnamedFiles, WithoutLinking };

FileSystem fileSystem = FileSystem::Whole;

bool hasRemovedFirstTemporary = false;

/// Another process that takes the next file to be locked for an abandoned one: locks it just before,
/// removes it just after, and has a file of its own by that name as long as the object lives.
class Remover {
 public:
  Remover() { active = this; }
  Remover(Remover const&) = delete;
  Remover& operator=(Remover const&) = delete;
  ~Remover() { active = nullptr; }

  static bool IsWaiting() { return active != nullptr; }

  static int Meet(int file, int operation) {
    Remover& remover = *std::exchange(active, nullptr);
    fs::path const path = fs::read_symlink("/proc/self/fd/" + std::to_string(file));
    Descriptor const found(::open(path.c_str(), O_RDONLY));
    syscall(SYS_flock, found.Number(), LOCK_EX);
    auto const result = static_cast<int>(syscall(SYS_flock, file, operation));
    int const error = errno;
    fs::remove(path);
    remover.own_ = Descriptor(::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL, 0600));
    syscall(SYS_flock, remover.own_.Number(), LOCK_EX);
    errno = error;
    return result;
  }

 private:
  inline static Remover* active = nullptr;

  Descriptor own_;
};

/// No file grows beyond a few bytes while the object lives.
class SmallFiles {
 public:
  explicit SmallFiles(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &former_);
    rlimit const small{bytes, former_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
  }
  SmallFiles(SmallFiles const&) = delete;
  SmallFiles& operator=(SmallFiles const&) = delete;
  ~SmallFiles() {
    setrlimit(RLIMIT_FSIZE, &former_);
    std::signal(SIGXFSZ, handler_);
  }

 private:
  rlimit former_{};
  void (*handler_)(int);
};

/// The text of the error of the system that `action` ends with; "none" when it ends without.
template <class Action>
std::string ErrorOf(Action action) {
  try {
    action();
  } catch (std::system_error const& error) {
    return error.what();
  }
  return "none";
}

}  // namespace

// These override those of the C library, to test without what some file systems lack.
extern "C" int openat(int directory, char const* name, int flags, ...) {
  if (fileSystem == FileSystem::WithoutUnnamedFiles && (flags & O_TMPFILE) == O_TMPFILE) {
    errno = EOPNOTSUPP;
    return -1;
  }
  std::va_list more;
  va_start(more, flags);
  auto const mode = va_arg(more, mode_t);
  va_end(more);
  return static_cast<int>(syscall(SYS_openat, directory, name, flags, mode));
}

extern "C" int linkat(int from, char const* name, int to, char const* newName, int flags) noexcept {
  if (fileSystem == FileSystem::WithoutLinking) {
    errno = ENOENT;
    return -1;
  }
  return static_cast<int>(syscall(SYS_linkat, from, name, to, newName, flags));
}

extern "C" int unlinkat(int directory, char const* name, int flags) noexcept {
  hasRemovedFirstTemporary = hasRemovedFirstTemporary || std::string_view(name) == ".lakresvos-0";
  return static_cast<int>(syscall(SYS_unlinkat, directory, name, flags));
}

extern "C" int flock(int file, int operation) noexcept {
  return Remover::IsWaiting() ? Remover::Meet(file, operation)
                              : static_cast<int>(syscall(SYS_flock, file, operation));
}

TEST(OutputFile, IsThereAfterCommit) {
  TemporaryDirectory const directory;
  {
    OutputFile file(directory.Path("out.txt"));
    file.Stream() << "text";
    EXPECT_FALSE(fs::exists(directory.Path("out.txt")));
    file.Commit();
  }
  EXPECT_EQ(ReadFile(directory.Path("out.txt")), "text");
  EXPECT_EQ(directory.Entries(), 1u);
}

TEST(OutputFile, LeavesNothingWithoutCommit) {
  TemporaryDirectory const directory;
  {
    OutputFile file(directory.Path("out.txt"));
    file.Stream() << "text";
  }
  EXPECT_EQ(directory.Entries(), 0u);
}

TEST(OutputFile, KeepsTheOldFileWithoutCommit) {
  TemporaryDirectory const directory;
  directory.Write("out.txt", "before");
  {
    OutputFile file(directory.Path("out.txt"));
    file.Stream() << "after";
  }
  EXPECT_EQ(ReadFile(directory.Path("out.txt")), "before");
  EXPECT_EQ(directory.Entries(), 1u);
}

TEST(OutputFile, KeepsThePermissionsOfTheOldFile) {
  TemporaryDirectory const directory;
  std::string const path = directory.Write("out.txt", "before");
  fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write | fs::perms::others_read);
  OutputFile file(path);
  file.Stream() << "after";
  file.Commit();
  EXPECT_EQ(ReadFile(path), "after");
  EXPECT_EQ(fs::status(path).permissions(),
            fs::perms::owner_read | fs::perms::owner_write | fs::perms::others_read);
}

TEST(OutputFile, WritesWhatALinkNames) {
  TemporaryDirectory const directory;
  std::string const path = directory.Write("out.txt", "before");
  fs::create_symlink(path, directory.Path("link.txt"));
  OutputFile file(directory.Path("link.txt"));
  file.Stream() << "after";
  file.Commit();
  EXPECT_TRUE(fs::is_symlink(directory.Path("link.txt")));
  EXPECT_EQ(ReadFile(path), "after");
}

TEST(OutputFile, WritesWhatADanglingLinkNames) {
  TemporaryDirectory const directory;
  fs::create_directory(directory.Path("below"));
  fs::create_symlink("second.txt", directory.Path("first.txt"));
  fs::create_symlink("below/out.txt", directory.Path("second.txt"));
  OutputFile file(directory.Path("first.txt"));
  file.Stream() << "text";
  file.Commit();
  EXPECT_TRUE(fs::is_symlink(directory.Path("first.txt")));
  EXPECT_TRUE(fs::is_symlink(directory.Path("second.txt")));
  EXPECT_EQ(ReadFile(directory.Path("below/out.txt")), "text");
}

TEST(OutputFile, HasNoNameBeforeCommit) {
  TemporaryDirectory const directory;
  OutputFile file(directory.Path("out.txt"));
  file.Stream() << std::string(1000000, 'x') << std::flush;
  EXPECT_EQ(directory.Entries(), 0u);
}

TEST(OutputFile, AcceptsTheLongestNames) {
  TemporaryDirectory const directory;
  std::string const path = directory.Path(std::string(255, 'n'));
  for (char const* text : {"new", "replaced"}) {
    OutputFile file(path);
    file.Stream() << text;
    file.Commit();
    EXPECT_EQ(ReadFile(path), text);
  }
  EXPECT_EQ(directory.Entries(), 1u);
}

TEST(OutputFile, LeavesTemporaryFilesThatOthersWorkOn) {
  TemporaryDirectory const directory;
  std::string const others = directory.Write(".lakresvos-0", "of another");
  fs::create_symlink("out.txt", directory.Path(".lakresvos-1"));
  ASSERT_EQ(::mkfifo(directory.Path(".lakresvos-2").c_str(), 0600), 0);
  Descriptor const lock(::open(others.c_str(), O_RDWR));
  ASSERT_EQ(::flock(lock.Number(), LOCK_EX), 0);
  std::string const path = directory.Write("out.txt", "before");
  OutputFile file(path);
  file.Stream() << "after";
  file.Commit();
  EXPECT_EQ(ReadFile(path), "after");
  EXPECT_EQ(ReadFile(others), "of another");
  EXPECT_EQ(directory.Entries(), 4u);
}

TEST(OutputFile, RemovesWhatAKilledProcessLeft) {
  for (FileSystem const lack : {FileSystem::Whole, FileSystem::WithoutUnnamedFiles}) {
    TemporaryDirectory const directory;
    directory.Write(".lakresvos-0", "left by another");
    std::string const path = directory.Write("out.txt", "before");
    fileSystem = lack;
    OutputFile file(path);
    file.Stream() << "after";
    file.Commit();
    fileSystem = FileSystem::Whole;
    EXPECT_EQ(ReadFile(path), "after");
    EXPECT_EQ(directory.Entries(), 1u);
  }
}

TEST(OutputFile, LeavesATemporaryFileThatAnotherIsAboutToRemove) {
  TemporaryDirectory const directory;
  std::string const path = directory.Write("out.txt", "before");
  fileSystem = FileSystem::WithoutLinking;
  OutputFile file(path);
  file.Stream() << "after";
  Remover const remover;
  file.Commit();
  fileSystem = FileSystem::Whole;
  EXPECT_FALSE(Remover::IsWaiting());
  EXPECT_EQ(ReadFile(path), "after");
  EXPECT_EQ(ReadFile(directory.Path(".lakresvos-0")), "") << "it is of the other process";
  EXPECT_EQ(directory.Entries(), 2u);
}

TEST(OutputFile, TargetIsNoTemporaryFile) {
  for (FileSystem const lack :
       {FileSystem::Whole, FileSystem::WithoutUnnamedFiles, FileSystem::WithoutLinking}) {
    TemporaryDirectory const directory;
    std::string const path = directory.Write(".lakresvos-0", "before");
    fileSystem = lack;
    hasRemovedFirstTemporary = false;
    OutputFile file(path);
    file.Stream() << "after";
    file.Commit();
    EXPECT_FALSE(hasRemovedFirstTemporary);
    fileSystem = FileSystem::Whole;
    EXPECT_EQ(ReadFile(path), "after");
    EXPECT_EQ(directory.Entries(), 1u);
  }
}

TEST(OutputFile, CommitsOnce) {
  for (FileSystem const lack :
       {FileSystem::Whole, FileSystem::WithoutUnnamedFiles, FileSystem::WithoutLinking}) {
    TemporaryDirectory const directory;
    std::string const path = directory.Write("out.txt", "before");
    fileSystem = lack;
    OutputFile file(path);
    file.Stream() << "after";
    file.Commit();
    directory.Write("out.txt", "changed since");
    file.Commit();
    fileSystem = FileSystem::Whole;
    EXPECT_EQ(ReadFile(path), "changed since");
    EXPECT_EQ(directory.Entries(), 1u);
  }
}

TEST(OutputFile, SeveralOfOneNameDoNotMeet) {
  TemporaryDirectory const directory;
  OutputFile first(directory.Path("file"));
  OutputFile second(directory.Path("file"));
  first.Stream() << "first";
  second.Stream() << "second";
  second.Commit();
  first.Commit();
  EXPECT_EQ(ReadFile(directory.Path("file")), "first");
  EXPECT_EQ(directory.Entries(), 1u);
}

TEST(OutputFile, StaysAsItWasWhenThereIsNoRoom) {
  TemporaryDirectory const directory;
  std::string const name = directory.Write("file", "former");
  OutputFile file(name);
  SmallFiles const small(1000);
  file.Stream() << std::string(100000, 'x');
  EXPECT_EQ(ErrorOf([&] { file.Commit(); }), name + ": File too large");
  EXPECT_EQ(ReadFile(name), "former");
  EXPECT_EQ(directory.Entries(), 1u);
}

TEST(OutputFile, WritesToAnOpenFileDirectly) {
  TemporaryDirectory const directory;
  std::string const name = directory.Write("file", "former");
  int const descriptor = ::open(name.c_str(), O_WRONLY | O_APPEND);
  {
    OutputFile file(descriptor, "the log");
    file.Stream() << " and new";
    file.Commit();
  }
  EXPECT_EQ(::close(descriptor), 0) << "it is the caller's to close";
  EXPECT_EQ(ReadFile(name), "former and new");
}

TEST(OutputFile, PathOfAnOpenFileIsThatFile) {
  TemporaryDirectory const directory;
  std::string const path = directory.Write("log", "former");
  Descriptor const log(::open(path.c_str(), O_WRONLY | O_APPEND));
  std::string const number = std::to_string(log.Number());
  fs::create_symlink("/proc/self/fd/" + number, directory.Path("link"));
  for (std::string const& name : {"/dev/fd/" + number, directory.Path("link")}) {
    OutputFile file(name);
    file.Stream() << " and new";
    file.Commit();
  }
  EXPECT_EQ(ReadFile(path), "former and new and new");
  EXPECT_EQ(directory.Entries(), 2u);
}

TEST(OutputFile, ErrorOfAnOpenFileSaysWhatItIsCalled) {
  int const full = ::open("/dev/full", O_WRONLY);
  OutputFile file(full, "standard output");
  file.Stream() << "text";
  EXPECT_EQ(ErrorOf([&] { file.Commit(); }), "standard output: No space left on device");
  ::close(full);
}

// File systems that have no files without names

TEST(OutputFile, WorksWithoutUnnamedFiles) {
  for (FileSystem const lack : {FileSystem::WithoutUnnamedFiles, FileSystem::WithoutLinking}) {
    TemporaryDirectory const directory;
    std::string const path = directory.Path("out.txt");
    fileSystem = lack;
    for (char const* text : {"new", "replaced"}) {
      OutputFile file(path);
      file.Stream() << text << std::flush;
      EXPECT_EQ(directory.Entries(), fs::exists(path) ? 1u : 0u);
      file.Commit();
      EXPECT_EQ(ReadFile(path), text);
      EXPECT_EQ(directory.Entries(), 1u);
      fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write);
    }
    EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    fileSystem = FileSystem::Whole;
  }
}

TEST(OutputFile, IsAsItWasWithoutMemoryOnSuchFileSystems) {
  for (FileSystem const lack : {FileSystem::WithoutUnnamedFiles, FileSystem::WithoutLinking}) {
    for (bool const old : {false, true}) {
      TemporaryDirectory const directory;
      std::string const path =
          old ? directory.Write("out.txt", "before") : directory.Path("out.txt");
      fileSystem = lack;
      std::size_t const failures = FailEveryAllocation(
          [&] {
            OutputFile file(path);
            file.Stream() << "after";
            file.Commit();
          },
          [&] {
            EXPECT_EQ(directory.Entries(), old ? 1u : 0u);
            EXPECT_EQ(old ? ReadFile(path) : "before", "before");
          });
      fileSystem = FileSystem::Whole;
      EXPECT_GT(failures, 2u);
      EXPECT_EQ(ReadFile(path), "after");
      EXPECT_EQ(directory.Entries(), 1u);
    }
  }
}

TEST(OutputFile, WritesAllOrNothingToAnOpenFileWithoutMemory) {
  TemporaryDirectory const directory;
  std::string const path = directory.Path("out.txt");
  Descriptor const open(::open(path.c_str(), O_RDWR | O_CREAT | O_TRUNC, 0600));
  std::string const name = "/dev/fd/" + std::to_string(open.Number());
  EXPECT_GT(FailEveryAllocation(
                [&] {
                  OutputFile file(name);
                  file.Stream() << "text";
                  file.Commit();
                },
                [&] { EXPECT_EQ(ReadFile(path), ""); }),
            0u);
  EXPECT_EQ(ReadFile(path), "text");
}

TEST(OutputFile, WritesToADeviceWithoutReplacingIt) {
  OutputFile file("/dev/null");
  file.Stream() << "text";
  file.Commit();
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST(OutputFileErrors, AStreamThatIsNotGood) {
  TemporaryDirectory const directory;
  std::string const path = directory.Write("out.txt", "before");
  OutputFile file(path);
  file.Stream().setstate(std::ios::badbit);
  EXPECT_EQ(ErrorOf([&] { file.Commit(); }), path + ": Input/output error");
  EXPECT_EQ(ReadFile(path), "before");
  EXPECT_EQ(directory.Entries(), 1u);
}

TEST(OutputFileErrors, NoSuchDirectory) {
  EXPECT_EQ(ErrorOf([] { OutputFile("/nowhere/out.txt"); }),
            "/nowhere/out.txt: No such file or directory");
}

TEST(OutputFileErrors, ADirectory) {
  EXPECT_EQ(ErrorOf([] { OutputFile("/tmp"); }), "/tmp: Is a directory");
}

TEST(OutputFileErrors, AFileThatMayNotBeWritten) {
  TemporaryDirectory const directory;
  fs::permissions(directory.Path(""), fs::perms::all);
  std::string const path = directory.Write("out.txt", "before");
  fs::permissions(path, fs::perms::owner_read | fs::perms::others_read);
  constexpr uid_t kNobody = 65534;  // the superuser may write anything
  uid_t const user = geteuid();
  ASSERT_TRUE(user != 0 || seteuid(kNobody) == 0);
  EXPECT_EQ(ErrorOf([&] { OutputFile{path}; }), path + ": Permission denied");
  ASSERT_TRUE(user != 0 || seteuid(user) == 0);
  EXPECT_EQ(ReadFile(path), "before");
  EXPECT_EQ(directory.Entries(), 1u);
}

TEST(OutputFileErrors, AnOpenFileThatIsClosed) {
  EXPECT_EQ(ErrorOf([] { OutputFile{"/dev/fd/987"}; }), "/dev/fd/987: Bad file descriptor");
  EXPECT_EQ(ErrorOf([] { OutputFile{"/dev/fd/x"}; }), "/dev/fd/x: No such file or directory");
}

TEST(OutputFileErrors, LoopOfLinks) {
  TemporaryDirectory const directory;
  fs::create_symlink("b", directory.Path("a"));
  fs::create_symlink("a", directory.Path("b"));
  EXPECT_EQ(ErrorOf([&] { OutputFile{directory.Path("a")}; }),
            directory.Path("a") + ": Too many levels of symbolic links");
}

TEST(OutputFileErrors, TooLongAName) {
  TemporaryDirectory const directory;
  std::string const path = directory.Path(std::string(256, 'n'));
  EXPECT_EQ(ErrorOf([&] { OutputFile{path}; }), path + ": File name too long");
}

TEST(OutputFileErrors, ADeviceThatIsFull) {
  OutputFile file("/dev/full");
  file.Stream() << "text";
  EXPECT_EQ(ErrorOf([&] { file.Commit(); }), "/dev/full: No space left on device");
}
