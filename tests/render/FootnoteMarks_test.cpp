#include "FootnoteMarks.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "RenderTables.h"

using lakresvos::render::FootnoteMarks;
using namespace render_tables;

namespace {

std::string MarksOf(OmPivotTable const& table, std::initializer_list<unsigned int> numbers,
                    bool ascii = false) {
  OmNumber cell(1);
  return FootnoteMarks(table, ascii).Of(WithFootnotes(cell, numbers));
}

using Texts = std::vector<std::string>;

}  // namespace

TEST(FootnoteMarks, CellWithoutFootnotesHasNoMark) {
  Table table;
  AddFootnote(table, "note");
  EXPECT_EQ(FootnoteMarks(table, false).Of(OmNumber(1)), "");
  EXPECT_EQ(MarksOf(table, {}), "");
}

TEST(FootnoteMarks, FootnotesWithoutMarkerGetRaisedLettersInTableOrder) {
  Table table;
  AddFootnote(table, "first");
  AddFootnote(table, "second");
  EXPECT_EQ(MarksOf(table, {0}), "ᵃ");
  EXPECT_EQ(MarksOf(table, {1}), "ᵇ");
  EXPECT_EQ(FootnoteMarks(table, false).Notes(), (Texts{"ᵃ first", "ᵇ second"}));
}

TEST(FootnoteMarks, AsciiMarksStandInBrackets) {
  Table table;
  AddFootnote(table, "first");
  AddFootnote(table, "second", "*");
  EXPECT_EQ(MarksOf(table, {0, 1}, true), "[a,*]");
  EXPECT_EQ(FootnoteMarks(table, true).Notes(), (Texts{"[a] first", "[*] second"}));
}

TEST(FootnoteMarks, SeveralMarksAreJoinedByCommasInTheOrderOfTheCell) {
  Table table;
  AddFootnote(table, "first");
  AddFootnote(table, "second");
  EXPECT_EQ(MarksOf(table, {1, 0}), "ᵇ,ᵃ");
}

TEST(FootnoteMarks, MarkerOfTheFootnoteGoesBeforeALetter) {
  Table table;
  AddFootnote(table, "first", "*");
  AddFootnote(table, "second");
  EXPECT_EQ(MarksOf(table, {0}), "*");
  EXPECT_EQ(MarksOf(table, {1}), "ᵃ");
}

TEST(FootnoteMarks, LettersThatAreMarkersAreNotGivenTwice) {
  Table table;
  AddFootnote(table, "first");
  AddFootnote(table, "second", "a");
  EXPECT_EQ(MarksOf(table, {0}), "ᵇ");
  EXPECT_EQ(MarksOf(table, {1}), "ᵃ");
}

TEST(FootnoteMarks, DigitsAreRaisedSoThatTheyAreNotReadAsPartOfANumber) {
  Table table;
  AddFootnote(table, "note", "10");
  EXPECT_EQ(MarksOf(table, {0}), "¹⁰");
}

TEST(FootnoteMarks, SignsStandAsTheyAre) {
  Table table;
  AddFootnote(table, "note", "†");
  EXPECT_EQ(MarksOf(table, {0}), "†");
}

TEST(FootnoteMarks, MarkersWithoutARaisedFormStandInBrackets) {
  Table table;
  AddFootnote(table, "note", "A");
  AddFootnote(table, "note", "q");
  AddFootnote(table, "note", "(1)");
  EXPECT_EQ(MarksOf(table, {0}), "[A]");
  EXPECT_EQ(MarksOf(table, {1}), "[q]");
  EXPECT_EQ(MarksOf(table, {2}), "[(1)]");
}

TEST(FootnoteMarks, LettersGoOnWithTwoAfterTheTwentySixth) {
  Table table;
  for (int i = 0; i < 53; ++i) {
    AddFootnote(table, std::to_string(i));
  }
  EXPECT_EQ(MarksOf(table, {25}, true), "[z]");
  EXPECT_EQ(MarksOf(table, {26}, true), "[aa]");
  EXPECT_EQ(MarksOf(table, {51}, true), "[az]");
  EXPECT_EQ(MarksOf(table, {52}, true), "[ba]");
}

TEST(FootnoteMarks, NumbersThatAreNoFootnoteAreLeftOut) {
  Table table;
  AddFootnote(table, "note");
  EXPECT_EQ(MarksOf(table, {7, 0, 4294967295U}), "ᵃ");
  EXPECT_EQ(MarksOf(table, {7}), "");
}

TEST(FootnoteMarks, TableWithoutFootnotesHasNoNotes) {
  Table const table;
  EXPECT_TRUE(FootnoteMarks(table, false).Notes().empty());
}
