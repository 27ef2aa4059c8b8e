#include "Utf8.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace utf8 {

namespace {

/// The characters whose first byte lies in one range. Bytes after the second are 0x80 to 0xBF.
struct Form {
  unsigned char firstMin;
  unsigned char firstMax;
  unsigned char length;
  unsigned char secondMin;
  unsigned char secondMax;
};

constexpr Form kForms[] = {
    {0x00, 0x7F, 1, 0x00, 0x00}, {0xC2, 0xDF, 2, 0x80, 0xBF}, {0xE0, 0xE0, 3, 0xA0, 0xBF},
    {0xE1, 0xEC, 3, 0x80, 0xBF}, {0xED, 0xED, 3, 0x80, 0x9F}, {0xEE, 0xEF, 3, 0x80, 0xBF},
    {0xF0, 0xF0, 4, 0x90, 0xBF}, {0xF1, 0xF3, 4, 0x80, 0xBF}, {0xF4, 0xF4, 4, 0x80, 0x8F},
};

bool Within(char byte, unsigned char lowest, unsigned char highest) {
  auto const value = static_cast<unsigned char>(byte);
  return value >= lowest && value <= highest;
}

/// The length of the character that `text`, which is not empty, starts with; 0 when it is broken.
std::size_t FirstLength(std::string_view text) {
  auto const form = std::find_if(std::begin(kForms), std::end(kForms), [&](Form const& f) {
    return Within(text[0], f.firstMin, f.firstMax);
  });
  if (form == std::end(kForms) || form->length > text.size()) {
    return 0;
  }
  if (form->length > 1 && !Within(text[1], form->secondMin, form->secondMax)) {
    return 0;
  }
  std::string_view const later = text.substr(std::min<std::size_t>(form->length, 2),
                                             form->length > 2 ? form->length - 2U : 0U);
  bool const whole =
      std::all_of(later.begin(), later.end(), [](char byte) { return Within(byte, 0x80, 0xBF); });
  return whole ? form->length : 0;
}

}  // namespace

bool IsWellFormed(std::string_view text) {
  while (!text.empty()) {
    std::size_t const length = FirstLength(text);
    if (length == 0) {
      return false;
    }
    text.remove_prefix(length);
  }
  return true;
}

std::string WithoutTags(std::string_view text) {
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
