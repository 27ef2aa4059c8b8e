#include "unicode/CodePoint.h"

#include <gtest/gtest.h>
#include <string_view>

using lakresvos::render::IsUtf8;

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
