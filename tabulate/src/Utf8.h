#ifndef LAKRESVOS_TABULATE_UTF8_H
#define LAKRESVOS_TABULATE_UTF8_H

#include <cstddef>
#include <string_view>

namespace lakresvos::tabulate {

/// Whether the text is well-formed UTF-8.
bool IsUtf8(std::string_view text);

/// Whether the text has bytes below 0x80 alone.
bool IsAscii(std::string_view text);

/// The number of characters (code points) in the text.
std::size_t CharacterCount(std::string_view text);

/// The offset in bytes of the character with the given number, from 0; the text's size when it has
/// no more than that.
std::size_t CharacterOffset(std::string_view text, std::size_t character);

}  // namespace lakresvos::tabulate

#endif
