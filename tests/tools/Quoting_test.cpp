#include "Quoting.h"

#include <gtest/gtest.h>

#include "Utf8.h"

using namespace lakresvos::report;

TEST(OneLine, LeavesPrintableTextAlone) {
  EXPECT_EQ(OneLine("Größe 'x' \\n"), "Größe 'x' \\n");
}

TEST(OneLine, WritesControlCharactersAsEscapes) {
  EXPECT_EQ(OneLine(std::string_view("a\nb\rc\td\x1B\x7F\0", 10)), "a\\nb\\rc\\td\\x1B\\x7F\\x00");
}

TEST(Quoted, KeepsAShortText) {
  EXPECT_EQ(Quoted("Crew"), "'Crew'");
}

TEST(Quoted, CutsAfterFortyCharactersAndNeverInsideOne) {
  std::string text;
  for (int i = 0; i < 40; ++i) {
    text += "ä";
  }
  EXPECT_EQ(Quoted(text), "'" + text + "'");
  EXPECT_EQ(Quoted(text + "b"), "'" + text + "...'");
}

TEST(ShellWord, LeavesSafeWordsAlone) {
  EXPECT_EQ(ShellWord("--format=text"), "--format=text");
  EXPECT_EQ(ShellWord("data/a.csv"), "data/a.csv");
}

TEST(ShellWord, QuotesWhatAShellWouldReadOtherwise) {
  EXPECT_EQ(ShellWord(""), "''");
  EXPECT_EQ(ShellWord("A ~ B"), "'A ~ B'");
  EXPECT_EQ(ShellWord("it's"), "'it'\\''s'");
}

TEST(Utf8, TakesEveryLengthOfCharacter) {
  EXPECT_TRUE(IsUtf8("a\u00E9\u6F22\U0001F600"));
}

TEST(Utf8, TakesTheEmptyText) {
  EXPECT_TRUE(IsUtf8(""));
}

TEST(Utf8, RefusesAStrayContinuation) {
  EXPECT_FALSE(IsUtf8("a\x80"));
}

TEST(Utf8, RefusesACutCharacter) {
  EXPECT_FALSE(IsUtf8("a\xE6\xBC"));
}

TEST(Utf8, RefusesALongFormOfAShortCharacter) {
  EXPECT_FALSE(IsUtf8("\xC0\xAF"));
}

TEST(Utf8, RefusesASurrogate) {
  EXPECT_FALSE(IsUtf8("\xED\xA0\x80"));
}

TEST(Utf8, RefusesWhatIsBeyondTheLastCharacter) {
  EXPECT_FALSE(IsUtf8("\xF4\x90\x80\x80"));
}

TEST(Utf8, CountsCharactersRatherThanBytes) {
  EXPECT_EQ(CharacterCount("aé漢"), 3u);
  EXPECT_EQ(CharacterOffset("aé漢b", 2), 3u);
  EXPECT_EQ(CharacterOffset("aé漢b", 4), 7u);
  EXPECT_EQ(CharacterOffset("aé漢b", 99), 7u);
}

TEST(Utf8, TellsAscii) {
  EXPECT_TRUE(IsAscii("plain"));
  EXPECT_TRUE(IsAscii(""));
  EXPECT_FALSE(IsAscii("Größe"));
}

TEST(Quoting, LongLinesLoseTheirMiddle) {
  EXPECT_EQ(Shortened(std::string(500, 'x')), std::string(500, 'x'));
  std::string const start(300, 's');
  std::string const end(200, 'e');
  EXPECT_EQ(Shortened(start + "middle" + end), start + "..." + end);
}

TEST(Quoting, LongLinesAreCutBetweenCharacters) {
  std::string line;
  std::string shortened;
  for (int i = 0; i < 600; ++i) {
    line += "\u65E5";
    shortened += i < 500 ? "\u65E5" : "";
    shortened += i == 299 ? "..." : "";
  }
  EXPECT_EQ(Shortened(line), shortened);
}
