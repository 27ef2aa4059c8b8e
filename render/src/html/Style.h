#ifndef LAKRESVOS_RENDER_HTML_STYLE_H
#define LAKRESVOS_RENDER_HTML_STYLE_H

#include <string>

#include <lakresvos/OmPivotTable.h>

namespace lakresvos::render {

/// Style rules for the area formats and cell styles of a table; empty when it has none.
/// @param selector selects the element around the table.
std::string HtmlStyle(OmPivotTable const& table, std::string const& selector);

/// Whether formats or styles of the table set a color.
bool HasColors(OmPivotTable const& table);

}  // namespace lakresvos::render

#endif
