#ifndef LAKRESVOS_RENDER_CSV_LONGTABLE_H
#define LAKRESVOS_RENDER_CSV_LONGTABLE_H

#include <string>
#include <vector>

#include <lakresvos/OmPivotTable.h>
#include <lakresvos/render/CsvRenderer.h>

#include "content/LabelTexts.h"
#include "csv/Record.h"
#include "io/OutputBuffer.h"

namespace lakresvos::render {

/// Writes tables in the long shape of CsvRenderer, under one header.
///
/// @param record appends to `out`.
/// @param names  of the tables, as they are shown; they are written when there are several.
/// @param labels keeps the texts of labels.
/// @throws std::length_error that names a table with more combinations of categories to write than an
///         int can count, before anything is written.
void WriteLongTables(OutputBuffer& out, CsvRecord& record, std::vector<OmPivotTable*> const& tables,
                     std::vector<std::string> const& names, LabelTexts& labels,
                     CsvOptions const& options);

}  // namespace lakresvos::render

#endif
