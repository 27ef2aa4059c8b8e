#ifndef LAKRESVOS_RENDER_HTML_IDS_H
#define LAKRESVOS_RENDER_HTML_IDS_H

#include <array>
#include <charconv>
#include <cstddef>
#include <string>

namespace lakresvos::render {

/// The ids of the header cells of a page: "h0", "h1", ... "hz", "h10", ... They are short because
/// every data cell lists those of all its headers.
class HtmlIds {
 public:
  std::string Next() {
    std::array<char, 16> digits;
    auto const end = std::to_chars(digits.data(), digits.data() + digits.size(), next_++, 36).ptr;
    return "h" + std::string(digits.data(), end);
  }

 private:
  std::size_t next_ = 0;
};

}  // namespace lakresvos::render

#endif
