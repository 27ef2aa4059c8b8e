#ifndef LAKRESVOS_REPORT_DOCUMENT_WARNINGSTABLE_H
#define LAKRESVOS_REPORT_DOCUMENT_WARNINGSTABLE_H

#include <memory>

#include <lakresvos/OmPivotTable.h>
#include <lakresvos/tabulate/WarningLog.h>

namespace lakresvos::report {

/// Makes the table "Warnings": line, column and problem of the first warnings, with a caption that
/// says how many more there are.
std::unique_ptr<OmPivotTable> MakeWarningsTable(tabulate::WarningLog const& warnings);

}  // namespace lakresvos::report

#endif
