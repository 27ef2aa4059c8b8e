#include "text/Utf8.h"

#include <algorithm>
#include <utf8proc.h>

namespace lakresvos::tabulate {

namespace {

/// Steps over a character, or over a byte that belongs to none.
void Step(std::string_view& text) {
  text.remove_prefix(std::max<std::size_t>(MeasureCharacter(text), 1));
}

}  // namespace

std::size_t MeasureCharacter(std::string_view text) {
  if (!text.empty() && static_cast<unsigned char>(text[0]) < 0x80) {
    return 1;
  }
  utf8proc_int32_t character = 0;
  utf8proc_ssize_t const length =
      utf8proc_iterate(reinterpret_cast<utf8proc_uint8_t const*>(text.data()),
                       static_cast<utf8proc_ssize_t>(text.size()), &character);
  return static_cast<std::size_t>(std::max<utf8proc_ssize_t>(length, 0));
}

bool IsUtf8(std::string_view text) {
  std::size_t length = 1;
  for (; !text.empty() && length != 0; text.remove_prefix(length)) {
    length = MeasureCharacter(text);
  }
  return length != 0;
}

bool IsAscii(std::string_view text) {
  unsigned char seen = 0;
  for (char const c : text) {
    seen |= static_cast<unsigned char>(c);
  }
  return seen < 0x80;
}

std::size_t CountCharacters(std::string_view text) {
  std::size_t count = 0;
  for (; !text.empty(); Step(text)) {
    ++count;
  }
  return count;
}

std::size_t FindCharacter(std::string_view text, std::size_t character) {
  std::string_view rest = text;
  for (; !rest.empty() && character > 0; --character) {
    Step(rest);
  }
  return text.size() - rest.size();
}

}  // namespace lakresvos::tabulate
