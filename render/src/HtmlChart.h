#ifndef LAKRESVOS_RENDER_HTMLCHART_H
#define LAKRESVOS_RENDER_HTMLCHART_H

#include <string>

#include <lakresvos/OmChart.h>

namespace lakresvos::render {

/// The content of a chart's figure: its picture, its data as a table, or its announcement.
std::string HtmlChart(OmChart const& chart);

/// The media type of an image, told by its first bytes: "image/png", "image/jpeg" or
/// "image/svg+xml"; empty for anything else.
std::string ImageType(std::string const& bytes);

}  // namespace lakresvos::render

#endif
