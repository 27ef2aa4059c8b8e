#include "chart/DrawingModule.h"

#include <type_traits>

#include "chart/BarChart.h"

extern "C" __attribute__((visibility("default"))) void LakresvosDrawBarChart(
    lakresvos::render::ChartData const& data, std::string& picture) {
  picture = lakresvos::report::DrawBarChart(data);
}

static_assert(std::is_same_v<decltype(LakresvosDrawBarChart), lakresvos::report::DrawingFunction>);
