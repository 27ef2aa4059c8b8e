#include "table/TableDimension.h"

#include <gtest/gtest.h>
#include <numeric>
#include <string>

#include "count/CountRows.h"
#include "tabulate/TextData.h"

using namespace lakresvos::tabulate;

namespace {

/// The dimension of all columns of the data, nested in one another.
TableDimension MakeRows(DataSet const& data, std::string const& formula) {
  TableCounts const counts = CountRows(data, {}, ParseFormula(formula), {});
  std::vector<std::size_t> columns(counts.cells.Codes(0).size());
  std::iota(columns.begin(), columns.end(), 0);
  return MakeDimension(data.columns, counts.cells, 0, TableAxis::Rows, columns);
}

/// The values of the dimension's categories, nested ones joined by '/', in order.
std::string JoinCategories(TableDimension const& dimension, DataSet const& data) {
  std::string text;
  for (std::size_t category = 0; category < dimension.categories.size(); ++category) {
    text += text.empty() ? "" : " ";
    for (std::size_t level = 0; level < dimension.columns.size(); ++level) {
      std::uint32_t const code =
          dimension.orders[level].codeByCategory[dimension.categories[category][level]];
      text += level > 0 ? "/" : "";
      text += data.columns[dimension.columns[level]].Values()[code];
    }
  }
  return text;
}

}  // namespace

TEST(TableDimension, HasTheCategoriesOfItsColumn) {
  DataSet const data = ReadData("a,b\n2,x\n10,y\nNA,y\n2,z\n", {"a"});
  TableDimension const dimension = MakeRows(data, "a ~");
  EXPECT_EQ(JoinCategories(dimension, data), "2 10");
  EXPECT_EQ(dimension.categoryByCell, (std::vector<std::uint32_t>{0, 1, TableDimension::kMissing}));
  EXPECT_EQ(dimension.Total(), 2u);
}

TEST(TableDimension, NestsOnlyCombinationsThatOccur) {
  DataSet const data = ReadData("a,b\nq,2\np,2\nq,1\nNA,3\np,NA\nq,2\n", {"a", "b"});
  TableDimension const dimension = MakeRows(data, "a/b ~");
  EXPECT_EQ(JoinCategories(dimension, data), "q/1 q/2 p/2");
  EXPECT_EQ(dimension.categoryByCell, (std::vector<std::uint32_t>{1, 2, 0, TableDimension::kMissing,
                                                                  TableDimension::kMissing}));
}

TEST(TableDimension, NestsDeeper) {
  DataSet const data = ReadData("a,b,c\n1,x,u\n1,y,u\n1,x,v\n0,x,u\n", {"a", "b", "c"});
  EXPECT_EQ(JoinCategories(MakeRows(data, "a/b/c ~"), data), "0/x/u 1/x/u 1/x/v 1/y/u");
}
