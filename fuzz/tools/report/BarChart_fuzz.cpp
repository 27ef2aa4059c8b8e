#include <optional>
#include <pugixml.hpp>
#include <string>

#include "chart/BarChart.h"
#include "harness/InputBytes.h"
#include "harness/Target.h"

namespace {

using lakresvos::render::ChartData;

/// Up to 12 categories and 6 series of any numbers, with names of up to 15 bytes.
ChartData MakeChartData(InputBytes input) {
  auto const takeName = [&] { return input.TakeText(input.Take<unsigned char>() % 16); };
  ChartData data;
  data.categories.resize(input.Take<unsigned char>() % 13);
  data.series.resize(input.Take<unsigned char>() % 7);
  for (ChartData::Series& series : data.series) {
    for (std::size_t i = 0; i < data.categories.size(); ++i) {
      series.values.push_back(input.Take<double>());
    }
  }
  for (std::string& category : data.categories) {
    category = takeName();
  }
  for (ChartData::Series& series : data.series) {
    series.name = takeName();
  }
  data.categoryTitle = takeName();
  data.seriesTitle = takeName();
  data.valueTitle = takeName();
  return data;
}

}  // namespace

// The numbers of a chart: drawn, and written as JSON, which is read again.
void Exercise(std::string_view input) {
  ChartData const data = MakeChartData(InputBytes(input));
  std::string const picture = lakresvos::report::DrawBarChart(data);
  if (!pugi::xml_document().load_string(picture.c_str())) {
    Fail("a picture that is not XML");
  }
  std::string const json = WriteChartData(data);
  std::optional<ChartData> const read = lakresvos::render::ReadChartData(json);
  if (!read || WriteChartData(*read) != json) {
    Fail("numbers are not read as they were written");
  }
}
