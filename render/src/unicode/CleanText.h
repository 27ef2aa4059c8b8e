#ifndef LAKRESVOS_RENDER_UNICODE_CLEANTEXT_H
#define LAKRESVOS_RENDER_UNICODE_CLEANTEXT_H

#include <string>
#include <string_view>

namespace lakresvos::render {

/// Any text as UTF-8 that a document of any format can hold.
///
/// Line ends become '\n'. Bytes that are not UTF-8, control characters other than tabs, and the
/// code points that never are characters (U+FDD0 to U+FDEF, U+FFFE, U+FFFF, ...) become U+FFFD.
std::string CleanText(std::string_view text);

}  // namespace lakresvos::render

#endif
