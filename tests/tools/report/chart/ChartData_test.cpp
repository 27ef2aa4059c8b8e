#include "chart/ChartData.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

#include <lakresvos/tabulate/CrossTable.h>

#include "tabulate/TextData.h"

using namespace lakresvos::report;
using namespace lakresvos::tabulate;

namespace {

using Texts = std::vector<std::string>;

DataSet const& Pets() {
  static DataSet const data = DataOf(
      "kind,home,age\n"
      "cat,house,2\n"
      "dog,house,4\n"
      "dog,farm,8\n"
      "dog,farm,10\n",
      {"kind", "home", "age"});
  return data;
}

ChartData Chart(std::string const& formula, std::string const& statistics = "count",
                bool totals = false, std::vector<Grouping> const& groupings = {}) {
  Formula const parsed = ParseFormula(formula);
  auto const table = MakeCrossTable(Pets(), RowWeights(), {parsed, "", ""},
                                    ParseStatistics(statistics), totals, groupings);
  return ChartDataOf(*table, parsed.rows.size() + parsed.columns.size(), totals, "Count");
}

}  // namespace

TEST(ChartData, OneWayTableHasOneSeriesWithoutAName) {
  ChartData const chart = Chart("kind ~");
  EXPECT_EQ(chart.categories, (Texts{"cat", "dog"}));
  ASSERT_EQ(chart.series.size(), 1u);
  EXPECT_EQ(chart.series[0].name, "");
  EXPECT_EQ(chart.series[0].values, (std::vector<double>{1, 3}));
}

TEST(ChartData, DimensionOnTheColumnsAloneGivesCategoriesToo) {
  EXPECT_EQ(Chart("~ kind").categories, (Texts{"cat", "dog"}));
}

TEST(ChartData, TwoWayTableHasASeriesForEachCategoryOfTheSecondDimension) {
  ChartData const chart = Chart("kind ~ home");
  ASSERT_EQ(chart.series.size(), 2u);
  EXPECT_EQ(chart.series[0].name, "house");
  EXPECT_EQ(chart.series[0].values, (std::vector<double>{1, 1}));
  EXPECT_EQ(chart.series[1].name, "farm");
  EXPECT_EQ(chart.series[1].values[1], 2);
}

TEST(ChartData, CombinationThatNeverOccursHasNoNumber) {
  EXPECT_TRUE(std::isnan(Chart("kind ~ home").series[1].values[0]));
}

TEST(ChartData, TotalsAreLeftOut) {
  ChartData const chart = Chart("kind ~ home", "count", true);
  EXPECT_EQ(chart.categories, (Texts{"cat", "dog"}));
  EXPECT_EQ(chart.series.size(), 2u);
}

TEST(ChartData, FirstStatisticIsShown) {
  EXPECT_EQ(Chart("kind ~", "max:age,count").series[0].values, (std::vector<double>{2, 10}));
  EXPECT_EQ(Chart("kind ~ home", "max:age,count").series[1].values[1], 10);
}

TEST(ChartData, GroupedCategoriesAreNamedByTheirPath) {
  EXPECT_EQ(Chart("kind ~", "count", false, {ParseGrouping("kind: pets = cat, dog")}).categories,
            (Texts{"pets / cat", "pets / dog"}));
}

TEST(ChartData, TitlesAreThoseOfTheDimensions) {
  ChartData const one = Chart("kind ~");
  EXPECT_EQ(one.categoryTitle, "kind");
  EXPECT_EQ(one.seriesTitle, "");
  EXPECT_EQ(one.valueTitle, "Count");
  ChartData const two = Chart("kind / home ~ age");
  EXPECT_EQ(two.categoryTitle, "kind / home");
  EXPECT_EQ(two.seriesTitle, "age");
}

TEST(ChartData, TitlesAreWrittenAsJsonWhereTheyAre) {
  EXPECT_EQ(JsonOf({{}, {}, "c", "", "v"}),
            R"({"categories":[],"series":[],"categoryTitle":"c","valueTitle":"v"})");
}

TEST(ChartData, IsWrittenAsJson) {
  double const none = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(JsonOf({{"a \"b\"", "c"}, {{"s", {1, none}}, {"t", {-0.5, 1e21}}}}),
            R"({"categories":["a \"b\"","c"],"series":[{"name":"s","values":[1.0,null]},)"
            R"({"name":"t","values":[-0.5,1e+21]}]})");
}

TEST(ChartData, BytesThatAreNotUtf8AreReplacedInJson) {
  EXPECT_EQ(JsonOf({{"a\xFF"}, {}}), "{\"categories\":[\"a\xEF\xBF\xBD\"],\"series\":[]}");
}

TEST(ChartData, WithoutCategoriesIsWrittenAsJsonToo) {
  EXPECT_EQ(JsonOf({}), R"({"categories":[],"series":[]})");
}
