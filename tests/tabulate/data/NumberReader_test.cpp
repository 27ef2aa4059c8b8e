#include "data/NumberReader.h"

#include <cmath>
#include <gtest/gtest.h>
#include <string>

#include "data/Number.h"
#include "support/Property.h"

using namespace lakresvos::tabulate;

namespace {

/// Whether a reader takes a text for the number that it is.
bool ReadsAsParsed(std::string const& text) {
  NumberReader reader;
  double const number = reader.Read(text);
  double const parsed = ParseNumber(text);
  if (std::isnan(parsed)) {
    return std::isnan(number) && reader.Decimals() == 0 && reader.AreIntegers();
  }
  return number == parsed && std::signbit(number) == std::signbit(parsed) &&
         reader.Decimals() == CountDecimals(text) &&
         reader.AreIntegers() == (parsed == std::floor(parsed));
}

}  // namespace

TEST(NumberReader, ReadsWhatIsParsed) {
  for (std::string const text : {"0",
                                 "7",
                                 "007",
                                 "12.50",
                                 "0.5",
                                 "999999999999999",
                                 "9999999999999999",
                                 "1234567.8901234",
                                 "123456789012.345",
                                 "-3",
                                 "+3.25",
                                 "-0",
                                 "1e3",
                                 "1.5e-4",
                                 ".5",
                                 "5.",
                                 ".",
                                 "",
                                 "-",
                                 "1.2.3",
                                 "1,5",
                                 "text",
                                 "1 ",
                                 "0x10",
                                 "1e400",
                                 "1.00",
                                 "100.0"}) {
    EXPECT_TRUE(ReadsAsParsed(text)) << text;
  }
}

PROPERTY(NumberReader, ReadsWhatIsParsedOfAnyText) {
  auto const text = *rc::gen::container<std::string>(rc::gen::weightedElement<char>(
      {{5, '0'}, {5, '1'}, {5, '7'}, {5, '9'}, {2, '.'}, {1, '-'}, {1, 'e'}}));
  RC_ASSERT(ReadsAsParsed(text));
}

TEST(NumberReader, KnowsTheMostDecimals) {
  NumberReader reader;
  reader.Read("1.25");
  reader.Read("text");
  reader.Read("3.5");
  EXPECT_EQ(reader.Decimals(), 2);
  EXPECT_FALSE(reader.AreIntegers());
}

TEST(NumberReader, TakesIntegersForIntegersHoweverTheyAreWritten) {
  NumberReader reader;
  reader.Read("1.00");
  reader.Read("5e1");
  EXPECT_EQ(reader.Decimals(), 2);
  EXPECT_TRUE(reader.AreIntegers());
}

TEST(NumberReader, MergesWhatAnotherOneKnows) {
  NumberReader reader;
  reader.Read("1.5");
  NumberReader other;
  other.Read("2.125");
  NumberReader integers;
  integers.Read("7");
  integers.Merge(reader);
  EXPECT_EQ(integers.Decimals(), 1);
  EXPECT_FALSE(integers.AreIntegers());
  integers.Merge(other);
  EXPECT_EQ(integers.Decimals(), 3);
  other.Merge(NumberReader());
  EXPECT_EQ(other.Decimals(), 3);
  EXPECT_FALSE(other.AreIntegers());
}
