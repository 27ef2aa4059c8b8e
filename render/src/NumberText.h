#ifndef LAKRESVOS_RENDER_NUMBERTEXT_H
#define LAKRESVOS_RENDER_NUMBERTEXT_H

#include <array>
#include <charconv>
#include <string>

namespace lakresvos::render {

/// Appends the shortest text that reads back as the same number, independent of any locale.
/// Requires: the number is not NaN. Infinite ones read "inf" and "-inf".
template <class Number>
void AppendNumber(std::string& out, Number number) {
  std::array<char, 32> digits;
  auto const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  out.append(digits.data(), end);
}

}  // namespace lakresvos::render

#endif
