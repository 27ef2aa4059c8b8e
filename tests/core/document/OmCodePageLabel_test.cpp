#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <typeinfo>
#include <vector>

#include <cells/cells.h>
#include <codepage/codepage.h>

#include "cells/EveryKind.h"
#include "core/document/OmItemFixture.h"
#include "support/SpyCell.h"
#include "support/faults/FailingNew.h"

// The linker leads the library's calls to the wrappers below; the others are the real functions.
void* RealConverterNew(char const* page) asm("__real__Z20VELKMBConverterNew_APKc");
void RealConverterDelete(void* converter) asm("__real__Z23VELKMBConverterDelete_APv");
void* CountedConverterNew(char const* page) asm("__wrap__Z20VELKMBConverterNew_APKc");
void CountedConverterDelete(void* converter) asm("__wrap__Z23VELKMBConverterDelete_APv");

namespace {

struct Converters {
  int asked = 0;
  int open = 0;
  int closed = 0;
  char const* page = "";
};

Converters converters;

}  // namespace

void* CountedConverterNew(char const* page) {
  ++converters.asked;
  void* const converter = RealConverterNew(page);
  converters.open += converter != nullptr ? 1 : 0;
  return converter;
}

void CountedConverterDelete(void* converter) {
  converters.open -= converter != nullptr ? 1 : 0;
  ++converters.closed;
  RealConverterDelete(converter);
}

namespace {

template <class Item>
class OmCodePageLabel : public testing::Test {
 protected:
  void SetUp() override { converters = {}; }
  void TearDown() override { EXPECT_EQ(converters.open, 0); }

  /// The text of the label that an item gets, after checking that it is a plain string.
  static std::string LabelText(OmCellText const& label, std::string const& page) {
    Item const item(label, page, 0);
    EXPECT_EQ(typeid(*item.Label()), typeid(OmStringCell));
    auto const* const text = dynamic_cast<OmStringCell const*>(item.Label());
    EXPECT_TRUE(text != nullptr && !text->IsTranslatable());
    return item.Label()->GetText();
  }
  static std::string LabelText(std::string const& label, std::string const& page) {
    return LabelText(SpyCell(label), page);
  }

