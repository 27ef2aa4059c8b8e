#include "chart/BarChart.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <gtest/gtest.h>
#include <limits>
#include <pugixml.hpp>
#include <rapidcheck/gtest.h>
#include <string>
#include <vector>

using namespace lakresvos::report;
using lakresvos::render::ChartData;

namespace {

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinite = std::numeric_limits<double>::infinity();

// As the picture writes the colors of the first two series.
constexpr char kBlue[] = "rgb(0%,44.705882%,69.803922%)";
constexpr char kOrange[] = "rgb(90.196078%,62.352941%,0%)";

struct Box {
  double left, top, right, bottom;

  double Height() const { return bottom - top; }
};

struct Picture {
  explicit Picture(ChartData const& data) : svg(DrawBarChart(data)) {
    EXPECT_TRUE(document.load_string(svg.c_str())) << svg;
  }

  double Attribute(char const* name) const {
    return document.child("svg").attribute(name).as_double();
  }

  /// The filled rectangles in a color, in the order in which they are drawn.
  std::vector<Box> Boxes(std::string const& color) const {
    std::vector<Box> boxes;
    for (pugi::xpath_node const& found : document.select_nodes("/svg/g/path")) {
      std::string const style = found.node().attribute("style").value();
      Box box{};
      if (style.find("fill:" + color) != std::string::npos &&
          std::sscanf(found.node().attribute("d").value(), "M %lf %lf L %*f %*f L %lf %lf",
                      &box.left, &box.top, &box.right, &box.bottom) == 4) {
        boxes.push_back(box);
      }
    }
    return boxes;
  }

  std::vector<double> Heights(std::string const& color = kBlue) const {
    std::vector<double> heights;
    for (Box const& box : Boxes(color)) {
      heights.push_back(box.Height());
    }
    return heights;
  }

  std::size_t Letters() const { return document.select_nodes("//use").size(); }

  std::string svg;
  pugi::xml_document document;
};

ChartData OneWay(std::vector<std::string> const& categories, std::vector<double> const& values) {
  return {categories, {{"", values}}};
}

void ExpectNear(std::vector<double> const& seen, std::vector<double> const& expected) {
  ASSERT_EQ(seen.size(), expected.size());
  for (std::size_t i = 0; i < seen.size(); ++i) {
    EXPECT_NEAR(seen[i], expected[i], 0.01);
  }
}

}  // namespace

// Bars

TEST(BarChart, BarsAreAsHighAsTheirNumbers) {
  Picture const picture(OneWay({"a", "b", "c"}, {50, 100, 25}));
  ExpectNear(picture.Heights(), {130, 260, 65});
}

TEST(BarChart, BarsOfOneCategoryStandSideBySide) {
  Picture const picture({{"a", "b"}, {{"x", {1, 2}}, {"y", {3, 4}}}});
  std::vector<Box> const x = picture.Boxes(kBlue);
  std::vector<Box> const y = picture.Boxes(kOrange);
  ASSERT_EQ(x.size(), 3u);  // the first is the legend's
  ASSERT_EQ(y.size(), 3u);
  EXPECT_NEAR(x[1].right, y[1].left, 0.01);
  EXPECT_LT(y[1].right, x[2].left);
  EXPECT_NEAR(x[2].Height() * 2, y[2].Height(), 0.01);
}

TEST(BarChart, NegativeBarsHangFromTheLineOfZero) {
  std::vector<Box> const boxes = Picture(OneWay({"a", "b"}, {5, -5})).Boxes(kBlue);
  ASSERT_EQ(boxes.size(), 2u);
  EXPECT_NEAR(boxes[0].bottom, boxes[1].top, 0.01);
  EXPECT_NEAR(boxes[0].Height(), boxes[1].Height(), 0.01);
}

TEST(BarChart, ZeroIsAThinBarAndMissingNone) {
  ExpectNear(Picture(OneWay({"a", "b", "c"}, {0, kNone, 1})).Heights(), {1, 260});
}

TEST(BarChart, InfiniteValueHasNoBar) {
  ExpectNear(Picture(OneWay({"a", "b", "c"}, {kInfinite, -kInfinite, 1})).Heights(), {260});
}

