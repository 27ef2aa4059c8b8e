#include <cxxabi.h>
#include <gtest/gtest.h>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <vector>

#include <cells/OmStringCell.h>
#include <lakresvos/OmAnswerTree.h>
#include <lakresvos/OmChart.h>
#include <lakresvos/OmHeading.h>
#include <lakresvos/OmInteractive.h>
#include <lakresvos/OmModel.h>
#include <lakresvos/OmOutputPart.h>
#include <lakresvos/OmPivotTable.h>
#include <lakresvos/OmTextBlock.h>

#include "support/SpyCell.h"
#include "support/VirtualSlot.h"
#include "support/faults/FailingNew.h"

namespace {

using Visitor = OmOutputPart::Visitor;

static_assert(std::is_abstract_v<OmOutputPart>);
static_assert(std::is_abstract_v<Visitor>);
static_assert(std::has_virtual_destructor_v<OmOutputPart>);
static_assert(std::has_virtual_destructor_v<Visitor>);
static_assert(!std::is_nothrow_destructible_v<OmOutputPart>);
static_assert(!std::is_copy_constructible_v<OmOutputPart>);
static_assert(
    std::is_same_v<decltype(std::declval<OmOutputPart const&>().Label()), OmCellText const*>);
static_assert(std::is_base_of_v<OmOutputPart, OmHeading>);
static_assert(std::is_base_of_v<OmHeading, OmProcedure>);
static_assert(std::is_base_of_v<OmOutputPart, OmTextBlock>);
static_assert(std::is_base_of_v<OmTextBlock, OmPageTitle>);
static_assert(std::is_base_of_v<OmOutputPart, OmPivotTable>);
static_assert(sizeof(Visitor) == sizeof(void*), "no data");

struct PlainPart : OmOutputPart {
  using OmOutputPart::OmOutputPart;
  void Accept(Visitor& /*visitor*/) override {}
};

/// Overrides only what must be.
struct ModestVisitor : Visitor {
  using Visitor::Visit;
  void Visit(OmPivotTable& /*item*/) override { seen += "table "; }
  void Visit(OmHeading& item) override {
    seen += "heading ";
    visited = &item;
  }
  void Visit(OmTextBlock& item) override {
    seen += "block ";
    visited = &item;
  }
  void Visit(OmChart& /*item*/) override { seen += "chart "; }
  void Visit(OmAnswerTree& /*item*/) override { seen += "answers "; }
  void Visit(OmModel& /*item*/) override { seen += "model "; }
  void Visit(OmInteractive& /*item*/) override { seen += "interactive "; }

