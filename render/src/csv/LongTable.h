#ifndef LAKRESVOS_RENDER_CSV_LONGTABLE_H
#define LAKRESVOS_RENDER_CSV_LONGTABLE_H

#include <string>
#include <vector>

#include <lakresvos/OmPivotTable.h>

#include "content/LabelTexts.h"
#include "csv/Record.h"

namespace lakresvos::render {

/// Writes tables in the long shape of CsvRenderer, under one header.
///
/// @param names of the tables, as they are shown; they are written when there are several.
/// @param labels keeps the texts of labels.
/// @param all also writes a record for each combination of categories without a cell.
/// @throws std::length_error that names a table with more combinations than an int can count, before
/// anything is written.
void WriteLongTables(CsvRecord& record, std::vector<OmPivotTable*> const& tables,
                     std::vector<std::string> const& names, LabelTexts& labels, bool all);

}  // namespace lakresvos::render

#endif
