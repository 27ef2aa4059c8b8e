#include <atomic>
#include <cmath>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <lakresvos/tabulate/CrossTable.h>

#include "support/ErrorOf.h"
#include "tabulate/TextData.h"

using namespace lakresvos::tabulate;

static_assert(std::is_nothrow_move_constructible_v<DataColumn>);
static_assert(std::is_nothrow_move_assignable_v<DataColumn>);
static_assert(!std::is_copy_constructible_v<DataColumn>);

namespace {

/// How often a text was parsed as a number, in whatever thread; the linker puts the wrapper below in
/// the place of the parser.
std::atomic<std::size_t> parses = 0;

}  // namespace

extern "C" {

double __real__ZN9lakresvos8tabulate11ParseNumberESt17basic_string_viewIcSt11char_traitsIcEE(
    std::string_view text);

double __wrap__ZN9lakresvos8tabulate11ParseNumberESt17basic_string_viewIcSt11char_traitsIcEE(
    std::string_view text) {
  ++parses;
  return __real__ZN9lakresvos8tabulate11ParseNumberESt17basic_string_viewIcSt11char_traitsIcEE(
      text);
}
}

TEST(DataColumn, ParsesEachDistinctValueOnce) {
  WarningLog warnings;
  DataSet const data = ReadData("a,w\n1,2\n3,4\nx,2\n1,6\n", {"a", "w"}, warnings);
  parses = 0;
  RowWeights const weights(data, "w", warnings);
  std::vector<Statistic> const statistics = ParseStatistics("mean:a,sd:a,sum:w,max:w");
  WarnAboutTexts(data, statistics, warnings);
  for (char const* formula : {"a ~ w", "w ~ a", "a / w ~"}) {
    MakeCrossTable(data, weights, {ParseFormula(formula)}, statistics, true);
  }
  EXPECT_EQ(parses, 6u);
}

TEST(DataColumn, ParsesNothingThatNobodyAsksFor) {
  parses = 0;
  DataSet const data = ReadData("a,w\n1,2\n", {"a", "w"});
  EXPECT_EQ(parses, 0u);
  data.columns[0].Numbers();
  EXPECT_EQ(parses, 1u);
}

TEST(DataColumn, MissesWhatIsEmptyOrReadsNA) {
  DataColumn column("a");
  for (char const* const field : {"NA", "", "NB", "MA", "N", "NAN", "na"}) {
    column.Append(field);
  }
  EXPECT_EQ(column.MissingCount(), 2u);
  EXPECT_EQ(column.Values().size(), 5u);
  EXPECT_EQ(column.Codes(),
            (std::vector<std::uint32_t>{kMissingCode, kMissingCode, 0, 1, 2, 3, 4}));
}

TEST(DataColumn, TakesOverAllOfAnother) {
  DataColumn column("a");
  column.Append("1");
  DataColumn other("b");
  other.Append("7");
  other.Append("NA");
  other.TreatAsText();
  column = std::move(other);
  EXPECT_EQ(column.Name(), "b");
  EXPECT_TRUE(column.IsText());
  EXPECT_EQ(column.MissingCount(), 1u);
  EXPECT_EQ(column.Numbers().byCode, std::vector<double>{7});
}

TEST(DataColumn, HasNumbersOfValuesThatWereAddedLater) {
  DataColumn column("a");
  column.Append("1");
  EXPECT_EQ(column.Numbers().byCode, (std::vector<double>{1}));
  column.Append("2.5");
  EXPECT_EQ(column.Numbers().byCode, (std::vector<double>{1, 2.5}));
  EXPECT_EQ(column.Numbers().decimals, 1);
}

TEST(DataColumn, TakesEverythingAlongWhenItIsMoved) {
  DataColumn column("a");
  column.Append("7");
  column.Append("NA");
  ColumnNumbers const* const numbers = &column.Numbers();
  DataColumn const moved = std::move(column);
  EXPECT_EQ(moved.Name(), "a");
  EXPECT_EQ(moved.MissingCount(), 1u);
  EXPECT_EQ(moved.Codes(), (std::vector<std::uint32_t>{0, kMissingCode}));
  EXPECT_EQ(moved.Values()[0], "7");
  EXPECT_EQ(&moved.Numbers(), numbers);
}

TEST(DataColumn, CountsMissingValuesOnlyWhenItKeepsNone) {
  DataColumn column("a", false);
  column.Append("7");
  column.Append("");
  EXPECT_EQ(column.MissingCount(), 1u);
  EXPECT_TRUE(column.Codes().empty());
  EXPECT_EQ(column.Values().size(), 0u);
}

TEST(ColumnNumbers, ReadTheDistinctValues) {
  DataSet const data = ReadData("a\n1.5\n2\n1.5\n-3.25\n", {"a"});
  ColumnNumbers const& numbers = data.columns[0].Numbers();
  EXPECT_EQ(numbers.byCode, (std::vector<double>{1.5, 2, -3.25}));
  EXPECT_EQ(numbers.decimals, 2);
  EXPECT_TRUE(numbers.complete);
}

TEST(ColumnNumbers, KnowATextAmongThem) {
  DataSet const data = ReadData("a\n1\nx\nNA\n", {"a"});
  ColumnNumbers const& numbers = data.columns[0].Numbers();
  EXPECT_FALSE(numbers.complete);
  EXPECT_TRUE(std::isnan(numbers.byCode[1]));
  EXPECT_TRUE(std::isnan(numbers.At(kMissingCode)));
  EXPECT_EQ(numbers.At(0), 1);
}

TEST(ColumnNumbers, AreCompleteWhenOnlyMissingValuesAreNoNumbers) {
  EXPECT_TRUE(ReadData("a,b\n1,x\n,x\n", {"a"}).columns[0].Numbers().complete);
}
