#include "unicode/CleanText.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <string>

#include "unicode/CodePoint.h"

using lakresvos::render::CleanText;
using lakresvos::render::CodePoint;
using lakresvos::render::DecodeFirst;

namespace {

constexpr char kReplaced[] = "\xEF\xBF\xBD";

}  // namespace

TEST(CleanText, PlainTextStays) {
  EXPECT_EQ(CleanText("a <b> & c"), "a <b> & c");
  EXPECT_EQ(CleanText(""), "");
}

TEST(CleanText, CharactersBeyondAsciiStay) {
  EXPECT_EQ(CleanText("Gr\xC3\xB6\xC3\x9F"
                      "e \xE6\x97\xA5 \xF0\x9F\x98\x80"),
            "Gr\xC3\xB6\xC3\x9F"
            "e \xE6\x97\xA5 \xF0\x9F\x98\x80");
}

TEST(CleanText, TabsStay) {
  EXPECT_EQ(CleanText("a\tb"), "a\tb");
}

TEST(CleanText, LineEndsBecomeOneKind) {
  EXPECT_EQ(CleanText("a\nb\rc\r\nd\r\re\r"), "a\nb\nc\nd\n\ne\n");
}

TEST(CleanText, ControlCharactersAreReplaced) {
  EXPECT_EQ(CleanText(std::string("\0\x1B\x7F", 3)),
            std::string(kReplaced) + kReplaced + kReplaced);
  EXPECT_EQ(CleanText("\xC2\x85"), kReplaced);
}

TEST(CleanText, EachByteThatIsNotUtf8IsReplaced) {
  EXPECT_EQ(CleanText("\xFF\xFE"), std::string(kReplaced) + kReplaced);
  EXPECT_EQ(CleanText("a\xC3"), std::string("a") + kReplaced);
  EXPECT_EQ(CleanText("\xC0\xAF"), std::string(kReplaced) + kReplaced);
}

TEST(CleanText, SurrogatesAreReplaced) {
  EXPECT_EQ(CleanText("\xED\xA0\x80"), std::string(kReplaced) + kReplaced + kReplaced);
}

TEST(CleanText, CodePointsThatAreNoCharactersAreReplaced) {
  EXPECT_EQ(CleanText("\xEF\xBF\xBE"), kReplaced);
  EXPECT_EQ(CleanText("\xEF\xB7\x90"), kReplaced);
  EXPECT_EQ(CleanText("\xF4\x8F\xBF\xBF"), kReplaced);
}

RC_GTEST_PROP(CleanText, IsCleanWhateverTheBytes, (std::string const& bytes)) {
  std::string const clean = CleanText(bytes);
  std::string_view rest = clean;
  while (!rest.empty()) {
    CodePoint const point = DecodeFirst(rest);
    RC_ASSERT(point.code >= 0);
    RC_ASSERT(point.code >= ' ' || point.code == '\n' || point.code == '\t');
    rest.remove_prefix(point.length);
  }
  RC_ASSERT(CleanText(clean) == clean);
}
