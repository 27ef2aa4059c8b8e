#include "count/CellCounts.h"

#include <array>
#include <gtest/gtest.h>

#include <lakresvos/tabulate/ColumnNumbers.h>

#include "table/Sums.h"

using namespace lakresvos::tabulate;

namespace {

using Codes = std::vector<std::uint32_t>;

std::vector<Measure> const kSums = {{0, &CellSummariesIn<Sums>::Make}};

double WeightOf(CellCounts const& counts, std::size_t cell) {
  CompensatedSum sum;
  counts.AddWeightTo(sum, cell);
  return sum.Value().convert_to<double>();
}

double SumOf(CellCounts const& counts, std::size_t cell) {
  return static_cast<CellSummariesIn<Sums> const&>(counts.Summaries(0))[cell].Sum();
}

}  // namespace

TEST(CellCounts, CountsRowsByTheirCodes) {
  CellCounts counts(2, {}, false);
  counts.Add(Codes{0, 1}, 1, {});
  counts.Add(Codes{0, kMissingCode}, 1, {});
  counts.Add(Codes{0, 1}, 1, {});
  ASSERT_EQ(counts.size(), 2u);
  EXPECT_EQ(counts.Codes(1)[1], kMissingCode);
  EXPECT_EQ(counts.Rows(0), 2u);
  EXPECT_EQ(WeightOf(counts, 0), 2);
  EXPECT_EQ(WeightOf(counts, 1), 1);
}

TEST(CellCounts, SumsWeightsUp) {
  CellCounts counts(1, {}, true);
  counts.Add(Codes{0}, 2.5, {});
  counts.Add(Codes{0}, 0, {});
  EXPECT_EQ(counts.Rows(0), 2u);
  EXPECT_EQ(WeightOf(counts, 0), 2.5);
}

TEST(CellCounts, KnowsTheCellOfARowThatDoesNotCount) {
  CellCounts counts(1, kSums, true);
  counts.Add(Codes{3}, kNoNumber, std::array{7.0});
  ASSERT_EQ(counts.size(), 1u);
  EXPECT_EQ(counts.Rows(0), 0u);
  EXPECT_EQ(WeightOf(counts, 0), 0);
  EXPECT_EQ(SumOf(counts, 0), 0);
  EXPECT_EQ(counts.Missing(0, 0), 0u);
}

TEST(CellCounts, CountsMissingNumbers) {
  CellCounts counts(1, kSums, true);
  counts.Add(Codes{0}, 2, std::array{7.0});
  counts.Add(Codes{0}, 3, std::array{kNoNumber});
  EXPECT_EQ(SumOf(counts, 0), 14);
  EXPECT_EQ(counts.Missing(0, 0), 1u);
}

TEST(CellCounts, MergesCellsUnderOtherCodes) {
  CellCounts whole(1, kSums, true);
  whole.Add(Codes{0}, 2, std::array{1.0});
  CellCounts part(1, kSums, true);
  part.Add(Codes{4}, 1, std::array{5.0});
  part.Add(Codes{6}, 4, std::array{kNoNumber});
  Codes translated(1);
  whole.Merge(part, [&](TupleIndex::Tuple codes) {
    translated[0] = codes[0] - 4;
    return TupleIndex::Tuple(translated);
  });
  ASSERT_EQ(whole.size(), 2u);
  EXPECT_EQ(whole.Rows(0), 2u);
  EXPECT_EQ(WeightOf(whole, 0), 3);
  EXPECT_EQ(SumOf(whole, 0), 7);
  EXPECT_EQ(whole.Codes(1)[0], 2u);
  EXPECT_EQ(WeightOf(whole, 1), 4);
  EXPECT_EQ(whole.Missing(1, 0), 1u);
}
