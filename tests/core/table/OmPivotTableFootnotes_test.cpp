#include <climits>
#include <cstddef>
#include <gtest/gtest.h>
#include <type_traits>

#include <cells/OmNumber.h>
#include <lakresvos/OmPivotTable.h>

#include "core/table/OmPivotTableFixture.h"
#include "support/SpyCell.h"
#include "support/faults/FailingNew.h"

namespace {

static_assert(!std::is_copy_constructible_v<OmFootnote>);
static_assert(!std::is_copy_assignable_v<OmFootnote>);
static_assert(offsetof(OmFootnote, region) == 0);
static_assert(offsetof(OmFootnote, text) == 8);
static_assert(offsetof(OmFootnote, marker) == 16);
static_assert(offsetof(OmFootnote, count) == 24);
static_assert(
    std::is_same_v<decltype(std::declval<OmPivotTable&>().Footnotes()), OmVector<OmFootnote>&>);
static_assert(std::is_same_v<decltype(std::declval<OmPivotTable const&>().Footnotes()),
                             OmVector<OmFootnote> const&>);

/// A footnote with a text of its own, and a marker when one is given.
struct Note : OmFootnote {
  explicit Note(OmCellText const& note, OmCellText const* mark = nullptr, int given = 0) {
    text = note.Clone(nullptr);
    marker = mark != nullptr ? mark->Clone(nullptr) : nullptr;
    count = given;
  }
  explicit Note(std::string const& note, int given = 0) : Note(Text(note), nullptr, given) {}
  Note(std::string const& note, std::string const& mark) : Note(Text(note)) {
    marker = Text(mark).Clone(nullptr);
  }
};

/// All footnotes as "text/marker/count".
std::vector<std::string> Listed(OmPivotTable const& table) {
  std::vector<std::string> lines;
  for (OmFootnote const& note : table.Footnotes().Elements()) {
    lines.push_back(TestTable::TextOf(note.text) + "/" + TestTable::TextOf(note.marker) + "/" +
                    std::to_string(note.count));
  }
  return lines;
}

using Lines = std::vector<std::string>;

// The record

TEST(OmFootnote, IsEmptyAtFirst) {
  OmFootnote const note;
  EXPECT_EQ(note.region, nullptr);
  EXPECT_EQ(note.text, nullptr);
  EXPECT_EQ(note.marker, nullptr);
  EXPECT_EQ(note.count, 0);
}

TEST(OmFootnote, KeepsTheRegionThatItIsGiven) {
  OmMemoryRegion region(false);
  EXPECT_EQ(OmFootnote(&region).region, &region);
}

TEST(OmFootnote, DeletesItsTexts) {
  {
    OmFootnote note;
    note.text = new SpyCell("text");
    note.marker = new SpyCell("marker");
    EXPECT_EQ(SpyCell::Live(), 2);
  }
  EXPECT_EQ(SpyCell::Live(), 0);
}

TEST(OmFootnote, DeletesATextWithoutAMarker) {
  {
    OmFootnote note;
    note.text = new SpyCell("text");
  }
  EXPECT_EQ(SpyCell::Live(), 0);
}

// New entries

TEST(OmPivotTableFootnotes, ThereAreNoneAtFirst) {
  TestTable table;
  EXPECT_EQ(table.Footnotes().size(), 0U);
  EXPECT_EQ(table.Footnotes().begin, nullptr);
}

TEST(OmPivotTableFootnotes, BothFormsOfAccessGiveTheSameList) {
  TestTable table;
  EXPECT_EQ(&std::as_const(table).Footnotes(), &table.Footnotes());
}

TEST(OmPivotTableFootnotes, TheirNumbersAreTheirPositions) {
  TestTable table;
  EXPECT_EQ(table.Footnote(Note("a"), false), 0);
  EXPECT_EQ(table.Footnote(Note("b"), true), 1);
  EXPECT_EQ(table.Footnote(Note("c"), false), 2);
  EXPECT_EQ(Listed(table), (Lines{"a/(none)/1", "b/(none)/1", "c/(none)/1"}));
}

TEST(OmPivotTableFootnotes, TextAndMarkerAreClonedIntoTheTablesRegion) {
  TestTable table;
  Note const note("text", "marker");
  table.Footnote(note, false);
  OmFootnote const& entry = table.Footnotes()[0];
  EXPECT_NE(entry.text, note.text);
  EXPECT_NE(entry.marker, note.marker);
  EXPECT_EQ(entry.region, &table.data());
  EXPECT_EQ(OmMemoryRegion::FindOwner(&entry), &table.data());
  EXPECT_EQ(OmMemoryRegion::FindOwner(entry.text), &table.data());
  EXPECT_EQ(OmMemoryRegion::FindOwner(entry.marker), &table.data());
}

TEST(OmPivotTableFootnotes, TheListGrowsToFourAndThenByDoubling) {
  TestTable table;
  std::vector<std::size_t> capacities;
  for (int i = 0; i < 9; ++i) {
    table.Footnote(Note(std::to_string(i)), true);
    capacities.push_back(table.Footnotes().capacity());
  }
  EXPECT_EQ(capacities, (std::vector<std::size_t>{4, 4, 4, 4, 8, 8, 8, 8, 16}));
  EXPECT_EQ(Listed(table)[0], "0/(none)/1");
  EXPECT_EQ(Listed(table)[8], "8/(none)/1");
}

TEST(OmPivotTableFootnotes, ANegativeCountIsStored) {
  TestTable table;
  table.Footnote(Note("a", -1), false);
  table.Footnote(Note("b", INT_MIN), true);
  EXPECT_EQ(Listed(table), (Lines{"a/(none)/-1", "b/(none)/-2147483648"}));
}

TEST(OmPivotTableFootnotes, AnyOtherCountBecomesOne) {
  TestTable table;
  table.Footnote(Note("a", 0), false);
  table.Footnote(Note("b", 1), false);
  table.Footnote(Note("c", 17), false);
  EXPECT_EQ(Listed(table), (Lines{"a/(none)/1", "b/(none)/1", "c/(none)/1"}));
}

TEST(OmPivotTableFootnotes, AppendingMakesANewEntryForAKnownText) {
  TestTable table;
  EXPECT_EQ(table.Footnote(Note("a"), true), 0);
  EXPECT_EQ(table.Footnote(Note("a"), true), 1);
  EXPECT_EQ(Listed(table), (Lines{"a/(none)/1", "a/(none)/1"}));
}

// Known texts

TEST(OmPivotTableFootnotes, AKnownTextIsCounted) {
  TestTable table;
  EXPECT_EQ(table.Footnote(Note("a"), false), 0);
  EXPECT_EQ(table.Footnote(Note("a"), false), 0);
  EXPECT_EQ(Listed(table), (Lines{"a/(none)/2"}));
}

TEST(OmPivotTableFootnotes, TheFirstOfEqualTextsIsCounted) {
  TestTable table;
  table.Footnote(Note("x"), true);
  table.Footnote(Note("a"), true);
  table.Footnote(Note("a"), true);
  EXPECT_EQ(table.Footnote(Note("a"), false), 1);
  EXPECT_EQ(Listed(table), (Lines{"x/(none)/1", "a/(none)/2", "a/(none)/1"}));
}

TEST(OmPivotTableFootnotes, ANegativeCountGoesUpByOne) {
  TestTable table;
  table.Footnote(Note("a", -1), false);
  table.Footnote(Note("a", -1), false);
  EXPECT_EQ(Listed(table), (Lines{"a/(none)/0"}));
  table.Footnote(Note("a"), false);
  EXPECT_EQ(Listed(table), (Lines{"a/(none)/1"}));
}

TEST(OmPivotTableFootnotes, TheGivenCountOfAKnownTextIsNotUsed) {
  TestTable table;
  table.Footnote(Note("a"), false);
  table.Footnote(Note("a", 40), false);
  table.Footnote(Note("a", -40), false);
  EXPECT_EQ(Listed(table), (Lines{"a/(none)/3"}));
}

TEST(OmPivotTableFootnotes, AKnownTextTakesTheGivenMarker) {
  TestTable table;
  table.Footnote(Note("a", "x"), false);
  table.Footnote(Note("a", "y"), false);
  EXPECT_EQ(Listed(table), (Lines{"a/y/2"}));
}

TEST(OmPivotTableFootnotes, AKnownTextGainsAMarker) {
  TestTable table;
  table.Footnote(Note("a"), false);
  table.Footnote(Note("a", "y"), false);
  EXPECT_EQ(Listed(table), (Lines{"a/y/2"}));
  EXPECT_EQ(OmMemoryRegion::FindOwner(table.Footnotes()[0].marker), &table.data());
}

TEST(OmPivotTableFootnotes, AKnownTextWithoutAMarkerLosesItsOwn) {
  TestTable table;
  table.Footnote(Note("a", "x"), false);
  table.Footnote(Note("a"), false);
  EXPECT_EQ(Listed(table), (Lines{"a/(none)/2"}));
}

TEST(OmPivotTableFootnotes, TheStoredTextOfAKnownOneIsKept) {
  TestTable table;
  table.Footnote(Note("a"), false);
  OmCellText const* const stored = table.Footnotes()[0].text;
  table.Footnote(Note("a"), false);
  EXPECT_EQ(table.Footnotes()[0].text, stored);
}

TEST(OmPivotTableFootnotes, TextsOfDifferentKindsAreDifferent) {
  TestTable table;
  table.Footnote(Note(Text("5")), false);
  EXPECT_EQ(table.Footnote(Note(OmStringCellUTF8("5")), false), 1);
  EXPECT_EQ(table.Footnote(Note(OmNumber(5)), false), 2);
  EXPECT_EQ(table.Footnote(Note(OmNumber(5)), false), 2);
}

TEST(OmPivotTableFootnotes, UpperAndLowerCaseAreDifferent) {
  TestTable table;
  table.Footnote(Note("a"), false);
  EXPECT_EQ(table.Footnote(Note("A"), false), 1);
}

TEST(OmPivotTableFootnotes, TheMarkerDoesNotTellFootnotesApart) {
  TestTable table;
  table.Footnote(Note("a", "x"), false);
  EXPECT_EQ(table.Footnote(Note("a", "y"), false), 0);
}

TEST(OmPivotTableFootnotes, AnEmptyTextIsATextToo) {
  TestTable table;
  EXPECT_EQ(table.Footnote(Note(""), false), 0);
  EXPECT_EQ(table.Footnote(Note(""), false), 0);
  EXPECT_EQ(Listed(table), (Lines{"/(none)/2"}));
}

TEST(OmPivotTableFootnotes, AppendingLooksNothingUp) {
  TestTable table;
  Note const note(SpyCell("a"));
  table.Footnote(note, true);
  SpyLog const log;
  table.Footnote(note, true);
  EXPECT_TRUE(log.Of(SpyCell::Operation::Compare).empty());
}

TEST(OmPivotTableFootnotes, TheCaseCountsInTheLookup) {
  TestTable table;
  Note const note(SpyCell("a"));
  table.Footnote(note, true);
  SpyLog const log;
  table.Footnote(note, false);
  auto const compared = log.Of(SpyCell::Operation::Compare);
  ASSERT_EQ(compared.size(), 1U);
  EXPECT_EQ(compared[0].number, 0);
}

TEST(OmPivotTableFootnotes, AReplacedMarkerGoesAfterTheNewCopyIsMade) {
  TestTable table;
  SpyCell const x("x");
  SpyCell const y("y");
  table.Footnote(Note(Text("a"), &x), false);
  Note const again(Text("a"), &y);
  SpyLog const log;
  table.Footnote(again, false);
  EXPECT_EQ(log.Lines(), (Lines{"Clone y", "Destroy x"}));
}

// Entries of the table itself

TEST(OmPivotTableFootnotes, AStoredEntryMayBeAppendedAgain) {
  TestTable table;
  for (int i = 0; i < 4; ++i) {
    table.Footnote(Note(std::to_string(i), "m"), true);
  }
  ASSERT_EQ(table.Footnotes().size(), table.Footnotes().capacity());
  EXPECT_EQ(table.Footnote(table.Footnotes()[0], true), 4);
  EXPECT_EQ(Listed(table)[4], "0/m/1");
  EXPECT_EQ(Listed(table)[0], "0/m/1");
}

TEST(OmPivotTableFootnotes, AStoredEntryMayBeCountedAgain) {
  TestTable table;
  table.Footnote(Note("a", "m"), true);
  EXPECT_EQ(table.Footnote(table.Footnotes()[0], false), 0);
  EXPECT_EQ(Listed(table), (Lines{"a/m/2"}));
}

TEST(OmPivotTableFootnotes, AStoredNegativeCountIsTakenOverByAnAppendedCopy) {
  TestTable table;
  for (int i = 0; i < 4; ++i) {
    table.Footnote(Note("a", -5), true);
  }
  table.Footnote(table.Footnotes()[3], true);
  EXPECT_EQ(Listed(table)[4], "a/(none)/-5");
}

TEST(OmPivotTableFootnotes, AFootnoteWithoutATextIsNotAdded) {
  TestTable table;
  table.Footnote(Note("a"), true);
  EXPECT_EQ(table.Footnote(OmFootnote(), true), -1);
  EXPECT_EQ(table.Footnote(OmFootnote(), false), -1);
  EXPECT_EQ(Listed(table), (Lines{"a/(none)/1"}));
}

// Ownership and failure

TEST(OmPivotTableFootnotes, GoWithTheTable) {
  SpyCell const marker("m");
  Note const note(SpyCell("a"), &marker);
  long const live = SpyCell::Live();
  {
    TestTable table;
    for (int i = 0; i < 10; ++i) {
      table.Footnote(note, true);
    }
    table.Footnote(note, false);
    EXPECT_EQ(SpyCell::Live(), live + 20);
  }
  EXPECT_EQ(SpyCell::Live(), live);
}

TEST(OmPivotTableFootnotes, OutliveTheTrackerThatTheyAreBoundTo) {
  auto table = std::make_unique<TestTable>();
  table->setBackendSettings(BackendSettings());
  table->Footnote(Note("a", "m"), true);
  EXPECT_NE(table->Footnotes()[0].text->GetTracker(), nullptr);
  table.reset();
}

/// A call of Footnote() in a table with four footnotes, which is a full list.
struct Attempt {
  char const* name;
  bool append;
  bool known;
};

void PrintTo(Attempt const& attempt, std::ostream* out) {
  *out << attempt.name;
}

class OmPivotTableFootnoteFailure : public testing::TestWithParam<Attempt> {
 protected:
  OmPivotTableFootnoteFailure() {
    for (int i = 0; i < 4; ++i) {
      table.Footnote(Note(SpyCell(std::to_string(i)), &marker), true);
    }
    table.setBackendSettings(BackendSettings());
    before = Listed(table);
    live = SpyCell::Live();
    bytes = table.data().BytesInUse();
  }

