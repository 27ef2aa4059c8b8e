#include <functional>
#include <gtest/gtest.h>

#include <cells/OmVariable.h>
#include <lakresvos/OmPivotTable.h>

#include "core/table/OmPivotTableFixture.h"
#include "support/SpyCell.h"

namespace {

using Operation = SpyCell::Operation;
using Lines = std::vector<std::string>;

/// One of the three texts that can be set.
struct Slot {
  char const* name;
  std::function<void(OmPivotTable&, OmCellText const&)> set;
  std::function<OmCellText*(OmPivotTable const&)> get;
  bool alwaysAccepts;  ///< whether the helper is passed the text even without a tracker
};

void PrintTo(Slot const& slot, std::ostream* out) {
  *out << slot.name;
}

class OmPivotTableText : public testing::TestWithParam<Slot> {
 protected:
  void Set(OmCellText const& text) { GetParam().set(table, text); }
  OmCellText* Get() const { return GetParam().get(table); }
  std::string Shown() const { return TestTable::TextOf(Get()); }

  TestTable table;
};

INSTANTIATE_TEST_SUITE_P(
    EveryText, OmPivotTableText,
    testing::Values(
        Slot{"Title",
             [](OmPivotTable& table, OmCellText const& text) { table.SetTableTitle(text); },
             [](OmPivotTable const& table) { return table.TableTitle(); }, true},
        Slot{"Caption", [](OmPivotTable& table, OmCellText const& text) { table.Caption(&text); },
             [](OmPivotTable const& table) { return table.Caption(); }, true},
        Slot{"CornerText",
             [](OmPivotTable& table, OmCellText const& text) { table.CornerText(&text); },
             [](OmPivotTable const& table) { return table.CornerText(); }, false}),
    [](auto const& slot) { return slot.param.name; });

TEST_P(OmPivotTableText, IsNullUntilSet) {
  EXPECT_EQ(Get(), nullptr);
}

TEST_P(OmPivotTableText, IsAClone) {
  OmStringCell const text("text");
  Set(text);
  ASSERT_NE(Get(), nullptr);
  EXPECT_NE(Get(), &text);
  EXPECT_EQ(Shown(), "text");
}

TEST_P(OmPivotTableText, LivesInTheTablesRegion) {
  Set(Text("text"));
  EXPECT_EQ(OmMemoryRegion::FindOwner(Get()), &table.data());
}

TEST_P(OmPivotTableText, IsClonedOnceIntoTheTablesRegion) {
  SpyCell const spy("text");
  SpyLog const log;
  Set(spy);
  auto const clones = log.Of(Operation::Clone);
  ASSERT_EQ(clones.size(), 1U);
  EXPECT_EQ(clones[0].cell, &spy);
  EXPECT_EQ(clones[0].region, &table.data());
  EXPECT_EQ(clones[0].result, Get());
}

TEST_P(OmPivotTableText, LeavesTheOtherTextsAlone) {
  Set(Text("text"));
  int others = 0;
  for (OmCellText const* text : {table.TableTitle(), table.Caption(), table.CornerText()}) {
    others += text == nullptr ? 1 : 0;
  }
  EXPECT_EQ(others, 2);
  EXPECT_EQ(table.TemplateName()->GetText(), "name");
}

TEST_P(OmPivotTableText, IsReplaced) {
  Set(Text("first"));
  Set(Text("second"));
  EXPECT_EQ(Shown(), "second");
}

TEST_P(OmPivotTableText, TheOldOneGoesAfterTheNewCopyIsMade) {
  SpyCell const first("first");
  SpyCell const second("second");
  Set(first);
  SpyLog const log;
  Set(second);
  EXPECT_EQ(log.Lines(), GetParam().alwaysAccepts
                             ? (Lines{"Clone second", "Accept second", "Destroy first"})
                             : (Lines{"Clone second", "Destroy first"}));
}

TEST_P(OmPivotTableText, ItselfMayBeHandedBack) {
  Set(Text("a text that is too long to be kept inside a string object"));
  Set(*Get());
  EXPECT_EQ(Shown(), "a text that is too long to be kept inside a string object");
}

TEST_P(OmPivotTableText, ACloneThatFailsChangesNothing) {
  SpyCell const first("first");
  SpyCell const second("second");
  Set(first);
  OmCellText const* const before = Get();
  EXPECT_EQ(FailEveryCall(
                Operation::Clone, [&] { Set(second); }, [&] { EXPECT_EQ(Get(), before); }),
            1U);
  EXPECT_EQ(Shown(), "second");
}

TEST_P(OmPivotTableText, ABindingThatFailsChangesNothing) {
  table.setBackendSettings(BackendSettings());
  SpyCell const first("first");
  SpyCell const second("second");
  Set(first);
  long const live = SpyCell::Live();
  OmCellText const* const before = Get();
  EXPECT_EQ(FailEveryCall(
                Operation::Accept, [&] { Set(second); },
                [&] {
                  EXPECT_EQ(Get(), before);
                  EXPECT_EQ(SpyCell::Live(), live);
                }),
            1U);
  EXPECT_EQ(Shown(), "second");
}

TEST_P(OmPivotTableText, GoesWithTheTable) {
  SpyCell const spy("text");
  {
    TestTable owner;
    GetParam().set(owner, spy);
    EXPECT_EQ(SpyCell::Live(), 2);
  }
  EXPECT_EQ(SpyCell::Live(), 1);
}

TEST_P(OmPivotTableText, KeepsItsKind) {
  OmVariable const variable("name", "label");
  Set(variable);
  EXPECT_EQ(Get()->GetKind(), variable.GetKind());
}

// What is special about each

TEST(OmPivotTableTexts, BothReadersOfTheTitleGiveTheSameText) {
  TestTable table;
  EXPECT_EQ(table.GetTableTitle(), nullptr);
  table.SetTableTitle(Text("title"));
  EXPECT_EQ(table.TableTitle(), table.GetTableTitle());
}

TEST(OmPivotTableTexts, ReadersOfAConstantTableGiveTheSameTexts) {
  TestTable table;
  table.SetTableTitle(Text("title"));
  OmStringCell const text("text");
  table.Caption(&text);
  table.CornerText(&text);
  OmPivotTable const& reader = table;
  EXPECT_EQ(reader.TemplateName(), table.TemplateName());
  EXPECT_EQ(reader.GetTableTitle(), table.TableTitle());
  EXPECT_EQ(reader.Caption(), table.Caption());
  EXPECT_EQ(reader.CornerText(), table.CornerText());
}

TEST(OmPivotTableTexts, ANullCaptionDeletesTheCaption) {
  TestTable table;
  SpyCell const spy("caption");
  table.Caption(&spy);
  EXPECT_EQ(SpyCell::Live(), 2);
  table.Caption(nullptr);
  EXPECT_EQ(table.Caption(), nullptr);
  EXPECT_EQ(SpyCell::Live(), 1);
}

TEST(OmPivotTableTexts, ANullCaptionIsAllowedWithoutACaption) {
  TestTable table;
  table.Caption(nullptr);
  EXPECT_EQ(table.Caption(), nullptr);
}

TEST(OmPivotTableTexts, ANullCornerTextDeletesTheCornerText) {
  TestTable table;
  SpyCell const spy("corner");
  table.CornerText(&spy);
  EXPECT_EQ(SpyCell::Live(), 2);
  table.CornerText(nullptr);
  EXPECT_EQ(table.CornerText(), nullptr);
  EXPECT_EQ(SpyCell::Live(), 1);
}

TEST(OmPivotTableTexts, ANullCornerTextIsAllowedWithoutACornerText) {
  TestTable table;
  table.CornerText(nullptr);
  EXPECT_EQ(table.CornerText(), nullptr);
}

}  // namespace
