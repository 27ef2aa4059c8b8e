#include <algorithm>
#include <string>

#include <lakresvos/render/JsonSyntax.h>

#include "unicode/CodePoint.h"

namespace lakresvos::render {

namespace {

constexpr std::string_view kOutOfRange = "[json.exception.out_of_range.";

std::string FindReason(bool ended, std::string_view message) {
  if (message.substr(0, kOutOfRange.size()) == kOutOfRange) {
    return "number out of range";
  }
  std::string_view const complaint = message.substr(0, message.find("; last read: "));
  if (complaint.find("UTF-8") != std::string_view::npos) {
    return "invalid UTF-8";
  }
  return ended ? "invalid JSON: unexpected end" : "invalid JSON";
}

}  // namespace

JsonError MakeSyntaxError(std::string_view text, std::size_t position, std::string_view message) {
  std::string_view const read = text.substr(0, position == 0 ? 0 : position - 1);
  auto const line = std::count(read.begin(), read.end(), '\n') + 1;
  std::size_t const column = CountCodePoints(read.substr(read.rfind('\n') + 1)) + 1;
  return {std::to_string(line) + ":" + std::to_string(column),
          FindReason(position > text.size(), message)};
}

}  // namespace lakresvos::render
