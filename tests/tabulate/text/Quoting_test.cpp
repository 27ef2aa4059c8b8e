#include <gtest/gtest.h>

#include <lakresvos/tabulate/Quoting.h>

using namespace lakresvos::tabulate;

TEST(EscapeControls, LeavesPrintableTextAlone) {
  EXPECT_EQ(EscapeControls("Größe 'x' \\n"), "Größe 'x' \\n");
}

TEST(EscapeControls, WritesControlCharactersAsEscapes) {
  EXPECT_EQ(EscapeControls(std::string_view("a\nb\rc\td\x1B\x7F\0", 10)),
            "a\\nb\\rc\\td\\x1B\\x7F\\x00");
}

TEST(Quote, KeepsAShortText) {
  EXPECT_EQ(Quote("Crew"), "'Crew'");
}

TEST(Quote, CutsAfterFortyCharactersAndNeverInsideOne) {
  std::string text;
  for (int i = 0; i < 40; ++i) {
    text += "ä";
  }
  EXPECT_EQ(Quote(text), "'" + text + "'");
  EXPECT_EQ(Quote(text + "b"), "'" + text + "...'");
}

TEST(Quoting, LongLinesLoseTheirMiddle) {
  EXPECT_EQ(Shorten(std::string(500, 'x')), std::string(500, 'x'));
  std::string const start(300, 's');
  std::string const end(200, 'e');
  EXPECT_EQ(Shorten(start + "middle" + end), start + "..." + end);
}

TEST(Quoting, LongLinesAreCutBetweenCharacters) {
  std::string line;
  std::string shortened;
  for (int i = 0; i < 600; ++i) {
    line += "\u65E5";
    shortened += i < 500 ? "\u65E5" : "";
    shortened += i == 299 ? "..." : "";
  }
  EXPECT_EQ(Shorten(line), shortened);
}
