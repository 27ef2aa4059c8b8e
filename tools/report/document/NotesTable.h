#ifndef LAKRESVOS_REPORT_DOCUMENT_NOTESTABLE_H
#define LAKRESVOS_REPORT_DOCUMENT_NOTESTABLE_H

#include <memory>
#include <string>

#include <lakresvos/OmPivotTable.h>
#include <lakresvos/tabulate/DataSet.h>

namespace lakresvos::report {

/// Makes the table "Notes": the file, how many rows were read and how many of them count, the
/// weight, and how many values are missing in each column.
/// @param weight the weight's column; empty when there is none.
std::unique_ptr<OmPivotTable> MakeNotesTable(tabulate::DataSet const& data,
                                             std::string const& weight);

}  // namespace lakresvos::report

#endif
