#ifndef LAKRESVOS_REPORT_CHART_DRAWINGMODULE_H
#define LAKRESVOS_REPORT_CHART_DRAWINGMODULE_H

#include <string>

#include <lakresvos/render/ChartData.h>

namespace lakresvos::report {

// What the program and the module that draws charts agree on.

constexpr char kDrawingModule[] = "lakresvos_report_charts.so";
constexpr char kDrawingFunction[] = "LakresvosDrawBarChart";

/// Sets `picture` to what DrawBarChart() returns.
using DrawingFunction = void(render::ChartData const& data, std::string& picture);

}  // namespace lakresvos::report

#endif
