#include <gtest/gtest.h>
#include <string>

#include <cells/icuTracker.h>

#include "EveryKind.h"

namespace {

/// A number of somebody else, who may own anything.
class OtherNumber : public OmNumber {
 public:
  using OmNumber::OmNumber;
  OmCellText* Clone(OmMemoryRegion* region) const override {
    return new (region) OtherNumber(Value(), Decimals());
  }
};

TEST(Ownership, CellsOfEveryKindButCompositesGoWithTheirRegion) {
  for (CellPointer const& cell : EveryKind()) {
    EXPECT_EQ(cell->GoesWithRegion(), cell->GetKind() != OmCellText::CompositeKind);
  }
}

TEST(Ownership, DerivedKindsDoNotGoWithTheirRegionUnlessTheySaySo) {
  EXPECT_FALSE(OtherNumber(1).GoesWithRegion());
}

TEST(Ownership, CellsThatGoWithTheirRegionLeaveNothingBehind) {
  // The leak checker of the address sanitizer sees what is left.
  OmMemoryRegion region(false);
  for (CellPointer const& cell : EveryKind()) {
    if (cell->GoesWithRegion()) {
      (void)cell->Clone(&region);
    }
  }
  EXPECT_FALSE(region.HasOwners());
}

TEST(Ownership, ARegionKnowsOfACellThatGetsMetaData) {
  OmMemoryRegion region(false);
  CellPointer const cell(new (&region) OmNumber(1));
  EXPECT_FALSE(region.HasOwners());
  OmCellMetaData const meta = SomeMetaData();
  cell->setMeta(&meta);
  EXPECT_TRUE(region.HasOwners());
}

TEST(Ownership, ARegionKnowsOfACellThatGetsAContext) {
  OmMemoryRegion region(false);
  CellPointer const cell(new (&region) OmVariable("name", "label"));
  cell->ContextDisplay(OmLabelDisplay::Both);
  EXPECT_TRUE(region.HasOwners());
}

TEST(Ownership, ARegionKnowsOfACellThatSharesAContext) {
  OmMemoryRegion region(false);
  OmVariable other("name", "label");
  other.ContextDisplay(OmLabelDisplay::Both);
  CellPointer const cell(new (&region) OmVariable("name", "label"));
  cell->ShareContext(other);
  EXPECT_TRUE(region.HasOwners());
}

TEST(Ownership, ARegionKnowsOfACloneWithMetaData) {
  OmMemoryRegion region(false);
  OmNumber original(1);
  OmCellMetaData const meta = SomeMetaData();
  original.setMeta(&meta);
  CellPointer const clone(original.Clone(&region));
  EXPECT_TRUE(region.HasOwners());
}

TEST(Ownership, ARegionKnowsOfACellThatIsBoundToATracker) {
  for (CellPointer const& cell : EveryKind()) {
    icuTracker tracker({true, ""});
    OmMemoryRegion region(false);
    CellPointer const clone(cell->Clone(&region));
    clone->UseTracker(&tracker);
    EXPECT_EQ(region.HasOwners(), cell->GetKind() != OmCellText::NumberKind &&
                                      cell->GetKind() != OmCellText::CompositeKind)
        << cell->GetText();
  }
}

TEST(Ownership, OfACellOnTheStackConcernsNoRegion) {
  OmNumber number(1);
  OmCellMetaData const meta = SomeMetaData();
  number.setMeta(&meta);
  EXPECT_TRUE(number.hasMeta());
}

// Taking a value

TEST(TakeValue, IsForNumbersAlone) {
  for (CellPointer const& target : EveryKind()) {
    for (CellPointer const& source : EveryKind()) {
      bool const numbers = target->GetKind() == OmCellText::NumberKind &&
                           source->GetKind() == OmCellText::NumberKind;
      std::string const before = target->GetText();
      EXPECT_EQ(target->TakeValue(*source), numbers);
      EXPECT_EQ(target->GetText(), before);
    }
  }
}

TEST(TakeValue, TakesDecimalsToo) {
  OmNumber number(1.25, 2);
  EXPECT_TRUE(number.TakeValue(OmNumber(2.5, 1)));
  EXPECT_EQ(number.GetText(), "2.5");
}

TEST(TakeValue, OfItselfChangesNothing) {
  OmNumber number(1.25, 2);
  EXPECT_TRUE(number.TakeValue(number));
  EXPECT_EQ(number.GetText(), "1.25");
}

TEST(TakeValue, KeepsTheOwnMetaData) {
  OmNumber number(1);
  OmCellMetaData const meta = SomeMetaData();
  number.setMeta(&meta);
  EXPECT_TRUE(number.TakeValue(OmNumber(2)));
  EXPECT_EQ(number.Value(), 2);
  ASSERT_TRUE(number.hasMeta());
  EXPECT_EQ(number.getMeta()->getStyle(), 3);
}

TEST(TakeValue, IsRefusedWhereACloneWouldDiffer) {
  OmCellMetaData const meta = SomeMetaData();
  OmNumber withMeta(2);
  withMeta.setMeta(&meta);
  OmNumber withContext(2);
  withContext.ContextDisplay(OmLabelDisplay::Both);
  OmNumber plain(1);
  EXPECT_FALSE(plain.TakeValue(withMeta));
  EXPECT_FALSE(plain.TakeValue(withContext));
  EXPECT_FALSE(plain.TakeValue(OtherNumber(2)));
  EXPECT_FALSE(OtherNumber(1).TakeValue(plain));
  EXPECT_FALSE(withContext.TakeValue(plain));
  EXPECT_EQ(plain.Value(), 1);
}

}  // namespace
