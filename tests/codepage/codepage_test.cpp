#include <codepage/codepage.h>
// This header comes first to show that it is self-contained.
#include <clocale>
#include <gtest/gtest.h>
#include <memory>
#include <rapidcheck/gtest.h>
#include <string>
#include <vector>

#include "support/faults/FailingNew.h"

namespace {

struct Closer {
  void operator()(void* converter) const { VELKMBConverterDelete_A(converter); }
};
using Converter = std::unique_ptr<void, Closer>;

Converter Open(char const* page) {
  return Converter(VELKMBConverterNew_A(page));
}

testing::AssertionResult Gives(char const* page, std::string const& utf8,
                               std::string const& expected) {
  Converter const converter = Open(page);
  std::string out = "old";
  int const status = VELKMBU8ToGeneric(converter.get(), out, utf8);
  if (status == 0 && out == expected) {
    return testing::AssertionSuccess();
  }
  return testing::AssertionFailure()
         << page << ": status " << status << ", " << testing::PrintToString(out);
}

testing::AssertionResult Fails(char const* page, std::string const& utf8) {
  Converter const converter = Open(page);
  if (!converter) {
    return testing::AssertionFailure() << page << " is unknown";
  }
  std::string out = "old";
  int const status = VELKMBU8ToGeneric(converter.get(), out, utf8);
  if (status != 0 && out.empty()) {
    return testing::AssertionSuccess();
  }
  return testing::AssertionFailure()
         << page << ": status " << status << ", " << testing::PrintToString(out);
}

TEST(Codepage, ConvertsIntoSingleBytePages) {
  EXPECT_TRUE(Gives("ISO-8859-1", "caf\u00E9", "caf\xE9"));
  EXPECT_TRUE(Gives("windows-1252", "\u20AC \u201Cx\u201D", "\x80 \x93x\x94"));
}

TEST(Codepage, ConvertsIntoMultiBytePages) {
  EXPECT_TRUE(Gives("SHIFT_JIS", "\u65E5\u672C", "\x93\xFA\x96\x7B"));
  EXPECT_TRUE(Gives("GB18030", "\u4E2D\U0001F600", "\xD6\xD0\x94\x39\xFC\x36"));
}

TEST(Codepage, EndsInTheInitialShiftState) {
  EXPECT_TRUE(Gives("ISO-2022-JP", "\u65E5", "\x1B$BF|\x1B(B"));
}

TEST(Codepage, StartsEveryConversionInTheInitialShiftState) {
  Converter const converter = Open("ISO-2022-JP");
  std::string out;
  EXPECT_NE(VELKMBU8ToGeneric(converter.get(), out, "\u65E5\U0001F600"), 0);
  EXPECT_EQ(VELKMBU8ToGeneric(converter.get(), out, "a\u65E5"), 0);
  EXPECT_EQ(out, "a\x1B$BF|\x1B(B");
}

TEST(Codepage, PageNamesIgnoreCase) {
  EXPECT_TRUE(Gives("iso-8859-15", "\u20AC", "\xA4"));
}

TEST(Codepage, PageNamesMayHaveNoLetters) {
  EXPECT_TRUE(Gives("437", "\u00E9", "\x82"));
}

TEST(Codepage, ANameOfNeitherLettersNorDigitsHasNoConverter) {
  for (char const* const page : {"~", "{|}", "@", "[", "_", "-."}) {
    EXPECT_EQ(Open(page), nullptr) << page;
  }
}

TEST(Codepage, AnEmptyTextGivesAnEmptyText) {
  EXPECT_TRUE(Gives("ISO-8859-1", "", ""));
}

TEST(Codepage, NulBytesAreText) {
  EXPECT_TRUE(Gives("ISO-8859-1", std::string("a\0b\0", 4), std::string("a\0b\0", 4)));
}

TEST(Codepage, TextsLongerThanAnyBufferAreConvertedWhole) {
  std::string utf8;
  std::string latin;
  for (int i = 0; i < 100000; ++i) {
    utf8 += "x\u00E9";
    latin += "x\xE9";
  }
  EXPECT_TRUE(Gives("ISO-8859-1", utf8, latin));
}

TEST(Codepage, TheShiftSequenceAtTheEndMayNeedANewBuffer) {
  std::string const start = "\x1B$B";
  for (int ascii = 4080; ascii < 4100; ++ascii) {
    std::string const plain(static_cast<std::size_t>(ascii), 'a');
    EXPECT_TRUE(Gives("ISO-2022-JP", plain + "\u65E5", plain + start + "F|\x1B(B"));
  }
}

TEST(Codepage, OutputMayBeTheInput) {
  Converter const converter = Open("ISO-8859-1");
  std::string text = "\u00E9";
  EXPECT_EQ(VELKMBU8ToGeneric(converter.get(), text, text), 0);
  EXPECT_EQ(text, "\xE9");
}

TEST(Codepage, AnUnknownPageHasNoConverter) {
  EXPECT_EQ(VELKMBConverterNew_A("no-such-page"), nullptr);
}

TEST(Codepage, ANullEmptyOrBlankNameHasNoConverter) {
  for (char const* name : {static_cast<char const*>(nullptr), "", " ", "\t\n", "***", "\xC3\xA9"}) {
    EXPECT_EQ(VELKMBConverterNew_A(name), nullptr);
  }
}

TEST(Codepage, ANameThatWouldLetCharactersBeReplacedHasNoConverter) {
  for (char const* name : {"ISO-8859-1//TRANSLIT", "ISO-8859-1//IGNORE", "ISO-8859-1//",
                           "ISO-8859-1/ /TRANSLIT", "//TRANSLIT"}) {
    EXPECT_EQ(VELKMBConverterNew_A(name), nullptr) << name;
  }
}

TEST(Codepage, ANullConverterFailsAndEmptiesTheOutput) {
  std::string out = "old";
  EXPECT_NE(VELKMBU8ToGeneric(nullptr, out, "a"), 0);
  EXPECT_EQ(out, "");
}

TEST(Codepage, ClosingNothingDoesNothing) {
  VELKMBConverterDelete_A(nullptr);
}

TEST(Codepage, ACharacterThatThePageLacksFailsTheWholeText) {
  EXPECT_TRUE(Fails("ISO-8859-1", "a\u20ACb"));
  EXPECT_TRUE(Fails("SHIFT_JIS", "\U0001F600"));
  EXPECT_TRUE(Fails("US-ASCII", "\u00E9"));
}

TEST(Codepage, TagCharactersAreNotDroppedSilently) {
  EXPECT_TRUE(Fails("ISO-8859-1", "a\U000E0041"));
  EXPECT_TRUE(Fails("SHIFT_JIS", "\U000E0001"));
  EXPECT_TRUE(Fails("ISO-2022-KR", "a\U000E007Fb\U000E0020"));
  EXPECT_TRUE(Gives("UTF-16LE", "\U000E0041", std::string("\x40\xDB\x41\xDC", 4)));
}

TEST(Codepage, InputThatIsNotUtf8FailsInEveryPage) {
  std::vector<std::string> const broken{
      "\x80",              // continuation without a start
      "\xC3",              // truncated, two bytes
      "\xE2\x82",          // truncated, three bytes
      "\xF0\x9F\x98",      // truncated, four bytes
      "\xC0\x80",          // overlong
      "\xE0\x80\xAF",      // overlong
      "\xF0\x80\x80\xAF",  // overlong
      "\xED\xA0\x80",      // surrogate
      "\xF4\x90\x80\x80",  // above U+10FFFF
      "\xF8\x88\x80\x80\x80",
      "\xFF",
      "\xC3"
      "A",  // start without continuation
      "\xE2\x82"
      "A",
  };
  for (char const* page : {"ISO-8859-1", "UTF-8", "UCS-4LE", "GB18030"}) {
    for (std::string const& bytes : broken) {
      EXPECT_TRUE(Fails(page, bytes));
      EXPECT_TRUE(Fails(page, "a" + bytes));
    }
  }
}

TEST(Codepage, EveryLengthOfCharacterIsAcceptedUpToTheLast) {
  std::string const text = "\u007F\u0080\u07FF\u0800\uD7FF\uE000\uFFFF\U00010000\U0010FFFF";
  EXPECT_TRUE(Gives("UTF-8", text, text));
}

TEST(Codepage, AConverterStaysUsableAfterAFailure) {
  Converter const converter = Open("ISO-8859-1");
  std::string out;
  EXPECT_NE(VELKMBU8ToGeneric(converter.get(), out, "\u20AC"), 0);
  EXPECT_NE(VELKMBU8ToGeneric(converter.get(), out, "\xFF"), 0);
  EXPECT_EQ(VELKMBU8ToGeneric(converter.get(), out, "\u00E9"), 0);
  EXPECT_EQ(out, "\xE9");
}

TEST(Codepage, TheLocaleHasNoInfluence) {
  std::string const before = std::setlocale(LC_ALL, nullptr);
  std::setlocale(LC_ALL, "C.UTF-8");
  EXPECT_TRUE(Fails("ISO-8859-1", "\u201C"));
  std::setlocale(LC_ALL, before.c_str());
}

TEST(Codepage, RefusedMemoryIsThrownAndNotTakenForATextThatCannotBeConverted) {
  Converter const converter = Open("ISO-8859-1");
  for (std::string const& utf8 : {std::string(10000, 'x'), std::string(100, 'x') + "\U000E0041"}) {
    std::string out = "old";
    int status = 0;
    EXPECT_GE(FailEveryAllocation([&] { status = VELKMBU8ToGeneric(converter.get(), out, utf8); },
                                  [&] { EXPECT_EQ(out, "old"); }),
              2U);
    EXPECT_EQ(status == 0, utf8.size() == 10000) << "the page lacks the tag character";
  }
}

RC_GTEST_PROP(CodepageLatin1, AgreesWithNarrowingEveryCharacter, ()) {
  auto const latin = *rc::gen::container<std::string>(rc::gen::arbitrary<char>());
  std::string utf8;
  for (char c : latin) {
    auto const byte = static_cast<unsigned char>(c);
    if (byte < 0x80) {
      utf8.push_back(c);
    } else {
      utf8.push_back(static_cast<char>(0xC0 | (byte >> 6)));
      utf8.push_back(static_cast<char>(0x80 | (byte & 0x3F)));
    }
  }
  RC_ASSERT(Gives("ISO-8859-1", utf8, latin));
}

}  // namespace
