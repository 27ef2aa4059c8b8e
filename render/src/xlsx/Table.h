#ifndef LAKRESVOS_RENDER_XLSX_TABLE_H
#define LAKRESVOS_RENDER_XLSX_TABLE_H

#include <string>

#include <lakresvos/OmPivotTable.h>
#include <lakresvos/render/XlsxRenderer.h>

#include "xlsx/Contents.h"

namespace lakresvos::render {

/// Writes the sheets of a table: each with its title, one layer or all, the notes and the caption.
/// @param title the text that heads the table.
void WriteXlsxTable(OmPivotTable& table, std::string const& title, XlsxContents& contents,
                    XlsxOptions const& options);

}  // namespace lakresvos::render

#endif
