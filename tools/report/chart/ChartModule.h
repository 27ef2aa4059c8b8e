#ifndef LAKRESVOS_REPORT_CHART_CHARTMODULE_H
#define LAKRESVOS_REPORT_CHART_CHARTMODULE_H

#include <string>

#include <lakresvos/render/ChartData.h>

namespace lakresvos::report {

/// As DrawBarChart(), whose module is loaded by the first call and stays.
/// @throws std::runtime_error when it cannot be loaded.
std::string LoadAndDrawBarChart(render::ChartData const& data);

}  // namespace lakresvos::report

#endif