  std::string seen;
  OmOutputPart* visited = nullptr;
};

struct ThoroughVisitor : ModestVisitor {
  using ModestVisitor::Visit;
  void Visit(OmProcedure& /*item*/) override { seen += "procedure "; }
  void Visit(OmPageTitle& /*item*/) override { seen += "title "; }
};

class OmOutputPartTest : public testing::Test {
 protected:
  SpyBalance balance_;
};

// The item

TEST_F(OmOutputPartTest, ANewItemHasTwoSetFlagsAndNothingExtra) {
  PlainPart const part(OmStringCell("label"));
  EXPECT_EQ(part.Extra(), nullptr);
  EXPECT_TRUE(part.FlagA());
  EXPECT_TRUE(part.FlagB());
}

TEST_F(OmOutputPartTest, KeepsADeepCopyOfItsLabelMadeWithoutARegion) {
  SpyCell const label("label");
  SpyLog const log;
  PlainPart const part(label);
  ASSERT_EQ(log.Of(SpyCell::Operation::Clone).size(), 1U);
  EXPECT_EQ(log.Of(SpyCell::Operation::Clone)[0].cell, &label);
  EXPECT_EQ(log.Of(SpyCell::Operation::Clone)[0].region, nullptr);
  EXPECT_EQ(part.Label(), log.Of(SpyCell::Operation::Clone)[0].result);
  EXPECT_NE(part.Label(), &label);
}

TEST_F(OmOutputPartTest, DeletesItsLabel) {
  { PlainPart const part(SpyCell("label")); }
  EXPECT_EQ(SpyCell::Live(), 0);
}

TEST_F(OmOutputPartTest, IsDeletedThroughItsBase) {
  OmOutputPart* part = new PlainPart(SpyCell("label"));
  EXPECT_EQ(SpyCell::Live(), 1);
  delete part;
  EXPECT_EQ(SpyCell::Live(), 0);
}

TEST_F(OmOutputPartTest, KeepsWhatTheCallerSets) {
  PlainPart part(OmStringCell("label"));
  int extra = 0;
  part.Extra(&extra);
  part.FlagA(false);
  EXPECT_EQ(part.Extra(), &extra);
  EXPECT_FALSE(part.FlagA());
  EXPECT_TRUE(part.FlagB());
  part.FlagB(false);
  part.FlagA(true);
  EXPECT_TRUE(part.FlagA());
  EXPECT_FALSE(part.FlagB());
}

TEST_F(OmOutputPartTest, ANewLabelIsCopiedBeforeTheOldOneGoes) {
  PlainPart part(SpyCell("old"));
  SpyCell const label("new");
  SpyLog const log;
  part.setLabel(label);
  EXPECT_EQ(log.Lines(), (std::vector<std::string>{"Clone new", "Destroy old"}));
  EXPECT_EQ(log.calls[0].region, nullptr);
  EXPECT_EQ(part.Label(), log.calls[0].result);
}

TEST_F(OmOutputPartTest, ItsOwnLabelMayBeSetAgain) {
  PlainPart part(SpyCell("label"));
  part.setLabel(*part.Label());
  EXPECT_EQ(part.Label()->GetText(), "label");
}

TEST_F(OmOutputPartTest, ALabelThatCannotBeCopiedChangesNothing) {
  PlainPart part(SpyCell("old"));
  OmCellText const* const before = part.Label();
  auto const unchanged = [&] { EXPECT_EQ(part.Label(), before); };
  auto const set = [&] { part.setLabel(SpyCell("new")); };
  EXPECT_EQ(FailEveryCall(SpyCell::Operation::Clone, set, unchanged), 1U);
  EXPECT_EQ(part.Label()->GetText(), "new");
}

TEST_F(OmOutputPartTest, ANewLabelIsNotConvertedToTheCodePageOfItsItem) {
  OmStringCell const label("\u00e4");
  OmChart chart(label, "ISO-8859-1", 0);
  OmInteractive item(label, "ISO-8859-1", 0);
  EXPECT_EQ(chart.Label()->GetText(), "\xe4");
  EXPECT_EQ(item.Label()->GetText(), "\xe4");
  chart.setLabel(label);
  item.setLabel(label);
  EXPECT_EQ(chart.Label()->GetText(), "\u00e4");
  EXPECT_EQ(item.Label()->GetText(), "\u00e4");
}

TEST_F(OmOutputPartTest, ANewLabelLeavesTheOutlineTextOfAProcedure) {
  OmProcedure procedure(OmStringCell("old"), "", "", "");
  procedure.setLabel(OmStringCell("new"));
  EXPECT_EQ(procedure.Label()->GetText(), "new");
  EXPECT_EQ(procedure.OutlineText(), "old");
}

TEST_F(OmOutputPartTest, AnItemThatCannotBeMadeLeavesNothingBehind) {
  SpyCell const label("label");
  auto const nothing = [] { EXPECT_EQ(SpyCell::Live(), 1); };
  auto const make = [&] { PlainPart const part(label); };
  EXPECT_GE(FailEveryAllocation(make, nothing), 2U);
  EXPECT_EQ(FailEveryCall(SpyCell::Operation::Clone, make, nothing), 1U);
}

// Visiting

TEST_F(OmOutputPartTest, EachKindIsVisitedAsItself) {
  ThoroughVisitor visitor;
  OmStringCell const label("label");
  OmHeading(label).Accept(visitor);
  OmProcedure(label, "", "", "").Accept(visitor);
  OmTextBlock(label, "").Accept(visitor);
  OmPageTitle("").Accept(visitor);
  OmPivotTable(label, label, false).Accept(visitor);
  OmChart(label, "", 0).Accept(visitor);
  OmAnswerTree(label, "").Accept(visitor);
  OmModel(label).Accept(visitor);
  OmInteractive(label, "", 0).Accept(visitor);
  EXPECT_EQ(visitor.seen, "heading procedure block title table chart answers model interactive ");
}

TEST_F(OmOutputPartTest, AProcedureIsAHeadingToAVisitorThatDoesNotCare) {
  ModestVisitor visitor;
  OmProcedure procedure(OmStringCell("label"), "", "", "");
  procedure.Accept(visitor);
  EXPECT_EQ(visitor.seen, "heading ");
  EXPECT_EQ(visitor.visited, &procedure);
}

TEST_F(OmOutputPartTest, APageTitleIsATextBlockToAVisitorThatDoesNotCare) {
  ModestVisitor visitor;
  OmPageTitle title("text");
  title.Accept(visitor);
  EXPECT_EQ(visitor.seen, "block ");
  EXPECT_EQ(visitor.visited, &title);
}

TEST_F(OmOutputPartTest, TheDefaultsCanBeCalledDirectly) {
  ThoroughVisitor visitor;
  OmProcedure procedure(OmStringCell("label"), "", "", "");
  OmPageTitle title("text");
  visitor.Visitor::Visit(procedure);
  visitor.Visitor::Visit(title);
  EXPECT_EQ(visitor.seen, "heading block ");
}

TEST_F(OmOutputPartTest, ItemsAreToldApartByDynamicCastToo) {
  OmOutputPart* const procedure = new OmProcedure(OmStringCell("label"), "", "", "");
  EXPECT_NE(dynamic_cast<OmHeading*>(procedure), nullptr);
  EXPECT_EQ(dynamic_cast<OmTextBlock*>(procedure), nullptr);
  delete procedure;
}

/// The only base of a class, when that is public and not virtual; else void.
std::type_info const& OnlyBase(std::type_info const& type) {
  auto const* const single = dynamic_cast<abi::__si_class_type_info const*>(&type);
  return single != nullptr ? *single->__base_type : typeid(void);
}

TEST_F(OmOutputPartTest, EveryKindHasOnePublicBase) {
  EXPECT_EQ(OnlyBase(typeid(OmHeading)), typeid(OmOutputPart));
  EXPECT_EQ(OnlyBase(typeid(OmProcedure)), typeid(OmHeading));
  EXPECT_EQ(OnlyBase(typeid(OmTextBlock)), typeid(OmOutputPart));
  EXPECT_EQ(OnlyBase(typeid(OmPageTitle)), typeid(OmTextBlock));
  EXPECT_EQ(OnlyBase(typeid(OmPivotTable)), typeid(OmOutputPart));
  EXPECT_EQ(OnlyBase(typeid(OmChart)), typeid(OmOutputPart));
  EXPECT_EQ(OnlyBase(typeid(OmInteractive)), typeid(OmOutputPart));
  EXPECT_EQ(OnlyBase(typeid(OmModel)), typeid(OmOutputPart));
  EXPECT_EQ(OnlyBase(typeid(OmAnswerTree)), typeid(OmOutputPart));
}

TEST_F(OmOutputPartTest, TheItemAndTheVisitorHaveNoBase) {
  std::type_info const& item = typeid(OmOutputPart);
  std::type_info const& visitor = typeid(Visitor);
  EXPECT_EQ(typeid(item), typeid(abi::__class_type_info));
  EXPECT_EQ(typeid(visitor), typeid(abi::__class_type_info));
}

// Slots

template <class Item>
std::ptrdiff_t SlotOfVisit() {
  return VirtualSlot(static_cast<void (Visitor::*)(Item&)>(&Visitor::Visit));
}

TEST(OmOutputPartSlots, TheVisitorsOperationsStandInTheirOrder) {
  EXPECT_EQ(SlotOfVisit<OmPivotTable>(), 2) << "after the two slots of the destructor";
  EXPECT_EQ(SlotOfVisit<OmProcedure>(), 3);
  EXPECT_EQ(SlotOfVisit<OmHeading>(), 4);
  EXPECT_EQ(SlotOfVisit<OmTextBlock>(), 5);
  EXPECT_EQ(SlotOfVisit<OmPageTitle>(), 6);
  EXPECT_EQ(SlotOfVisit<OmChart>(), 7);
  EXPECT_EQ(SlotOfVisit<OmAnswerTree>(), 8);
  EXPECT_EQ(SlotOfVisit<OmModel>(), 9);
  EXPECT_EQ(SlotOfVisit<OmInteractive>(), 10);
}

TEST(OmOutputPartSlots, TheVisitorHasNoFurtherOperation) {
  struct Probe : Visitor {
    virtual void Next() {}
  };
  EXPECT_EQ(VirtualSlot(&Probe::Next), 11);
}

/// The slot that the next virtual operation of a class derived from `Part` takes.
template <class Part>
std::ptrdiff_t NextSlot() {
  struct Probe : Part {
    virtual void Next() {}
  };
  return VirtualSlot(&Probe::Next);
}

TEST(OmOutputPartSlots, AcceptFollowsTheDestructorInEveryItem) {
  EXPECT_EQ(VirtualSlot(&OmOutputPart::Accept), 2);
  EXPECT_EQ(VirtualSlot(&OmHeading::Accept), 2);
  EXPECT_EQ(VirtualSlot(&OmProcedure::Accept), 2);
  EXPECT_EQ(VirtualSlot(&OmTextBlock::Accept), 2);
  EXPECT_EQ(VirtualSlot(&OmPageTitle::Accept), 2);
  EXPECT_EQ(VirtualSlot(&OmPivotTable::Accept), 2);
}

TEST(OmOutputPartSlots, TheseItemsAddNoOperationAfterAccept) {
  EXPECT_EQ(NextSlot<OmOutputPart>(), 3);
  EXPECT_EQ(NextSlot<OmHeading>(), 3);
  EXPECT_EQ(NextSlot<OmProcedure>(), 3);
  EXPECT_EQ(NextSlot<OmTextBlock>(), 3);
  EXPECT_EQ(NextSlot<OmPageTitle>(), 3);
  EXPECT_EQ(NextSlot<OmPivotTable>(), 3);
}

TEST(OmOutputPartSlots, OtherOperationsAreNotVirtual) {
  EXPECT_EQ(VirtualSlot(&OmOutputPart::Label), -1);
  EXPECT_EQ(VirtualSlot(&OmOutputPart::setLabel), -1);
  EXPECT_EQ(VirtualSlot(&OmProcedure::setOutlineText), -1);
}

}  // namespace
