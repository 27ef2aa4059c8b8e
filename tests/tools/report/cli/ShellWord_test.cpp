#include "cli/ShellWord.h"

#include <gtest/gtest.h>

using namespace lakresvos::report;

TEST(ShellWord, LeavesSafeWordsAlone) {
  EXPECT_EQ(QuoteShellWord("--format=text"), "--format=text");
  EXPECT_EQ(QuoteShellWord("data/a.csv"), "data/a.csv");
}

TEST(ShellWord, QuotesWhatAShellWouldReadOtherwise) {
  EXPECT_EQ(QuoteShellWord(""), "''");
  EXPECT_EQ(QuoteShellWord("A ~ B"), "'A ~ B'");
  EXPECT_EQ(QuoteShellWord("it's"), "'it'\\''s'");
}
