#include "table/StatisticKind.h"

#include <gtest/gtest.h>
#include <set>
#include <string>

#include <lakresvos/tabulate/CrossTable.h>

#include "tabulate/TableReader.h"
#include "tabulate/TextData.h"

using namespace lakresvos::tabulate;

namespace {

/// The kind as it is asked for, of a column x if it takes one.
std::string Spell(StatisticKind const& kind) {
  return std::string(kind.keyword) + (kind.NeedsColumn() ? ":x" : "");
}

/// The labels of kinds and the values of one cell of two rows, with x being 1.5 and 4 and their
/// weights 2 and 3, among three rows.
struct Expected {
  char const* label;
  char const* value;
};

constexpr Expected kExpected[] = {
    {"Count", "5"},      {"Row %", "62.5"},  {"Column %", "100.0"},
    {"Total %", "62.5"}, {"Mean", "3.00"},   {"Std. deviation", "1.37"},
    {"Sum", "15.0"},     {"Minimum", "1.5"}, {"Maximum", "4.0"},
};

}  // namespace

TEST(StatisticKind, HasAKeywordAndALabelOfItsOwn) {
  std::set<std::string_view> keywords;
  std::set<std::string_view> labels;
  for (StatisticKind const& kind : ListStatisticKinds()) {
    EXPECT_TRUE(keywords.insert(kind.keyword).second) << kind.keyword;
    EXPECT_TRUE(labels.insert(kind.label).second) << kind.label;
  }
}

TEST(StatisticKind, IsFoundByItsKeyword) {
  for (StatisticKind const& kind : ListStatisticKinds()) {
    std::vector<Statistic> const parsed = ParseStatistics(Spell(kind));
    ASSERT_EQ(parsed.size(), 1u);
    EXPECT_EQ(parsed[0].kind, &kind);
    EXPECT_EQ(NeedsColumn(parsed[0]), kind.NeedsColumn());
  }
}

TEST(StatisticKind, IsComputedAndShown) {
  WarningLog warnings;
  DataSet const data = ReadData("a,b,x,w\np,q,1.5,2\np,q,4,3\np,r,7,3\n", {"a", "b", "x", "w"});
  RowWeights const weights(data, "w", warnings);
  auto const kinds = ListStatisticKinds();
  ASSERT_EQ(kinds.size(), std::size(kExpected));
  for (std::size_t i = 0; i < kinds.size(); ++i) {
    auto const table = MakeCrossTable(data, weights, {ParseFormula("a ~ b")},
                                      ParseStatistics(Spell(kinds[i])), false);
    EXPECT_EQ(kinds[i].label, kExpected[i].label);
    EXPECT_EQ(TextAt(*table, {"p", "q"}), kExpected[i].value) << kinds[i].keyword;
  }
}

TEST(StatisticKind, OfATotalIsThatOfAllRows) {
  DataSet const data = ReadData("a,x\np,1.5\nq,4\nq,NA\nr,7\n", {"a", "x"});
  for (StatisticKind const& kind : ListStatisticKinds()) {
    std::vector<Statistic> const statistics = ParseStatistics(Spell(kind));
    auto const parts = MakeCrossTable(data, {}, {ParseFormula("a ~")}, statistics, true);
    auto const whole = MakeCrossTable(data, {}, {ParseFormula("~")}, statistics, true);
    EXPECT_EQ(TextAt(*parts, {"Total"}), whole->Cell({0})->GetText()) << kind.keyword;
  }
}
