#ifndef LAKRESVOS_RENDER_HTML_TABLE_H
#define LAKRESVOS_RENDER_HTML_TABLE_H

#include <string>

#include <lakresvos/render/DisplayGrid.h>

#include "html/Ids.h"
#include "html/Notes.h"
#include "io/OutputBuffer.h"

namespace lakresvos::render {

/// Writes a grid as a table element.
///
/// @param prefix  with a "t" is the id of the element that names the table.
/// @param ids     gives its header cells theirs.
/// @param threads how many may write rows.
void WriteHtmlTable(OutputBuffer& out, DisplayGrid const& grid, HtmlNotes& notes,
                    std::string const& prefix, HtmlIds& ids, unsigned int threads);

}  // namespace lakresvos::render

#endif
