#include "unicode/Utf16.h"

#include "unicode/CodePoint.h"

namespace lakresvos::render {

namespace {

std::size_t Units(CodePoint const& point) {
  return point.code >= 0x10000 ? 2 : 1;
}

}  // namespace

std::size_t Utf16Length(std::string_view text) {
  std::size_t length = 0;
  while (!text.empty()) {
    CodePoint const point = DecodeFirst(text);
    length += Units(point);
    text.remove_prefix(point.length);
  }
  return length;
}

std::string_view Utf16Prefix(std::string_view text, std::size_t units) {
  std::string_view rest = text;
  while (!rest.empty()) {
    CodePoint const point = DecodeFirst(rest);
    if (Units(point) > units) {
      break;
    }
    units -= Units(point);
    rest.remove_prefix(point.length);
  }
  return text.substr(0, text.size() - rest.size());
}

}  // namespace lakresvos::render
