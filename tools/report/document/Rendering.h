#ifndef LAKRESVOS_REPORT_DOCUMENT_RENDERING_H
#define LAKRESVOS_REPORT_DOCUMENT_RENDERING_H

#include <iosfwd>
#include <string>
#include <vector>

#include <lakresvos/OmOutputTree.h>

#include "cli/Options.h"

namespace lakresvos::report {

/// Writes a document in the format that the options name.
/// @return a line for each kind of content that the format could not hold.
std::vector<std::string> Render(OmOutputTree const& document, Options const& options,
                                std::ostream& out);

}  // namespace lakresvos::report

#endif
