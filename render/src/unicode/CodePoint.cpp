#include "unicode/CodePoint.h"

#include <algorithm>
#include <utf8proc.h>

namespace lakresvos::render {

CodePoint DecodeFirst(std::string_view text) {
  utf8proc_int32_t code = -1;
  auto const* bytes = reinterpret_cast<utf8proc_uint8_t const*>(text.data());
  utf8proc_ssize_t const length =
      utf8proc_iterate(bytes, static_cast<utf8proc_ssize_t>(text.size()), &code);
  return length > 0 ? CodePoint{code, static_cast<std::size_t>(length)} : CodePoint{-1, 1};
}

std::size_t CountCodePoints(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), StartsCodePoint));
}

bool IsUtf8(std::string_view text) {
  if (IsPlainAscii(text)) {
    return true;
  }
  while (!text.empty()) {
    CodePoint const point = DecodeFirst(text);
    if (point.code < 0) {
      return false;
    }
    text.remove_prefix(point.length);
  }
  return true;
}

bool IsControl(std::int32_t code) {
  return (code >= 0 && code < 0x20) || (code >= 0x7F && code < 0xA0);
}

bool IsPlainAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c <= '~'; });
}

}  // namespace lakresvos::render
