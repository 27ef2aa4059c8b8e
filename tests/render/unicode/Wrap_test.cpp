#include "unicode/Wrap.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <string>
#include <vector>

#include "unicode/TextWidth.h"

using lakresvos::render::MeasureWidestLine;
using lakresvos::render::PrintableLines;
using lakresvos::render::TextLine;
using lakresvos::render::TextWidth;
using lakresvos::render::Wrap;

namespace {

using Texts = std::vector<std::string>;

Texts Wrapped(std::string const& text, int limit) {
  Texts texts;
  for (TextLine const& line : Wrap(text, limit)) {
    texts.push_back(line.text);
  }
  return texts;
}

std::string RemoveSpaces(std::string text) {
  text.erase(std::remove(text.begin(), text.end(), ' '), text.end());
  return text;
}

/// Words, spaces, line ends, wide, combining and joined characters, and bytes that are no text.
std::string AnyText() {
  std::string text;
  auto const pieces = *rc::gen::container<std::vector<std::string>>(rc::gen::element<std::string>(
      "a", "bcd", " ", "  ", "\n", "日", "e\u0301", "👩‍👧", "\xff", "\u0301", "longerword"));
  for (std::string const& piece : pieces) {
    text += piece;
  }
  return text;
}

}  // namespace

TEST(Wrap, TextThatFitsIsOneLine) {
  EXPECT_EQ(Wrapped("abc def", 7), Texts{"abc def"});
  EXPECT_EQ(Wrapped("", 7), Texts{""});
}

TEST(Wrap, BreaksAtTheLastBlankThatFitsAndSwallowsIt) {
  EXPECT_EQ(Wrapped("one two three", 8), (Texts{"one two", "three"}));
  EXPECT_EQ(Wrapped("one two three", 7), (Texts{"one two", "three"}));
}

TEST(Wrap, SeveralBlanksAtABreakAreSwallowedTogether) {
  EXPECT_EQ(Wrapped("one    two", 5), (Texts{"one", "two"}));
  EXPECT_EQ(Wrapped("one    two", 3), (Texts{"one", "two"}));
}

TEST(Wrap, WordsThatAreTooLongBreakInside) {
  EXPECT_EQ(Wrapped("abcdefgh", 3), (Texts{"abc", "def", "gh"}));
  EXPECT_EQ(Wrapped("a bcdefgh", 3), (Texts{"a", "bcd", "efg", "h"}));
}

TEST(Wrap, IndentOfALineIsKept) {
  EXPECT_EQ(Wrapped("  ab cd", 5), (Texts{"  ab", "cd"}));
}

TEST(Wrap, NothingButBlanksIsOneEmptyLine) {
  EXPECT_EQ(Wrapped("       ", 3), Texts{""});
}

TEST(Wrap, LineEndsBreak) {
  EXPECT_EQ(Wrapped("one\n\ntwo", 10), (Texts{"one", "", "two"}));
}

TEST(Wrap, WideCharactersCountTwo) {
  EXPECT_EQ(Wrapped("日本語文", 5), (Texts{"日本", "語文"}));
}

TEST(Wrap, GraphemesAreNotBroken) {
  EXPECT_EQ(Wrapped("e\u0301e\u0301e\u0301", 2), (Texts{"e\u0301e\u0301", "e\u0301"}));
  EXPECT_EQ(Wrapped("a👩‍👩‍👧b", 2), (Texts{"a", "👩‍👩‍👧", "b"}));
}

TEST(Wrap, CharacterWiderThanTheLimitHasALineOfItsOwn) {
  EXPECT_EQ(Wrapped("a日b", 1), (Texts{"a", "日", "b"}));
}

TEST(Wrap, LongTextTakesLinearTime) {
  std::string const text(2'000'000, 'x');
  EXPECT_EQ(Wrap(text, 2).size(), 1'000'000U);
}

TEST(Wrap, KeepsTheMemoryOfLinesThatAreReplaced) {
  std::vector<TextLine> lines;
  Wrap("a text that is a little longer", 40, lines);
  char const* const bytes = lines.front().text.data();
  Wrap("another one", 40, lines);
  EXPECT_EQ(lines.size(), 1u);
  EXPECT_EQ(lines.front().text, "another one");
  EXPECT_EQ(lines.front().width, 11);
  EXPECT_EQ(static_cast<void const*>(lines.front().text.data()), bytes);
}

RC_GTEST_PROP(WrapProperty, ReplacesWhateverLinesThereWere, ()) {
  auto const limit = *rc::gen::inRange(1, 20);
  std::vector<TextLine> lines = Wrap(AnyText(), limit);
  std::string const text = AnyText();
  Wrap(text, limit, lines);
  std::vector<TextLine> const fresh = Wrap(text, limit);
  RC_ASSERT(lines.size() == fresh.size());
  for (std::size_t i = 0; i < lines.size(); ++i) {
    RC_ASSERT(lines[i].text == fresh[i].text);
    RC_ASSERT(lines[i].width == fresh[i].width);
  }
}

RC_GTEST_PROP(WrapProperty, LinesFitAndKnowTheirWidth, ()) {
  int const limit = *rc::gen::inRange(2, 12);
  for (TextLine const& line : Wrap(AnyText(), limit)) {
    RC_ASSERT(line.width == TextWidth(line.text));
    RC_ASSERT(line.width <= limit);
  }
}

RC_GTEST_PROP(WrapProperty, NothingButBlanksIsLost, ()) {
  std::string const text = AnyText();
  std::string lines;
  for (std::string const& line : Wrapped(text, *rc::gen::inRange(2, 12))) {
    lines += line;
  }
  std::string whole;
  for (std::string const& line : PrintableLines(text)) {
    whole += line;
  }
  RC_ASSERT(RemoveSpaces(lines) == RemoveSpaces(whole));
}

RC_GTEST_PROP(WrapProperty, WrappingAtTheWidestLineChangesNothing, ()) {
  std::string const text = AnyText();
  int const limit = *rc::gen::inRange(2, 12);
  std::vector<TextLine> const lines = Wrap(text, limit);
  RC_ASSERT(Wrapped(text, std::max(1, MeasureWidestLine(lines))) == Wrapped(text, limit));
}
