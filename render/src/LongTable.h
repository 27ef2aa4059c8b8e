#ifndef LAKRESVOS_RENDER_LONGTABLE_H
#define LAKRESVOS_RENDER_LONGTABLE_H

#include <lakresvos/OmPivotTable.h>

#include "CsvRecord.h"

namespace lakresvos::render {

/// Writes a table in the long shape of CsvRenderer.
///
/// @param all also writes a record for each combination of categories without a cell.
void WriteLongTable(CsvRecord& record, OmPivotTable const& table, bool all);

}  // namespace lakresvos::render

#endif
