#include "data/ValueFormat.h"

#include <cmath>
#include <gtest/gtest.h>

#include <lakresvos/tabulate/CrossTable.h>
#include <lakresvos/tabulate/TextFile.h>
#include <lakresvos/tabulate/WarningLog.h>

#include "data/Number.h"
#include "support/Property.h"
#include "support/TemporaryDirectory.h"
#include "tabulate/TableReader.h"

using namespace lakresvos::tabulate;

namespace {

ValueFormat Numbers(char decimal, std::string const& thousands = "") {
  return ValueFormat({.decimal = decimal, .thousands = thousands});
}

}  // namespace

TEST(ValueFormat, KnowsMissingValues) {
  ValueFormat const usual({});
  EXPECT_TRUE(usual.IsMissing("NA"));
  EXPECT_FALSE(usual.IsMissing("na"));
  ValueFormat const other({.missing = {".", "N/A", "99"}});
  EXPECT_TRUE(other.IsMissing("N/A"));
  EXPECT_TRUE(other.IsMissing("99"));
  EXPECT_FALSE(other.IsMissing("99.0"));
  EXPECT_FALSE(other.IsMissing("NA"));
}

TEST(ValueFormat, IsNotMadeWhenItIsTheUsualOne) {
  EXPECT_EQ(ValueFormat::MakeUnlessUsual({}), nullptr);
  EXPECT_EQ(ValueFormat::MakeUnlessUsual({.separator = ';'}), nullptr);
  EXPECT_NE(ValueFormat::MakeUnlessUsual({.missing = {}}), nullptr);
  EXPECT_NE(ValueFormat::MakeUnlessUsual({.decimal = ','}), nullptr);
  EXPECT_NE(ValueFormat::MakeUnlessUsual({.thousands = ","}), nullptr);
}

TEST(ValueFormat, LeavesPlainNumbersAsTheyAre) {
  ValueFormat const plain({});
  EXPECT_TRUE(plain.HasPlainNumbers());
  EXPECT_EQ(plain.ToPlainNumber("-1.5e3"), "-1.5e3");
  EXPECT_EQ(plain.ToPlainNumber("1,5"), "1,5");
  EXPECT_FALSE(Numbers(',').HasPlainNumbers());
  EXPECT_FALSE(Numbers('.', ",").HasPlainNumbers());
}

TEST(ValueFormat, ReadsDecimalCommas) {
  ValueFormat const format = Numbers(',');
  EXPECT_EQ(format.ToPlainNumber("1,5"), "1.5");
  EXPECT_EQ(format.ToPlainNumber("-0,25"), "-0.25");
  EXPECT_EQ(format.ToPlainNumber("+12"), "+12");
  EXPECT_EQ(format.ToPlainNumber(",5"), ".5");
  EXPECT_EQ(format.ToPlainNumber("1,5e-3"), "1.5e-3");
  EXPECT_EQ(format.ToPlainNumber("1234567"), "1234567");
}

TEST(ValueFormat, TakesNoPointForADecimalComma) {
  ValueFormat const format = Numbers(',');
  for (std::string const text : {"1.5", "1.234", "1,5.5", "1,5e1.5", "1,5,5", "1,2e3,4"}) {
    EXPECT_TRUE(std::isnan(ParseNumber(format.ToPlainNumber(text)))) << text;
  }
}

TEST(ValueFormat, ReadsGroupsOfThreeDigits) {
  EXPECT_EQ(Numbers('.', ",").ToPlainNumber("1,234,567.25"), "1234567.25");
  EXPECT_EQ(Numbers(',', ".").ToPlainNumber("-12.345,5"), "-12345.5");
  EXPECT_EQ(Numbers('.', "'").ToPlainNumber("123'456"), "123456");
  EXPECT_EQ(Numbers('.', "_").ToPlainNumber("1234567"), "1234567");
}