  SpyBalance balance_;
};

using BothItems = testing::Types<OmChart, OmInteractive>;
TYPED_TEST_SUITE(OmCodePageLabel, BothItems);

// No code page

TYPED_TEST(OmCodePageLabel, WithoutACodePageTheLabelIsACopyOfTheGivenCell) {
  SpyCell const label("caf\u00E9");
  SpyLog const log;
  TypeParam const item(label, "", 0);
  EXPECT_EQ(log.Lines(), std::vector<std::string>{"Clone caf\u00E9"});
  EXPECT_EQ(item.Label(), log.calls[0].result);
  EXPECT_EQ(log.calls[0].region, nullptr);
  EXPECT_EQ(item.LocaleCodePage(), "");
}

TYPED_TEST(OmCodePageLabel, WithoutACodePageNoConverterIsOpened) {
  TypeParam const item(OmNumber(2.5), "", 0);
  EXPECT_EQ(converters.asked, 0);
  EXPECT_EQ(converters.closed, 0);
  EXPECT_EQ(typeid(*item.Label()), typeid(OmNumber));
}

// Code pages

TYPED_TEST(OmCodePageLabel, IsConvertedIntoIso88591) {
  EXPECT_EQ(this->LabelText("caf\u00E9", "ISO-8859-1"), "caf\xE9");
}

TYPED_TEST(OmCodePageLabel, IsConvertedIntoWindows1252) {
  EXPECT_EQ(this->LabelText("\u20AC \u201Cx\u201D", "windows-1252"), "\x80 \x93x\x94");
}

TYPED_TEST(OmCodePageLabel, IsConvertedIntoShiftJis) {
  EXPECT_EQ(this->LabelText("\u65E5\u672C", "Shift_JIS"), "\x93\xFA\x96\x7B");
}

TYPED_TEST(OmCodePageLabel, IsConvertedIntoGb18030) {
  EXPECT_EQ(this->LabelText("\u4E2D\U0001F600", "GB18030"), "\xD6\xD0\x94\x39\xFC\x36");
}

TYPED_TEST(OmCodePageLabel, AnEmptyLabelStaysEmpty) {
  EXPECT_EQ(this->LabelText("", "ISO-8859-1"), "");
}

TYPED_TEST(OmCodePageLabel, ZeroBytesAreText) {
  EXPECT_EQ(this->LabelText(std::string("\u00E9\0\u00E9", 5), "ISO-8859-1"),
            std::string("\xE9\0\xE9", 3));
}

TYPED_TEST(OmCodePageLabel, TheConverterIsOpenedOnceAndClosed) {
  this->LabelText("caf\u00E9", "ISO-8859-1");
  EXPECT_EQ(converters.asked, 1);
  EXPECT_EQ(converters.open, 0);
}

TYPED_TEST(OmCodePageLabel, TheConvertedLabelLivesOnTheDefaultHeap) {
  TypeParam const item(OmStringCell("caf\u00E9"), "ISO-8859-1", 0);
  EXPECT_EQ(OmMemoryRegion::FindOwner(item.Label()), OmMemoryRegion::DefaultHeap());
}

TYPED_TEST(OmCodePageLabel, ThePagesNameEndsAtAZeroByteButIsKeptWhole) {
  std::string const page("ISO-8859-1\0more", 15);
  EXPECT_EQ(this->LabelText("caf\u00E9", page), "caf\xE9");
  EXPECT_EQ(TypeParam(OmStringCell("label"), page, 0).LocaleCodePage(), page);
}

TYPED_TEST(OmCodePageLabel, ThePagesNameIsACopy) {
  std::string page = "a code page of no use that has a long name";
  TypeParam const item(OmStringCell("label"), page, 0);
  page = "other";
  EXPECT_EQ(item.LocaleCodePage(), "a code page of no use that has a long name");
}

// What cannot be converted

TYPED_TEST(OmCodePageLabel, InAnUnknownPageTheTextIsLeftAsItIs) {
  EXPECT_EQ(this->LabelText("caf\u00E9", "no-such-page"), "caf\u00E9");
  EXPECT_EQ(converters.asked, 1);
}

TYPED_TEST(OmCodePageLabel, InAPageWithABlankNameTheTextIsLeftAsItIs) {
  EXPECT_EQ(this->LabelText("caf\u00E9", " "), "caf\u00E9");
}

TYPED_TEST(OmCodePageLabel, ATextThatThePageCannotHoldIsLeftAsItIs) {
  EXPECT_EQ(this->LabelText("5 \u20AC", "ISO-8859-1"), "5 \u20AC");
  EXPECT_EQ(this->LabelText("\u00E9 \u65E5", "windows-1252"), "\u00E9 \u65E5");
  EXPECT_EQ(this->LabelText("\u65E5 \U0001F600", "Shift_JIS"), "\u65E5 \U0001F600");
}

TYPED_TEST(OmCodePageLabel, TheConverterIsClosedWhenItCannotConvertTheText) {
  this->LabelText("5 \u20AC", "ISO-8859-1");
  EXPECT_EQ(converters.asked, 1);
  EXPECT_EQ(converters.closed, 1);
}

TYPED_TEST(OmCodePageLabel, AConverterThatCouldNotBeOpenedIsClosedToo) {
  this->LabelText("caf\u00E9", "no-such-page");
  EXPECT_EQ(converters.closed, 1);
}

TYPED_TEST(OmCodePageLabel, ATextThatIsNotUtf8IsLeftAsItIs) {
  EXPECT_EQ(this->LabelText("caf\xE9", "ISO-8859-1"), "caf\xE9");
  EXPECT_EQ(this->LabelText("\xFF\xFE", "GB18030"), "\xFF\xFE");
}

// Kinds of label

TYPED_TEST(OmCodePageLabel, OfEveryKindBecomesAPlainStringWithItsText) {
  for (CellPointer const& label : EveryKind()) {
    std::string const text = label->GetText();
    EXPECT_EQ(this->LabelText(*label, "UTF-8"), text);
    EXPECT_EQ(this->LabelText(*label, "no-such-page"), text);
  }
}

TYPED_TEST(OmCodePageLabel, ANumberBecomesItsText) {
  EXPECT_EQ(this->LabelText(OmNumber(2.5, 2), "ISO-8859-1"), "2.50");
}

TYPED_TEST(OmCodePageLabel, ACompositeBecomesItsText) {
  OmComposite label("{0}: {1}");
  label.AddPart(OmStringCell("caf\u00E9"));
  label.AddPart(OmNumber(3));
  EXPECT_EQ(this->LabelText(label, "ISO-8859-1"), "caf\xE9: 3");
}

TYPED_TEST(OmCodePageLabel, ATranslatableStringBecomesOneThatIsNot) {
  EXPECT_EQ(this->LabelText(OmStringCell("caf\u00E9", true), "ISO-8859-1"), "caf\xE9");
}

TYPED_TEST(OmCodePageLabel, TheMetadataOfTheGivenCellIsNotKept) {
  OmStringCell label("label");
  OmCellMetaData const meta = SomeMetaData();
  label.setMeta(&meta);
  EXPECT_FALSE(TypeParam(label, "ISO-8859-1", 0).Label()->hasMeta());
  EXPECT_TRUE(TypeParam(label, "", 0).Label()->hasMeta());
}

TYPED_TEST(OmCodePageLabel, TheGivenCellStaysAsItIs) {
  OmStringCell const label("caf\u00E9");
  this->LabelText(label, "ISO-8859-1");
  EXPECT_EQ(label.GetText(), "caf\u00E9");
}

// Failures

TYPED_TEST(OmCodePageLabel, AFailureAtAnyAllocationIsThrownAndLeavesNothingBehind) {
  SpyCell const label(std::string(100, 'x') + "\u00E9");
  std::string const page = "ISO-8859-1";
  std::unique_ptr<TypeParam> item;
  EXPECT_GE(FailEveryAllocation([&] { item = std::make_unique<TypeParam>(label, page, 0); },
                                [&] {
                                  EXPECT_EQ(SpyCell::Live(), 1);
                                  EXPECT_EQ(converters.open, 0);
                                }),
            10U);
  EXPECT_EQ(item->Label()->GetText(), std::string(100, 'x') + "\xE9");
}

TYPED_TEST(OmCodePageLabel, ALabelThatCannotBeReadLeavesNothingBehind) {
  SpyCell const label("label");
  auto const nothing = [] {
    EXPECT_EQ(SpyCell::Live(), 1);
    EXPECT_EQ(converters.open, 0);
  };
  auto const make = [&] { TypeParam const item(label, "ISO-8859-1", 0); };
  EXPECT_EQ(FailEveryCall(SpyCell::Operation::GetText, make, nothing), 1U);
  EXPECT_EQ(FailEveryCall(SpyCell::Operation::Clone, make, nothing), 1U);
}

}  // namespace
