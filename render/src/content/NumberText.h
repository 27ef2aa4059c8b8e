#ifndef LAKRESVOS_RENDER_CONTENT_NUMBERTEXT_H
#define LAKRESVOS_RENDER_CONTENT_NUMBERTEXT_H

#include <array>
#include <charconv>
#include <string>

#include <cells/OmNumber.h>

namespace lakresvos::render {

// Both append the shortest text that reads back as the same number, independent of any locale.
// Require: the number is not NaN. Infinite ones read "inf" and "-inf".

/// As a number cell without set decimals shows it.
inline void AppendNumber(std::string& out, double number) {
  out += OmNumber(number).GetText();
}

inline void AppendNumber(std::string& out, float number) {
  std::array<char, 32> digits;
  auto const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  out.append(digits.data(), end);
}

}  // namespace lakresvos::render

#endif
