#include "OutputFile.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "ErrorOf.h"
#include "TemporaryDirectory.h"

using namespace lakresvos::report;

namespace fs = std::filesystem;

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

TEST(OutputFile, LeavesTheFormerFileWithoutCommit) {
  TemporaryDirectory const directory;
  directory.Write("out.txt", "before");
  {
    OutputFile file(directory.Path("out.txt"));
    file.Stream() << "after";
  }
  EXPECT_EQ(ReadFile(directory.Path("out.txt")), "before");
  EXPECT_EQ(directory.Entries(), 1u);
}

TEST(OutputFile, TakesThePermissionsOfTheFormerFile) {
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

TEST(OutputFile, WritesBehindALink) {
  TemporaryDirectory const directory;
  std::string const path = directory.Write("out.txt", "before");
  fs::create_symlink(path, directory.Path("link.txt"));
  OutputFile file(directory.Path("link.txt"));
  file.Stream() << "after";
  file.Commit();
  EXPECT_TRUE(fs::is_symlink(directory.Path("link.txt")));
  EXPECT_EQ(ReadFile(path), "after");
}

TEST(OutputFile, WritesToADeviceWithoutReplacingIt) {
  OutputFile file("/dev/null");
  file.Stream() << "text";
  file.Commit();
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST(OutputFileErrors, NoSuchDirectory) {
  EXPECT_EQ(ErrorOf([] { OutputFile("/nowhere/out.txt"); }),
            "/nowhere/out.txt: No such file or directory");
}

TEST(OutputFileErrors, ADirectory) {
  EXPECT_EQ(ErrorOf([] { OutputFile("/tmp"); }), "/tmp: Is a directory");
}

TEST(OutputFileErrors, ADeviceThatIsFull) {
  OutputFile file("/dev/full");
  file.Stream() << "text";
  EXPECT_EQ(ErrorOf([&] { file.Commit(); }), "/dev/full: No space left on device");
}
