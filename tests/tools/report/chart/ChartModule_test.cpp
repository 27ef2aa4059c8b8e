#include "chart/ChartModule.h"

#include <gtest/gtest.h>

#include "chart/BarChart.h"

using namespace lakresvos;

TEST(ChartModule, DrawsWhatIsDrawnWithoutIt) {
  render::ChartData const data{{"1st", "2nd"}, {{"Yes", {1, 2}}}, "Class", "Survived", "Count"};
  std::string const picture = report::LoadAndDrawBarChart(data);
  EXPECT_NE(picture.find("<svg"), std::string::npos);
  EXPECT_EQ(picture, report::DrawBarChart(data));
}
