#ifndef TOOLS_REPORT_RENDERING_H
#define TOOLS_REPORT_RENDERING_H

#include <iosfwd>

#include <lakresvos/OmOutputTree.h>

#include "Options.h"

namespace lakresvos::report {

/// Writes a document in the format that is asked for.
void Render(OmOutputTree& document, Options const& options, std::ostream& out);

}  // namespace lakresvos::report

#endif
