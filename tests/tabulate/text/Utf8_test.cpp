#include "text/Utf8.h"

#include <gtest/gtest.h>

using namespace lakresvos::tabulate;

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
  EXPECT_EQ(CountCharacters("aé漢"), 3u);
  EXPECT_EQ(FindCharacter("aé漢b", 2), 3u);
  EXPECT_EQ(FindCharacter("aé漢b", 4), 7u);
  EXPECT_EQ(FindCharacter("aé漢b", 99), 7u);
}

TEST(Utf8, TellsAscii) {
  EXPECT_TRUE(IsAscii("plain"));
  EXPECT_TRUE(IsAscii(""));
  EXPECT_FALSE(IsAscii("Größe"));
}

TEST(Utf8, CountsAByteThatBelongsToNoCharacterAsOne) {
  EXPECT_EQ(CountCharacters("a\xFF\x80\u00E9"), 4u);
  EXPECT_EQ(FindCharacter("a\xFF\x80\u00E9", 3), 3u);
  EXPECT_EQ(MeasureCharacter("\xFF"), 0u);
  EXPECT_EQ(MeasureCharacter(""), 0u);
}
