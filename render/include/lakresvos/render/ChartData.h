#ifndef LAKRESVOS_RENDER_CHARTDATA_H
#define LAKRESVOS_RENDER_CHARTDATA_H

#include <optional>
#include <string>
#include <vector>

#include <lakresvos/render/Export.h>

namespace lakresvos::render {

/// The numbers that a chart shows: for every category a value of each series.
///
/// Thread safety: an object may be read from several threads while none changes it.
struct ChartData {
  /// One number for each category.
  struct Series {
    std::string name;            ///< UTF-8; empty when there is only one series
    std::vector<double> values;  ///< one for each category; NaN where there is none
  };

  std::vector<std::string> categories;  ///< their names, in UTF-8
  std::vector<Series> series;           ///< in the order in which they are drawn

  std::string categoryTitle = {};  ///< what the categories are; empty: not said
  std::string seriesTitle = {};    ///< what the series are; empty: not said
  std::string valueTitle = {};     ///< what the values are; empty: not said
};

/// The data as JSON (RFC 8259), as charts of a document have it in OmChart::SetViZJSON():
/// `{"categories":["a"],"series":[{"name":"b","values":[1.0,null]}]}`, and the titles that are not
/// empty as `"categoryTitle"`, `"seriesTitle"` and `"valueTitle"`. A value that is not finite is
/// null; U+FFFD takes the place of bytes that are not UTF-8.
LAKRESVOS_RENDER_EXPORT std::string WriteChartData(ChartData const& data);

/// Reads what WriteChartData() writes. Other fields are passed over.
/// @return nothing for a text of any other form, such as one that is not JSON, has values that are
///         neither numbers nor null, or a series without a value for each category.
LAKRESVOS_RENDER_EXPORT std::optional<ChartData> ReadChartData(std::string const& json);

}  // namespace lakresvos::render

#endif
