#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <string>

#include <lakresvos/OmOutputTree.h>
#include <lakresvos/render/XlsxRenderer.h>

#include "render/support/RenderTables.h"
#include "support/CannotRun.h"
#include "support/TemporaryDirectory.h"
#include "support/ZipParts.h"
#include "support/faults/WriteFaults.h"

using lakresvos::render::RenderXlsx;
using namespace render_tables;
namespace fs = std::filesystem;

namespace {

class XlsxFileTest : public testing::Test {
 protected:
  void Render() { RenderXlsx(document_, file_); }

  /// Makes a document that no workbook has room for.
  void AddTableThatIsTooWide() {
    auto& table = AppendItem<Table>(document_.begin());
    table.AddFlat("c", 17000);
    table.Place({}, {0});
    table.PutAll();
  }

  /// What writing fails with.
  std::string Failure() {
    try {
      Render();
    } catch (std::exception const& error) {
      return error.what();
    }
    return "no error";
  }

  TemporaryDirectory directory_;
  std::string file_ = directory_.Path("report.xlsx");
  OmOutputTree document_;
};

bool IsArchive(std::string const& bytes) {
  return bytes.compare(0, 4, "PK\x03\x04") == 0;
}

}  // namespace

TEST_F(XlsxFileTest, HoldsTheWorkbookAndNothingStandsBesideIt) {
  Render();
  EXPECT_TRUE(IsArchive(ReadFile(file_)));
  EXPECT_EQ(directory_.Entries(), 1u);
}

TEST_F(XlsxFileTest, IsReplacedAndKeepsItsPermissions) {
  directory_.Write("report.xlsx", "former");
  fs::permissions(file_, fs::perms::owner_read | fs::perms::owner_write);
  Render();
  EXPECT_TRUE(IsArchive(ReadFile(file_)));
  EXPECT_EQ(fs::status(file_).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(XlsxFileTest, LinkStaysALink) {
  std::string const target = directory_.Write("target.xlsx", "former");
  fs::create_symlink("target.xlsx", file_);
  Render();
  EXPECT_TRUE(fs::is_symlink(file_));
  EXPECT_TRUE(IsArchive(ReadFile(target)));
}

TEST_F(XlsxFileTest, DanglingLinkStaysALinkToTheNewFile) {
  fs::create_symlink("target.xlsx", file_);
  Render();
  EXPECT_TRUE(fs::is_symlink(file_));
  EXPECT_TRUE(IsArchive(ReadFile(directory_.Path("target.xlsx"))));
  EXPECT_EQ(directory_.Entries(), 2u);
}

TEST_F(XlsxFileTest, StaysAsItWasWhenTheDocumentHasNoRoom) {
  directory_.Write("report.xlsx", "former");
  AddTableThatIsTooWide();
  EXPECT_THROW(Render(), std::length_error);
  EXPECT_EQ(ReadFile(file_), "former");
  EXPECT_EQ(directory_.Entries(), 1u);
}

TEST_F(XlsxFileTest, IsNotMadeWhenTheDocumentHasNoRoom) {
  AddTableThatIsTooWide();
  EXPECT_THROW(Render(), std::length_error);
  EXPECT_EQ(directory_.Entries(), 0u);
}

TEST_F(XlsxFileTest, IsOldOrNewWhateverCallFailsOrEndsTheProcess) {
  if (!CanRunUnderFaults()) {
    CANNOT_RUN("this machine does not let a process watch the calls of another");
  }
  auto& table = AppendItem<Table>(document_.begin());
  table.AddFlat("r", 5);
  table.Place({0}, {});
  table.PutAll();
  Render();
  std::string const expected = ZipParts(ReadFile(file_), kTimePart);
  auto const render = [&] { return Failure() == "no error" ? 0 : 1; };
  for (WriteFault fault :
       {WriteFault{WriteFault::Kind::Kill}, WriteFault{WriteFault::Kind::Error, 1, true, ENOSPC},
        WriteFault{WriteFault::Kind::Error, 1, false, EIO}}) {
    bool ended = false;
    for (fault.first = 1; !ended; fault.first += kSweepStep) {
      directory_.Write("report.xlsx", "former");
      FaultedRun const run = RunUnderFault(fault, render);
      ended = run.faulted.empty();
      bool const isNew = ZipParts(ReadFile(file_), kTimePart) == expected;
      EXPECT_TRUE(isNew || ReadFile(file_) == "former") << fault.first;
      EXPECT_TRUE(run.Killed() || isNew == (run.ExitCode() == 0)) << fault.first;
      std::size_t const left = run.Killed() && run.Befell("rename") ? 1 : 0;
      EXPECT_LE(directory_.Entries(), 1 + left + (run.Befell("unlink") ? 1 : 0)) << fault.first;
    }
    EXPECT_GT(fault.first, 20u);
  }
}

TEST_F(XlsxFileTest, ErrorNamesTheFile) {
  file_ = directory_.Path("missing/report.xlsx");
  EXPECT_EQ(Failure(), file_ + ": No such file or directory");
  file_ = directory_.Path("");
  EXPECT_EQ(Failure(), file_ + ": Is a directory");
  EXPECT_EQ(directory_.Entries(), 0u);
}

TEST_F(XlsxFileTest, WhatIsNoRegularFileIsWrittenToDirectly) {
  file_ = "/dev/null";
  EXPECT_EQ(Failure(), "no error");
  EXPECT_TRUE(fs::is_character_file(file_));
  file_ = "/dev/full";
  EXPECT_EQ(Failure(), "/dev/full: No space left on device");
  EXPECT_TRUE(fs::is_character_file(file_));
}

// Workbooks that the process makes itself

extern "C" std::FILE* lxw_tmpfile(char* directory);

TEST_F(XlsxFileTest, TemporaryFilesOfOtherWorkbooksAreWhereTheyAreToBe) {
  std::string path = directory_.Path("");
  std::unique_ptr<std::FILE, int (*)(std::FILE*)> const file(lxw_tmpfile(path.data()),
                                                             &std::fclose);
  ASSERT_NE(file, nullptr);
  std::string const link = "/proc/self/fd/" + std::to_string(::fileno(file.get()));
  EXPECT_TRUE(fs::read_symlink(link).string().starts_with(path));
  std::string nowhere = directory_.Path("nowhere");
  EXPECT_EQ(lxw_tmpfile(nowhere.data()), nullptr);
}