TEST(ValueFormat, ReadsAnyKindOfSpaceBetweenGroups) {
  ValueFormat const format = Numbers(',', " ");
  EXPECT_EQ(format.ToPlainNumber("1 234 567,5"), "1234567.5");
  EXPECT_EQ(format.ToPlainNumber("1\xC2\xA0"
                                 "234\xE2\x80\xAF"
                                 "567"),
            "1234567");
}

TEST(ValueFormat, TakesOtherGroupsForTexts) {
  ValueFormat const format = Numbers('.', ",");
  for (std::string const text : {"12,34", "1234,567", ",123", "1,2345", "1,234,", "1,,234",
                                 "1.5,000", "1,234e5,000", "text", "1,234 apples", "-", ""}) {
    EXPECT_TRUE(std::isnan(ParseNumber(format.ToPlainNumber(text)))) << text;
  }
}

PROPERTY(ValueFormat, ReadsWhateverNumberIsWrittenInIt) {
  auto const number = *rc::gen::inRange<long long>(-10'000'000'000, 10'000'000'000);
  auto const decimals = *rc::gen::inRange<std::size_t>(0, 4);
  std::string digits = std::to_string(std::abs(number));
  std::string const fraction = std::string("0625").substr(0, decimals);
  std::string const sign = number < 0 ? "-" : "";
  std::string const plain = sign + digits + (decimals == 0 ? "" : "." + fraction);
  for (std::size_t at = digits.size(); at > 3; at -= 3) {
    digits.insert(at - 3, ".");
  }
  std::string const written = sign + digits + (decimals == 0 ? "" : "," + fraction);
  RC_ASSERT(Numbers(',', ".").ToPlainNumber(written) == plain);
}

TEST(ValueFormat, HoldsForCategoriesWeightsAndStatistics) {
  TemporaryDirectory const directory;
  std::string const file =
      directory.Write("data.csv",
                      "a;x;w\n10,5;1.000,5;1,5\n9;2;1\n10,50;.;0,25\nNA;2.5;1\n"
                      "9;;2\n");
  CountRequest request;
  request.formulas = {ParseFormula("a ~")};
  request.statistics = ParseStatistics("count,sum:x");
  request.weight = {"w", "--weight"};
  WarningLog warnings;
  TextFormat const format{.missing = {"."}, .decimal = ',', .thousands = "."};
  CountedData const data = TextFile(file, format).Count(request, warnings);
  auto const table = MakeCrossTable(data, 0, {request.formulas[0]}, request.statistics, false);
  EXPECT_EQ(CategoryPaths(table->Dimension(0)),
            (std::vector<std::string>{"10,5", "9", "10,50", "NA"}));
  EXPECT_EQ(TextAt(*table, {"10,5", "Count"}), "1.50");
  EXPECT_EQ(TextAt(*table, {"10,5", "Sum of x"}), "1500.750");
  EXPECT_EQ(TextAt(*table, {"9", "Count"}), "3.00");
  EXPECT_EQ(data.columns[1].MissingCount(), 2u);
  EXPECT_EQ(warnings.Summary(Skipped::Texts).count, 1u);
  EXPECT_EQ(warnings.Summary(Skipped::Texts).line, 5u);
}

TEST(ValueFormat, OrdersCategoriesAsNumbers) {
  TemporaryDirectory const directory;
  std::string const file = directory.Write("data.csv", "a\n\"10,5\"\n9\n\"1.000\"\n\"10,50\"\n");
  CountRequest request;
  request.formulas = {ParseFormula("a ~")};
  request.statistics = ParseStatistics("count");
  WarningLog warnings;
  TextFormat const format{.separator = ',', .decimal = ',', .thousands = "."};
  CountedData const data = TextFile(file, format).Count(request, warnings);
  auto const table = MakeCrossTable(data, 0, {request.formulas[0]}, request.statistics, false,
                                    {ParseGrouping("a: few = 9, `10,5000`")});
  EXPECT_EQ(CategoryPaths(table->Dimension(0)),
            (std::vector<std::string>{"few / 9", "few / 10,5", "1.000"}));
}
