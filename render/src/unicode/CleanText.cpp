#include "unicode/CleanText.h"

#include "unicode/CodePoint.h"

namespace lakresvos::render {

namespace {

bool IsNoncharacter(std::int32_t code) {
  return (code >= 0xFDD0 && code <= 0xFDEF) || (code & 0xFFFE) == 0xFFFE;
}

bool IsAllowed(std::int32_t code) {
  return code == '\n' || code == '\t' || (code >= 0 && !IsControl(code) && !IsNoncharacter(code));
}

}  // namespace

std::string CleanText(std::string_view text) {
  if (IsPlainAscii(text)) {
    return std::string(text);
  }
  std::string clean;
  while (!text.empty()) {
    CodePoint const point = DecodeFirst(text);
    std::string_view const bytes = text.substr(0, point.length);
    text.remove_prefix(point.length);
    if (point.code != '\r') {
      clean += IsAllowed(point.code) ? bytes : kReplacement;
    } else if (text.empty() || text.front() != '\n') {
      clean += '\n';
    }
  }
  return clean;
}

}  // namespace lakresvos::render
