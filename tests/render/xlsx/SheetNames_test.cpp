#include "xlsx/SheetNames.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <set>
#include <string>
#include <vector>

#include "unicode/CleanText.h"
#include "unicode/Utf16.h"

using lakresvos::render::SheetNames;
using lakresvos::render::Utf16Length;

namespace {

std::string NameSheet(std::string const& text) {
  return SheetNames().Next(text, "Table");
}

}  // namespace

TEST(SheetNames, KeepsWhatIsLegal) {
  EXPECT_EQ(NameSheet("Survival by class & sex"), "Survival by class & sex");
  EXPECT_EQ(NameSheet("It's"), "It's");
  EXPECT_EQ(NameSheet("Größe 日本語"), "Größe 日本語");
}

TEST(SheetNames, PutsBlanksForForbiddenCharacters) {
  EXPECT_EQ(NameSheet("a[b]c:d*e?f/g\\h"), "a b c d e f g h");
  EXPECT_EQ(NameSheet("two\nlines\tand"), "two lines and");
  EXPECT_EQ(NameSheet("Age: Child"), "Age Child");
}

TEST(SheetNames, ReplacesWhatIsNoText) {
  EXPECT_EQ(NameSheet("bell\a \xFF"), "bell\uFFFD \uFFFD");
}

TEST(SheetNames, TakesApostrophesAndBlanksFromTheEnds) {
  EXPECT_EQ(NameSheet(" 'quoted' "), "quoted");
}

TEST(SheetNames, CutsAtThirtyOneCharacters) {
  EXPECT_EQ(NameSheet(std::string(31, 'x')), std::string(31, 'x'));
  EXPECT_EQ(NameSheet(std::string(32, 'x')), std::string(31, 'x'));
}

TEST(SheetNames, CountsCharactersAsUtf16Does) {
  std::string emoji;
  for (int i = 0; i < 16; ++i) {
    emoji += "😀";
  }
  EXPECT_EQ(NameSheet(emoji), emoji.substr(0, 15 * 4));
}

TEST(SheetNames, DoesNotEndInAnApostropheAfterTheCut) {
  EXPECT_EQ(NameSheet(std::string(30, 'x') + "'s"), std::string(30, 'x'));
}

TEST(SheetNames, HasAnotherNameWhenNothingIsLeft) {
  EXPECT_EQ(NameSheet(""), "Table");
  EXPECT_EQ(NameSheet("[?]"), "Table");
  EXPECT_EQ(NameSheet("''"), "Table");
}

TEST(SheetNames, NumbersEqualNames) {
  SheetNames names;
  EXPECT_EQ(names.Next("Counts", "Table"), "Counts");
  EXPECT_EQ(names.Next("Counts", "Table"), "Counts (2)");
  EXPECT_EQ(names.Next("Counts", "Table"), "Counts (3)");
}

TEST(SheetNames, NamesWithoutTextAreNumberedToo) {
  SheetNames names;
  EXPECT_EQ(names.Next("", "Table"), "Table");
  EXPECT_EQ(names.Next("", "Table"), "Table (2)");
}

TEST(SheetNames, TellsNamesApartWhateverTheirCase) {
  SheetNames names;
  EXPECT_EQ(names.Next("GRÖSSE", "Table"), "GRÖSSE");
  EXPECT_EQ(names.Next("größe", "Table"), "größe (2)");
}

TEST(SheetNames, PassesNumbersThatAreTaken) {
  SheetNames names;
  EXPECT_EQ(names.Next("A (2)", "Table"), "A (2)");
  EXPECT_EQ(names.Next("A", "Table"), "A");
  EXPECT_EQ(names.Next("A", "Table"), "A (3)");
}

TEST(SheetNames, MakesRoomForTheNumber) {
  SheetNames names;
  std::string const text(40, 'x');
  EXPECT_EQ(names.Next(text, "Table"), std::string(31, 'x'));
  EXPECT_EQ(names.Next(text, "Table"), std::string(27, 'x') + " (2)");
}

TEST(SheetNames, DoesNotUseTheReservedName) {
  EXPECT_EQ(NameSheet("History"), "History (2)");
  EXPECT_EQ(NameSheet("hISTORY"), "hISTORY (2)");
  EXPECT_EQ(NameSheet("History 2"), "History 2");
}

TEST(SheetNames, ManyEqualTextsTakeLittleTime) {
  SheetNames names;
  std::string last;
  for (int i = 0; i < 50000; ++i) {
    last = names.Next("Counts", "Table");
  }
  EXPECT_EQ(last, "Counts (50000)");
}

RC_GTEST_PROP(SheetNames, AreLegalAndAllDifferent, ()) {
  auto const texts = *rc::gen::container<std::vector<std::string>>(rc::gen::container<std::string>(
      rc::gen::element('a', 'A', '\'', ' ', ':', '\\', '\xFF', '\xC3', '\xB6', '1', '\0')));
  SheetNames names;
  std::set<std::string> seen;
  for (std::string const& text : texts) {
    std::string name = names.Next(text, "Table");
    RC_ASSERT(!name.empty());
    RC_ASSERT(Utf16Length(name) <= 31u);
    RC_ASSERT(name.find_first_of("[]:*?/\\\n\t") == std::string::npos);
    RC_ASSERT(name.front() != '\'' && name.back() != '\'');
    RC_ASSERT(lakresvos::render::CleanText(name) == name);
    std::transform(name.begin(), name.end(), name.begin(),
                   [](char c) { return c == 'A' ? 'a' : c; });
    RC_ASSERT(seen.insert(name).second);
  }
}
