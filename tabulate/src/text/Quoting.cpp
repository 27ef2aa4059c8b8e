#include <lakresvos/tabulate/Quoting.h>

#include "text/Utf8.h"

namespace lakresvos::tabulate {

std::string EscapeControls(std::string_view text) {
  static char const digits[] = "0123456789ABCDEF";
  std::string line;
  for (char const c : text) {
    auto const byte = static_cast<unsigned char>(c);
    if (c == '\n') {
      line += "\\n";
    } else if (c == '\r') {
      line += "\\r";
    } else if (c == '\t') {
      line += "\\t";
    } else if (byte < 0x20 || byte == 0x7F) {
      line += "\\x";
      line += digits[byte / 16];
      line += digits[byte % 16];
    } else {
      line += c;
    }
  }
  return line;
}

std::string Shorten(std::string const& line) {
  constexpr std::size_t kMaxLength = 500;
  constexpr std::size_t kEndLength = 200;
  std::size_t const characters = CountCharacters(line);
  if (characters <= kMaxLength) {
    return line;
  }
  return line.substr(0, FindCharacter(line, kMaxLength - kEndLength)) + "..." +
         line.substr(FindCharacter(line, characters - kEndLength));
}

std::string Quote(std::string_view text) {
  constexpr std::size_t kMaxLength = 40;
  std::size_t const shown = FindCharacter(text, kMaxLength);
  std::string quoted = "'";
  quoted += EscapeControls(text.substr(0, shown));
  quoted += shown < text.size() ? "...'" : "'";
  return quoted;
}

}  // namespace lakresvos::tabulate
