#include "unicode/TextWidth.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <string>
#include <vector>

#include "unicode/CodePoint.h"

using lakresvos::render::Grapheme;
using lakresvos::render::IsPlainAscii;
using lakresvos::render::PrintableLines;
using lakresvos::render::SplitGrapheme;
using lakresvos::render::TextWidth;

namespace {

using Texts = std::vector<std::string>;

Texts Graphemes(std::string const& text) {
  Texts graphemes;
  for (std::string_view rest = text; !rest.empty();) {
    graphemes.emplace_back(SplitGrapheme(rest).bytes);
  }
  return graphemes;
}

}  // namespace

// Width

TEST(TextWidth, EmptyTextHasNone) {
  EXPECT_EQ(TextWidth(""), 0);
}

TEST(TextWidth, AsciiAndLatinCountOneEach) {
  EXPECT_EQ(TextWidth("abc ~"), 5);
  EXPECT_EQ(TextWidth("äöü"), 3);
}

TEST(TextWidth, WideEastAsianCountsTwo) {
  EXPECT_EQ(TextWidth("日本語"), 6);
  EXPECT_EQ(TextWidth("한국"), 4);
  EXPECT_EQ(TextWidth("Ａ"), 2);
}

TEST(TextWidth, HalfwidthFormsCountOne) {
  EXPECT_EQ(TextWidth("ｱｲ"), 2);
}

TEST(TextWidth, CombiningCharactersCountNone) {
  EXPECT_EQ(TextWidth("e\u0301"), 1);
  EXPECT_EQ(TextWidth("a\u0308\u0323b"), 2);
}

TEST(TextWidth, ConjoiningSyllableIsAsWideAsTheWholeOne) {
  EXPECT_EQ(TextWidth("\u1112\u1161\u11ab"), TextWidth("한"));
}

TEST(TextWidth, RightToLeftLettersCountOne) {
  EXPECT_EQ(TextWidth("שלום"), 4);
  EXPECT_EQ(TextWidth("سلام"), 4);
}

TEST(TextWidth, ZeroWidthCharactersCountNone) {
  EXPECT_EQ(TextWidth("a\u200bb\u200e"), 2);
}

TEST(TextWidth, EmojiCountTwo) {
  EXPECT_EQ(TextWidth("😀"), 2);
}

TEST(TextWidth, JoinedEmojiCountTwoTogether) {
  EXPECT_EQ(TextWidth("👩‍👩‍👧‍👦"), 2);
  EXPECT_EQ(TextWidth("👍🏽"), 2);
}

TEST(TextWidth, FlagCountsTwo) {
  EXPECT_EQ(TextWidth("🇯🇵"), 2);
  EXPECT_EQ(TextWidth("🇯🇵🇸🇪"), 4);
}

TEST(TextWidth, EmojiPresentationMakesANarrowSignWide) {
  EXPECT_EQ(TextWidth("❤"), 1);
  EXPECT_EQ(TextWidth("❤\ufe0f"), 2);
  EXPECT_EQ(TextWidth("1\ufe0f\u20e3"), 2);
}

// Graphemes

TEST(SplitGrapheme, SplitsBetweenWhatReadersSeeAsCharacters) {
  EXPECT_EQ(Graphemes("ae\u0301👩‍👧🇯🇵🇸🇪"),
            (Texts{"a", "e\u0301", "👩‍👧", "🇯🇵", "🇸🇪"}));
}

TEST(SplitGrapheme, LoneCombiningCharacterStandsForItself) {
  EXPECT_EQ(Graphemes("\u0301a"), (Texts{"\u0301", "a"}));
}

// Printable lines

TEST(PrintableLines, EmptyTextIsOneEmptyLine) {
  EXPECT_EQ(PrintableLines(""), Texts{""});
}

TEST(PrintableLines, EveryKindOfLineEndBreaksOnce) {
  EXPECT_EQ(PrintableLines("a\nb\r\nc\rd\u2028e\u2029f"), (Texts{"a", "b", "c", "d", "e", "f"}));
}

TEST(PrintableLines, EmptyLinesAreKeptButNoneIsStartedByTheLastLineEnd) {
  EXPECT_EQ(PrintableLines("\n\na\n"), (Texts{"", "", "a"}));
  EXPECT_EQ(PrintableLines("a\r\n"), Texts{"a"});
  EXPECT_EQ(PrintableLines("a\n\n"), (Texts{"a", ""}));
}

TEST(PrintableLines, ControlCharactersBecomeReplacementCharacters) {
  EXPECT_EQ(PrintableLines(std::string("a\0b\x1b[31m\x7f\u0085", 11)), Texts{"a�b�[31m��"});
}

TEST(PrintableLines, TabsBecomeBlanks) {
  EXPECT_EQ(PrintableLines("a\tb"), Texts{"a b"});
}

TEST(PrintableLines, DirectionOverridesBecomeReplacementCharacters) {
  EXPECT_EQ(PrintableLines("a\u202eb\u2066c"), Texts{"a�b�c"});
}

TEST(PrintableLines, DirectionMarksAndJoinersStay) {
  EXPECT_EQ(PrintableLines("\u200f\u200d\u061c"), Texts{"\u200f\u200d\u061c"});
}

TEST(PrintableLines, BytesThatAreNotUtf8BecomeReplacementCharacters) {
  EXPECT_EQ(PrintableLines("\xff"
                           "a\xc0\x80"
                           "b\xe4\xb8"
                           "c\xed\xa0\x80"),
            Texts{"�a��b��c���"});
}

RC_GTEST_PROP(PrintableLinesProperty, AnyBytesBecomeUtf8WithoutControlCharacters,
              (std::string const& text)) {
  for (std::string const& line : PrintableLines(text)) {
    RC_ASSERT(PrintableLines(line) == Texts{line});
  }
}

RC_GTEST_PROP(PrintableLinesProperty, GraphemesAreTheLineAndTheirWidthsItsWidth,
              (std::string const& text)) {
  for (std::string const& line : PrintableLines(text)) {
    std::string joined;
    int width = 0;
    for (std::string_view rest = line; !rest.empty();) {
      Grapheme const grapheme = SplitGrapheme(rest);
      RC_ASSERT(!grapheme.bytes.empty());
      RC_ASSERT((grapheme.width >= 0 && grapheme.width <= 2));
      joined += grapheme.bytes;
      width += grapheme.width;
    }
    RC_ASSERT(joined == line);
    RC_ASSERT(width == TextWidth(line));
  }
}

// Plain ASCII

TEST(IsPlainAscii, HoldsForPrintableAsciiOnly) {
  EXPECT_TRUE(IsPlainAscii(""));
  EXPECT_TRUE(IsPlainAscii(" aZ9~"));
  EXPECT_FALSE(IsPlainAscii("a\n"));
  EXPECT_FALSE(IsPlainAscii("\x7f"));
  EXPECT_FALSE(IsPlainAscii("ä"));
}
