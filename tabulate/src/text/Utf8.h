#ifndef LAKRESVOS_TABULATE_TEXT_UTF8_H
#define LAKRESVOS_TABULATE_TEXT_UTF8_H

#include <cstddef>
#include <string_view>

namespace lakresvos::tabulate {

/// The number of bytes of a text's first character; 0 for an empty text and for malformed UTF-8.
std::size_t MeasureCharacter(std::string_view text);

/// Whether the text is well-formed UTF-8.
bool IsUtf8(std::string_view text);

/// Whether the text has bytes below 0x80 only, which is far quicker to tell than whether it is
/// UTF-8.
bool IsAscii(std::string_view text);

/// The number of characters (code points) in the text. A byte that belongs to none counts as one.
std::size_t CountCharacters(std::string_view text);

/// The offset in bytes of the character with the given number, from 0; the text's size when it has
/// no more than that.
std::size_t FindCharacter(std::string_view text, std::size_t character);

}  // namespace lakresvos::tabulate

#endif
