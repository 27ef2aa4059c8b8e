#include "unicode/CodePoint.h"

#include <gtest/gtest.h>
#include <string_view>

using namespace lakresvos::render;

TEST(IsUtf8, AcceptsTextOfEveryLength) {
  for (std::string_view const text :
       {"", "a", "a\u00E9\u6F22\U0001F600", "\uFFFF", "\U0010FFFF", "\x7F\n"}) {
    EXPECT_TRUE(IsUtf8(text)) << text;
  }
}

TEST(IsUtf8, RefusesBytesThatAreNotText) {
  for (std::string_view const text :
       {"a\x80", "a\xE6\xBC", "\xC0\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xFF"}) {
    EXPECT_FALSE(IsUtf8(text)) << text;
  }
}

TEST(CountCodePoints, CountsWhatADecoderSteps) {
  for (std::string_view const text : {"", "a", "a\u00E9\u6F22\U0001F600b", "\u0301\uFFFF"}) {
    std::size_t steps = 0;
    for (std::string_view rest = text; !rest.empty(); ++steps) {
      EXPECT_TRUE(StartsCodePoint(rest.front()));
      rest.remove_prefix(DecodeFirst(rest).length);
    }
    EXPECT_EQ(CountCodePoints(text), steps) << text;
  }
}

TEST(CountCodePoints, CutCharacterCountsOnce) {
  EXPECT_EQ(CountCodePoints("a\xE6\xBC"), 2U);
}
