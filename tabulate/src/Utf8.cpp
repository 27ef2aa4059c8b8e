#include "Utf8.h"

#include <algorithm>
#include <utf8proc.h>

namespace lakresvos::tabulate {

namespace {

bool StartsCharacter(char c) {
  return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
}

}  // namespace

bool IsAscii(std::string_view text) {
  unsigned char seen = 0;
  for (char const c : text) {
    seen |= static_cast<unsigned char>(c);
  }
  return seen < 0x80;
}

bool IsUtf8(std::string_view text) {
  while (!text.empty()) {
    utf8proc_int32_t character = 0;
    utf8proc_ssize_t const length =
        utf8proc_iterate(reinterpret_cast<utf8proc_uint8_t const*>(text.data()),
                         static_cast<utf8proc_ssize_t>(text.size()), &character);
    if (length <= 0) {
      return false;
    }
    text.remove_prefix(static_cast<std::size_t>(length));
  }
  return true;
}

std::size_t CharacterCount(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), StartsCharacter));
}

std::size_t CharacterOffset(std::string_view text, std::size_t character) {
  std::size_t offset = 0;
  for (; offset < text.size(); ++offset) {
    if (StartsCharacter(text[offset]) && character-- == 0) {
      break;
    }
  }
  return offset;
}

}  // namespace lakresvos::tabulate
