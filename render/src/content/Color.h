#ifndef LAKRESVOS_RENDER_CONTENT_COLOR_H
#define LAKRESVOS_RENDER_CONTENT_COLOR_H

#include <string>

namespace lakresvos::render {

/// Whether the text is a color that renderers understand: "#rgb" or "#rrggbb".
inline bool IsColor(std::string const& text) {
  return (text.size() == 4 || text.size() == 7) && text[0] == '#' &&
         text.find_first_not_of("0123456789abcdefABCDEF", 1) == std::string::npos;
}

/// The color as "#rrggbb". Requires: IsColor(text).
inline std::string LongColor(std::string const& text) {
  return text.size() == 7 ? text
                          : std::string{'#', text[1], text[1], text[2], text[2], text[3], text[3]};
}

}  // namespace lakresvos::render

#endif
