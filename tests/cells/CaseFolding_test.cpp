#include <clocale>
#include <gtest/gtest.h>
#include <locale>
#include <set>
#include <string>
#include <utility>
#include <vector>
#include <wctype.h>

#include <cells/OmStringCell.h>

#include "support/Property.h"

namespace {

int Folded(std::string const& a, std::string const& b) {
  return OmStringCell(a).Compare(OmStringCell(b), true);
}

std::string Utf8(char32_t c) {
  std::string text;
  auto const put = [&](char32_t byte) { text.push_back(static_cast<char>(byte)); };
  if (c < 0x80) {
    put(c);
  } else if (c < 0x800) {
    put(0xC0 + c / 64);
    put(0x80 + c % 64);
  } else if (c < 0x10000) {
    put(0xE0 + c / 4096);
    put(0x80 + c / 64 % 64);
    put(0x80 + c % 64);
  } else {
    put(0xF0 + c / 262144);
    put(0x80 + c / 4096 % 64);
    put(0x80 + c / 64 % 64);
    put(0x80 + c % 64);
  }
  return text;
}

TEST(CaseFolding, FoldsEveryScript) {
  EXPECT_EQ(Folded("STRASSE", "strasse"), 0);
  EXPECT_EQ(Folded("\u00C9T\u00C9", "\u00E9t\u00E9"), 0);  // Latin
  EXPECT_EQ(Folded("\u03A9\u03A3", "\u03C9\u03C2"), 0);    // Greek, with final sigma
  EXPECT_EQ(Folded("\u0416", "\u0436"), 0);                // Cyrillic
  EXPECT_EQ(Folded("\u0531", "\u0561"), 0);                // Armenian
  EXPECT_EQ(Folded("\u212A", "k"), 0);                     // Kelvin sign
  EXPECT_EQ(Folded("\u1E9E", "\u00DF"), 0);                // capital sharp s
  EXPECT_EQ(Folded("\uAB70", "\u13A0"), 0);                // Cherokee folds upwards
  EXPECT_EQ(Folded("\U00010400", "\U00010428"), 0);        // Deseret
  EXPECT_EQ(Folded("\uFF21", "\uFF41"), 0);                // full-width
}

TEST(CaseFolding, IsOneCharacterForOne) {
  EXPECT_NE(Folded("\u00DF", "ss"), 0);
  EXPECT_NE(Folded("\uFB01", "fi"), 0);
}

TEST(CaseFolding, DoesNotFollowTheTurkishRules) {
  EXPECT_EQ(Folded("I", "i"), 0);
  EXPECT_NE(Folded("\u0130", "i"), 0);
  EXPECT_NE(Folded("I", "\u0131"), 0);
}

TEST(CaseFolding, NeighborsOfFoldingCharactersStayApart) {
  EXPECT_NE(Folded("@", "`"), 0);
  EXPECT_NE(Folded("[", "{"), 0);
  EXPECT_NE(Folded("\u00D7", "\u00F7"), 0);
  EXPECT_NE(Folded("\u0101", "\u0102"), 0);
}

TEST(CaseFolding, OrderIsThatOfTheFoldedTexts) {
  EXPECT_LT(Folded("_", "A"), 0);
  EXPECT_LT(OmStringCell("A").Compare(OmStringCell("_"), false), 0);
}

TEST(CaseFolding, BrokenBytesStandForThemselves) {
  std::vector<std::string> const broken{"\x80",
                                        "\xC1\x81",
                                        "\xC3",
                                        "\xE2\x82",
                                        "\xED\xA0\x80",
                                        "\xE0\x81\x81",
                                        "\xF0\x81\x81\x81",
                                        "\xF4\x90\x80\x80",
                                        "\xF5\x80\x80\x80",
                                        "\xFF",
                                        "\xC3"
                                        "A",
                                        "\xF0\x90\x90"};
  for (std::string const& a : broken) {
    for (std::string const& b : broken) {
      EXPECT_EQ(Folded(a, b) == 0, a == b);
    }
    EXPECT_EQ(Folded(a + "\u00C9", a + "\u00E9"), 0);
  }
}

TEST(CaseFolding, AgreesWithTheCaseTablesOfTheCLibraryForEveryCharacter) {
  locale_t const unicode = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
  ASSERT_NE(unicode, nullptr);
  auto const class_of = [&](char32_t c) {
    return towlower_l(towupper_l(static_cast<wint_t>(c), unicode), unicode);
  };
  std::set<char32_t> disagreeing;
  for (char32_t c = 0; c < 0x10FFFF; ++c) {
    if (c >= 0xD7FF && c < 0xE000) {
      continue;
    }
    auto const lower = static_cast<char32_t>(towlower_l(static_cast<wint_t>(c), unicode));
    bool const same_as_lower = Folded(Utf8(c), Utf8(lower)) == 0;
    bool const same_as_next = Folded(Utf8(c), Utf8(c + 1)) == 0;
    if (!same_as_lower || same_as_next != (class_of(c) == class_of(c + 1))) {
      disagreeing.insert(c);
    }
  }
  freelocale(unicode);
  // The dotted capital I, which has no simple folding.
  EXPECT_EQ(disagreeing, (std::set<char32_t>{0x0130}));
}

/// Foldings that are longer than the character, shorter, or as long; and bytes of no character.
std::vector<std::pair<std::string, std::string>> const kPieces{
    {"\u023A", "\u2C65"},
    {"\u212A", "k"},
    {"\u017F", "s"},
    {"\u1E9E", "\u00DF"},
    {"\u00C9", "\u00E9"},
    {"A", "a"},
    {"k", "k"},
    {"\u2C65", "\u2C65"},
    {"\xFF", "\xFF"},
    {"\x80", "\x80"},
    {std::string(1, '\0'), std::string(1, '\0')}};

PROPERTY(CaseFoldingOrder, IsThatOfTheFoldedBytesWhateverTheirNumber) {
  std::string texts[2];
  std::string folded[2];
  for (int i = 0; i < 2; ++i) {
    for (int left = *rc::gen::inRange(0, 6); left != 0; --left) {
      auto const& [piece, folding] = *rc::gen::elementOf(kPieces);
      texts[i] += piece;
      folded[i] += folding;
    }
  }
  int const expected = folded[0].compare(folded[1]);
  RC_ASSERT(Folded(texts[0], texts[1]) == (expected > 0) - (expected < 0));
}

PROPERTY(CaseFoldingAscii, AgreesWithLoweringAsciiLetters) {
  auto const text = [] {
    return *rc::gen::container<std::string>(
        rc::gen::map(rc::gen::inRange(0, 128), [](int c) { return static_cast<char>(c); }));
  };
  auto const lower = [](std::string s) {
    for (char& c : s) {
      c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
    }
    return s;
  };
  std::string const a = text();
  std::string const b = text();
  int const expected = lower(a).compare(lower(b));
  RC_ASSERT(Folded(a, b) == (expected > 0) - (expected < 0));
}

}  // namespace
