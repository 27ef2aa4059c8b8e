#include "content/ImageType.h"

#include <string_view>

namespace lakresvos::render {

std::string ImageType(std::string const& bytes) {
  std::string_view const start = bytes;
  if (start.substr(0, 8) == "\x89PNG\r\n\x1A\n") {
    return "image/png";
  }
  if (start.substr(0, 3) == "\xFF\xD8\xFF") {
    return "image/jpeg";
  }
  std::size_t const bom = start.substr(0, 3) == "\xEF\xBB\xBF" ? 3 : 0;
  std::size_t const markup = start.find_first_not_of(" \t\r\n", bom);
  std::string_view const text = markup < start.size() ? start.substr(markup) : "";
  bool const xml = text.substr(0, 5) == "<?xml" || text.substr(0, 4) == "<!--" ||
                   text.substr(0, 9) == "<!DOCTYPE";
  bool const svg = text.substr(0, 4) == "<svg" ||
                   (xml && text.substr(0, 4096).find("<svg") != std::string_view::npos);
  return svg ? "image/svg+xml" : "";
}

}  // namespace lakresvos::render
