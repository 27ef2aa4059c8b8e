#include <gtest/gtest.h>

#include <cells/OmComposite.h>
#include <cells/OmVariable.h>
#include <cells/icuTracker.h>
#include <lakresvos/OmPivotTable.h>

#include "core/table/OmPivotTableFixture.h"
#include "support/SpyCell.h"

namespace {

using Operation = SpyCell::Operation;
using Lines = std::vector<std::string>;

/// A composite with one part.
std::unique_ptr<OmComposite> Composite() {
  auto composite = std::make_unique<OmComposite>("<{0}>");
  composite->AddPart(Text("part"));
  return composite;
}

icuTracker* PartTracker(OmCellText* composite) {
  return dynamic_cast<OmComposite&>(*composite).Parts().Root().Child(0).Value()->GetTracker();
}

void AddNote(OmPivotTable& table, OmCellText const& text, OmCellText const& marker) {
  OmFootnote note;
  note.text = text.Clone(nullptr);
  note.marker = marker.Clone(nullptr);
  table.Footnote(note, true);
}

// What is bound when the trackers are made

TEST(OmPivotTableBinding, LabelTemplateNameAndTitleAreBound) {
  TestTable table;
  table.SetTableTitle(Text("title"));
  table.setBackendSettings(Settings(true));
  icuTracker* const tracker = table.getICUTracker();
  EXPECT_EQ(table.Label()->GetTracker(), tracker);
  EXPECT_EQ(table.TemplateName()->GetTracker(), tracker);
  EXPECT_EQ(table.TableTitle()->GetTracker(), tracker);
}

TEST(OmPivotTableBinding, ATitleIsNotNeeded) {
  TestTable table;
  table.setBackendSettings(Settings(true));
  EXPECT_EQ(table.TableTitle(), nullptr);
}

TEST(OmPivotTableBinding, AllLabelsOfAllDimensionsAreBound) {
  TestTable table(2);
  OmDimension& dimension = table.Dimension(1);
  OmDimension::Node const group = dimension.Child(dimension.Root(), Text("g"), 0, true);
  dimension.Child(group, Text("leaf"), 0, false);
  table.setBackendSettings(Settings(true));
  icuTracker* const tracker = table.getICUTracker();
  EXPECT_EQ(table.Dimension(0).value.label->GetTracker(), tracker);
  OmDimension::ConstNode const root = std::as_const(dimension).Root();
  EXPECT_EQ(root.Value().label->GetTracker(), tracker);
  EXPECT_EQ(root.Child(0).Value().label->GetTracker(), tracker);
  EXPECT_EQ(root.Child(0).Child(0).Value().label->GetTracker(), tracker);
}

TEST(OmPivotTableBinding, NullLabelsArePassedOver) {
  TestTable table;
  OmDimension& dimension = table.AddDimension(OmDimension(OmDimensionNode(nullptr), nullptr));
  dimension.AddNewChild(dimension.Root(), Text("leaf"), 0, false);
  table.setBackendSettings(Settings(true));
  EXPECT_EQ(dimension.Root().Child(0).Value().label->GetTracker(), table.getICUTracker());
}

TEST(OmPivotTableBinding, FootnoteTextsAndMarkersAreBound) {
  TestTable table;
  AddNote(table, Text("a"), Text("m"));
  OmFootnote bare;
  bare.text = Text("b").Clone(nullptr);
  table.Footnote(bare, true);
  table.setBackendSettings(Settings(true));
  EXPECT_EQ(table.Footnotes()[0].text->GetTracker(), table.getICUTracker());
  EXPECT_EQ(table.Footnotes()[0].marker->GetTracker(), table.getICUTracker());
  EXPECT_EQ(table.Footnotes()[1].text->GetTracker(), table.getICUTracker());
}

TEST(OmPivotTableBinding, CornerTextCaptionAndCellsAreNotBoundLater) {
  TestTable table(1);
  OmStringCell const text("text");
  table.CornerText(&text);
  table.Caption(&text);
  table.Put({0}, "cell");
  table.setBackendSettings(Settings(true));
  EXPECT_EQ(table.CornerText()->GetTracker(), nullptr);
  EXPECT_EQ(table.Caption()->GetTracker(), nullptr);
  EXPECT_EQ(table.Cell({0})->GetTracker(), nullptr);
}

TEST(OmPivotTableBinding, PartsOfLabelNameAndTitleAreBound) {
  std::unique_ptr<OmComposite> const composite = Composite();
  OmPivotTable table(*composite, *composite, false);
  table.SetTableTitle(*composite);
  table.setBackendSettings(Settings(true));
  icuTracker* const tracker = table.getICUTracker();
  EXPECT_EQ(table.TableTitle()->GetTracker(), tracker);
  EXPECT_EQ(PartTracker(table.TableTitle()), tracker);
  EXPECT_EQ(PartTracker(table.TemplateName()), tracker);
  EXPECT_EQ(PartTracker(const_cast<OmCellText*>(table.Label())), tracker);
}

TEST(OmPivotTableBinding, PartsOfDimensionLabelsAndFootnotesAreNotBound) {
  std::unique_ptr<OmComposite> const composite = Composite();
  TestTable table;
  table.AddDimension(*composite);
  AddNote(table, *composite, *composite);
  table.setBackendSettings(Settings(true));
  for (OmCellText* text :
       {table.Dimension(0).value.label, table.Footnotes()[0].text, table.Footnotes()[0].marker}) {
    EXPECT_EQ(text->GetTracker(), table.getICUTracker());
    EXPECT_EQ(PartTracker(text), nullptr);
  }
}

TEST(OmPivotTableBinding, EachTextIsBoundTheWayItIsToBeInOrder) {
  OmPivotTable table(SpyCell("label"), SpyCell("name"), false);
  table.SetTableTitle(SpyCell("title"));
  OmDimension& dimension = table.AddDimension(SpyCell("d"));
  OmDimension::Node const group = dimension.AddNewChild(dimension.Root(), SpyCell("g"), 0, true);
  dimension.AddNewChild(group, SpyCell("leaf"), 0, false);
  dimension.AddNewChild(dimension.Root(), SpyCell("last"), 1, false);
  AddNote(table, SpyCell("note"), SpyCell("marker"));
  SpyCell const other("other");
  table.Caption(&other);
  table.CornerText(&other);
  table.Cell({0}, other);
  SpyLog const log;
  table.setBackendSettings(Settings(true));
  EXPECT_EQ(log.Lines(),
            (Lines{"Accept label", "Accept name", "Accept title", "UseTracker d", "UseTracker g",
                   "UseTracker leaf", "UseTracker last", "UseTracker note", "UseTracker marker"}));
  for (SpyLog::Call const& call : log.Of(Operation::UseTracker)) {
    EXPECT_EQ(call.tracker, table.getICUTracker());
  }
}

TEST(OmPivotTableBinding, NothingIsBoundInASlowTable) {
  OmPivotTable table(SpyCell("label"), SpyCell("name"), false);
  table.SetTableTitle(SpyCell("title"));
  table.AddDimension(SpyCell("d"));
  SpyLog const log;
  table.setBackendSettings(Settings(false));
  EXPECT_TRUE(log.calls.empty());
}

TEST(OmPivotTableBinding, NothingIsBoundAgainByLaterSettings) {
  OmPivotTable table(SpyCell("label"), SpyCell("name"), false);
  table.AddDimension(SpyCell("d"));
  table.setBackendSettings(Settings(true));
  SpyLog const log;
  table.setBackendSettings(Settings(true, false, "other"));
  EXPECT_TRUE(log.calls.empty());
}

// What is bound afterwards

TEST(OmPivotTableBinding, LaterTextsAndCellsAreBoundAsTheyAreSet) {
  TestTable table;
  table.setBackendSettings(Settings(true));
  icuTracker* const tracker = table.getICUTracker();
  OmStringCell const text("text");
  table.SetTableTitle(text);
  table.Caption(&text);
  table.CornerText(&text);
  AddNote(table, text, text);
  table.AddDimension(text);
  table.Cell({0}, text);
  for (OmCellText const* bound :
       {table.TableTitle(), table.Caption(), table.CornerText(), table.Footnotes()[0].text,
        table.Footnotes()[0].marker, table.Dimension(0).value.label, table.Cell({0})}) {
    EXPECT_EQ(bound->GetTracker(), tracker);
  }
  EXPECT_EQ(text.GetTracker(), nullptr);
}

TEST(OmPivotTableBinding, PartsOfLaterTextsAreBoundToo) {
  TestTable table;
  table.setBackendSettings(Settings(true));
  std::unique_ptr<OmComposite> const composite = Composite();
  table.SetTableTitle(*composite);
  table.Caption(composite.get());
  table.CornerText(composite.get());
  AddNote(table, *composite, *composite);
  table.AddDimension(*composite);
  table.Cell({0}, *composite);
  for (OmCellText* bound :
       {table.TableTitle(), table.Caption(), table.CornerText(), table.Footnotes()[0].text,
        table.Footnotes()[0].marker, table.Dimension(0).value.label, table.Cell({0})}) {
    EXPECT_EQ(PartTracker(bound), table.getICUTracker());
  }
}

TEST(OmPivotTableBinding, ANewMarkerOfAKnownFootnoteIsBound) {
  TestTable table;
  table.setBackendSettings(Settings(true));
  OmFootnote note;
  note.text = Text("a").Clone(nullptr);
  table.Footnote(note, false);
  note.marker = Text("m").Clone(nullptr);
  table.Footnote(note, false);
  EXPECT_EQ(table.Footnotes()[0].marker->GetTracker(), table.getICUTracker());
}

TEST(OmPivotTableBinding, OnlyTheLabelOfAnAddedDimensionIsBound) {
  OmDimension source(OmDimensionNode(Text("d"), 0, true, nullptr), nullptr);
  source.Child(source.Root(), Text("leaf"), 0, false);
  TestTable table;
  table.setBackendSettings(Settings(true));
  OmDimension const& added = table.AddDimension(source);
  EXPECT_EQ(added.value.label->GetTracker(), table.getICUTracker());
  EXPECT_EQ(added.Root().Child(0).Value().label->GetTracker(), nullptr);
}

TEST(OmPivotTableBinding, CopiedDimensionsAreNotBound) {
  TestTable source(1);
  source.setBackendSettings(Settings(true));
  TestTable copy;
  copy.setBackendSettings(Settings(true));
  copy.CopyDimensions(source);
  EXPECT_EQ(copy.Dimension(0).value.label->GetTracker(), nullptr);
}

TEST(OmPivotTableBinding, TheTrackerStaysInUseInATableThatBecameSlow) {
  TestTable table;
  table.setBackendSettings(Settings(true));
  table.setBackendSettings(Settings(false));
  OmStringCell const text("text");
  table.CornerText(&text);
  EXPECT_EQ(table.CornerText()->GetTracker(), table.getICUTracker());
}

TEST(OmPivotTableBinding, TitleAndCaptionAreAlwaysPassedToTheHelper) {
  TestTable table;
  SpyCell const spy("text");
  SpyLog const log;
  table.SetTableTitle(spy);
  table.Caption(&spy);
  EXPECT_EQ(log.Of(Operation::Accept).size(), 2U);
}

TEST(OmPivotTableBinding, EverythingElseIsPassedToTheHelperOnlyWithATracker) {
  TestTable table;
  SpyCell const spy("text");
  auto const set = [&] {
    table.CornerText(&spy);
    AddNote(table, spy, spy);
    table.AddDimension(spy);
    table.Cell(Index(static_cast<std::size_t>(table.NDimensions()), 0), spy);
  };
  {
    SpyLog const log;
    set();
    EXPECT_TRUE(log.Of(Operation::Accept).empty());
  }
  table.setBackendSettings(Settings(true));
  SpyLog const log;
  set();
  EXPECT_EQ(log.Of(Operation::Accept).size(), 5U);
}

TEST(OmPivotTableBinding, TitlesAndCaptionsWithoutATrackerStayUnbound) {
  TestTable table;
  OmStringCell const text("text");
  table.SetTableTitle(text);
  table.Caption(&text);
  EXPECT_EQ(table.TableTitle()->GetTracker(), nullptr);
  EXPECT_EQ(table.Caption()->GetTracker(), nullptr);
  EXPECT_EQ(table.Caption()->GetText(), "text");
}

TEST(OmPivotTableBinding, ACellOfTheCallersCanBeBoundByHand) {
  TestTable table;
  OmStringCell text("text");
  table.setHelper(text);
  EXPECT_EQ(text.GetTracker(), nullptr);
  table.setBackendSettings(Settings(true));
  table.setHelper(text);
  EXPECT_EQ(text.GetTracker(), table.getICUTracker());
}

TEST(OmPivotTableBinding, ACellBoundByHandOutlivesTheTable) {
  OmStringCell text("text");
  {
    TestTable table;
    table.setBackendSettings(Settings(true));
    table.setHelper(text);
  }
  EXPECT_EQ(text.GetText(), "text");
  EXPECT_EQ(text.GetTracker(), nullptr);
}

TEST(OmPivotTableBinding, EqualTextsShareStorage) {
  TestTable table(1);
  table.setBackendSettings(Settings(true));
  std::size_t const before = table.getICUTracker()->TextCount();
  for (int i = 0; i < 10; ++i) {
    table.Put({i}, "the same");
  }
  EXPECT_EQ(table.getICUTracker()->TextCount(), before + 1);
}

TEST(OmPivotTableBinding, BoundTextsReadAsBefore) {
  TestTable table(1);
  table.setBackendSettings(Settings(true, false, "ja_JP"));
  std::string const bytes("\xff\0x", 3);
  table.Put({0}, bytes);
  EXPECT_EQ(table.At({0}), bytes);
  EXPECT_EQ(table.FindDimension(Text("0")), 0);
}

TEST(OmPivotTableBinding, LaterMetadataSurvivesInAFastTable) {
  TestTable table(1);
  table.setBackendSettings(Settings(true));
  table.Put({0}, "first");
  OmCellMetaData meta;
  meta.setStyle(3);
  table.Cell({0})->setMeta(&meta);
  table.Put({0}, "second");
  ASSERT_TRUE(table.Cell({0})->hasMeta());
  EXPECT_EQ(table.Cell({0})->getMeta()->getStyle(), 3);
  EXPECT_EQ(table.Cell({0})->GetTracker(), table.getICUTracker());
}

}  // namespace