  void Try() { table.Footnote(note, GetParam().append); }

  void ExpectUnchanged() {
    EXPECT_EQ(Listed(table), before);
    EXPECT_EQ(SpyCell::Live(), live);
    EXPECT_EQ(table.data().BytesInUse(), bytes);
  }

  SpyCell const marker{"new marker"};
  Note const note{SpyCell(GetParam().known ? "2" : "new"), &marker};
  TestTable table;
  Lines before;
  long live = 0;
  unsigned long bytes = 0;
};

INSTANTIATE_TEST_SUITE_P(EveryCase, OmPivotTableFootnoteFailure,
                         testing::Values(Attempt{"Appended", true, false},
                                         Attempt{"AppendedAgain", true, true},
                                         Attempt{"New", false, false},
                                         Attempt{"Known", false, true}),
                         [](auto const& attempt) { return attempt.param.name; });

TEST_P(OmPivotTableFootnoteFailure, AnyCloneMayFail) {
  std::size_t const clones = GetParam().known && !GetParam().append ? 1 : 2;
  EXPECT_EQ(FailEveryCall(
                SpyCell::Operation::Clone, [&] { Try(); }, [&] { ExpectUnchanged(); }),
            clones);
  EXPECT_NE(Listed(table), before);
}

TEST_P(OmPivotTableFootnoteFailure, AnyBindingMayFail) {
  EXPECT_GT(FailEveryCall(
                SpyCell::Operation::Accept, [&] { Try(); }, [&] { ExpectUnchanged(); }),
            0U);
  EXPECT_NE(Listed(table), before);
}

TEST_P(OmPivotTableFootnoteFailure, AnyComparisonMayFail) {
  std::size_t const compared = GetParam().append ? 0 : GetParam().known ? 3 : 4;
  EXPECT_EQ(FailEveryCall(
                SpyCell::Operation::Compare, [&] { Try(); }, [&] { ExpectUnchanged(); }),
            compared);
  EXPECT_NE(Listed(table), before);
}

TEST_P(OmPivotTableFootnoteFailure, AnyAllocationMayFail) {
  EXPECT_GT(FailEveryAllocation([&] { Try(); }, [&] { ExpectUnchanged(); }), 0U);
  EXPECT_NE(Listed(table), before);
}

}  // namespace
