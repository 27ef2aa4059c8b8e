#include "table/StatisticKind.h"

#include "table/Moments.h"

namespace lakresvos::tabulate {

namespace {

double Count(StatisticInput const& input) {
  return Rounded(input.count);
}

double Percent(StatisticInput const& input) {
  return input.whole > 0 ? Rounded(100 * input.count / input.whole) : kNoNumber;
}

template <double (Moments::*statistic)() const>
double Read(StatisticInput const& input) {
  auto const& moments = static_cast<CellSummariesIn<Moments> const&>(*input.summaries);
  return (moments[input.cell].*statistic)();
}

int UseDecimalsOfWeights(int ofWeights, int /*ofColumn*/) {
  return ofWeights;
}

int UseDecimalsOfColumn(int /*ofWeights*/, int ofColumn) {
  return ofColumn;
}

int AddDecimals(int ofWeights, int ofColumn) {
  return ofWeights + ofColumn;
}

template <int decimals>
int UseDecimals(int /*ofWeights*/, int /*ofColumn*/) {
  return decimals;
}

constexpr auto* kMoments = &CellSummariesIn<Moments>::Make;

constexpr StatisticKind kKinds[] = {
    {"count", "Count", nullptr, {}, UseDecimalsOfWeights, Count},
    {"row%", "Row %", nullptr, {.ofColumns = true}, UseDecimals<1>, Percent},
    {"column%", "Column %", nullptr, {.ofRows = true}, UseDecimals<1>, Percent},
    {"total%", "Total %", nullptr, {.ofRows = true, .ofColumns = true}, UseDecimals<1>, Percent},
    {"mean", "Mean", kMoments, {}, UseDecimals<2>, Read<&Moments::Mean>},
    {"sd", "Std. deviation", kMoments, {}, UseDecimals<2>, Read<&Moments::Deviation>},
    {"sum", "Sum", kMoments, {}, AddDecimals, Read<&Moments::Sum>},
    {"min", "Minimum", kMoments, {}, UseDecimalsOfColumn, Read<&Moments::Minimum>},
    {"max", "Maximum", kMoments, {}, UseDecimalsOfColumn, Read<&Moments::Maximum>},
};

}  // namespace

std::span<StatisticKind const> ListStatisticKinds() {
  return kKinds;
}

}  // namespace lakresvos::tabulate
