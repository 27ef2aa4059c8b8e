#ifndef LAKRESVOS_RENDER_XLSX_PICTURE_H
#define LAKRESVOS_RENDER_XLSX_PICTURE_H

#include <string_view>

namespace lakresvos::render {

/// Whether bytes are a complete PNG image (ISO/IEC 15948): chunks with correct checksums from a
/// header with a size to the end mark, with image data between. What the data say is not looked at.
bool IsWholePng(std::string_view bytes);

/// Whether bytes are a complete JPEG image (ITU-T T.81): segments from the start mark to the end
/// mark with a frame that has a size and with a scan.
bool IsWholeJpeg(std::string_view bytes);

}  // namespace lakresvos::render

#endif
