#include "table/Tabulation.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <optional>

#include "support/Property.h"
#include "tabulate/FewValues.h"
#include "tabulate/PlainTable.h"
#include "tabulate/TextData.h"

using namespace lakresvos::tabulate;

namespace {

/// The cell with these subscripts.
std::optional<std::size_t> CellAt(Tabulation const& table,
                                  std::vector<std::uint32_t> const& subscripts) {
  for (std::size_t cell = 0; cell < table.Cells(); ++cell) {
    auto const at = table.Subscripts(cell);
    if (std::equal(at.begin(), at.end(), subscripts.begin(), subscripts.end())) {
      return cell;
    }
  }
  return std::nullopt;
}

bool Agree(double a, double b) {
  return std::isnan(a) ? std::isnan(b) : std::abs(a - b) <= 1e-9 * std::max(1.0, std::abs(b));
}

}  // namespace

TEST(Tabulation, HasNoCellForACombinationThatNeverOccurs) {
  DataSet const data = ReadData("a,b\nx,p\ny,q\n", {"a", "b"});
  Tabulation const table(data, {}, ParseFormula("a ~ b"), ParseStatistics("count"), false);
  EXPECT_EQ(table.Cells(), 2u);
  EXPECT_TRUE(CellAt(table, {0, 0}).has_value());
  EXPECT_FALSE(CellAt(table, {0, 1}).has_value());
}

TEST(Tabulation, HasACellForACombinationOfWeightZero) {
  WarningLog warnings;
  DataSet const data = ReadData("a,w\nx,0\ny,2\n", {"a", "w"});
  Tabulation const table(data, RowWeights(data, "w", warnings), ParseFormula("a ~"),
                         ParseStatistics("count,mean:w,min:w,row%"), false);
  std::size_t const cell = CellAt(table, {0}).value();
  EXPECT_EQ(table.Value(cell, 0), 0);
  EXPECT_TRUE(std::isnan(table.Value(cell, 1)));
  EXPECT_TRUE(std::isnan(table.Value(cell, 2)));
  EXPECT_TRUE(std::isnan(table.Value(cell, 3)));
}

TEST(Tabulation, LeavesRowsOutThatMissAnAxisValue) {
  DataSet const data = ReadData("a,b,c\nx,NA,\nNA,NA,1\nx,1,\nx,2,3\n", {"a", "b", "c"});
  Tabulation const table(data, {}, ParseFormula("a ~ b | c"), ParseStatistics("count"), false);
  EXPECT_EQ(table.Cells(), 1u);
  EXPECT_EQ(table.ExcludedRows(), 3u);
  ASSERT_EQ(table.MissingByColumn().size(), 3u);
  EXPECT_EQ(table.MissingByColumn()[0].rows, 1u);
  EXPECT_EQ(table.MissingByColumn()[1].rows, 2u);
  EXPECT_EQ(table.MissingByColumn()[2].rows, 2u);
}

TEST(Tabulation, DoesNotCountRowsWithoutAWeightAsLeftOut) {
  WarningLog warnings;
  DataSet const data = ReadData("a,w\nNA,NA\nx,NA\nx,1\n", {"a", "w"});
  Tabulation const table(data, RowWeights(data, "w", warnings), ParseFormula("a ~"),
                         ParseStatistics("count"), false);
  EXPECT_EQ(table.ExcludedRows(), 0u);
  EXPECT_EQ(table.Value(CellAt(table, {0}).value(), 0), 1);
}

TEST(Tabulation, KeepsARowInOtherStatisticsWhenItMissesOne) {
  DataSet const data = ReadData("a,x,y\np,,1\np,4,NA\np,6,text\n", {"a", "x", "y"});
  Tabulation const table(data, {}, ParseFormula("a ~"),
                         ParseStatistics("count,mean:x,mean:y,sum:x"), false);
  EXPECT_EQ(table.Value(0, 0), 3);
  EXPECT_EQ(table.Value(0, 1), 5);
  EXPECT_EQ(table.Value(0, 2), 1);
  EXPECT_EQ(table.Missing(0, 0), 0u);
  EXPECT_EQ(table.Missing(0, 1), 1u);
  EXPECT_EQ(table.Missing(0, 2), 2u);
  EXPECT_EQ(table.Missing(0, 3), 1u);
}

TEST(Tabulation, KnowsTheDecimalsOfWhatItMeasures) {
  DataSet const data = ReadData("x\n1.25\n3\n", {"x"});
  Tabulation const table(data, {}, ParseFormula("~"), ParseStatistics("count,mean:x"), false);
  EXPECT_EQ(table.Decimals(0), 0);
  EXPECT_EQ(table.Decimals(1), 2);
}

