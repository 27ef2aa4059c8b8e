#include "io/WholeFile.h"

#include <csignal>
#include <gtest/gtest.h>
#include <string>
#include <sys/resource.h>
#include <system_error>

#include "support/TemporaryDirectory.h"

using lakresvos::render::WholeFile;

namespace {

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

}  // namespace

TEST(WholeFile, IsThereOnceItIsCommitted) {
  TemporaryDirectory const directory;
  {
    WholeFile file(directory.Path("file"));
    file.Stream() << "text";
    file.Commit();
  }
  EXPECT_EQ(ReadFile(directory.Path("file")), "text");
  EXPECT_EQ(directory.Entries(), 1U);
}

TEST(WholeFile, StaysAsItWasUntilItIsCommitted) {
  TemporaryDirectory const directory;
  std::string const name = directory.Write("file", "former");
  {
    WholeFile file(name);
    file.Stream() << "text" << std::flush;
    EXPECT_EQ(ReadFile(name), "former");
  }
  EXPECT_EQ(ReadFile(name), "former");
  EXPECT_EQ(directory.Entries(), 1U);
}

TEST(WholeFile, SeveralOfOneNameDoNotMeet) {
  TemporaryDirectory const directory;
  WholeFile first(directory.Path("file"));
  WholeFile second(directory.Path("file"));
  first.Stream() << "first";
  second.Stream() << "second";
  second.Commit();
  first.Commit();
  EXPECT_EQ(ReadFile(directory.Path("file")), "first");
  EXPECT_EQ(directory.Entries(), 1U);
}

TEST(WholeFile, StaysAsItWasWhenThereIsNoRoom) {
  TemporaryDirectory const directory;
  std::string const name = directory.Write("file", "former");
  std::string message;
  {
    WholeFile file(name);
    SmallFiles const small(1000);
    file.Stream() << std::string(100000, 'x');
    try {
      file.Commit();
    } catch (std::system_error const& error) {
      message = error.what();
    }
  }
  EXPECT_EQ(message, name + ": File too large");
  EXPECT_EQ(ReadFile(name), "former");
  EXPECT_EQ(directory.Entries(), 1U);
}
