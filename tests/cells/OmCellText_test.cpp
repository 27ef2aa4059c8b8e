#include <cells/OmCellText.h>
// This header comes first to show that it is self-contained.
#include <climits>
#include <cstddef>
#include <gtest/gtest.h>
#include <memory>
#include <set>
#include <string>
#include <type_traits>

#include "EveryKind.h"
#include "support/VirtualSlot.h"

static_assert(std::is_abstract_v<OmCellText>);
static_assert(std::has_virtual_destructor_v<OmCellText>);
static_assert(std::has_virtual_destructor_v<OmCellText::Visitor>);
static_assert(!std::is_copy_assignable_v<OmNumber>);
static_assert(!std::is_copy_constructible_v<OmNumber>);
static_assert(!std::is_final_v<OmNumber> && !std::is_final_v<OmComposite>);

namespace {

/// A kind made elsewhere that overrides no more than it must.
class Minimal : public OmCellText {
 public:
  OmCellText* Clone(OmMemoryRegion* region) const override { return new (region) Minimal(*this); }
  std::string GetText() const override { return "minimal"; }
  long GetKind() const override { return 1000; }
  short Compare(OmCellText const& other, bool ignoreCase) const override {
    return CompareTexts(other, ignoreCase);
  }
  void Accept(Visitor& /*visitor*/) override {}

  Minimal() = default;

 protected:
  Minimal(Minimal const&) = default;
};

/// Kinds derived from those of the library, with a copy that keeps the derived class.
class Derived : public OmStringCell {
 public:
  using OmStringCell::OmStringCell;
  OmCellText* Clone(OmMemoryRegion* region) const override {
    return new (region) Derived(*this, region);
  }