TEST(BarChart, NothingButMissingValuesLeavesTheAxis) {
  Picture const picture(OneWay({"a"}, {kNone}));
  EXPECT_TRUE(picture.Heights().empty());
  EXPECT_EQ(picture.Letters(), 3u);  // 0, 1 and the name
}

TEST(BarChart, LargestNumbersStayInThePicture) {
  double const largest = std::numeric_limits<double>::max();
  Picture const picture(OneWay({"a", "b"}, {largest, -largest}));
  for (Box const& box : picture.Boxes(kBlue)) {
    EXPECT_GE(box.top, 0);
    EXPECT_LE(box.bottom, picture.Attribute("height"));
  }
}

RC_GTEST_PROP(BarChart, BarsAreInProportionAndOnOneLine, ()) {
  auto const values = *rc::gen::nonEmpty(
      rc::gen::container<std::vector<double>>(rc::gen::cast<double>(rc::gen::inRange(-999, 999))));
  Picture const picture(OneWay(std::vector<std::string>(values.size(), "x"), values));
  std::vector<Box> const boxes = picture.Boxes(kBlue);
  RC_ASSERT(boxes.size() == values.size());
  auto const isLonger = [](double one, double other) { return std::abs(one) < std::abs(other); };
  auto const longest = std::max_element(values.begin(), values.end(), isLonger);
  double const unit =
      boxes[static_cast<std::size_t>(longest - values.begin())].Height() / std::abs(*longest);
  RC_PRE(*longest != 0);
  double const zero = values[0] < 0 ? boxes[0].top : boxes[0].bottom;
  for (std::size_t i = 0; i < values.size(); ++i) {
    double const expected = std::max(1.0, std::abs(values[i]) * unit);
    RC_ASSERT(std::abs(boxes[i].Height() - expected) < 0.01);
    RC_ASSERT(std::abs((values[i] < 0 ? boxes[i].top : boxes[i].bottom) - zero) < 0.01);
  }
}

// Numbers of categories and series

TEST(BarChart, WithoutCategoriesIsAnEmptyAxis) {
  Picture const picture{ChartData()};
  EXPECT_TRUE(picture.Heights().empty());
  EXPECT_EQ(picture.Letters(), 2u);
}

TEST(BarChart, CategoriesWithoutSeriesAreNamed) {
  EXPECT_EQ(Picture({{"a", "b"}, {}}).Letters(), 4u);
}

TEST(BarChart, OneBarStandsInTheMiddle) {
  Picture const picture(OneWay({"a"}, {1}));
  std::vector<Box> const boxes = picture.Boxes(kBlue);
  ASSERT_EQ(boxes.size(), 1u);
  EXPECT_NEAR((boxes[0].left + boxes[0].right) / 2, picture.Attribute("width") / 2, 20);
}

TEST(BarChart, TwoHundredCategoriesMakeItWideEnough) {
  Picture const picture(
      OneWay(std::vector<std::string>(200, "category"), std::vector<double>(200, 1)));
  std::vector<Box> const boxes = picture.Boxes(kBlue);
  ASSERT_EQ(boxes.size(), 200u);
  for (std::size_t i = 1; i < boxes.size(); ++i) {
    EXPECT_LT(boxes[i - 1].right, boxes[i].left);
  }
  EXPECT_LE(boxes.back().right, picture.Attribute("width"));
}

TEST(BarChart, SeriesBeyondTheColorsHaveShadesOfTheirOwn) {
  ChartData data{{"a"}, {}};
  for (int i = 0; i < 7; ++i) {
    data.series.push_back({"", {1}});
  }
  EXPECT_EQ(Picture(data).Boxes(kBlue).size(), 1u);
}

TEST(BarChart, MoreBarsThanAReaderCanTellApartAreNotDrawn) {
  auto const bars = [](std::size_t count) {
    return OneWay(std::vector<std::string>(count, ""), std::vector<double>(count, 1));
  };
  EXPECT_NE(DrawBarChart(bars(5000)), "");
  EXPECT_EQ(DrawBarChart(bars(5001)), "");
}

// Names