TEST(Tabulation, WithoutDimensionsHasOneCellOfAllRows) {
  DataSet const data = ReadData("x\n1\n2\n", {"x"});
  Tabulation const table(data, {}, ParseFormula("~"), ParseStatistics("total%,max:x"), true);
  ASSERT_EQ(table.Cells(), 1u);
  EXPECT_FALSE(table.IsTotal(0));
  EXPECT_EQ(table.Value(0, 0), 100);
  EXPECT_EQ(table.Value(0, 1), 2);
}

TEST(Tabulation, OfNoRowsHasNoCells) {
  DataSet const data = ReadData("a,x\n", {"a", "x"});
  Tabulation const table(data, {}, ParseFormula("a ~"), ParseStatistics("count,row%"), true);
  EXPECT_EQ(table.Cells(), 0u);
}

TEST(Tabulation, MakesNoTotalsOfLayers) {
  DataSet const data = ReadData("a,b,c\nx,1,u\ny,2,v\n", {"a", "b", "c"});
  Tabulation const table(data, {}, ParseFormula("a ~ b | c"), ParseStatistics("count"), true);
  EXPECT_EQ(table.Cells(), 8u);
  EXPECT_EQ(table.Value(CellAt(table, {2, 2, 0}).value(), 0), 1);
  EXPECT_FALSE(CellAt(table, {2, 2, 2}).has_value());
}

TEST(Tabulation, TakesPercentagesWithinTheLayer) {
  DataSet const data = ReadData("a,b,c\nx,1,u\nx,2,u\ny,2,u\nx,1,v\n", {"a", "b", "c"});
  Tabulation const table(data, {}, ParseFormula("a ~ b | c"),
                         ParseStatistics("row%,column%,total%"), false);
  std::size_t const cell = CellAt(table, {0, 1, 0}).value();
  EXPECT_DOUBLE_EQ(table.Value(cell, 0), 50);
  EXPECT_DOUBLE_EQ(table.Value(cell, 1), 50);
  EXPECT_DOUBLE_EQ(table.Value(cell, 2), 100.0 / 3);
  EXPECT_DOUBLE_EQ(table.Value(CellAt(table, {0, 0, 1}).value(), 2), 100);
}

TEST(Tabulation, AddsTotalsWithoutLosingDigits) {
  WarningLog warnings;
  DataSet const data = ReadData("a,w\nx,1e16\ny,1\nz,1\n", {"a", "w"});
  Tabulation const table(data, RowWeights(data, "w", warnings), ParseFormula("a ~"),
                         ParseStatistics("count"), true);
  EXPECT_EQ(table.Value(CellAt(table, {3}).value(), 0), 1e16 + 2);
}