 private:
  Derived(Derived const& other, OmMemoryRegion* region) : OmStringCell(other, region) {}
};

struct Names : OmCellText::Visitor {
  void Visit(OmNumber&) override { name = "OmNumber"; }
  void Visit(OmStringCell&) override { name = "OmStringCell"; }
  void Visit(OmStringCellUTF8&) override { name = "OmStringCellUTF8"; }
  void Visit(OmVariable&) override { name = "OmVariable"; }
  void Visit(OmNumDataValue&) override { name = "OmNumDataValue"; }
  void Visit(OmStringDataValue&) override { name = "OmStringDataValue"; }
  void Visit(OmComposite&) override { name = "OmComposite"; }
  std::string name;
};

TEST(OmCellText, SlotsAreInTheDocumentedOrderAfterTheTwoDestructors) {
  EXPECT_EQ(VirtualSlot(&OmCellText::Clone), 2);
  EXPECT_EQ(VirtualSlot(&OmCellText::GetText), 3);
  EXPECT_EQ(VirtualSlot(&OmCellText::GetKind), 4);
  EXPECT_EQ(VirtualSlot(&OmCellText::Compare), 5);
  EXPECT_EQ(VirtualSlot(&OmCellText::ShareContext), 6);
  EXPECT_EQ(VirtualSlot(&OmCellText::UseTracker), 7);
  EXPECT_EQ(VirtualSlot(&OmCellText::Dump), 8);
  EXPECT_EQ(VirtualSlot(&OmCellText::Accept), 9);
  EXPECT_EQ(VirtualSlot(&OmCellText::GetTracker), 10);
}

template <class Cell>
std::ptrdiff_t VisitSlot() {
  return VirtualSlot(
      static_cast<void (OmCellText::Visitor::*)(Cell&)>(&OmCellText::Visitor::Visit));
}

TEST(OmCellText, VisitorSlotsAreInTheDocumentedOrder) {
  EXPECT_EQ(VisitSlot<OmNumber>(), 2);
  EXPECT_EQ(VisitSlot<OmStringCell>(), 3);
  EXPECT_EQ(VisitSlot<OmStringCellUTF8>(), 4);
  EXPECT_EQ(VisitSlot<OmVariable>(), 5);
  EXPECT_EQ(VisitSlot<OmNumDataValue>(), 6);
  EXPECT_EQ(VisitSlot<OmStringDataValue>(), 7);
  EXPECT_EQ(VisitSlot<OmComposite>(), 8);
}

TEST(OmCellText, KindsDiffer) {
  std::set<long> kinds;
  for (CellPointer const& cell : EveryKind()) {
    kinds.insert(cell->GetKind());
  }
  EXPECT_EQ(kinds.size(), 7U);
}

TEST(OmCellText, EachClassSaysItsOwnKind) {
  std::vector<long> kinds;
  for (CellPointer const& cell : EveryKind()) {
    kinds.push_back(cell->GetKind());
  }
  EXPECT_EQ(kinds, (std::vector<long>{OmCellText::StringCellKind, OmCellText::StringCellUTF8Kind,
                                      OmCellText::NumberKind, OmCellText::VariableKind,
                                      OmCellText::NumDataValueKind, OmCellText::StringDataValueKind,
                                      OmCellText::CompositeKind}));
}

TEST(OmCellText, AcceptVisitsTheOwnKind) {
  std::vector<std::string> names;
  for (CellPointer const& cell : EveryKind()) {
    Names visitor;
    cell->Accept(visitor);
    names.push_back(visitor.name);
  }
  EXPECT_EQ(names,
            (std::vector<std::string>{"OmStringCell", "OmStringCellUTF8", "OmNumber", "OmVariable",
                                      "OmNumDataValue", "OmStringDataValue", "OmComposite"}));
}

TEST(OmCellText, APlainVisitorVisitsEveryKindAndDoesNothing) {
  OmCellText::Visitor visitor;
  for (CellPointer const& cell : EveryKind()) {
    std::string const before = cell->GetText();
    cell->Accept(visitor);
    EXPECT_EQ(cell->GetText(), before);
  }
}

// The default heap, which outlives a region, held the texts of cells that were made in the region.
TEST(OmCellText, CellsMadeInARegionAreGoneWithItWithoutBeingDeleted) {
  std::string const text(100, 'x');
  unsigned long const heap = OmMemoryRegion::DefaultHeap()->BytesInUse();
  {
    OmMemoryRegion region(false);
    new (&region) OmStringCell(text);
    new (&region) OmStringCellUTF8(text);
    new (&region) OmVariable(text, text);
    new (&region) OmNumDataValue(1, text);
    new (&region) OmStringDataValue(text, text);
    auto* const composite = new (&region) OmComposite(text + "{0}");
    composite->AddPart(OmVariable(text, text));
    EXPECT_EQ(OmMemoryRegion::DefaultHeap()->BytesInUse(), heap);
    EXPECT_GE(region.BytesInUse(), 1000U);
    EXPECT_EQ(composite->GetText(), text + text);
    region.WorkingRelease(false);
  }
  EXPECT_EQ(OmMemoryRegion::DefaultHeap()->BytesInUse(), heap);
}

TEST(OmCellText, ACopyThatADerivedKindMakesWithoutNamingTheRegionLiesWhollyInIt) {
  class Copied : public OmVariable {
   public:
    using OmVariable::OmVariable;
    OmCellText* Clone(OmMemoryRegion* region) const override { return new (region) Copied(*this); }

   private:
    Copied(Copied const&) = default;
  };
  std::string const text(100, 'x');
  Copied const original(text, text);
  unsigned long const heap = OmMemoryRegion::DefaultHeap()->BytesInUse();
  OmMemoryRegion region(false);
  CellPointer const clone(original.Clone(&region));
  EXPECT_EQ(OmMemoryRegion::DefaultHeap()->BytesInUse(), heap);
  EXPECT_GE(region.BytesInUse(), 200U);
}

TEST(OmCellText, ACellAmongOtherMembersOfARecordKeepsItsTextWhereTheRecordLies) {
  struct Record {
    char before[40];
    OmStringCell cell{std::string(100, 'x')};
  };
  OmMemoryRegion region(false);
  unsigned long const heap = OmMemoryRegion::DefaultHeap()->BytesInUse();
  auto* const record = ::new (region.Allocate(sizeof(Record))) Record;
  EXPECT_EQ(OmMemoryRegion::DefaultHeap()->BytesInUse(), heap);
  EXPECT_GE(region.BytesInUse(), sizeof(Record) + 100);
  record->~Record();
}

TEST(OmCellText, NewWithoutRegionUsesTheDefaultHeap) {
  unsigned long const before = OmMemoryRegion::DefaultHeap()->BytesInUse();
  OmCellText* cell = new OmNumber(1);
  EXPECT_EQ(OmMemoryRegion::FindOwner(cell), OmMemoryRegion::DefaultHeap());
  delete cell;
  EXPECT_EQ(OmMemoryRegion::DefaultHeap()->BytesInUse(), before);
}

TEST(OmCellText, NewWithANullRegionUsesTheDefaultHeap) {
  OmCellText* cell = new (nullptr) OmNumber(1);
  EXPECT_EQ(OmMemoryRegion::FindOwner(cell), OmMemoryRegion::DefaultHeap());
  delete cell;
}

TEST(OmCellText, NewWithARegionUsesIt) {
  OmMemoryRegion region(false);
  OmCellText* cell = new (&region) OmNumber(1);
  EXPECT_EQ(OmMemoryRegion::FindOwner(cell), &region);
  delete cell;
  EXPECT_EQ(region.BytesInUse(), 0U);
}

TEST(OmCellText, CloneKeepsTextKindMetadataAndContext) {
  OmMemoryRegion region(false);
  for (CellPointer const& cell : EveryKind()) {
    OmCellMetaData const meta = SomeMetaData();
    cell->setMeta(&meta);
    cell->ContextDisplay(OmLabelDisplay::Value);
    CellPointer const clone(cell->Clone(&region));
    EXPECT_EQ(OmMemoryRegion::FindOwner(clone.get()), &region);
    EXPECT_EQ(clone->GetText(), cell->GetText());
    EXPECT_EQ(clone->GetKind(), cell->GetKind());
    EXPECT_EQ(clone->Compare(*cell, false), 0);
    ASSERT_TRUE(clone->hasMeta());
    EXPECT_NE(clone->getMeta(), cell->getMeta());
    EXPECT_EQ(clone->getMeta()->getFootnotes(), meta.getFootnotes());
    EXPECT_EQ(clone->getMeta()->getStyle(), 3);
    EXPECT_EQ(clone->ContextDisplay(), OmLabelDisplay::Value);
  }
  EXPECT_EQ(region.BytesInUse(), 0U);
}

TEST(OmCellText, CloneOutlivesTheOriginalAndItsRegion) {
  std::vector<CellPointer> clones;
  std::vector<std::string> texts;
  {
    OmMemoryRegion region(false);
    for (CellPointer const& cell : EveryKind()) {
      CellPointer const inRegion(cell->Clone(&region));
      texts.push_back(inRegion->GetText());
      clones.emplace_back(inRegion->Clone(nullptr));
    }
  }
  for (std::size_t i = 0; i < clones.size(); ++i) {
    EXPECT_EQ(clones[i]->GetText(), texts[i]);
  }
}

TEST(OmCellText, ACellWithoutMetadataHasNone) {
  OmNumber number(1);
  EXPECT_FALSE(number.hasMeta());
  EXPECT_EQ(number.getMeta(), nullptr);
  number.setMeta(nullptr);
  EXPECT_FALSE(number.hasMeta());
}

TEST(OmCellText, MetadataIsCopiedReplacedAndRemoved) {
  OmNumber number(1);
  OmCellMetaData meta = SomeMetaData();
  number.setMeta(&meta);
  meta.setStyle(9);
  EXPECT_EQ(number.getMeta()->getStyle(), 3);
  number.setMeta(&meta);
  EXPECT_EQ(number.getMeta()->getStyle(), 9);
  number.setMeta(nullptr);
  EXPECT_FALSE(number.hasMeta());
}

TEST(OmCellText, OwnMetadataMayBeGivenBack) {
  OmNumber number(1);
  OmCellMetaData const meta = SomeMetaData();
  number.setMeta(&meta);
  number.setMeta(number.getMeta());
  EXPECT_EQ(number.getMeta()->getFootnotes(), meta.getFootnotes());
}

TEST(OmCellText, ACellHasNoContextUntilOneIsMadeOrShared) {
  OmNumber number(1);
  EXPECT_FALSE(number.hasContext());
  EXPECT_EQ(number.ContextDisplay(), OmLabelDisplay::Label);
  number.ContextDisplay(OmLabelDisplay::Both);
  EXPECT_TRUE(number.hasContext());
  OmStringCell text("a");
  text.ShareContext(number);
  EXPECT_EQ(text.ContextDisplay(), OmLabelDisplay::Both);
}

TEST(OmCellText, SharingWithACellWithoutContextDropsTheOwn) {
  OmNumber number(1);
  OmNumber const none(2);
  number.ShareContext(none);
  EXPECT_FALSE(number.hasContext());
  number.ContextDisplay(OmLabelDisplay::Both);
  number.ShareContext(none);
  EXPECT_FALSE(number.hasContext());
}

TEST(OmCellText, SharingTheOwnContextKeepsIt) {
  OmNumber number(1);
  number.ContextDisplay(OmLabelDisplay::Value);
  number.ShareContext(number);
  EXPECT_EQ(number.ContextDisplay(), OmLabelDisplay::Value);
}

TEST(OmCellText, MetadataAndContextDoNotDisturbEachOther) {
  OmNumber number(1);
  OmCellMetaData const meta = SomeMetaData();
  number.setMeta(&meta);
  EXPECT_FALSE(number.hasContext());
  number.ContextDisplay(OmLabelDisplay::Value);
  number.setMeta(nullptr);
  EXPECT_EQ(number.ContextDisplay(), OmLabelDisplay::Value);
}

TEST(OmCellText, DumpWritesTwoBlanksPerLevelAndTheText) {
  testing::internal::CaptureStdout();
  OmNumber(4.5).Dump(3);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "      4.5");
}

TEST(OmCellText, DumpWithoutOrWithNegativeIndentWritesTheTextAlone) {
  testing::internal::CaptureStdout();
  OmStringCell("a").Dump(0);
  OmStringCell("b").Dump(INT_MIN);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "ab");
}

TEST(OmCellText, AKindMadeElsewhereGetsHarmlessDefaults) {
  Minimal cell;
  icuTracker tracker({true, ""});
  cell.UseTracker(&tracker);
  EXPECT_EQ(cell.GetTracker(), nullptr);
  OmCellMetaData const meta = SomeMetaData();
  cell.setMeta(&meta);
  CellPointer const clone(cell.Clone(nullptr));
  EXPECT_TRUE(clone->hasMeta());
  EXPECT_EQ(clone->Compare(cell, true), 0);
}

TEST(OmCellText, AKindDerivedFromALibraryKindClonesWithAllState) {
  OmMemoryRegion region(false);
  Derived cell("text", true);
  CellPointer const clone(cell.Clone(&region));
  ASSERT_NE(dynamic_cast<Derived*>(clone.get()), nullptr);
  EXPECT_TRUE(dynamic_cast<Derived*>(clone.get())->IsTranslatable());
  EXPECT_EQ(clone->GetText(), "text");
}

}  // namespace
