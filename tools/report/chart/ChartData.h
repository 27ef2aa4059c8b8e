#ifndef LAKRESVOS_REPORT_CHART_CHARTDATA_H
#define LAKRESVOS_REPORT_CHART_CHARTDATA_H

#include <string>
#include <vector>

#include <lakresvos/OmPivotTable.h>
#include <lakresvos/tabulate/Formula.h>

namespace lakresvos::report {

/// The numbers of a bar chart: for every category a bar of each series.
struct ChartData {
  struct Series {
    std::string name;            ///< empty when there is only one
    std::vector<double> values;  ///< one per category; NaN where there is none
  };

  std::vector<std::string> categories;
  std::vector<Series> series;

  // What these and the values are; empty when there is nothing to say.
  std::string categoryTitle = {};
  std::string seriesTitle = {};
  std::string valueTitle = {};
};

/// Whether there is a chart for a table of this formula: one of one or two dimensions, no layers.
bool CanChart(tabulate::Formula const& formula);

/// The numbers of a table that MakeCrossTable() made: the categories of its first dimension and, for
/// the series, of its second one. Totals are left out, of several statistics all but the first.
/// Categories in groups are named by their whole path.
///
/// @param dimensions how many dimensions the table has beside that of the statistics: 1 or 2.
/// @param totals     whether every dimension ends with a Total.
/// @param valueTitle what the numbers are.
ChartData ChartDataOf(OmPivotTable const& table, std::size_t dimensions, bool totals,
                      std::string const& valueTitle);

/// As JSON: `{"categories":["a"],"series":[{"name":"b","values":[1.0,null]}]}`, null for what is not
/// finite, U+FFFD for bytes that are not UTF-8. Titles that are there follow as `"categoryTitle"`,
/// `"seriesTitle"` and `"valueTitle"`.
std::string JsonOf(ChartData const& data);

}  // namespace lakresvos::report

#endif
