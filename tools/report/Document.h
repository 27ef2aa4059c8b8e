#ifndef TOOLS_REPORT_DOCUMENT_H
#define TOOLS_REPORT_DOCUMENT_H

#include <lakresvos/OmOutputTree.h>

#include "Options.h"
#include "WarningLog.h"

namespace lakresvos::report {

/// Reads the data and appends to the document, below a procedure: the command as a text block
/// "Log", a table "Notes" about the data, the tables that are asked for, and, when the data gave
/// cause, a table "Warnings".
/// @return what was passed over in the data.
/// @throws ReportError for bad data. Whatever is thrown, the document is then as it was.
WarningLog AppendReport(OmOutputTree& document, Options const& options);

}  // namespace lakresvos::report

#endif
