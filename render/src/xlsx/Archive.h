#ifndef LAKRESVOS_RENDER_XLSX_ARCHIVE_H
#define LAKRESVOS_RENDER_XLSX_ARCHIVE_H

#include <string_view>

namespace lakresvos::render {

/// Whether each XML part of a workbook ends with the element that it begins with.
///
/// The XLSX library makes each part in a temporary file and does not see when that cannot be
/// written: on a full disk, a workbook would be whole by all its checksums and hold half a sheet.
///
/// @param archive a ZIP archive (APPNOTE.TXT of PKWARE) without a comment and below 4 GiB.
bool HasWholeParts(std::string_view archive);

}  // namespace lakresvos::render

#endif
