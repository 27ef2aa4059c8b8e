#ifndef LAKRESVOS_RENDER_UNICODE_CODEPOINT_H
#define LAKRESVOS_RENDER_UNICODE_CODEPOINT_H

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace lakresvos::render {

/// What is shown for bytes that are not UTF-8, and for characters that must not be shown.
constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

/// The start of a text: a code point and its length in bytes; code -1 and length 1 where the text
/// is not UTF-8.
struct CodePoint {
  std::int32_t code;
  std::size_t length;
};

/// Decodes the start of a text.
/// Requires: `text` is not empty.
CodePoint DecodeFirst(std::string_view text);

/// Whether a byte of a text in UTF-8 starts a code point rather than goes on with one.
inline bool StartsCodePoint(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
}

/// How many code points start in a text in UTF-8.
std::size_t CountCodePoints(std::string_view text);

/// Whether a text is UTF-8 from end to end: no surrogates, no overlong forms, nothing above
/// U+10FFFF.
bool IsUtf8(std::string_view text);

/// Whether it is one of the characters U+0000 to U+001F and U+007F to U+009F.
bool IsControl(std::int32_t code);

/// Whether every byte is a printable ASCII character, each one column wide.
bool IsPlainAscii(std::string_view text);

}  // namespace lakresvos::render

#endif
