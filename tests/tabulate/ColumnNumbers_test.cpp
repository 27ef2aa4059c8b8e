#include <cmath>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <string>

#include <lakresvos/tabulate/ColumnNumbers.h>
#include <lakresvos/tabulate/RowWeights.h>

#include "CategoryOrder.h"
#include "support/ErrorOf.h"
#include "tabulate/TextData.h"

using namespace lakresvos::tabulate;

TEST(ColumnNumbers, ReadTheDistinctValues) {
  DataSet const data = DataOf("a\n1.5\n2\n1.5\n-3.25\n", {"a"});
  ColumnNumbers const numbers = NumbersOf(data.columns[0]);
  EXPECT_EQ(numbers.byCode, (std::vector<double>{1.5, 2, -3.25}));
  EXPECT_EQ(numbers.decimals, 2);
  EXPECT_TRUE(numbers.complete);
}

TEST(ColumnNumbers, KnowATextAmongThem) {
  DataSet const data = DataOf("a\n1\nx\nNA\n", {"a"});
  ColumnNumbers const numbers = NumbersOf(data.columns[0]);
  EXPECT_FALSE(numbers.complete);
  EXPECT_TRUE(std::isnan(numbers.byCode[1]));
  EXPECT_TRUE(std::isnan(numbers.Of(DataColumn::kMissing)));
  EXPECT_EQ(numbers.Of(0), 1);
}

TEST(ColumnNumbers, AreCompleteWhenOnlyMissingValuesAreNoNumbers) {
  EXPECT_TRUE(NumbersOf(DataOf("a,b\n1,x\n,x\n", {"a"}).columns[0]).complete);
}

TEST(ColumnNumbers, WarnOfEachRowWithAText) {
  WarningLog warnings;
  DataSet const data = DataOf("a\n1\nx\nNA\nx\n", {"a"});
  WarnOfTexts(data, data.columns[0], warnings);
  ASSERT_EQ(warnings.Total(), 2u);
  EXPECT_EQ(warnings.First()[0].line, 3u);
  EXPECT_EQ(warnings.First()[0].column, "a");
  EXPECT_EQ(warnings.First()[0].problem, "'x' is not a number; it counts as missing");
  EXPECT_EQ(warnings.First()[1].line, 5u);
}

TEST(CategoryOrder, KeepsTextsInTheOrderOfTheFile) {
  CategoryOrder const order = OrderCategories(DataOf("a\n2nd\n10\n1st\n2nd\n", {"a"}).columns[0]);
  EXPECT_FALSE(order.numeric);
  EXPECT_EQ(order.codeOf, (std::vector<std::uint32_t>{0, 1, 2}));
  EXPECT_EQ(order.categoryOf, (std::vector<std::uint32_t>{0, 1, 2}));
}

TEST(CategoryOrder, SortsNumbersByValue) {
  CategoryOrder const order = OrderCategories(DataOf("a\n10\n9\nNA\n-1\n", {"a"}).columns[0]);
  EXPECT_TRUE(order.numeric);
  EXPECT_EQ(order.codeOf, (std::vector<std::uint32_t>{2, 1, 0}));
  EXPECT_EQ(order.categoryOf, (std::vector<std::uint32_t>{2, 1, 0}));
}

TEST(CategoryOrder, MakesOneCategoryOfEqualNumbers) {
  CategoryOrder const order = OrderCategories(DataOf("a\n2\n1.50\n2.0\n1.5\n", {"a"}).columns[0]);
  EXPECT_EQ(order.codeOf, (std::vector<std::uint32_t>{1, 0}));
  EXPECT_EQ(order.categoryOf, (std::vector<std::uint32_t>{1, 0, 1, 0}));
}

TEST(CategoryOrder, KeepsTextsApartThatWouldBeEqualNumbers) {
  EXPECT_EQ(OrderCategories(DataOf("a\n1\n1.0\nx\n", {"a"}).columns[0]).codeOf.size(), 3u);
}

TEST(CategoryOrder, KeepsNumbersApartThatAreOneDouble) {
  CategoryOrder const order = OrderCategories(
      DataOf("a\n9007199254740993\n9007199254740992\n9007199254740992.0\n", {"a"}).columns[0]);
  EXPECT_TRUE(order.numeric);
  EXPECT_EQ(order.codeOf, (std::vector<std::uint32_t>{1, 0}));
  EXPECT_EQ(order.categoryOf, (std::vector<std::uint32_t>{1, 0, 0}));
}

TEST(CategoryOrder, MakesTextsOfCodesWithALeadingZero) {
  CategoryOrder const order = OrderCategories(DataOf("a\n1234\n01234\n12\n", {"a"}).columns[0]);
  EXPECT_FALSE(order.numeric);
  EXPECT_EQ(order.codeOf, (std::vector<std::uint32_t>{0, 1, 2}));
}

TEST(CategoryOrder, MakesTextsWhereThatIsAskedFor) {
  DataSet data = DataOf("a\n2\n1.0\n1\n", {"a"});
  data.columns[0].text = true;
  CategoryOrder const order = OrderCategories(data.columns[0]);
  EXPECT_FALSE(order.numeric);
  EXPECT_EQ(order.codeOf, (std::vector<std::uint32_t>{0, 1, 2}));
}

