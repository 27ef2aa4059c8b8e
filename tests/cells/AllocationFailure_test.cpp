#include <functional>
#include <gtest/gtest.h>
#include <string>

#include "EveryKind.h"
#include "support/faults/FailingNew.h"

namespace {

std::vector<CellPointer> EveryKindWithExtras() {
  std::vector<CellPointer> cells = EveryKind();
  OmCellMetaData const meta = SomeMetaData();
  for (CellPointer const& cell : cells) {
    cell->setMeta(&meta);
    cell->ContextDisplay(OmLabelDisplay::Both);
  }
  return cells;
}

TEST(AllocationFailure, AFailedCloneLeavesNothingBehind) {
  for (CellPointer const& cell : EveryKindWithExtras()) {
    OmMemoryRegion region(false);
    unsigned long const heap = OmMemoryRegion::DefaultHeap()->BytesInUse();
    CellPointer clone;
    std::size_t const failures =
        FailEveryAllocation([&] { clone.reset(cell->Clone(&region)); },
                            [&] {
                              EXPECT_EQ(region.BytesInUse(), 0U);
                              EXPECT_EQ(OmMemoryRegion::DefaultHeap()->BytesInUse(), heap);
                            });
    EXPECT_GE(failures, 6U) << "the cell, its extras and its metadata";
    EXPECT_EQ(clone->GetText(), cell->GetText());
  }
}

TEST(AllocationFailure, AFailedBindingOrUnbindingChangesNothing) {
  OmMemoryRegion region(false);
  std::size_t bindings = 0;
  std::size_t unbindings = 0;
  for (CellPointer const& original : EveryKind()) {
    SCOPED_TRACE(original->GetKind());
    CellPointer const cell(original->Clone(&region));
    icuTracker tracker({true, ""});
    std::string const text = cell->GetText();
    unsigned long inUse = region.BytesInUse();
    bindings += FailEveryAllocation([&] { cell->UseTracker(&tracker); },
                                    [&] {
                                      EXPECT_EQ(cell->GetText(), text);
                                      EXPECT_EQ(cell->GetTracker(), nullptr);
                                      EXPECT_EQ(tracker.TextCount(), 0U);
                                      EXPECT_EQ(region.BytesInUse(), inUse);
                                    });
    icuTracker* const bound = cell->GetTracker();
    std::size_t const texts = tracker.TextCount();
    inUse = region.BytesInUse();
    unbindings += FailEveryAllocation([&] { cell->UseTracker(nullptr); },
                                      [&] {
                                        EXPECT_EQ(cell->GetText(), text);
                                        EXPECT_EQ(cell->GetTracker(), bound);
                                        EXPECT_EQ(tracker.TextCount(), texts);
                                        EXPECT_EQ(region.BytesInUse(), inUse);
                                      });
    EXPECT_EQ(cell->GetText(), text);
    EXPECT_EQ(tracker.TextCount(), 0U);
  }
  EXPECT_GT(bindings, 5U);
  EXPECT_GT(unbindings, 5U);
}

TEST(AllocationFailure, AFailedSetMetaKeepsTheOldMetadata) {
  OmNumber number(1);
  OmCellMetaData const meta = SomeMetaData();
  EXPECT_GE(
      FailEveryAllocation([&] { number.setMeta(&meta); }, [&] { EXPECT_FALSE(number.hasMeta()); }),
      4U);
  OmCellMetaData other;
  other.addFootnote(9);
  EXPECT_GE(FailEveryAllocation([&] { number.setMeta(&other); },
                                [&] { EXPECT_EQ(number.getMeta()->getStyle(), 3); }),
            2U);
  EXPECT_EQ(number.getMeta()->getStyle(), 0);
}

TEST(AllocationFailure, AFailedContextChangesNothing) {
  OmNumber number(1);
  EXPECT_GE(FailEveryAllocation([&] { number.ContextDisplay(OmLabelDisplay::Value); },
                                [&] { EXPECT_FALSE(number.hasContext()); }),
            4U);
  OmNumber other(2);
  EXPECT_GE(FailEveryAllocation([&] { other.ShareContext(number); },
                                [&] { EXPECT_FALSE(other.hasContext()); }),
            2U);
  EXPECT_TRUE(other.hasContext());
}

TEST(AllocationFailure, AFailedAddPartChangesNothing) {
  OmComposite composite("{0}");
  OmVariable const part("name", "label");
  EXPECT_GE(FailEveryAllocation([&] { composite.AddPart(part); },
                                [&] { EXPECT_EQ(composite.Parts().Root().NChildren(), 0U); }),
            8U);
  EXPECT_EQ(composite.GetText(), "label");
}

TEST(AllocationFailure, AFailedCloneOfNestedCompositesLeavesNothingBehind) {
  OmComposite inner("{0}");
  inner.AddPart(OmStringCell("text"));
  OmComposite outer("{0}{1}");
  outer.AddPart(inner);
  outer.AddPart(inner);
  OmMemoryRegion region(false);
  CellPointer clone;
  EXPECT_GT(FailEveryAllocation([&] { clone.reset(outer.Clone(&region)); },
                                [&] { EXPECT_EQ(region.BytesInUse(), 0U); }),
            10U);
  EXPECT_EQ(clone->GetText(), "texttext");
}

TEST(AllocationFailure, AFailedConstructionLeavesNothingBehind) {
  std::string const text(100, 'x');
  std::function<OmCellText*(OmMemoryRegion*)> const makers[] = {
      [&](OmMemoryRegion* in) { return new (in) OmStringCell(text); },
      [&](OmMemoryRegion* in) { return new (in) OmStringCellUTF8(text); },
      [&](OmMemoryRegion* in) { return new (in) OmNumber(1.5, 2); },
      [&](OmMemoryRegion* in) { return new (in) OmVariable(text, text); },
      [&](OmMemoryRegion* in) { return new (in) OmNumDataValue(1, text); },
      [&](OmMemoryRegion* in) { return new (in) OmStringDataValue(text, text); },
      [&](OmMemoryRegion* in) { return new (in) OmComposite(text); },
  };
  OmMemoryRegion region(false);
  for (OmMemoryRegion* const in : {OmMemoryRegion::DefaultHeap(), &region}) {
    for (auto const& make : makers) {
      unsigned long const before = in->BytesInUse();
      CellPointer cell;
      EXPECT_GE(FailEveryAllocation([&] { cell.reset(make(in)); },
                                    [&] { EXPECT_EQ(in->BytesInUse(), before); }),
                2U);
      EXPECT_EQ(cell->GetText(), CellPointer(make(nullptr))->GetText());
      EXPECT_GT(in->BytesInUse(), before);
    }
  }
}

TEST(AllocationFailure, AFailedTrackerLeavesNothingBehind) {
  std::string const locale(100, 'x');
  std::unique_ptr<icuTracker> tracker;
  EXPECT_GE(
      FailEveryAllocation([&] { tracker = std::make_unique<icuTracker>(std::pair(true, locale)); },
                          [&] { EXPECT_EQ(tracker, nullptr); }),
      4U);
  EXPECT_EQ(tracker->getLocale(), locale);
}

}  // namespace
