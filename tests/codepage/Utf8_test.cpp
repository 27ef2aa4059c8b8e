#include "Utf8.h"
// This header comes first to show that it is self-contained.
#include <array>
#include <cstdint>
#include <gtest/gtest.h>
#include <string>
#include <string_view>

#include "PlainUtf8.h"

namespace {

constexpr char32_t kMaxCode = 0x10FFFF;

bool IsSurrogate(char32_t code) {
  return code >= 0xD800 && code <= 0xDFFF;
}

TEST(Utf8, ReadsBackEveryCharacter) {
  for (char32_t code = 0; code <= kMaxCode; ++code) {
    std::string text;
    utf8::Append(text, code);
    utf8::Character const character = utf8::DecodeFirst(text);
    if (IsSurrogate(code)) {
      ASSERT_EQ(character.length, 0U) << std::hex << static_cast<std::uint32_t>(code);
    } else {
      ASSERT_EQ(character.code, code);
      ASSERT_EQ(character.length, text.size()) << std::hex << static_cast<std::uint32_t>(code);
    }
  }
}

TEST(Utf8, TellsTheWellFormedSequencesOfTheStandardFromAllOthers) {
  constexpr std::array<unsigned char, 23> kBytes = {0x00, 0x41, 0x7F, 0x80, 0x8F, 0x90, 0x9F, 0xA0,
                                                    0xBF, 0xC0, 0xC1, 0xC2, 0xDF, 0xE0, 0xE1, 0xEC,
                                                    0xED, 0xEF, 0xF0, 0xF3, 0xF4, 0xF5, 0xFF};
  for (unsigned char const a : kBytes) {
    for (unsigned char const b : kBytes) {
      for (unsigned char const c : kBytes) {
        for (unsigned char const d : kBytes) {
          std::array const bytes = {static_cast<char>(a), static_cast<char>(b),
                                    static_cast<char>(c), static_cast<char>(d)};
          for (std::size_t size = 1; size <= bytes.size(); ++size) {
            std::string_view const text(bytes.data(), size);
            ASSERT_EQ(utf8::DecodeFirst(text).length, LengthByTable(text))
                << testing::PrintToString(std::string(text));
          }
        }
      }
    }
  }
}

TEST(Utf8, ChecksATextToItsEnd) {
  EXPECT_TRUE(utf8::IsUtf8(""));
  EXPECT_TRUE(utf8::IsUtf8("a\u00E9\u20AC\U0001F600"));
  EXPECT_FALSE(utf8::IsUtf8("a\u00E9\xC3"));
  EXPECT_FALSE(utf8::IsUtf8("\x80 a"));
}

TEST(Utf8, RemovesTagsAlone) {
  EXPECT_EQ(utf8::RemoveTags("a\U000E0000b\U000E0041\U000E007Fc"), "abc");
  EXPECT_EQ(utf8::RemoveTags("\U000E0080 \U000DFFFF"), "\U000E0080 \U000DFFFF");
  EXPECT_EQ(utf8::RemoveTags(""), "");
}

}  // namespace
