#include <array>
#include <cstddef>
#include <gtest/gtest.h>
#include <string>
#include <type_traits>
#include <vector>

#include <cells/OmComposite.h>
#include <cells/OmStringCell.h>
#include <lakresvos/OmHeading.h>

#include "support/SpyCell.h"
#include "support/faults/FailingNew.h"

template class OmVector<OmHeading::HeadingRecord>;

namespace {

using Record = OmHeading::HeadingRecord;
using Lines = std::vector<std::string>;

static_assert(offsetof(Record, first) == 0 && offsetof(Record, cell1) == 8 &&
              offsetof(Record, cell2) == 16 && offsetof(Record, last) == 24);
static_assert(sizeof(Record::first) == 8 && sizeof(Record::last) == 8);
static_assert(std::is_same_v<decltype(std::declval<OmProcedure&>().Codes()), std::array<int, 4>&>);

class OmHeadingTest : public testing::Test {
 protected:
  SpyBalance balance_;
};

using OmProcedureTest = OmHeadingTest;

// Headings

TEST_F(OmHeadingTest, ANewHeadingHasItsLabelAndNoRecords) {
  OmHeading const heading(SpyCell("label"));
  EXPECT_EQ(heading.Label()->GetText(), "label");
  EXPECT_EQ(heading.Records().size(), 0U);
  EXPECT_EQ(heading.Records().begin, nullptr);
  EXPECT_EQ(heading.Records().region, OmMemoryRegion::DefaultHeap());
}

TEST_F(OmHeadingTest, KeepsTheRecordsThatTheCallerAdds) {
  OmHeading heading(SpyCell("label"));
  SpyCell* const cell = new SpyCell("cell");
  heading.Records().push_back(Record{1, cell, nullptr, 2});
  OmHeading const& reading = heading;
  EXPECT_EQ(reading.Records()[0].first, 1U);
  EXPECT_EQ(reading.Records()[0].cell1, cell);
  EXPECT_EQ(reading.Records()[0].cell2, nullptr);
  EXPECT_EQ(reading.Records()[0].last, 2U);
}

TEST_F(OmHeadingTest, DeletesTheCellsOfItsRecordsInOrderAndThenItsLabel) {
  auto* const heading = new OmHeading(SpyCell("label"));
  heading->Records().push_back(Record{0, new SpyCell("1a"), new SpyCell("1b"), 0});
  heading->Records().push_back(Record{0, new SpyCell("2a"), new SpyCell("2b"), 0});
  SpyLog const log;
  delete heading;
  EXPECT_EQ(log.Lines(),
            (Lines{"Destroy 1a", "Destroy 1b", "Destroy 2a", "Destroy 2b", "Destroy label"}));
}

TEST_F(OmHeadingTest, RecordsWithoutCellsAreDestroyedWithoutHarm) {
  OmHeading heading(SpyCell("label"));
  heading.Records().push_back(Record{1, nullptr, nullptr, 2});
  heading.Records().push_back(Record{1, nullptr, new SpyCell("b"), 2});
  heading.Records().push_back(Record{1, new SpyCell("a"), nullptr, 2});
}

TEST_F(OmHeadingTest, AHeadingThatCannotBeMadeLeavesNothingBehind) {
  SpyCell const label("label");
  auto const nothing = [] { EXPECT_EQ(SpyCell::Live(), 1); };
  auto const make = [&] { OmHeading const heading(label); };
  EXPECT_GE(FailEveryAllocation(make, nothing), 4U) << "the label and the vector of records";
  EXPECT_EQ(FailEveryCall(SpyCell::Operation::Clone, make, nothing), 1U);
}

// Procedures

TEST_F(OmProcedureTest, ANewProcedureKeepsItsTexts) {
  OmProcedure const procedure(SpyCell("label"), "one", "two", "three");
  EXPECT_EQ(procedure.Label()->GetText(), "label");
  EXPECT_EQ(procedure.OutlineText(), "label");
  EXPECT_EQ(procedure.Text1(), "one");
  EXPECT_EQ(procedure.Text2(), "two");
  EXPECT_EQ(procedure.Text3(), "three");
}

TEST_F(OmProcedureTest, ANewProcedureHasFourCodesOfTwoAndAnEmptyFourthText) {
  OmProcedure const procedure(SpyCell("label"), "one", "two", "three");
  EXPECT_EQ(procedure.Codes(), (std::array<int, 4>{2, 2, 2, 2}));
  EXPECT_EQ(procedure.Text4(), "");
}

TEST_F(OmProcedureTest, KeepsEmbeddedZeroBytes) {
  std::string const text("a\0b", 3);
  OmProcedure const procedure(SpyCell(text), text, "", "");
  EXPECT_EQ(procedure.Text1(), text);
  EXPECT_EQ(procedure.OutlineText(), text);
}

TEST_F(OmProcedureTest, TheCodesAreTheCallers) {
  OmProcedure procedure(SpyCell("label"), "", "", "");
  procedure.Codes()[3] = -7;
  EXPECT_EQ(procedure.Codes(), (std::array<int, 4>{2, 2, 2, -7}));
}

TEST_F(OmProcedureTest, SettingTheOutlineTextReplacesTextAndLabel) {
  OmProcedure procedure(SpyCell("old"), "one", "two", "three");
  SpyCell const label("new");
  procedure.setOutlineText(label);
  EXPECT_EQ(procedure.OutlineText(), "new");
  EXPECT_EQ(procedure.Label()->GetText(), "new");
  EXPECT_NE(procedure.Label(), &label);
  EXPECT_EQ(SpyCell::Live(), 2) << "the old label is gone";
  EXPECT_EQ(procedure.Text1(), "one");
}

TEST_F(OmProcedureTest, SettingTheOutlineTextDeletesTheOldLabelBeforeItCopiesTheNew) {
  OmProcedure procedure(SpyCell("old"), "", "", "");
  SpyCell const label("new");
  SpyLog const log;
  procedure.setOutlineText(label);
  EXPECT_EQ(log.Lines(), (Lines{"GetText new", "Destroy old", "Clone new"}));
  EXPECT_EQ(log.Of(SpyCell::Operation::Clone)[0].region, nullptr);
}

TEST_F(OmProcedureTest, SettingTheOutlineTextToItsOwnLabelIsSafe) {
  OmProcedure procedure(SpyCell("label"), "", "", "");
  OmCellText const* const before = procedure.Label();
  procedure.setOutlineText(*before);
  EXPECT_EQ(procedure.OutlineText(), "label");
  EXPECT_EQ(procedure.Label()->GetText(), "label");
  EXPECT_EQ(SpyCell::Live(), 1);
}

TEST_F(OmProcedureTest, SettingTheOutlineTextToAPartOfItsOwnLabelIsSafe) {
  OmComposite inner("{0}");
  inner.AddPart(SpyCell(std::string(100, 'x')));
  OmComposite label("a {0}");
  label.AddPart(inner);
  OmProcedure procedure(label, "", "", "");
  auto const partOf = [](OmCellText const& cell) -> OmCellText const& {
    return *dynamic_cast<OmComposite const&>(cell).Parts().Root().Child(0).Value();
  };
  procedure.setOutlineText(partOf(partOf(*procedure.Label())));
  EXPECT_EQ(procedure.OutlineText(), std::string(100, 'x'));
  EXPECT_EQ(procedure.Label()->GetText(), std::string(100, 'x'));
  EXPECT_EQ(SpyCell::Live(), 3) << "the two that labels were made of and the new label";
}

TEST_F(OmProcedureTest, APartBelowAPartAndTheRootsOwnCellBelongToTheLabelToo) {
  for (bool const root : {true, false}) {
    OmComposite label("{0}");
    label.AddPart(OmStringCell("part"));
    auto* const cell = new SpyCell("below");
    if (root) {
      label.Parts().Root().Value() = cell;
    } else {
      OmVectorTree<OmCellText*>::AppendChild(label.Parts().Root().Child(0), cell);
    }
    OmProcedure procedure(label, "", "", "");
    auto const parts = dynamic_cast<OmComposite const&>(*procedure.Label()).Parts().Root();
    procedure.setOutlineText(root ? *parts.Value() : *parts.Child(0).Child(0).Value());
    EXPECT_EQ(procedure.Label()->GetText(), "below");
  }
}

TEST_F(OmProcedureTest, APartOfItsOwnLabelThatCannotBeCopiedChangesNothing) {
  OmComposite label("a {0}");
  label.AddPart(SpyCell("part"));
  OmProcedure procedure(label, "", "", "");
  auto const set = [&] {
    auto const& own = dynamic_cast<OmComposite const&>(*procedure.Label());
    procedure.setOutlineText(*own.Parts().Root().Child(0).Value());
  };
  auto const unchanged = [&] {
    EXPECT_EQ(procedure.OutlineText(), "a part");
    EXPECT_EQ(procedure.Label()->GetText(), "a part");
  };
  EXPECT_EQ(FailEveryCall(SpyCell::Operation::Clone, set, unchanged), 1U);
  EXPECT_EQ(procedure.OutlineText(), "part");
}

TEST_F(OmProcedureTest, AnOutlineTextThatCannotBeRenderedChangesNothing) {
  OmProcedure procedure(SpyCell("old"), "", "", "");
  SpyCell const label("new");
  EXPECT_EQ(FailEveryCall(
                SpyCell::Operation::GetText, [&] { procedure.setOutlineText(label); },
                [&] {
                  EXPECT_EQ(procedure.OutlineText(), "old");
                  EXPECT_EQ(procedure.Label()->GetText(), "old");
                }),
            1U);
}

TEST_F(OmProcedureTest, AnOutlineTextThatCannotBeCopiedLeavesNoLabel) {
  OmProcedure procedure(SpyCell("old"), "", "", "");
  SpyCell const label("new");
  auto const noLabel = [&] {
    EXPECT_EQ(procedure.OutlineText(), "new");
    EXPECT_EQ(procedure.Label(), nullptr);
    EXPECT_EQ(SpyCell::Live(), 1);
  };
  EXPECT_EQ(FailEveryCall(
                SpyCell::Operation::Clone, [&] { procedure.setOutlineText(label); }, noLabel),
            1U);
  EXPECT_EQ(procedure.Label()->GetText(), "new") << "and can be set again";
}

TEST_F(OmProcedureTest, ALongOutlineTextThatIsRefusedMemoryLeavesTheOldStateOrNoLabel) {
  OmProcedure procedure(SpyCell("old"), "", "", "");
  SpyCell const label(std::string(100, 'x'));
  EXPECT_GE(FailEveryAllocation([&] { procedure.setOutlineText(label); },
                                [&] {
                                  if (procedure.Label() != nullptr) {
                                    EXPECT_EQ(procedure.OutlineText(), "old");
                                    EXPECT_EQ(procedure.Label()->GetText(), "old");
                                  } else {
                                    EXPECT_EQ(procedure.OutlineText(), label.GetText());
                                  }
                                }),
            4U);
  EXPECT_EQ(procedure.Label()->GetText(), label.GetText());
}

TEST_F(OmProcedureTest, ItsOwnLabelThatCannotBeCopiedStays) {
  OmProcedure procedure(SpyCell("label"), "", "", "");
  auto const unchanged = [&] {
    ASSERT_NE(procedure.Label(), nullptr);
    EXPECT_EQ(procedure.Label()->GetText(), "label");
    EXPECT_EQ(procedure.OutlineText(), "label");
  };
  EXPECT_EQ(FailEveryCall(
                SpyCell::Operation::Clone, [&] { procedure.setOutlineText(*procedure.Label()); },
                unchanged),
            1U);
}

TEST_F(OmProcedureTest, AProcedureThatCannotBeMadeLeavesNothingBehind) {
  SpyCell const label(std::string(100, 'l'));
  std::string const text(100, 't');
  auto const nothing = [] { EXPECT_EQ(SpyCell::Live(), 1); };
  auto const make = [&] { OmProcedure const procedure(label, text, text, text); };
  EXPECT_GE(FailEveryAllocation(make, nothing), 14U);
  EXPECT_EQ(FailEveryCall(SpyCell::Operation::Clone, make, nothing), 1U);
  EXPECT_EQ(FailEveryCall(SpyCell::Operation::GetText, make, nothing), 1U);
}

TEST_F(OmProcedureTest, DestroysItsRecordsLikeAnyHeading) {
  OmProcedure procedure(SpyCell("label"), "", "", "");
  procedure.Records().push_back(Record{1, new SpyCell("a"), new SpyCell("b"), 2});
}

}  // namespace
