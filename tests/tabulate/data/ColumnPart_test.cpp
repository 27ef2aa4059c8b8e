#include "data/ColumnPart.h"

#include <gtest/gtest.h>
#include <initializer_list>

using namespace lakresvos::tabulate;

namespace {

using Codes = std::vector<std::uint32_t>;

void Append(ColumnPart& part, std::initializer_list<char const*> fields) {
  for (char const* const field : fields) {
    part.Append(field);
  }
}

}  // namespace

TEST(ColumnPart, HandsOverItsRowsInTheCodesOfTheColumn) {
  DataColumn column("a");
  column.Append("x");
  ColumnPart part(column);
  Append(part, {"y", "NA", "x", "z", "y"});
  part.HandOver();
  EXPECT_EQ(column.Codes(), (Codes{0, 1, kMissingCode, 0, 2, 1}));
  EXPECT_EQ(column.Values()[1], "y");
  EXPECT_EQ(column.Values()[2], "z");
  EXPECT_EQ(column.MissingCount(), 1u);
}

TEST(ColumnPart, GivesOneCodeToAValueThatItHandsOverTwice) {
  DataColumn column("a");
  ColumnPart part(column);
  Append(part, {"y", ""});
  part.HandOver();
  column.Append("x");
  Append(part, {"x", "y", "z", ""});
  part.HandOver();
  part.HandOver();
  EXPECT_EQ(column.Codes(), (Codes{0, kMissingCode, 1, 1, 0, 2, kMissingCode}));
  EXPECT_EQ(column.MissingCount(), 2u);
}

TEST(ColumnPart, CountsMissingValuesOnlyForAColumnThatKeepsNone) {
  DataColumn column("a", false);
  ColumnPart part(column);
  Append(part, {"y", "NA", ""});
  part.HandOver();
  EXPECT_EQ(column.MissingCount(), 2u);
  EXPECT_TRUE(column.Codes().empty());
}

TEST(ColumnPart, AddsToTheNumbersOfTheColumn) {
  DataColumn column("a");
  column.Append("1");
  EXPECT_EQ(column.Numbers().byCode, (std::vector<double>{1}));
  ColumnPart part(column);
  Append(part, {"2"});
  part.HandOver();
  EXPECT_EQ(column.Numbers().byCode, (std::vector<double>{1, 2}));
}
