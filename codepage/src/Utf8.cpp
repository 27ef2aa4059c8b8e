#include "Utf8.h"

#include <algorithm>

namespace utf8 {

namespace {

constexpr Character kBroken{0, 0};

/// The smallest code that needs as many bytes: shorter ones are overlong.
constexpr char32_t kMinCodes[] = {0, 0, 0x80, 0x800, 0x10000};

}  // namespace

Character DecodeFirst(std::string_view text) {
  auto const byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  unsigned char const lead = byte(0);
  if (lead < 0x80) {
    return {lead, 1};
  }
  std::size_t const length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  if (lead < 0xC0 || lead > 0xF7 || length > text.size()) {
    return kBroken;
  }
  char32_t code = lead & (0xFFU >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0) != 0x80) {
      return kBroken;
    }
    code = (code << 6) | (byte(i) & 0x3FU);
  }
  bool const surrogate = code >= 0xD800 && code < 0xE000;
  bool const wellFormed = code >= kMinCodes[length] && code <= 0x10FFFF && !surrogate;
  return wellFormed ? Character{code, length} : kBroken;
}

void Append(std::string& text, char32_t code) {
  auto const put = [&](char32_t bits) { text.push_back(static_cast<char>(bits)); };
  if (code < 0x80) {
    put(code);
    return;
  }
  if (code < 0x800) {
    put(0xC0 | (code >> 6));
  } else {
    if (code < 0x10000) {
      put(0xE0 | (code >> 12));
    } else {
      put(0xF0 | (code >> 18));
      put(0x80 | ((code >> 12) & 0x3F));
    }
    put(0x80 | ((code >> 6) & 0x3F));
  }
  put(0x80 | (code & 0x3F));
}

bool IsUtf8(std::string_view text) {
  while (!text.empty()) {
    std::size_t const length = DecodeFirst(text).length;
    if (length == 0) {
      return false;
    }
    text.remove_prefix(length);
  }
  return true;
}

std::string RemoveTags(std::string_view text) {
  constexpr std::size_t kTagLength = 4;
  std::string rest;
  for (;;) {
    std::size_t const tag = std::min(text.find("\xF3\xA0\x80"), text.find("\xF3\xA0\x81"));
    rest.append(text.substr(0, tag));
    if (tag == std::string_view::npos) {
      return rest;
    }
    text.remove_prefix(tag + kTagLength);
  }
}

}  // namespace utf8
