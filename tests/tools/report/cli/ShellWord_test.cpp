#include "cli/ShellWord.h"

#include <gtest/gtest.h>

using namespace lakresvos::report;

TEST(ShellWord, LeavesSafeWordsAlone) {
  EXPECT_EQ(ShellWord("--format=text"), "--format=text");
  EXPECT_EQ(ShellWord("data/a.csv"), "data/a.csv");
}

TEST(ShellWord, QuotesWhatAShellWouldReadOtherwise) {
  EXPECT_EQ(ShellWord(""), "''");
  EXPECT_EQ(ShellWord("A ~ B"), "'A ~ B'");
  EXPECT_EQ(ShellWord("it's"), "'it'\\''s'");
}
