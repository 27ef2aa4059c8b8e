#ifndef LAKRESVOS_REPORT_DOCUMENT_SAVEDDOCUMENT_H
#define LAKRESVOS_REPORT_DOCUMENT_SAVEDDOCUMENT_H

#include <memory>
#include <string>

#include <lakresvos/OmOutputTree.h>

namespace lakresvos::report {

/// Reads a document that was saved as JSON.
/// @throws InputError that names the file and the place in it when it cannot be read.
std::unique_ptr<OmOutputTree> ReadDocument(std::string const& file);

}  // namespace lakresvos::report

#endif
