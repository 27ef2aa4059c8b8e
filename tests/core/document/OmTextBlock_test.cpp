#include <gtest/gtest.h>
#include <string>

#include <cells/OmStringCell.h>
#include <lakresvos/OmTextBlock.h>

#include "support/SpyCell.h"
#include "support/faults/FailingNew.h"

namespace {

class OmTextBlockTest : public testing::Test {
 protected:
  static bool IsLog(std::string const& label) { return OmTextBlock(SpyCell(label), "").IsLog(); }

  SpyBalance balance_;
};

using OmPageTitleTest = OmTextBlockTest;

TEST_F(OmTextBlockTest, ANewBlockHasItsLabelAndTextAndAnEmptyList) {
  OmTextBlock const block(SpyCell("label"), "text");
  EXPECT_EQ(block.Label()->GetText(), "label");
  EXPECT_EQ(block.Text(), "text");
  EXPECT_TRUE(block.TextList().empty());
  EXPECT_FALSE(block.IsLog());
}

TEST_F(OmTextBlockTest, ALabelThatRendersAsLogMakesALog) {
  EXPECT_TRUE(IsLog("Log"));
}

TEST_F(OmTextBlockTest, ALabelInAnotherCaseMakesNoLog) {
  EXPECT_FALSE(IsLog("log"));
  EXPECT_FALSE(IsLog("LOG"));
}

TEST_F(OmTextBlockTest, ALabelWithABlankMoreMakesNoLog) {
  EXPECT_FALSE(IsLog("Log "));
  EXPECT_FALSE(IsLog(" Log"));
}

TEST_F(OmTextBlockTest, ALabelWithALetterMoreOrLessMakesNoLog) {
  EXPECT_FALSE(IsLog("Logs"));
  EXPECT_FALSE(IsLog("Lo"));
  EXPECT_FALSE(IsLog(""));
}

TEST_F(OmTextBlockTest, ALabelWithAZeroByteMoreMakesNoLog) {
  EXPECT_FALSE(IsLog(std::string("Log\0", 4)));
}

TEST_F(OmTextBlockTest, TheTextTakesNoPartInWhetherItIsALog) {
  EXPECT_FALSE(OmTextBlock(SpyCell("label"), "Log").IsLog());
}

TEST_F(OmTextBlockTest, KeepsEmbeddedZeroBytes) {
  std::string const text("a\0b", 3);
  EXPECT_EQ(OmTextBlock(SpyCell("label"), text).Text(), text);
}

TEST_F(OmTextBlockTest, TheListIsTheCallers) {
  OmTextBlock block(SpyCell("label"), "text");
  block.TextList().push_back("one");
  block.TextList().push_back(std::string(100, 'x'));
  OmTextBlock const& reading = block;
  EXPECT_EQ(reading.TextList().size(), 2U);
  EXPECT_EQ(reading.TextList().front(), "one");
}

TEST_F(OmTextBlockTest, ABlockThatCannotBeMadeLeavesNothingBehind) {
  SpyCell const label(std::string(100, 'l'));
  std::string const text(100, 't');
  auto const nothing = [] { EXPECT_EQ(SpyCell::Live(), 1); };
  auto const make = [&] { OmTextBlock const block(label, text); };
  EXPECT_GE(FailEveryAllocation(make, nothing), 6U);
  EXPECT_EQ(FailEveryCall(SpyCell::Operation::Clone, make, nothing), 1U);
  EXPECT_EQ(FailEveryCall(SpyCell::Operation::GetText, make, nothing), 1U);
}

TEST_F(OmPageTitleTest, APageTitleHasATextAndAnEmptyLabel) {
  OmPageTitle const title("text");
  EXPECT_EQ(title.Text(), "text");
  EXPECT_EQ(title.Label()->GetText(), "");
  EXPECT_FALSE(title.IsLog());
  EXPECT_TRUE(title.TextList().empty());
}

TEST_F(OmPageTitleTest, ThePageTitlesLabelIsAStringThatIsNotTranslated) {
  OmPageTitle const title("text");
  auto const* const label = dynamic_cast<OmStringCell const*>(title.Label());
  ASSERT_NE(label, nullptr);
  EXPECT_FALSE(label->IsTranslatable());
}

TEST_F(OmPageTitleTest, APageTitleNamedLogIsNoLog) {
  EXPECT_FALSE(OmPageTitle("Log").IsLog());
}

TEST_F(OmPageTitleTest, APageTitleThatCannotBeMadeLeavesNothingBehind) {
  std::string const text(100, 't');
  unsigned long const heap = OmMemoryRegion::DefaultHeap()->BytesInUse();
  EXPECT_GE(
      FailEveryAllocation([&] { OmPageTitle const title(text); },
                          [&] { EXPECT_EQ(OmMemoryRegion::DefaultHeap()->BytesInUse(), heap); }),
      4U);
}

}  // namespace
