#include "grid/LayerLine.h"

#include <string_view>

namespace lakresvos::render {

namespace {

/// Appends `text`, after `separator` unless one of the two is empty.
void Join(std::string& joined, std::string_view separator, std::string const& text) {
  if (!joined.empty() && !text.empty()) {
    joined += separator;
  }
  joined += text;
}

}  // namespace

std::string LayerLine(std::vector<LayerLabel> const& labels,
                      std::function<std::string(OmCellText const*)> const& shown) {
  std::string line;
  for (LayerLabel const& label : labels) {
    std::string path;
    for (OmCellText const* category : label.categories) {
      Join(path, " / ", shown(category));
    }
    std::string entry = shown(label.dimension);
    Join(entry, ": ", path);
    Join(line, ", ", entry);
  }
  return line;
}

}  // namespace lakresvos::render
