#ifndef CODEPAGE_UTF8_H
#define CODEPAGE_UTF8_H

#include <cstddef>
#include <string>
#include <string_view>

/// UTF-8 as RFC 3629 defines it: no overlong form, no surrogate, nothing above U+10FFFF. The one
/// walker over it of the converter and the cell library, which are built from the same source.
namespace utf8 {

/// A character and the number of bytes that it takes; 0 bytes where the text is not UTF-8.
struct Character {
  char32_t code;
  std::size_t length;
};

/// The character that `text` starts with. Requires: `text` is not empty.
Character DecodeFirst(std::string_view text);

/// Appends `code` to `text`. Requires: `code` is a character of Unicode.
void Append(std::string& text, char32_t code);

/// Whether `text` is UTF-8 throughout; the empty text is.
bool IsUtf8(std::string_view text);

/// `text` without the tag characters U+E0000 to U+E007F. Requires: `text` is UTF-8.
std::string RemoveTags(std::string_view text);

}  // namespace utf8

#endif
