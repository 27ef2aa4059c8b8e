#ifndef LAKRESVOS_RENDER_HTML_TABLE_H
#define LAKRESVOS_RENDER_HTML_TABLE_H

#include <string>

#include <lakresvos/render/DisplayGrid.h>

#include "html/Notes.h"
#include "io/OutputBuffer.h"

namespace lakresvos::render {

/// Writes a grid as a table element.
///
/// @param prefix starts the ids of its header cells, and with a "t" is that of the element that
///               names the table.
void WriteHtmlTable(OutputBuffer& out, DisplayGrid const& grid, HtmlNotes& notes,
                    std::string const& prefix);

}  // namespace lakresvos::render

#endif
