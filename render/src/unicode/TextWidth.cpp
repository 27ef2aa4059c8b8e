#include "unicode/TextWidth.h"

#include <algorithm>
#include <limits>
#include <utf8proc.h>

#include "unicode/CodePoint.h"

namespace lakresvos::render {

namespace {

constexpr utf8proc_int32_t kEmojiPresentation = 0xFE0F;  // UTS #51: shown as an emoji, two wide

bool IsLineEnd(utf8proc_int32_t code) {
  return code == '\n' || code == '\r' || code == 0x2028 || code == 0x2029;
}

/// Embeddings, overrides and isolates: left open, they would reorder the frame around the text.
bool ChangesDirection(utf8proc_int32_t code) {
  return (code >= 0x202A && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
}

bool IsRegionalIndicator(utf8proc_int32_t code) {
  return code >= 0x1F1E6 && code <= 0x1F1FF;
}

/// What is printed of a code point, given with its bytes.
std::string_view CleanCodePoint(CodePoint point, std::string_view bytes) {
  if (point.code == '\t') {
    return " ";
  }
  bool const hostile = point.code < 0 || ChangesDirection(point.code) || IsControl(point.code);
  return hostile ? kReplacement : bytes;
}

}  // namespace

std::vector<std::string> PrintableLines(std::string_view text) {
  std::vector<std::string> lines(1);
  while (!text.empty()) {
    CodePoint const point = DecodeFirst(text);
    std::string_view const bytes = text.substr(0, point.length);
    text.remove_prefix(point.length);
    if (!IsLineEnd(point.code)) {
      lines.back() += CleanCodePoint(point, bytes);
      continue;
    }
    if (point.code == '\r' && !text.empty() && text.front() == '\n') {
      text.remove_prefix(1);
    }
    if (!text.empty()) {
      lines.emplace_back();
    }
  }
  return lines;
}

Grapheme SplitGrapheme(std::string_view& text) {
  CodePoint previous = DecodeFirst(text);
  std::size_t length = previous.length;
  int width = utf8proc_charwidth(previous.code);
  utf8proc_int32_t state = 0;
  while (length < text.size()) {
    CodePoint const next = DecodeFirst(text.substr(length));
    if (utf8proc_grapheme_break_stateful(previous.code, next.code, &state)) {
      break;
    }
    bool const flag = IsRegionalIndicator(previous.code) && IsRegionalIndicator(next.code);
    bool const emoji = flag || (next.code == kEmojiPresentation && width > 0);
    width = emoji ? 2 : std::max(width, utf8proc_charwidth(next.code));
    length += next.length;
    previous = next;
  }
  Grapheme const grapheme{text.substr(0, length), width};
  text.remove_prefix(length);
  return grapheme;
}

int TextWidth(std::string_view text) {
  if (IsPlainAscii(text)) {
    return static_cast<int>(std::min<std::size_t>(text.size(), std::numeric_limits<int>::max()));
  }
  int width = 0;
  while (!text.empty()) {
    width += SplitGrapheme(text).width;
  }
  return width;
}

}  // namespace lakresvos::render
