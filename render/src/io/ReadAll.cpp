#include "io/ReadAll.h"

#include <array>
#include <cstddef>

namespace lakresvos::render {

std::optional<std::string> ReadAll(std::istream& in) {
  std::string text;
  std::array<char, 1U << 16U> buffer;
  while (in) {
    in.read(buffer.data(), buffer.size());
    text.append(buffer.data(), static_cast<std::size_t>(in.gcount()));
  }
  if (!in.eof() || in.bad()) {
    return std::nullopt;
  }
  return text;
}

}  // namespace lakresvos::render
