#ifndef LAKRESVOS_REPORT_DOCUMENT_DOCUMENT_H
#define LAKRESVOS_REPORT_DOCUMENT_DOCUMENT_H

#include <lakresvos/OmOutputTree.h>
#include <lakresvos/tabulate/WarningLog.h>

#include "cli/Options.h"

namespace lakresvos::report {

/// Reads the data and appends to the document, below a procedure: the command as a text block
/// "Log", a table "Notes" about the data, the tables that are asked for, and, when the data gave
/// cause, a table "Warnings".
/// @return what was passed over in the data.
/// @throws InputError for bad data. Whatever is thrown, the document is then as it was.
tabulate::WarningLog AppendReport(OmOutputTree& document, Options const& options);

}  // namespace lakresvos::report

#endif
