#include "count/MeasurePlan.h"

#include <gtest/gtest.h>

using namespace lakresvos::tabulate;

namespace {

constexpr std::size_t kNone = MeasurePlan::kNone;

}  // namespace

TEST(MeasurePlan, HasNothingForCounts) {
  MeasurePlan const plan = PlanMeasures(ParseStatistics("count,row%"));
  EXPECT_TRUE(plan.columns.empty());
  EXPECT_TRUE(plan.measures.empty());
  EXPECT_EQ(plan.measureByStatistic, (std::vector{kNone, kNone}));
}

TEST(MeasurePlan, HasOneMeasureForStatisticsThatSumUpAlike) {
  MeasurePlan const plan = PlanMeasures(ParseStatistics("mean:x,count,sum:x,sd:x,min:y"));
  EXPECT_EQ(plan.columns, (std::vector<std::string>{"x", "y"}));
  EXPECT_EQ(plan.measureByStatistic, (std::vector<std::size_t>{0, kNone, 0, 1, 2}));
  ASSERT_EQ(plan.measures.size(), 3u);
  EXPECT_EQ(plan.measures[0].number, 0u);
  EXPECT_EQ(plan.measures[1].number, 0u);
  EXPECT_EQ(plan.measures[2].number, 1u);
  EXPECT_NE(plan.measures[0].makeSummaries, plan.measures[1].makeSummaries);
}
