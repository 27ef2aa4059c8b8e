#ifndef LAKRESVOS_REPORT_CHART_TABLECHART_H
#define LAKRESVOS_REPORT_CHART_TABLECHART_H

#include <string>

#include <lakresvos/OmPivotTable.h>
#include <lakresvos/render/ChartData.h>
#include <lakresvos/tabulate/Formula.h>

namespace lakresvos::report {

/// Whether there is a chart for a table of this formula: one of one or two dimensions, no layers.
bool CanChart(tabulate::Formula const& formula);

/// The numbers of a table that MakeCrossTable() made: the categories of its first dimension and,
/// for the series, of its second one. Totals are left out, of several statistics all but the first.
/// Categories in groups are named by their whole path.
///
/// @param dimensions how many dimensions the table has beside that of the statistics: 1 or 2.
/// @param valueTitle what the numbers are.
render::ChartData MakeChartData(OmPivotTable const& table, std::size_t dimensions,
                                std::string const& valueTitle);

}  // namespace lakresvos::report

#endif
