#ifndef LAKRESVOS_REPORT_CHART_BARCHART_H
#define LAKRESVOS_REPORT_CHART_BARCHART_H

#include <string>

#include <lakresvos/render/ChartData.h>

namespace lakresvos::report {

/// Draws the numbers as bars: per category one of each series, side by side, with an axis, the
/// categories' names below it, wrapped or else slanting, and a legend when a series has a name. The
/// titles are above the axis, below the names and before the legend. Every category has its room:
/// the picture gets wider with their number.
///
/// The ground is transparent, lines and letters have a gray that can be read on a light and on a
/// dark page, and the colors of the first series differ for color-blind readers too. Every number
/// has a bar, if only a thin one; a missing or infinite value has none.
///
/// @return the picture in SVG; empty when there are more bars than a reader could tell apart
///         (5,000).
/// Requires: each series has a value per category.
std::string DrawBarChart(render::ChartData const& data);

}  // namespace lakresvos::report

#endif
