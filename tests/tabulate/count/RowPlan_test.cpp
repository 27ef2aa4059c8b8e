#include "count/RowPlan.h"

#include <gtest/gtest.h>

using namespace lakresvos::tabulate;

namespace {

using Places = std::vector<std::size_t>;

/// The plan of a request when the columns are called a, b, c, ...
RowPlan PlanOf(CountRequest const& request) {
  Places places;
  for (RequiredColumn const& column : ListColumns(request)) {
    places.push_back(static_cast<std::size_t>(column.name[0] - 'a'));
  }
  return {request, places};
}

}  // namespace

TEST(RowPlan, ListsColumnsInTheOrderInWhichTheyAreMissed) {
  CountRequest const request{{ParseFormula("c ~ a"), ParseFormula("b ~")},
                             ParseStatistics("mean:d,count"),
                             RequiredColumn{"e", "--weight"}};
  std::string names;
  for (RequiredColumn const& column : ListColumns(request)) {
    names += column.name;
  }
  EXPECT_EQ(names, "cabde");
}

TEST(RowPlan, HasEachColumnOnce) {
  RowPlan const plan = PlanOf({{ParseFormula("c ~ a | b"), ParseFormula("a ~ d")},
                               ParseStatistics("sd:e,mean:a,count,sum:e"),
                               {}});
  EXPECT_EQ(plan.categories, (Places{2, 0, 1, 3}));
  EXPECT_EQ(plan.tables, (std::vector<Places>{{2, 0, 1}, {0, 3}}));
  EXPECT_EQ(plan.numbers, (Places{4, 0}));
  EXPECT_FALSE(plan.weight.has_value());
}

TEST(RowPlan, KnowsTheWeight) {
  RowPlan const plan =
      PlanOf({{ParseFormula("a ~")}, ParseStatistics("count"), RequiredColumn{"c", "--weight"}});
  EXPECT_EQ(plan.weight, 2u);
}
