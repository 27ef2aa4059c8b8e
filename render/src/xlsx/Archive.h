#ifndef LAKRESVOS_RENDER_XLSX_ARCHIVE_H
#define LAKRESVOS_RENDER_XLSX_ARCHIVE_H

#include <string_view>

namespace lakresvos::render {

/// Whether each part of a workbook has its checksum, and each XML part ends with the element that it
/// begins with: the XLSX library does not see all that goes wrong when it writes them.
///
/// @param archive a ZIP archive (APPNOTE.TXT of PKWARE) without a comment and below 4 GiB, all parts
///        deflated.
bool HasWholeParts(std::string_view archive);

}  // namespace lakresvos::render

#endif
