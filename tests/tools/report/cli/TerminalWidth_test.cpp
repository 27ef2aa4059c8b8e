#include "cli/TerminalWidth.h"

#include <gtest/gtest.h>
#include <pty.h>
#include <unistd.h>

using lakresvos::report::GetTerminalWidth;

namespace {

/// The width found for a terminal that has this many columns.
int WidthWith(unsigned short columns) {
  winsize const size{24, columns, 0, 0};
  int terminal = -1;
  int program = -1;
  EXPECT_EQ(openpty(&terminal, &program, nullptr, nullptr, &size), 0);
  int const width = GetTerminalWidth(program);
  close(program);
  close(terminal);
  return width;
}

}  // namespace

TEST(TerminalWidth, IsWhatTheTerminalSays) {
  EXPECT_EQ(WidthWith(132), 132);
  EXPECT_EQ(WidthWith(20), 20);
}

TEST(TerminalWidth, IsTheUsualOneElsewhere) {
  EXPECT_EQ(WidthWith(0), 100);
  EXPECT_EQ(GetTerminalWidth(-1), 100);
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  EXPECT_EQ(GetTerminalWidth(ends[1]), 100);
  close(ends[0]);
  close(ends[1]);
}
