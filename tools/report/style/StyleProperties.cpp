#include "style/StyleProperties.h"

#include <algorithm>
#include <array>
#include <cmath>

#include <lakresvos/render/AreaStyle.h>

namespace lakresvos::report {

namespace {

// In the order of their numbers.
constexpr std::array<std::string_view, 9> kAreas = {"title",  "caption",      "footnotes",
                                                    "corner", "columnLabels", "rowLabels",
                                                    "data",   "layers",       "frame"};
constexpr std::array<std::string_view, 3> kHorizontal = {"left", "centre", "right"};
constexpr std::array<std::string_view, 3> kVertical = {"top", "middle", "bottom"};
constexpr std::array<std::string_view, 4> kFontStyles = {"regular", "bold", "italic",
                                                         "bold italic"};

static_assert(kAreas[FormatArea::AreaFrame] == "frame");
static_assert(kHorizontal[static_cast<int>(render::HorizontalAlignment::Right)] == "right");
static_assert(kVertical[static_cast<int>(render::VerticalAlignment::Bottom)] == "bottom");
static_assert(kFontStyles[static_cast<int>(render::FontStyle::BoldItalic)] == "bold italic");

template <auto Set>
bool SetText(FormatArea& format, StyleValue const& value) {
  auto const* const text = std::get_if<std::string>(&value);
  if (text != nullptr) {
    (format.*Set)(*text);
  }
  return text != nullptr;
}

bool IsColour(std::string_view text) {
  return text.size() == 7 && text[0] == '#' &&
         text.find_first_not_of("0123456789abcdefABCDEF", 1) == std::string_view::npos;
}

template <auto Set>
bool SetColour(FormatArea& format, StyleValue const& value) {
  auto const* const text = std::get_if<std::string>(&value);
  return text != nullptr && IsColour(*text) && SetText<Set>(format, value);
}

template <auto Set>
bool SetFlag(FormatArea& format, StyleValue const& value) {
  auto const* const flag = std::get_if<bool>(&value);
  if (flag != nullptr) {
    (format.*Set)(*flag);
  }
  return flag != nullptr;
}

bool SetSize(FormatArea& format, StyleValue const& value) {
  auto const* const size = std::get_if<double>(&value);
  bool const good = size != nullptr && *size >= 0 && *size <= 1000;
  if (good) {
    format.setFontSize(static_cast<float>(*size));
  }
  return good;
}

template <auto Set>
bool SetMargin(FormatArea& format, StyleValue const& value) {
  auto const* const margin = std::get_if<double>(&value);
  bool const good =
      margin != nullptr && *margin >= 0 && *margin <= 1000 && std::floor(*margin) == *margin;
  if (good) {
    (format.*Set)(static_cast<int>(*margin));
  }
  return good;
}

template <auto Set, auto const& Names>
bool SetChoice(FormatArea& format, StyleValue const& value) {
  auto const* const text = std::get_if<std::string>(&value);
  if (text == nullptr) {
    return false;
  }
  auto const* const found = std::find(Names.begin(), Names.end(), *text);
  if (found != Names.end()) {
    (format.*Set)(static_cast<int>(found - Names.begin()));
  }
  return found != Names.end();
}

constexpr char kText[] = "a text";
constexpr char kFlag[] = "true or false";
constexpr char kColour[] = "a colour as in \"#1f77b4\"";
constexpr char kMargin[] = "a whole number from 0 to 1000";

constexpr std::array<StyleProperty, 15> kProperties = {{
    {"font", kText, SetText<&FormatArea::setFontName>},
    {"size", "a number from 0 to 1000", SetSize},
    {"style", R"("regular", "bold", "italic" or "bold italic")",
     SetChoice<&FormatArea::setFontStyle, kFontStyles>},
    {"underline", kFlag, SetFlag<&FormatArea::setUnderline>},
    {"horizontal", R"("left", "centre" or "right")",
     SetChoice<&FormatArea::setHorizontalAlignment, kHorizontal>},
    {"vertical", R"("top", "middle" or "bottom")",
     SetChoice<&FormatArea::setVerticalAlignment, kVertical>},
    {"textColor", kColour, SetColour<&FormatArea::setTextColor>},
    {"backgroundColor", kColour, SetColour<&FormatArea::setBackgroundColor>},
    {"alternateRows", kFlag, SetFlag<&FormatArea::setUseAltRowColors>},
    {"alternateTextColor", kColour, SetColour<&FormatArea::setAlternateTextColor>},
    {"alternateBackgroundColor", kColour, SetColour<&FormatArea::setAlternateBackgroundColor>},
    {"marginLeft", kMargin, SetMargin<&FormatArea::setMarginLeft>},
    {"marginRight", kMargin, SetMargin<&FormatArea::setMarginRight>},
    {"marginTop", kMargin, SetMargin<&FormatArea::setMarginTop>},
    {"marginBottom", kMargin, SetMargin<&FormatArea::setMarginBottom>},
}};

}  // namespace

StyleProperty const* FindStyleProperty(std::string_view name) {
  auto const* const found =
      std::find_if(kProperties.begin(), kProperties.end(),
                   [name](StyleProperty const& property) { return property.name == name; });
  return found != kProperties.end() ? found : nullptr;
}

std::optional<FormatArea::Area> FindStyleArea(std::string_view name) {
  if (name.size() == 1 && name[0] >= '0' && name[0] <= '8') {
    return static_cast<FormatArea::Area>(name[0] - '0');
  }
  auto const* const found = std::find(kAreas.begin(), kAreas.end(), name);
  if (found == kAreas.end()) {
    return std::nullopt;
  }
  return static_cast<FormatArea::Area>(found - kAreas.begin());
}

}  // namespace lakresvos::report
