#include <cells/OmStringCell.h>
// This header comes first to show that it is self-contained.
#include <gtest/gtest.h>
#include <memory>
#include <rapidcheck/gtest.h>
#include <string>

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

}  // namespace
