#ifndef LAKRESVOS_RENDER_CONTENT_CHARTNUMBERS_H
#define LAKRESVOS_RENDER_CONTENT_CHARTNUMBERS_H

#include <optional>
#include <string>
#include <vector>

namespace lakresvos::render {

/// The data of a chart, as its JSON has them.
struct ChartNumbers {
  struct Series {
    std::string name;
    std::vector<std::string> values;  ///< one for each category; empty where there is no number
  };

  std::vector<std::string> categories;
  std::vector<Series> series;
  std::string categoryTitle;  ///< what the categories are; empty when the JSON does not say
};

/// Reads `{"categories":["...", ...],"series":[{"name":"...","values":[number or null, ...]}, ...]}`
/// and, where it is there, `"categoryTitle":"..."`; other fields are passed over. Nothing for a text of any other form.
std::optional<ChartNumbers> ReadChartNumbers(std::string const& json);

}  // namespace lakresvos::render

#endif
