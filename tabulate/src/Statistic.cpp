#include <algorithm>
#include <array>

#include <lakresvos/tabulate/Quoting.h>
#include <lakresvos/tabulate/Statistic.h>

namespace lakresvos::tabulate {

namespace {

struct MeasureName {
  char const* keyword;
  char const* label;
};

/// In the order of the enumerators.
constexpr std::array<MeasureName, 9> kMeasures = {{{"count", "Count"},
                                                   {"row%", "Row %"},
                                                   {"column%", "Column %"},
                                                   {"total%", "Total %"},
                                                   {"mean", "Mean"},
                                                   {"sd", "Std. deviation"},
                                                   {"sum", "Sum"},
                                                   {"min", "Minimum"},
                                                   {"max", "Maximum"}}};

Statistic ReadStatistic(Scanner& scanner) {
  NamedColumn const keyword = scanner.Name(",:", "a statistic");
  auto const* const found =
      std::find_if(kMeasures.begin(), kMeasures.end(),
                   [&](MeasureName const& name) { return keyword.name == name.keyword; });
  if (found == kMeasures.end()) {
    scanner.Fail(keyword.position, "there is no statistic " + Quoted(keyword.name));
  }
  Statistic statistic{static_cast<Measure>(found - kMeasures.begin()), {"", keyword.position}};
  if (NeedsColumn(statistic.measure)) {
    if (!scanner.Take(':')) {
      scanner.Fail(scanner.Position(), "there should be ':' and the name of a column");
    }
    statistic.column = scanner.Name(",", "the name of a column");
  }
  return statistic;
}

}  // namespace

bool NeedsColumn(Measure measure) {
  return measure >= Measure::Mean;
}

bool IsPercent(Measure measure) {
  return measure >= Measure::RowPercent && measure <= Measure::TotalPercent;
}

char const* LabelOf(Measure measure) {
  return kMeasures[static_cast<std::size_t>(measure)].label;
}

std::vector<Statistic> ParseStatistics(std::string const& text) {
  Scanner scanner("--statistics", text);
  std::vector<Statistic> statistics;
  do {
    std::size_t const position = scanner.Position();
    Statistic statistic = ReadStatistic(scanner);
    for (Statistic const& other : statistics) {
      if (other.measure == statistic.measure && other.column.name == statistic.column.name) {
        scanner.Fail(position, "the statistic comes twice");
      }
    }
    statistics.push_back(std::move(statistic));
  } while (scanner.Take(','));
  if (!scanner.AtEnd()) {
    scanner.Fail(scanner.Position(), "there should be ',' or the end");
  }
  return statistics;
}

}  // namespace lakresvos::tabulate
