#include "chart/TableChart.h"

#include <cmath>
#include <gtest/gtest.h>

#include <lakresvos/tabulate/CrossTable.h>

#include "tabulate/TextData.h"

using lakresvos::render::ChartData;
using namespace lakresvos::report;
using namespace lakresvos::tabulate;

namespace {

using Texts = std::vector<std::string>;

DataSet Pets() {
  return ReadData(
      "kind,home,age\n"
      "cat,house,2\n"
      "dog,house,4\n"
      "dog,farm,8\n"
      "dog,farm,10\n",
      {"kind", "home", "age"});
}

ChartData Chart(std::string const& formula, std::string const& statistics = "count",
                bool totals = false, std::vector<Grouping> const& groupings = {}) {
  Formula const parsed = ParseFormula(formula);
  auto const table = MakeCrossTable(Pets(), RowWeights(), {parsed, "", ""},
                                    ParseStatistics(statistics), totals, groupings);
  return MakeChartData(*table, parsed.rows.size() + parsed.columns.size(), "Count");
}

}  // namespace

TEST(TableChart, OneWayTableHasOneSeriesWithoutAName) {
  ChartData const chart = Chart("kind ~");
  EXPECT_EQ(chart.categories, (Texts{"cat", "dog"}));
  ASSERT_EQ(chart.series.size(), 1u);
  EXPECT_EQ(chart.series[0].name, "");
  EXPECT_EQ(chart.series[0].values, (std::vector<double>{1, 3}));
}

TEST(TableChart, DimensionOnTheColumnsAloneGivesCategoriesToo) {
  EXPECT_EQ(Chart("~ kind").categories, (Texts{"cat", "dog"}));
}

TEST(TableChart, TwoWayTableHasASeriesForEachCategoryOfTheSecondDimension) {
  ChartData const chart = Chart("kind ~ home");
  ASSERT_EQ(chart.series.size(), 2u);
  EXPECT_EQ(chart.series[0].name, "house");
  EXPECT_EQ(chart.series[0].values, (std::vector<double>{1, 1}));
  EXPECT_EQ(chart.series[1].name, "farm");
  EXPECT_EQ(chart.series[1].values[1], 2);
}

TEST(TableChart, CombinationThatNeverOccursHasNoNumber) {
  EXPECT_TRUE(std::isnan(Chart("kind ~ home").series[1].values[0]));
}

TEST(TableChart, TotalsAreLeftOut) {
  ChartData const chart = Chart("kind ~ home", "count", true);
  EXPECT_EQ(chart.categories, (Texts{"cat", "dog"}));
  EXPECT_EQ(chart.series.size(), 2u);
}

TEST(TableChart, CategoryThatIsCalledTotalIsNoTotal) {
  DataSet const data = ReadData("kind\nTotal\ncat\n", {"kind"});
  auto const table = MakeCrossTable(data, RowWeights(), {ParseFormula("kind ~"), "", ""},
                                    ParseStatistics("count"), true);
  EXPECT_EQ(MakeChartData(*table, 1, "").categories, (Texts{"Total", "cat"}));
}

TEST(TableChart, FirstStatisticIsShown) {
  EXPECT_EQ(Chart("kind ~", "max:age,count").series[0].values, (std::vector<double>{2, 10}));
  EXPECT_EQ(Chart("kind ~ home", "max:age,count").series[1].values[1], 10);
}

TEST(TableChart, GroupedCategoriesAreNamedByTheirPath) {
  EXPECT_EQ(Chart("kind ~", "count", false, {ParseGrouping("kind: pets = cat, dog")}).categories,
            (Texts{"pets / cat", "pets / dog"}));
}

TEST(TableChart, TitlesAreThoseOfTheDimensions) {
  ChartData const one = Chart("kind ~");
  EXPECT_EQ(one.categoryTitle, "kind");
  EXPECT_EQ(one.seriesTitle, "");
  EXPECT_EQ(one.valueTitle, "Count");
  ChartData const two = Chart("kind / home ~ age");
  EXPECT_EQ(two.categoryTitle, "kind / home");
  EXPECT_EQ(two.seriesTitle, "age");
}
