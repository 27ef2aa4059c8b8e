#ifndef LAKRESVOS_RENDER_HTML_CHART_H
#define LAKRESVOS_RENDER_HTML_CHART_H

#include <string>

#include <lakresvos/OmChart.h>

namespace lakresvos::render {

/// The content of a chart's figure: its picture, its data as a table, or its placeholder.
std::string HtmlChart(OmChart const& chart);

}  // namespace lakresvos::render

#endif
