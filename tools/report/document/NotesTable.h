#ifndef LAKRESVOS_REPORT_DOCUMENT_NOTESTABLE_H
#define LAKRESVOS_REPORT_DOCUMENT_NOTESTABLE_H

#include <memory>
#include <string>

#include <lakresvos/OmPivotTable.h>
#include <lakresvos/tabulate/CountedData.h>

namespace lakresvos::report {

/// Makes the table "Notes": the data file and what there is to know of it, the numbers of rows read and rows used, the weight, and
/// the number of missing values in each column.
/// @param weight the column of weights; empty when there is none.
std::unique_ptr<OmPivotTable> MakeNotesTable(tabulate::CountedData const& data,
                                             std::string const& weight);

}  // namespace lakresvos::report

#endif