TEST(BarChart, LegendIsThereWhenASeriesHasAName) {
  EXPECT_EQ(Picture({{"a"}, {{"x", {1}}}}).Boxes(kBlue).size(), 2u);
  EXPECT_EQ(Picture({{"a"}, {{"", {1}}}}).Boxes(kBlue).size(), 1u);
}

TEST(BarChart, AxisAndLegendHaveTitles) {
  ChartData data{{"a"}, {{"x", {1}}}};
  Picture const plain(data);
  data.categoryTitle = "Cat";
  Picture const category(data);
  EXPECT_EQ(category.Letters(), plain.Letters() + 3);
  EXPECT_GT(category.Attribute("height"), plain.Attribute("height"));
  data.valueTitle = "Count";
  Picture const value(data);
  EXPECT_EQ(value.Letters(), category.Letters() + 5);
  EXPECT_GT(value.Boxes(kBlue)[1].top, category.Boxes(kBlue)[1].top);
  data.seriesTitle = "Series";
  Picture const series(data);
  EXPECT_EQ(series.Letters(), value.Letters() + 6);
  EXPECT_GT(series.Boxes(kBlue)[0].left, value.Boxes(kBlue)[0].left + 20);
}

TEST(BarChart, TitleOfALegendThatIsNotThereIsLeftOut) {
  ChartData data = OneWay({"a"}, {1});
  std::size_t const letters = Picture(data).Letters();
  data.seriesTitle = "Series";
  EXPECT_EQ(Picture(data).Letters(), letters);
}

TEST(BarChart, LegendOfManySeriesGoesOnBelow) {
  ChartData data{{"a"}, {}};
  for (int i = 0; i < 40; ++i) {
    data.series.push_back({"a name of some words " + std::to_string(i), {1}});
  }
  Picture const picture(data);
  std::vector<Box> const boxes = picture.Boxes(kBlue);
  ASSERT_EQ(boxes.size(), 2u);
  EXPECT_GT(boxes[1].top, 10 * 12);
  EXPECT_GE(picture.Attribute("height"), boxes[1].bottom);
}

TEST(BarChart, LongNamesMakeThePictureHigherAndNotWider) {
  Picture const words(
      OneWay({std::string("some words below one another"), "b", "c", "d", "e"}, {1, 1, 1, 1, 1}));
  Picture const none(OneWay({"a", "b", "c", "d", "e"}, {1, 1, 1, 1, 1}));
  EXPECT_GT(words.Attribute("height"), none.Attribute("height"));
  EXPECT_EQ(words.Attribute("width"), none.Attribute("width"));
}

TEST(BarChart, NamesTooWideForTheirBarsAreCutOff) {
  auto const named = [](std::size_t length) {
    return Picture(OneWay({std::string(length, 'x'), "b"}, {1, 1}));
  };
  EXPECT_GT(named(10'000).Letters(), 10u);
  EXPECT_LT(named(10'000).Letters(), 50u);
  EXPECT_EQ(named(10'000).Attribute("height"), named(9'000).Attribute("height"));
}

TEST(BarChart, HostileNamesAreShownAsLetters) {
  Picture const picture({{"<script>alert(1)</script>", "\"&amp;'", "]]><!--", "\x01\x1B[0m\n",
                          "caf\xE9 \xFF\xFE", std::string("zero\0byte", 9), "\xED\xA0\x80"},
                         {{"</svg>", {1, 2, 3, 4, 5, 6, 7}}}});
  EXPECT_EQ(picture.Boxes(kBlue).size(), 8u);
  EXPECT_EQ(picture.svg.find("script"), std::string::npos);
}

TEST(BarChart, ZeroByteDoesNotEndAName) {
  EXPECT_EQ(Picture(OneWay({std::string("a\0bcd", 5)}, {1})).Letters(),
            Picture(OneWay({"a bcd"}, {1})).Letters());
}

TEST(BarChart, EmptyNamesAreNoLetters) {
  EXPECT_EQ(Picture(OneWay({"", ""}, {1, 1})).Letters(), 2u);
}

TEST(BarChart, EqualNumbersGiveEqualBytes) {
  ChartData const data{{"a", "b"}, {{"x", {1, 2}}, {"y", {3, kNone}}}};
  EXPECT_EQ(DrawBarChart(data), DrawBarChart(data));
}
