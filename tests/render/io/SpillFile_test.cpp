#include "io/SpillFile.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <sys/resource.h>
#include <vector>

#include "support/TemporaryDirectory.h"

using lakresvos::render::ScratchFile;

namespace {

void Put(std::FILE* stream, std::string const& text) {
  EXPECT_EQ(std::fwrite(text.data(), 1, text.size(), stream), text.size());
}

std::string Reread(std::FILE* stream) {
  std::fflush(stream);
  std::rewind(stream);
  std::string text;
  char piece[1000];
  while (std::size_t const read = std::fread(piece, 1, sizeof piece, stream)) {
    text.append(piece, read);
  }
  return text;
}

std::size_t OpenFiles() {
  auto const files = std::filesystem::directory_iterator("/proc/self/fd");
  return static_cast<std::size_t>(std::distance(begin(files), end(files)));
}

}  // namespace

TEST(ScratchFile, GivesBackWhatWasWritten) {
  ScratchFile file;
  std::FILE* const stream = file.Open();
  Put(stream, "some text");
  EXPECT_EQ(Reread(stream), "some text");
  EXPECT_EQ(file.Error(), 0);
}

TEST(ScratchFile, ANewStreamIsEmpty) {
  ScratchFile file;
  Put(file.Open(), "other");
  EXPECT_EQ(Reread(file.Open()), "");
}

TEST(ScratchFile, CanBeReadTwice) {
  ScratchFile file;
  std::FILE* const stream = file.Open();
  Put(stream, "twice");
  EXPECT_EQ(Reread(stream), "twice");
  EXPECT_EQ(Reread(stream), "twice");
}

TEST(ScratchFile, KeepsStreamsApartThatAreWrittenInTurns) {
  ScratchFile file;
  std::vector<std::FILE*> streams{file.Open(), file.Open(), file.Open()};
  std::vector<std::string> texts(streams.size());
  for (int turn = 0; turn < 1000; ++turn) {
    for (std::size_t i = 0; i < streams.size(); ++i) {
      std::string const text(static_cast<std::size_t>(turn) % (7 * i + 5),
                             static_cast<char>('a' + i));
      Put(streams[i], text);
      texts[i] += text;
    }
  }
  for (std::size_t i = 0; i < streams.size(); ++i) {
    EXPECT_EQ(Reread(streams[i]), texts[i]);
  }
}

TEST(ScratchFile, StreamsTakeNoOpenFilesOfTheProcess) {
  ScratchFile file;
  std::size_t const before = OpenFiles();
  for (int i = 0; i < 5000; ++i) {
    Put(file.Open(), "text");
  }
  EXPECT_EQ(OpenFiles(), before);
}

TEST(ScratchFile, LeavesNoFileBehind) {
  std::size_t const before = OpenFiles();
  TemporaryDirectory const temporary;
  setenv("TMPDIR", temporary.Path("").c_str(), 1);
  {
    ScratchFile file;
    EXPECT_EQ(temporary.Entries(), 0u);
    Put(file.Open(), "left open");
    std::FILE* const closed = file.Open();
    Put(closed, "closed");
    std::fclose(closed);
  }
  unsetenv("TMPDIR");
  EXPECT_EQ(temporary.Entries(), 0u);
  EXPECT_EQ(OpenFiles(), before);
}

TEST(ScratchFile, SaysWhenThereCanBeNone) {
  setenv("TMPDIR", "/proc", 1);
  EXPECT_THROW(ScratchFile(), std::runtime_error);
  unsetenv("TMPDIR");
}

TEST(ScratchFile, CannotGoToPlacesInAStream) {
  ScratchFile file;
  std::FILE* const stream = file.Open();
  std::string const text(100000, 'x');
  Put(stream, text);
  EXPECT_NE(std::fseek(stream, 50000, SEEK_SET), 0);
  EXPECT_EQ(Reread(stream), text);
}

TEST(ScratchFile, SaysWhenThereIsNoRoom) {
  ScratchFile file;
  std::FILE* const stream = file.Open();
  rlimit former{};
  getrlimit(RLIMIT_FSIZE, &former);
  rlimit const small{1000, former.rlim_max};
  auto* const handler = std::signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &small);
  Put(stream, std::string(3000, 'x'));
  std::fflush(stream);
  setrlimit(RLIMIT_FSIZE, &former);
  std::signal(SIGXFSZ, handler);
  EXPECT_EQ(file.Error(), EFBIG);
}
