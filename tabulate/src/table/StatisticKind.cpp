#include "table/StatisticKind.h"

#include "table/Moments.h"

namespace lakresvos::tabulate {

namespace {

double Count(StatisticInput const& input) {
  return RoundToDouble(input.count);
}

double Percent(StatisticInput const& input) {
  return input.whole > 0 ? RoundToDouble(100 * input.count / input.whole) : kNoNumber;
}

template <class Summary, double (Summary::*statistic)() const>
double Read(StatisticInput const& input) {
  auto const& summaries = static_cast<CellSummariesIn<Summary> const&>(*input.summaries);
  return (summaries[input.cell].*statistic)();
}

int UseWeightDecimals(int weightDecimals, int /*columnDecimals*/) {
  return weightDecimals;
}

int UseColumnDecimals(int /*weightDecimals*/, int columnDecimals) {
  return columnDecimals;
}

int AddDecimals(int weightDecimals, int columnDecimals) {
  return weightDecimals + columnDecimals;
}

template <int decimals>
int UseDecimals(int /*weightDecimals*/, int /*columnDecimals*/) {
  return decimals;
}

constexpr auto* kSums = &CellSummariesIn<Sums>::Make;
constexpr auto* kMoments = &CellSummariesIn<Moments>::Make;

constexpr StatisticKind kKinds[] = {
    {"count", "Count", nullptr, {}, UseWeightDecimals, Count},
    {"row%", "Row %", nullptr, {.ofColumns = true}, UseDecimals<1>, Percent},
    {"column%", "Column %", nullptr, {.ofRows = true}, UseDecimals<1>, Percent},
    {"total%", "Total %", nullptr, {.ofRows = true, .ofColumns = true}, UseDecimals<1>, Percent},
    {"mean", "Mean", kSums, {}, UseDecimals<2>, Read<Sums, &Sums::Mean>},
    {"sd", "Std. deviation", kMoments, {}, UseDecimals<2>, Read<Moments, &Moments::Deviation>},
    {"sum", "Sum", kSums, {}, AddDecimals, Read<Sums, &Sums::Sum>},
    {"min", "Minimum", kSums, {}, UseColumnDecimals, Read<Sums, &Sums::Minimum>},
    {"max", "Maximum", kSums, {}, UseColumnDecimals, Read<Sums, &Sums::Maximum>},
};

}  // namespace

std::span<StatisticKind const> ListStatisticKinds() {
  return kKinds;
}

}  // namespace lakresvos::tabulate