TEST(FindCategory, FindsANumberHoweverItIsWritten) {
  DataSet const data = DataOf("a\n10\n1\n-0\n", {"a"});
  CategoryOrder const order = OrderCategories(data.columns[0]);
  EXPECT_EQ(FindCategory(data.columns[0], order, "1.0"), 1u);
  EXPECT_EQ(FindCategory(data.columns[0], order, "1e1"), 2u);
  EXPECT_EQ(FindCategory(data.columns[0], order, "0"), 0u);
  EXPECT_EQ(FindCategory(data.columns[0], order, "5"), std::nullopt);
  EXPECT_EQ(FindCategory(data.columns[0], order, "99"), std::nullopt);
  EXPECT_EQ(FindCategory(data.columns[0], order, "01"), std::nullopt);
  EXPECT_EQ(FindCategory(data.columns[0], order, "x"), std::nullopt);
}

TEST(FindCategory, FindsATextAsItIsWritten) {
  DataSet const data = DataOf("a\n01\nx\n", {"a"});
  CategoryOrder const order = OrderCategories(data.columns[0]);
  EXPECT_EQ(FindCategory(data.columns[0], order, "x"), 1u);
  EXPECT_EQ(FindCategory(data.columns[0], order, "01"), 0u);
  EXPECT_EQ(FindCategory(data.columns[0], order, "1"), std::nullopt);
}

TEST(CategoryOrder, OfNoValues) {
  EXPECT_TRUE(OrderCategories(DataOf("a\nNA\n", {"a"}).columns[0]).codeOf.empty());
}

TEST(RowWeights, AreOneWithoutAColumn) {
  RowWeights const weights;
  EXPECT_EQ(weights.Of(0), 1);
  EXPECT_EQ(weights.Of(12345), 1);
  EXPECT_EQ(weights.Decimals(), 0);
}

TEST(RowWeights, ComeFromTheColumn) {
  WarningLog warnings;
  DataSet const data = DataOf("w\n2\n0\n2.25\n", {"w"});
  RowWeights const weights(data, "w", warnings);
  EXPECT_EQ(weights.Of(0), 2);
  EXPECT_EQ(weights.Of(1), 0);
  EXPECT_EQ(weights.Of(2), 2.25);
  EXPECT_EQ(weights.Decimals(), 2);
  EXPECT_EQ(warnings.Total(), 0u);
}

TEST(RowWeights, HaveNoDecimalsWhenAllAreIntegers) {
  WarningLog warnings;
  DataSet const data = DataOf("w\n2.00\n3.0\n", {"w"});
  EXPECT_EQ(RowWeights(data, "w", warnings).Decimals(), 0);
}

TEST(RowWeights, WarnOfRowsWithoutOne) {
  WarningLog warnings;
  DataSet const data = DataOf("w\n2\nNA\n", {"w"});
  RowWeights const weights(data, "w", warnings);
  EXPECT_TRUE(std::isnan(weights.Of(1)));
  ASSERT_EQ(warnings.Total(), 1u);
  EXPECT_EQ(warnings.First()[0].line, 3u);
  EXPECT_EQ(warnings.First()[0].column, "w");
  EXPECT_EQ(warnings.First()[0].problem, "the weight is missing; the line was skipped");
}

TEST(RowWeights, RefuseATextWhereverItStands) {
  WarningLog warnings;
  DataSet const data = DataOf("a,w\n1,2\n1,many\n1,x\n", {"w"});
  EXPECT_EQ(ErrorOf([&] { RowWeights(data, "w", warnings); }),
            "data.csv:3: column 'w': the weight 'many' is not a number that is 0 or more");
}

TEST(RowWeights, RefuseANegativeOne) {
  WarningLog warnings;
  DataSet const data = DataOf("w\n-0.5\n", {"w"});
  EXPECT_EQ(ErrorOf([&] { RowWeights(data, "w", warnings); }),
            "data.csv:2: column 'w': the weight '-0.5' is not a number that is 0 or more");
}

namespace {

/// A number among those that doubles can no longer tell apart, and one way to write it.
struct Identifier {
  long long number;
  std::string text;
};

rc::Gen<Identifier> Identifiers() {
  return rc::gen::apply(
      [](int offset, bool negative, char const* before, char const* after) {
        long long const size = offset == 0 ? 0 : 9007199254740992LL + offset;
        std::string const sign = negative ? "-" : before;
        return Identifier{negative ? -size : size, sign + std::to_string(size) + after};
      },
      rc::gen::inRange(-3, 4), rc::gen::arbitrary<bool>(), rc::gen::element("", "+"),
      rc::gen::element("", ".", ".0", "e0", ".00E+0"));
}

}  // namespace

RC_GTEST_PROP(CategoryOrder, HasOneCategoryForEachNumberHoweverItIsWritten, ()) {
  auto const identifiers = *rc::gen::container<std::vector<Identifier>>(Identifiers());
  std::string bytes = "a\n";
  for (Identifier const& identifier : identifiers) {
    bytes += identifier.text + "\n";
  }
  DataSet const data = DataOf(bytes, {"a"});
  DataColumn const& column = data.columns[0];
  CategoryOrder const order = OrderCategories(column);
  RC_ASSERT(order.numeric);
  for (std::size_t i = 0; i < identifiers.size(); ++i) {
    std::uint32_t const category = order.categoryOf[column.codes[i]];
    RC_ASSERT(FindCategory(column, order, identifiers[i].text) == category);
    for (std::size_t j = 0; j < i; ++j) {
      std::uint32_t const other = order.categoryOf[column.codes[j]];
      RC_ASSERT((category < other) == (identifiers[i].number < identifiers[j].number));
      RC_ASSERT((category == other) == (identifiers[i].number == identifiers[j].number));
    }
  }
}
