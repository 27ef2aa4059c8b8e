#include "data/CategoryOrder.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <string>
#include <vector>

#include "tabulate/TextData.h"

using namespace lakresvos::tabulate;

TEST(CategoryOrder, KeepsTextsInTheOrderOfTheFile) {
  CategoryOrder const order = OrderCategories(ReadData("a\n2nd\n10\n1st\n2nd\n", {"a"}).columns[0]);
  EXPECT_FALSE(order.numeric);
  EXPECT_EQ(order.codeByCategory, (std::vector<std::uint32_t>{0, 1, 2}));
  EXPECT_EQ(order.categoryByCode, (std::vector<std::uint32_t>{0, 1, 2}));
}

TEST(CategoryOrder, SortsNumbersByValue) {
  CategoryOrder const order = OrderCategories(ReadData("a\n10\n9\nNA\n-1\n", {"a"}).columns[0]);
  EXPECT_TRUE(order.numeric);
  EXPECT_EQ(order.codeByCategory, (std::vector<std::uint32_t>{2, 1, 0}));
  EXPECT_EQ(order.categoryByCode, (std::vector<std::uint32_t>{2, 1, 0}));
}

TEST(CategoryOrder, MakesOneCategoryOfEqualNumbers) {
  CategoryOrder const order = OrderCategories(ReadData("a\n2\n1.50\n2.0\n1.5\n", {"a"}).columns[0]);
  EXPECT_EQ(order.codeByCategory, (std::vector<std::uint32_t>{1, 0}));
  EXPECT_EQ(order.categoryByCode, (std::vector<std::uint32_t>{1, 0, 1, 0}));
}

TEST(CategoryOrder, KeepsTextsApartThatWouldBeEqualNumbers) {
  EXPECT_EQ(OrderCategories(ReadData("a\n1\n1.0\nx\n", {"a"}).columns[0]).codeByCategory.size(),
            3u);
}

TEST(CategoryOrder, KeepsNumbersApartThatAreOneDouble) {
  CategoryOrder const order = OrderCategories(
      ReadData("a\n9007199254740993\n9007199254740992\n9007199254740992.0\n", {"a"}).columns[0]);
  EXPECT_TRUE(order.numeric);
  EXPECT_EQ(order.codeByCategory, (std::vector<std::uint32_t>{1, 0}));
  EXPECT_EQ(order.categoryByCode, (std::vector<std::uint32_t>{1, 0, 0}));
}

TEST(CategoryOrder, MakesTextsOfCodesWithALeadingZero) {
  CategoryOrder const order = OrderCategories(ReadData("a\n1234\n01234\n12\n", {"a"}).columns[0]);
  EXPECT_FALSE(order.numeric);
  EXPECT_EQ(order.codeByCategory, (std::vector<std::uint32_t>{0, 1, 2}));
}

TEST(CategoryOrder, MakesTextsWhereThatIsAskedFor) {
  DataSet data = ReadData("a\n2\n1.0\n1\n", {"a"});
  data.columns[0].TreatAsText();
  CategoryOrder const order = OrderCategories(data.columns[0]);
  EXPECT_FALSE(order.numeric);
  EXPECT_EQ(order.codeByCategory, (std::vector<std::uint32_t>{0, 1, 2}));
}

TEST(FindCategory, FindsANumberHoweverItIsWritten) {
  DataSet const data = ReadData("a\n10\n1\n-0\n", {"a"});
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
  DataSet const data = ReadData("a\n01\nx\n", {"a"});
  CategoryOrder const order = OrderCategories(data.columns[0]);
  EXPECT_EQ(FindCategory(data.columns[0], order, "x"), 1u);
  EXPECT_EQ(FindCategory(data.columns[0], order, "01"), 0u);
  EXPECT_EQ(FindCategory(data.columns[0], order, "1"), std::nullopt);
}

TEST(CategoryOrder, OfNoValues) {
  EXPECT_TRUE(OrderCategories(ReadData("a\nNA\n", {"a"}).columns[0]).codeByCategory.empty());
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
  DataSet const data = ReadData(bytes, {"a"});
  DataColumn const& column = data.columns[0];
  CategoryOrder const order = OrderCategories(column);
  RC_ASSERT(order.numeric);
  for (std::size_t i = 0; i < identifiers.size(); ++i) {
    std::uint32_t const category = order.categoryByCode[column.Codes()[i]];
    RC_ASSERT(FindCategory(column, order, identifiers[i].text) == category);
    for (std::size_t j = 0; j < i; ++j) {
      std::uint32_t const other = order.categoryByCode[column.Codes()[j]];
      RC_ASSERT((category < other) == (identifiers[i].number < identifiers[j].number));
      RC_ASSERT((category == other) == (identifiers[i].number == identifiers[j].number));
    }
  }
}
