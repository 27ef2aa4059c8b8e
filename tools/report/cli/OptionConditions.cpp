#include "cli/OptionConditions.h"

#include <algorithm>

#include "chart/TableChart.h"

namespace lakresvos::report {

namespace {

template <OutputFormat format>
bool Writes(Options const& options) {
  return options.format == format;
}

template <OutputFormat format>
bool WritesOther(Options const& options) {
  return options.format != format;
}

bool ReadsData(Options const& options) {
  return options.documentFile.empty();
}

bool LaysOut(Options const& options) {
  return options.format != OutputFormat::Json || options.json.layout;
}

bool SeparatesLayers(Options const& options) {
  return options.format != OutputFormat::Csv ||
         options.csv.shape == render::CsvOptions::Shape::Display;
}

template <class Fits>
bool HasTable(Options const& options, Fits fits) {
  return !ReadsData(options) ||
         std::any_of(options.tables.begin(), options.tables.end(),
                     [&](tabulate::TableRequest const& table) { return fits(table.formula); });
}

bool HasAnyTable(Options const& options) {
  return HasTable(options, [](tabulate::Formula const&) { return true; });
}

/// CSV names a table only where there are others.
bool ShowsTitles(Options const& options) {
  return options.format != OutputFormat::Csv || options.tables.size() > 1;
}

/// CSV holds nothing but tables.
bool HasContent(Options const& options) {
  return options.format != OutputFormat::Csv || HasAnyTable(options);
}

bool HasLayers(Options const& options) {
  return HasTable(options,
                  [](tabulate::Formula const& formula) { return !formula.layers.empty(); });
}

bool HasVisibleAxis(Options const& options) {
  return HasTable(options, [](tabulate::Formula const& formula) {
    return !formula.rows.empty() || !formula.columns.empty();
  });
}

bool HasChart(Options const& options) {
  return HasTable(options, CanChart);
}

}  // namespace

constexpr OptionCondition kDataGiven{ReadsData, "cannot be used with --from"};

constexpr OptionCondition kTextFormat{Writes<OutputFormat::Text>,
                                      "has no effect without --format text"};
constexpr OptionCondition kCsvFormat{Writes<OutputFormat::Csv>,
                                     "has no effect without --format csv"};
constexpr OptionCondition kJsonFormat{Writes<OutputFormat::Json>,
                                      "has no effect without --format json"};
constexpr OptionCondition kXlsxFormat{Writes<OutputFormat::Xlsx>,
                                      "has no effect without --format xlsx"};
constexpr OptionCondition kNotCsvFormat{WritesOther<OutputFormat::Csv>,
                                        "has no effect with --format csv"};
constexpr OptionCondition kFormatWithLayout{
    LaysOut, "has no effect with --format json unless --json-layout is given"};
constexpr OptionCondition kFormatWithLayers{SeparatesLayers, "has no effect with --csv-shape long"};
constexpr OptionCondition kFormatWithTitles{ShowsTitles,
                                            "has no effect with --format csv and one table"};
constexpr OptionCondition kFormatWithContent{HasContent, "csv writes nothing without --table"};

constexpr OptionCondition kAnyTable{HasAnyTable, "has no effect without --table"};
constexpr OptionCondition kTableWithLayers{HasLayers,
                                           "has no effect without a table that has layers"};
constexpr OptionCondition kTableWithRowsOrColumns{
    HasVisibleAxis, "has no effect without a table that has rows or columns"};
constexpr OptionCondition kTableWithChart{
    HasChart, "has no effect without a table that has one or two dimensions and no layers"};

}  // namespace lakresvos::report
