#include <cells/OmStringCell.h>
// This header comes first to show that it is self-contained.
#include <gtest/gtest.h>
#include <memory>
#include <rapidcheck/gtest.h>
#include <string>
#include <vector>

#include <cells/icuTracker.h>

static_assert(sizeof(OmStringCellUTF8) <= 32);
static_assert(sizeof(OmStringCell) <= 40);

namespace {

TEST(OmStringCell, IsNotTranslatableUnlessSaid) {
  EXPECT_FALSE(OmStringCell("a").IsTranslatable());
  EXPECT_TRUE(OmStringCell("a", true).IsTranslatable());
}

TEST(OmStringCell, TranslatabilityIsCloned) {
  std::unique_ptr<OmCellText> const clone(OmStringCell("a", true).Clone(nullptr));
  EXPECT_TRUE(dynamic_cast<OmStringCell&>(*clone).IsTranslatable());
}

TEST(OmStringCell, KeepsNulBytesAndBrokenUtf8) {
  std::string const bytes("a\0b\xFF\xC3", 5);
  EXPECT_EQ(OmStringCell(bytes).GetText(), bytes);
  EXPECT_EQ(OmStringCellUTF8(bytes).GetText(), bytes);
}

TEST(OmStringCell, AnEmptyTextTakesNoStorage) {
  OmMemoryRegion region(false);
  OmCellText* clone = OmStringCell("").Clone(&region);
  EXPECT_EQ(clone->GetText(), "");
  EXPECT_EQ(region.BytesInUse(), 48U);
  delete clone;
}

TEST(OmStringCell, AClonesShortTextLiesInOneBlockOf64BytesWithIt) {
  OmMemoryRegion region(false);
  std::unique_ptr<OmCellText> cell(OmStringCell(std::string(24, 'x'), true).Clone(&region));
  EXPECT_EQ(region.BytesInUse(), 64U);
  EXPECT_EQ(cell->GetText(), std::string(24, 'x'));
  cell.reset(OmStringCellUTF8(std::string(32, 'x')).Clone(&region));
  EXPECT_EQ(region.BytesInUse(), 64U);
  cell.reset(OmStringCell(std::string(25, 'x')).Clone(&region));
  EXPECT_EQ(region.BytesInUse(), 48U + 32U);
  cell.reset();
  EXPECT_EQ(region.BytesInUse(), 0U);
}

TEST(OmStringCell, AShortTextKeepsItsRoomWhileATrackerHasIt) {
  OmMemoryRegion region(false);
  icuTracker tracker({true, ""});
  std::unique_ptr<OmCellText> cell(OmStringCell("short").Clone(&region));
  EXPECT_EQ(region.BytesInUse(), 48U);
  cell->UseTracker(&tracker);
  EXPECT_EQ(region.BytesInUse(), 48U);
  cell->UseTracker(nullptr);
  EXPECT_EQ(region.BytesInUse(), 48U + 16U);
  EXPECT_EQ(cell->GetText(), "short");
  cell.reset();
  EXPECT_EQ(region.BytesInUse(), 0U);
}

TEST(OmStringCell, AClonesBytesLieInItsRegion) {
  OmMemoryRegion region(false);
  OmStringCell const cell(std::string(1000, 'x'));
  unsigned long const heap = OmMemoryRegion::DefaultHeap()->BytesInUse();
  OmCellText* clone = cell.Clone(&region);
  EXPECT_GE(region.BytesInUse(), 1000U);
  EXPECT_EQ(OmMemoryRegion::DefaultHeap()->BytesInUse(), heap);
  delete clone;
  EXPECT_EQ(region.BytesInUse(), 0U);
}

TEST(OmStringCell, TheBytesOfACellMadeInARegionLieThere) {
  OmMemoryRegion region(false);
  std::string const text(1000, 'x');
  unsigned long const heap = OmMemoryRegion::DefaultHeap()->BytesInUse();
  auto* const plain = new (&region) OmStringCell(text);
  EXPECT_GE(region.BytesInUse(), 1000U);
  auto* const utf8 = new (&region) OmStringCellUTF8(text);
  EXPECT_GE(region.BytesInUse(), 2000U);
  EXPECT_EQ(OmMemoryRegion::DefaultHeap()->BytesInUse(), heap);
  EXPECT_EQ(plain->GetText(), text);
  delete plain;
  delete utf8;
  EXPECT_EQ(region.BytesInUse(), 0U);
}

TEST(OmStringCell, AnyOtherCellsBytesLieOnTheDefaultHeap) {
  unsigned long const heap = OmMemoryRegion::DefaultHeap()->BytesInUse();
  OmStringCell const cell(std::string(1000, 'x'));
  EXPECT_GE(OmMemoryRegion::DefaultHeap()->BytesInUse(), heap + 1000);
}

TEST(OmStringCell, IsNotAnOmStringCellUTF8NorTheReverse) {
  std::unique_ptr<OmCellText> const plain(new OmStringCell("a"));
  std::unique_ptr<OmCellText> const utf8(new OmStringCellUTF8("a"));
  EXPECT_EQ(dynamic_cast<OmStringCellUTF8*>(plain.get()), nullptr);
  EXPECT_EQ(dynamic_cast<OmStringCell*>(utf8.get()), nullptr);
}

RC_GTEST_PROP(OmStringCellBytes, AnyBytesComeBackUnchanged, (std::string const& bytes)) {
  OmMemoryRegion region(false);
  OmCellText* first = OmStringCell(bytes).Clone(&region);
  OmCellText* second = OmStringCellUTF8(bytes).Clone(&region);
  RC_ASSERT(first->GetText() == bytes);
  RC_ASSERT(second->GetText() == bytes);
  delete first;
  delete second;
}

RC_GTEST_PROP(OmStringCellBytes, AnyTextOutlivesClonesAndTrackers, ()) {
  OmMemoryRegion region(false);
  std::string const bytes(*rc::gen::inRange<std::size_t>(0, 40), 'x');
  icuTracker tracker({true, ""});
  auto cell = *rc::gen::arbitrary<bool>()
                  ? std::unique_ptr<OmCellText>(OmStringCell(bytes).Clone(&region))
                  : std::unique_ptr<OmCellText>(OmStringCellUTF8(bytes).Clone(&region));
  for (int const step : *rc::gen::container<std::vector<int>>(rc::gen::inRange(0, 3))) {
    if (step == 0) {
      cell.reset(cell->Clone(&region));
    } else {
      cell->UseTracker(step == 1 ? &tracker : nullptr);
    }
    RC_ASSERT(cell->GetText() == bytes);
  }
  cell.reset();
  RC_ASSERT(region.BytesInUse() == 0U);
  RC_ASSERT(tracker.TextCount() == 0U);
}

}  // namespace
