#include "unicode/Utf16.h"

#include <gtest/gtest.h>

using lakresvos::render::Utf16Length;
using lakresvos::render::Utf16Prefix;

TEST(Utf16, CountsCharactersBeyondTheBasicPlaneTwice) {
  EXPECT_EQ(Utf16Length(""), 0u);
  EXPECT_EQ(Utf16Length("aé日"), 3u);
  EXPECT_EQ(Utf16Length("a😀"), 3u);
}

TEST(Utf16, CountsBytesThatAreNoTextOneByOne) {
  EXPECT_EQ(Utf16Length("\xFF\xE2\x82"), 3u);
}

TEST(Utf16, CutsBetweenCharacters) {
  EXPECT_EQ(Utf16Prefix("aé日", 2), "aé");
  EXPECT_EQ(Utf16Prefix("abc", 0), "");
  EXPECT_EQ(Utf16Prefix("abc", 9), "abc");
}

TEST(Utf16, DoesNotCutThroughACharacter) {
  EXPECT_EQ(Utf16Prefix("a😀b", 2), "a");
  EXPECT_EQ(Utf16Prefix("a😀b", 3), "a😀");
}
