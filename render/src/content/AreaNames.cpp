#include <algorithm>

#include <lakresvos/render/AreaNames.h>
#include <lakresvos/render/AreaStyle.h>

namespace lakresvos::render {

namespace {

constexpr std::array<std::string_view, 3> kHorizontal = {"left", "center", "right"};
constexpr std::array<std::string_view, 3> kVertical = {"top", "middle", "bottom"};
constexpr std::array<std::string_view, 4> kFontStyles = {"regular", "bold", "italic",
                                                         "bold italic"};

static_assert(kAreaNames[FormatArea::AreaFrame] == "frame");
static_assert(kHorizontal[static_cast<int>(HorizontalAlignment::Right)] == "right");
static_assert(kVertical[static_cast<int>(VerticalAlignment::Bottom)] == "bottom");
static_assert(kFontStyles[static_cast<int>(FontStyle::BoldItalic)] == "bold italic");

template <class Names>
std::optional<int> FindName(Names const& names, std::string_view name) {
  auto const found = std::find(names.begin(), names.end(), name);
  if (found == names.end()) {
    return std::nullopt;
  }
  return static_cast<int>(found - names.begin());
}

}  // namespace

std::optional<FormatArea::Area> FindArea(std::string_view name) {
  std::optional<int> const number = FindName(kAreaNames, name);
  return number ? std::optional(static_cast<FormatArea::Area>(*number)) : std::nullopt;
}

std::optional<int> FindHorizontal(std::string_view name) {
  return FindName(kHorizontal, name == "centre" ? "center" : name);
}

std::optional<int> FindVertical(std::string_view name) {
  return FindName(kVertical, name);
}

std::optional<int> FindFontStyle(std::string_view name) {
  return FindName(kFontStyles, name);
}

bool IsColor(std::string_view text) {
  return (text.size() == 4 || text.size() == 7) && text[0] == '#' &&
         text.find_first_not_of("0123456789abcdefABCDEF", 1) == std::string_view::npos;
}

}  // namespace lakresvos::render