namespace {

using Rows = std::vector<std::vector<std::string>>;

/// The rows as a file, without those that miss a value in a column of the table's dimensions: these
/// count nowhere, and the plain loops then need no rule for them.
PlainTable PlainTwin(Rows const& rows, std::vector<TableDimension> const& dimensions) {
  std::string bytes = "a,b,c,w,x\n";
  for (auto const& row : rows) {
    bool const missing =
        std::any_of(dimensions.begin(), dimensions.end(), [&](TableDimension const& dimension) {
          std::string const& field = row[dimension.columns[0]];
          return field.empty() || field == "NA";
        });
    if (!missing) {
      bytes += row[0] + "," + row[1] + "," + row[2] + "," + row[3] + "," + row[4] + "\n";
    }
  }
  return PlainTable(bytes);
}

/// The values that a row has on the given axes to belong to the cell with these subscripts.
PlainTable::Where Conditions(Tabulation const& table, DataSet const& data,
                             std::vector<std::uint32_t> const& subscripts,
                             std::vector<TableAxis> const& axes) {
  PlainTable::Where where;
  for (std::size_t d = 0; d < subscripts.size(); ++d) {
    TableDimension const& dimension = table.Dimensions()[d];
    if (subscripts[d] != dimension.Total() &&
        std::find(axes.begin(), axes.end(), dimension.axis) != axes.end()) {
      DataColumn const& column = data.columns[dimension.columns[0]];
      where[column.Name()] =
          column
              .Values()[dimension.orders[0].codeByCategory[dimension.categories[subscripts[d]][0]]];
    }
  }
  return where;
}

bool HasLayerTotal(Tabulation const& table, std::vector<std::uint32_t> const& subscripts) {
  for (std::size_t d = 0; d < subscripts.size(); ++d) {
    if (table.Dimensions()[d].axis == TableAxis::Layers &&
        subscripts[d] == table.Dimensions()[d].Total()) {
      return true;
    }
  }
  return false;
}

/// Steps to the next subscripts, totals included; false when there are none.
bool Advance(Tabulation const& table, std::vector<std::uint32_t>& subscripts) {
  for (std::size_t d = 0; d < subscripts.size(); ++d) {
    if (++subscripts[d] <= table.Dimensions()[d].Total()) {
      return true;
    }
    subscripts[d] = 0;
  }
  return false;
}

void CheckCell(Tabulation const& table, std::size_t cell, PlainTable const& plain,
               std::string const& weight, PlainTable::Where const& where,
               std::vector<PlainTable::Where> const& bases) {
  double const count = plain.Count(where, weight);
  RC_ASSERT(table.Value(cell, 0) == count);
  for (std::size_t i = 0; i < bases.size(); ++i) {
    double const base = plain.Count(bases[i], weight);
    RC_ASSERT(Agree(table.Value(cell, i + 1), base > 0 ? 100 * count / base : std::nan("")));
  }
  std::vector<double> const numbers = plain.Numbers(where, "x", weight);
  double sum = 0;
  double minimum = numbers.empty() ? std::nan("") : numbers[0];
  double maximum = minimum;
  for (double const number : numbers) {
    sum += number;
    minimum = std::min(minimum, number);
    maximum = std::max(maximum, number);
  }
  RC_ASSERT(Agree(table.Value(cell, 4), ComputeMean(numbers)));
  RC_ASSERT(Agree(table.Value(cell, 5), ComputeDeviation(numbers)));
  RC_ASSERT(Agree(table.Value(cell, 6), sum));
  RC_ASSERT(Agree(table.Value(cell, 7), minimum));
  RC_ASSERT(Agree(table.Value(cell, 8), maximum));
  RC_ASSERT(table.Missing(cell, 4) == plain.Missing(where, "x"));
}

}  // namespace

PROPERTY(Tabulation, AgreesWithLoopsOverTheRows) {
  FewValues const few;
  auto const row = rc::gen::apply(
      [](char const* a, char const* b, char const* c, char const* w, char const* x) {
        return std::vector<std::string>{a, b, c, w, x};
      },
      rc::gen::element("p", "q", "r", "NA"), rc::gen::element("10", "9", ""),
      rc::gen::element("u", "v"), rc::gen::element("0", "1", "2", "5"),
      rc::gen::element("-1.5", "2", "7.25", "NA"));
  Rows rows;
  for (int count = *rc::gen::inRange(0, 100); count > 0; --count) {
    rows.push_back(*row);
  }
  auto const weight = *rc::gen::element<std::string>("", "w");
  std::string const formula = *rc::gen::element("a ~ b | c", "a * b ~ c", "~ b * a | c", "b ~ a",
                                                "a ~ c | b", "c * a * b ~", "~ | a * b * c");
  std::string bytes = "a,b,c,w,x\n";
  for (auto const& row : rows) {
    bytes += row[0] + "," + row[1] + "," + row[2] + "," + row[3] + "," + row[4] + "\n";
  }
  WarningLog warnings;
  DataSet const data = ReadData(bytes, {"a", "b", "c", "w", "x"});
  Tabulation const table(data, weight.empty() ? RowWeights() : RowWeights(data, weight, warnings),
                         ParseFormula(formula),
                         ParseStatistics("count,row%,column%,total%,mean:x,sd:x,sum:x,min:x,max:x"),
                         true);
  PlainTable const plain = PlainTwin(rows, table.Dimensions());

  std::size_t expectedCells = 0;
  std::vector<std::uint32_t> subscripts(table.Dimensions().size(), 0);
  do {
    using enum TableAxis;
    auto const conditions = [&](std::vector<TableAxis> const& axes) {
      return Conditions(table, data, subscripts, axes);
    };
    PlainTable::Where const where = conditions({Rows, Columns, Layers});
    std::optional<std::size_t> const cell = CellAt(table, subscripts);
    RC_ASSERT(cell.has_value() == (plain.Occurs(where) && !HasLayerTotal(table, subscripts)));
    if (cell.has_value()) {
      ++expectedCells;
      CheckCell(table, *cell, plain, weight, where,
                {conditions({Rows, Layers}), conditions({Columns, Layers}), conditions({Layers})});
    }
  } while (Advance(table, subscripts));
  RC_ASSERT(expectedCells == table.Cells());
}
