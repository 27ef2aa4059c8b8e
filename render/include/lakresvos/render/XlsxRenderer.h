#ifndef LAKRESVOS_RENDER_XLSXRENDERER_H
#define LAKRESVOS_RENDER_XLSXRENDERER_H

#include <ostream>

#include <lakresvos/render/Export.h>
#include <lakresvos/render/TableOptions.h>

class OmOutputTree;

namespace lakresvos::render {

/// How a document becomes a workbook.
struct XlsxOptions : TableOptions {
  bool layersAsSheets = false;  ///< a sheet for each layer, not only for each table
  bool mergeRows = true;        ///< row headings that reach over several cells are merged ones
  bool mergeColumns = true;     ///< the same of column headings and of the corner
};

/// Writes a document as a workbook of Office Open XML (ECMA-376, ".xlsx").
///
/// - The first sheet, "Contents", lists the document's items, indented by depth, with the texts and
///   with a link to the sheet of each table and picture; those link back.
/// - A table has a sheet of its own, named after its title: the title, and for each layer its name,
///   the grid and below it the notes; at the end the caption. With layers as sheets, one sheet for
///   each layer.
/// - Numbers are numbers with their decimals as number format, everything else is text, never a
///   formula; the system-missing value is the text ".". Marks of footnotes stand raised behind texts
///   and, through the number format, behind numbers.
/// - Heading cells are merged, or where that is not wanted repeated. Panes are frozen at the first
///   data cell, heading rows and columns are repeated on every printed page, groups are outlined
///   below their first row or column. Columns are as wide as their widest text that is not merged,
///   up to a limit.
/// - Area formats and the styles of cells become cell formats, margins left out; see AreaStyle.h.
/// - A chart with a PNG or JPEG image is a sheet with the picture. Other charts, models, answer trees
///   and interactive items are announced in the contents.
///
/// Bytes that are not UTF-8 and control characters become U+FFFD.
///
/// Takes time linear in the displayed and stored cells. Beside the headings, memory does not grow
/// with the rows: they go to temporary files.
///
/// @param out where to write. Its state tells whether writing failed.
/// @throws std::length_error that names the table when it has more than 1,048,576 rows or 16,384
///         columns or a text of more than 32,767 characters; std::runtime_error when a temporary
///         file cannot be written. Nothing is written to `out` then.
LAKRESVOS_RENDER_EXPORT void RenderXlsx(OmOutputTree& tree, std::ostream& out,
                                        XlsxOptions const& options = {});

}  // namespace lakresvos::render

#endif
