#ifndef TOOLS_REPORT_RENDERING_H
#define TOOLS_REPORT_RENDERING_H

#include <iosfwd>
#include <string>
#include <vector>

#include <lakresvos/OmOutputTree.h>

#include "Options.h"

namespace lakresvos::report {

/// Writes a document in the format that is asked for.
/// @return a line for each kind of thing that the format could not hold.
std::vector<std::string> Render(OmOutputTree& document, Options const& options, std::ostream& out);

}  // namespace lakresvos::report

#endif
