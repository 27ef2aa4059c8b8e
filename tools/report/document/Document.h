#ifndef LAKRESVOS_REPORT_DOCUMENT_DOCUMENT_H
#define LAKRESVOS_REPORT_DOCUMENT_DOCUMENT_H

#include <lakresvos/OmOutputTree.h>
#include <lakresvos/tabulate/WarningLog.h>

#include "cli/Options.h"

namespace lakresvos::report {

/// Reads the data and appends to the document, below a procedure: the command as a text block
/// "Log", a table "Notes" about the data, the tables that are asked for, each with its chart after
/// it, and a table "Warnings" when anything in the data was skipped with a warning.
/// @return what was skipped in the data.
/// @throws InputError for bad data. Whatever is thrown, the document is unchanged.
tabulate::WarningLog AppendReport(OmOutputTree& document, Options const& options);

}  // namespace lakresvos::report

#endif
