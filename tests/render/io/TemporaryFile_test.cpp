#include "io/TemporaryFile.h"

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

#include "support/TemporaryDirectory.h"

using lakresvos::render::TemporaryFile;

namespace {

class TemporaryFileTest : public testing::Test {
 protected:
  TemporaryFileTest() { setenv("TMPDIR", directory_.Path("").c_str(), 1); }
  ~TemporaryFileTest() override { unsetenv("TMPDIR"); }

  TemporaryDirectory directory_;
};

}  // namespace

TEST_F(TemporaryFileTest, HasNoName) {
  TemporaryFile const file;
  EXPECT_EQ(directory_.Entries(), 0U);
}

TEST_F(TemporaryFileTest, CanBeOpenedByItsPath) {
  TemporaryFile const file;
  std::ofstream(file.Path()) << "text";
  std::string text(10, '\0');
  ssize_t const count = read(file.Descriptor(), text.data(), text.size());
  EXPECT_EQ(text.substr(0, static_cast<std::size_t>(count)), "text");
}

TEST_F(TemporaryFileTest, GoesWithAProcessThatIsKilled) {
  pid_t const process = fork();
  if (process == 0) {
    TemporaryFile const file;
    raise(SIGKILL);
  }
  int status = 0;
  waitpid(process, &status, 0);
  EXPECT_TRUE(WIFSIGNALED(status));
  EXPECT_EQ(directory_.Entries(), 0U);
}

TEST_F(TemporaryFileTest, SaysWhyThereCanBeNone) {
  setenv("TMPDIR", "/nowhere", 1);
  try {
    TemporaryFile const file;
    FAIL();
  } catch (std::runtime_error const& error) {
    EXPECT_STREQ(error.what(),
                 "cannot create a temporary file in /nowhere: No such file or directory");
  }
}
