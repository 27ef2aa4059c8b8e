#include "content/FootnoteMarks.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "render/support/RenderTables.h"

using lakresvos::render::FootnoteMarks;
using lakresvos::render::LabelTexts;
using namespace render_tables;

namespace {

std::string FindMarks(OmPivotTable const& table, std::initializer_list<unsigned int> numbers,
                      bool ascii = false) {
  OmNumber cell(1);
  LabelTexts labels;
  return FootnoteMarks(table, labels, ascii).Find(WithFootnotes(cell, numbers));
}

using Texts = std::vector<std::string>;

}  // namespace

TEST(FootnoteMarks, CellWithoutFootnotesHasNoMark) {
  LabelTexts labels;
  Table table;
  AddFootnote(table, "note");
  EXPECT_EQ(FootnoteMarks(table, labels, false).Find(OmNumber(1)), "");
  EXPECT_EQ(FindMarks(table, {}), "");
}

TEST(FootnoteMarks, FootnotesWithoutMarkerGetRaisedLettersInTableOrder) {
  LabelTexts labels;
  Table table;
  AddFootnote(table, "first");
  AddFootnote(table, "second");
  EXPECT_EQ(FindMarks(table, {0}), "ᵃ");
  EXPECT_EQ(FindMarks(table, {1}), "ᵇ");
  EXPECT_EQ(FootnoteMarks(table, labels, false).Notes(), (Texts{"ᵃ first", "ᵇ second"}));
}

TEST(FootnoteMarks, AsciiMarksAreInBrackets) {
  LabelTexts labels;
  Table table;
  AddFootnote(table, "first");
  AddFootnote(table, "second", "*");
  EXPECT_EQ(FindMarks(table, {0, 1}, true), "[a,*]");
  EXPECT_EQ(FootnoteMarks(table, labels, true).Notes(), (Texts{"[a] first", "[*] second"}));
}

TEST(FootnoteMarks, SeveralMarksAreJoinedByCommasInTheOrderOfTheCell) {
  Table table;
  AddFootnote(table, "first");
  AddFootnote(table, "second");
  EXPECT_EQ(FindMarks(table, {1, 0}), "ᵇ,ᵃ");
}

TEST(FootnoteMarks, MarkerOfTheFootnoteGoesBeforeALetter) {
  Table table;
  AddFootnote(table, "first", "*");
  AddFootnote(table, "second");
  EXPECT_EQ(FindMarks(table, {0}), "*");
  EXPECT_EQ(FindMarks(table, {1}), "ᵃ");
}

TEST(FootnoteMarks, LettersThatAreMarkersAreNotGivenTwice) {
  Table table;
  AddFootnote(table, "first");
  AddFootnote(table, "second", "a");
  EXPECT_EQ(FindMarks(table, {0}), "ᵇ");
  EXPECT_EQ(FindMarks(table, {1}), "ᵃ");
}

TEST(FootnoteMarks, DigitsAreRaisedSoThatTheyAreNotReadAsPartOfANumber) {
  Table table;
  AddFootnote(table, "note", "10");
  EXPECT_EQ(FindMarks(table, {0}), "¹⁰");
}

TEST(FootnoteMarks, SignsStayAsTheyAre) {
  Table table;
  AddFootnote(table, "note", "†");
  EXPECT_EQ(FindMarks(table, {0}), "†");
}

TEST(FootnoteMarks, MarkersWithoutARaisedFormAreInBrackets) {
  Table table;
  AddFootnote(table, "note", "A");
  AddFootnote(table, "note", "q");
  AddFootnote(table, "note", "(1)");
  EXPECT_EQ(FindMarks(table, {0}), "[A]");
  EXPECT_EQ(FindMarks(table, {1}), "[q]");
  EXPECT_EQ(FindMarks(table, {2}), "[(1)]");
}

TEST(FootnoteMarks, LettersGoOnWithTwoAfterTheTwentySixth) {
  Table table;
  for (int i = 0; i < 53; ++i) {
    AddFootnote(table, std::to_string(i));
  }
  EXPECT_EQ(FindMarks(table, {25}, true), "[z]");
  EXPECT_EQ(FindMarks(table, {26}, true), "[aa]");
  EXPECT_EQ(FindMarks(table, {51}, true), "[az]");
  EXPECT_EQ(FindMarks(table, {52}, true), "[ba]");
}

TEST(FootnoteMarks, MarksAfterTheTwentySixthArePlainInEveryPlace) {
  LabelTexts labels;
  Table table;
  for (unsigned int i = 0; i < 60; ++i) {
    AddFootnote(table, "note");
  }
  EXPECT_EQ(FindMarks(table, {25}), "ᶻ");
  EXPECT_EQ(FindMarks(table, {26}), "[aa]");
  EXPECT_EQ(FindMarks(table, {42, 43}), "[aq,ar]");
  EXPECT_EQ(FindMarks(table, {25, 26, 0}), "ᶻ,[aa],ᵃ");
  Texts const notes = FootnoteMarks(table, labels, false).Notes();
  for (unsigned int i = 0; i < 60; ++i) {
    EXPECT_EQ(notes[i], FindMarks(table, {i}) + " note");
  }
}

TEST(FootnoteMarks, MarkIsShownTheSameBesideAnyOther) {
  LabelTexts labels;
  Table table;
  for (char const* marker : {"", "*", "q", "A", "10", "ab", "†"}) {
    AddFootnote(table, "note", marker);
  }
  Texts const notes = FootnoteMarks(table, labels, false).Notes();
  auto const unbracketed = [](std::string text) {
    std::erase_if(text, [](char c) { return c == '[' || c == ']'; });
    return text;
  };
  for (unsigned int i = 0; i < 7; ++i) {
    for (unsigned int j = 0; j < 7; ++j) {
      std::string const both = FindMarks(table, {i, j});
      std::string const one = FindMarks(table, {i});
      std::string const other = FindMarks(table, {j});
      bool const bracketed = one.back() == ']' && other.front() == '[';
      EXPECT_EQ(bracketed ? unbracketed(both) : both,
                bracketed ? unbracketed(one + "," + other) : one + "," + other);
      EXPECT_EQ(notes[i], one + " note");
    }
  }
}

TEST(FootnoteMarks, NumbersThatAreNoFootnoteAreLeftOut) {
  Table table;
  AddFootnote(table, "note");
  EXPECT_EQ(FindMarks(table, {7, 0, 4294967295U}), "ᵃ");
  EXPECT_EQ(FindMarks(table, {7}), "");
}

TEST(FootnoteMarks, TableWithoutFootnotesHasNoNotes) {
  LabelTexts labels;
  Table const table;
  EXPECT_TRUE(FootnoteMarks(table, labels, false).Notes().empty());
}
