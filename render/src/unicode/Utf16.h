#ifndef LAKRESVOS_RENDER_UNICODE_UTF16_H
#define LAKRESVOS_RENDER_UNICODE_UTF16_H

#include <cstddef>
#include <string_view>

namespace lakresvos::render {

// Some formats count characters as UTF-16 does. Texts are UTF-8 all the same.

/// The length of a text in UTF-16 units.
std::size_t Utf16Length(std::string_view text);

/// The longest start of a text that takes at most so many UTF-16 units.
std::string_view Utf16Prefix(std::string_view text, std::size_t units);

}  // namespace lakresvos::render

#endif
