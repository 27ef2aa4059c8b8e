#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <rapidcheck/gtest.h>

#include <lakresvos/render/ChartData.h>

#include "support/faults/FailingNew.h"

using namespace lakresvos::render;

TEST(ChartData, TitlesAreWrittenAsJsonWhereTheyAre) {
  EXPECT_EQ(WriteChartData({{}, {}, "c", "", "v"}),
            R"({"categories":[],"series":[],"categoryTitle":"c","valueTitle":"v"})");
}

TEST(ChartData, IsWrittenAsJson) {
  double const none = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(WriteChartData({{"a \"b\"", "c"}, {{"s", {1, none}}, {"t", {-0.5, 1e21}}}}),
            R"({"categories":["a \"b\"","c"],"series":[{"name":"s","values":[1.0,null]},)"
            R"({"name":"t","values":[-0.5,1e+21]}]})");
}

TEST(ChartData, BytesThatAreNotUtf8AreReplacedInJson) {
  EXPECT_EQ(WriteChartData({{"a\xFF"}, {}}), "{\"categories\":[\"a\xEF\xBF\xBD\"],\"series\":[]}");
}

TEST(ChartData, WithoutCategoriesIsWrittenAsJsonToo) {
  EXPECT_EQ(WriteChartData({}), R"({"categories":[],"series":[]})");
}

TEST(ChartData, IsReadBackAsItWasWritten) {
  double const none = std::numeric_limits<double>::quiet_NaN();
  ChartData const data{{"a", "b"}, {{"s", {0.1, none}}, {"", {-2, 5e-324}}}, "c", "t", "v"};
  std::string const json = WriteChartData(data);
  std::optional<ChartData> const read = ReadChartData(json);
  ASSERT_TRUE(read);
  EXPECT_EQ(read->categories, data.categories);
  EXPECT_EQ(read->series[1].values, data.series[1].values);
  EXPECT_TRUE(std::isnan(read->series[0].values[1]));
  EXPECT_EQ(read->seriesTitle, "t");
  EXPECT_EQ(WriteChartData(*read), json);
}

RC_GTEST_PROP(ChartData, HasTheSameJsonWhenItIsReadBack, ()) {
  ChartData data;
  data.categories = *rc::gen::arbitrary<std::vector<std::string>>();
  data.valueTitle = *rc::gen::arbitrary<std::string>();
  for (int series = *rc::gen::inRange(0, 4); series > 0; --series) {
    data.series.push_back({*rc::gen::arbitrary<std::string>(),
                           *rc::gen::container<std::vector<double>>(data.categories.size(),
                                                                    rc::gen::arbitrary<double>())});
  }
  std::string const json = WriteChartData(data);
  std::optional<ChartData> const read = ReadChartData(json);
  RC_ASSERT(read.has_value());
  RC_ASSERT(WriteChartData(*read) == json);
}

TEST(ChartData, AnyAllocationMayFail) {
  ChartData const data{{"a category with a long name", "b"}, {{"s", {0.1, 2}}, {"t", {3, 4}}}, "c"};
  std::string json;
  EXPECT_GT(FailEveryAllocation([&] { json = WriteChartData(data); }, [&] { EXPECT_EQ(json, ""); }),
            20U);
  EXPECT_EQ(json, WriteChartData(data));
  std::optional<ChartData> read;
  EXPECT_GT(FailEveryAllocation([&] { read = ReadChartData(json); }, [&] { EXPECT_FALSE(read); }),
            20U);
  EXPECT_EQ(WriteChartData(*read), json);
}

TEST(ChartData, OtherFieldsArePassedOver) {
  std::optional<ChartData> const read =
      ReadChartData(R"({"type":"bar","series":[],"categories":["a"]})");
  ASSERT_TRUE(read);
  EXPECT_EQ(read->categories, std::vector<std::string>{"a"});
}

TEST(ChartData, TextOfAnyOtherFormIsNone) {
  for (char const* json :
       {"", "{", "[]", "{}", R"({"categories":1,"series":[]})", R"({"categories":[1],"series":[]})",
        R"({"categories":["a"],"series":[1]})", R"({"categories":["a"],"series":[{"name":"s"}]})",
        R"({"categories":["a"],"series":[{"name":1,"values":[1]}]})",
        R"({"categories":["a"],"series":[{"name":"s","values":[1,2]}]})",
        R"({"categories":[],"series":[],"valueTitle":1})",
        R"({"categories":["a"],"series":[{"name":"s","values":["1"]}]})"}) {
    EXPECT_FALSE(ReadChartData(json)) << json;
  }
}

TEST(ChartData, DeepNestingIsNone) {
  EXPECT_FALSE(ReadChartData(std::string(100'000, '[')).has_value());
}

TEST(ChartData, WholeNumbersOfAnySizeAreRead) {
  std::optional<ChartData> const read = ReadChartData(
      R"({"categories":["",""],"series":[{"name":"","values":[18446744073709551615,-3]}]})");
  ASSERT_TRUE(read);
  EXPECT_EQ(read->series[0].values, (std::vector<double>{18446744073709551616.0, -3}));
}
