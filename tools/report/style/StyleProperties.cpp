#include "style/StyleProperties.h"

#include <algorithm>
#include <array>
#include <cmath>

#include <lakresvos/render/AreaNames.h>

namespace lakresvos::report {

namespace {

namespace names = render::area_property;

template <auto Set>
bool SetText(FormatArea& format, StyleValue const& value) {
  auto const* const text = std::get_if<std::string>(&value);
  if (text != nullptr) {
    (format.*Set)(*text);
  }
  return text != nullptr;
}

template <auto Set>
bool SetColor(FormatArea& format, StyleValue const& value) {
  auto const* const text = std::get_if<std::string>(&value);
  return text != nullptr && render::IsColor(*text) && SetText<Set>(format, value);
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

template <auto Set, auto Find>
bool SetChoice(FormatArea& format, StyleValue const& value) {
  auto const* const text = std::get_if<std::string>(&value);
  std::optional<int> const number = text != nullptr ? Find(*text) : std::nullopt;
  if (number) {
    (format.*Set)(*number);
  }
  return number.has_value();
}

constexpr char kText[] = "a string";
constexpr char kFlag[] = "true or false";
constexpr char kColor[] = "a color as in \"#1f77b4\"";
constexpr char kMargin[] = "a whole number from 0 to 1000";

constexpr std::array<StyleProperty, 15> kProperties = {{
    {names::kFontName, "font", kText, SetText<&FormatArea::setFontName>},
    {names::kFontSize, "size", "a number from 0 to 1000", SetSize},
    {names::kFontStyle, "style", R"("regular", "bold", "italic" or "bold italic")",
     SetChoice<&FormatArea::setFontStyle, render::FindFontStyle>},
    {names::kUnderline, "", kFlag, SetFlag<&FormatArea::setUnderline>},
    {names::kHorizontal, "horizontal", R"("left", "center", "centre" or "right")",
     SetChoice<&FormatArea::setHorizontalAlignment, render::FindHorizontal>},
    {names::kVertical, "vertical", R"("top", "middle" or "bottom")",
     SetChoice<&FormatArea::setVerticalAlignment, render::FindVertical>},
    {names::kTextColor, "", kColor, SetColor<&FormatArea::setTextColor>},
    {names::kBackgroundColor, "", kColor, SetColor<&FormatArea::setBackgroundColor>},
    {names::kAlternateRows, "alternateRows", kFlag, SetFlag<&FormatArea::setUseAltRowColors>},
    {names::kAlternateTextColor, "", kColor, SetColor<&FormatArea::setAlternateTextColor>},
    {names::kAlternateBackgroundColor, "", kColor,
     SetColor<&FormatArea::setAlternateBackgroundColor>},
    {names::kMarginLeft, "", kMargin, SetMargin<&FormatArea::setMarginLeft>},
    {names::kMarginRight, "", kMargin, SetMargin<&FormatArea::setMarginRight>},
    {names::kMarginTop, "", kMargin, SetMargin<&FormatArea::setMarginTop>},
    {names::kMarginBottom, "", kMargin, SetMargin<&FormatArea::setMarginBottom>},
}};

}  // namespace

StyleProperty const* FindStyleProperty(std::string_view name) {
  auto const* const found =
      std::find_if(kProperties.begin(), kProperties.end(), [name](StyleProperty const& property) {
        return property.name == name || (property.shortName == name && !name.empty());
      });
  return found != kProperties.end() ? found : nullptr;
}

std::optional<FormatArea::Area> FindStyleArea(std::string_view name) {
  if (name.size() == 1 && name[0] >= '0' && name[0] <= '8') {
    return static_cast<FormatArea::Area>(name[0] - '0');
  }
  return render::FindArea(name);
}

}  // namespace lakresvos::report
