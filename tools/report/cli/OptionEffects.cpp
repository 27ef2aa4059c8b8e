#include "cli/OptionEffects.h"

#include <algorithm>
#include <array>

#include <lakresvos/tabulate/InputError.h>

#include "chart/TableChart.h"

namespace lakresvos::report {

namespace {

template <OutputFormat format>
bool Writes(Options const& options) {
  return options.format == format;
}

template <OutputFormat format>
bool WritesAnother(Options const& options) {
  return options.format != format;
}

bool LaysOut(Options const& options) {
  return options.format != OutputFormat::Json || options.jsonLayout;
}

bool TellsLayersApart(Options const& options) {
  return options.format != OutputFormat::Csv || options.csvDisplay;
}

/// Whether any table is asked for that `fits`; a saved document may have one.
template <class Fits>
bool HasTable(Options const& options, Fits fits) {
  return !options.documentFile.empty() ||
         std::any_of(options.tables.begin(), options.tables.end(),
                     [&](tabulate::TableRequest const& table) { return fits(table.formula); });
}

bool HasAnyTable(Options const& options) {
  return HasTable(options, [](tabulate::Formula const&) { return true; });
}

/// In CSV a table is named only where there are others.
bool ShowsTitles(Options const& options) {
  return options.format != OutputFormat::Csv || options.tables.size() > 1;
}

bool HasLayers(Options const& options) {
  return HasTable(options,
                  [](tabulate::Formula const& formula) { return !formula.layers.empty(); });
}

bool HasRowsOrColumns(Options const& options) {
  return HasTable(options, [](tabulate::Formula const& formula) {
    return !formula.rows.empty() || !formula.columns.empty();
  });
}

bool HasChart(Options const& options) {
  return HasTable(options, CanChart);
}

struct Effect {
  char const* option;
  bool (*isThere)(Options const&);
  char const* otherwise;
};

constexpr std::array kEffects = {
    Effect{"--ascii", Writes<OutputFormat::Text>, "without --format text"},
    Effect{"--width", Writes<OutputFormat::Text>, "without --format text"},
    Effect{"--csv-shape", Writes<OutputFormat::Csv>, "without --format csv"},
    Effect{"--csv-safe", Writes<OutputFormat::Csv>, "without --format csv"},
    Effect{"--json-layout", Writes<OutputFormat::Json>, "without --format json"},
    Effect{"--xlsx-layers", Writes<OutputFormat::Xlsx>, "without --format xlsx"},
    Effect{"--xlsx-layers", HasLayers, "without a table that has layers"},
    Effect{"--xlsx-merge", Writes<OutputFormat::Xlsx>, "without --format xlsx"},
    Effect{"--layers", LaysOut, "with --format json unless --json-layout is given"},
    Effect{"--layers", TellsLayersApart, "with --csv-shape long"},
    Effect{"--layers", HasLayers, "without a table that has layers"},
    Effect{"--keep-empty", LaysOut, "with --format json unless --json-layout is given"},
    Effect{"--keep-empty", HasAnyTable, "without --table"},
    Effect{"--statistics", HasAnyTable, "without --table"},
    Effect{"--totals", HasRowsOrColumns, "without a table that has rows or columns"},
    Effect{"--title", ShowsTitles, "with --format csv and one table"},
    Effect{"--caption", WritesAnother<OutputFormat::Csv>, "with --format csv"},
    Effect{"--style", WritesAnother<OutputFormat::Csv>, "with --format csv"},
    Effect{"--chart", WritesAnother<OutputFormat::Csv>, "with --format csv"},
    Effect{"--chart", HasChart, "without a table that has one or two dimensions and no layers"},
};

}  // namespace

void CheckEffects(Options const& options, std::function<bool(char const*)> const& isGiven) {
  for (Effect const& effect : kEffects) {
    if (isGiven(effect.option) && !effect.isThere(options)) {
      throw tabulate::InputError(std::string(effect.option) + " has no effect " + effect.otherwise);
    }
  }
  if (options.format == OutputFormat::Csv && !HasAnyTable(options)) {
    throw tabulate::InputError("--format csv writes nothing without --table");
  }
}

}  // namespace lakresvos::report
