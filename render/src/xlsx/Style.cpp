#include "xlsx/Style.h"

#include <cmath>
#include <tuple>

#include <lakresvos/render/AreaNames.h>

#include "unicode/CleanText.h"
#include "unicode/Utf16.h"

namespace lakresvos::render {

namespace {

/// The color as "#rrggbb". Requires: IsColor(text).
std::string ExpandColor(std::string const& text) {
  return text.size() == 7 ? text
                          : std::string{'#', text[1], text[1], text[2], text[2], text[3], text[3]};
}

constexpr std::size_t kMaxFontName = 31;  // that a workbook can have

auto AsTuple(XlsxStyle const& style) {
  return std::tie(style.font, style.size, style.bold, style.italic, style.underline, style.raised,
                  style.horizontal, style.vertical, style.color, style.background,
                  style.numberFormat, style.indent, style.rule, style.groupRule, style.wrap);
}

void SetFontStyle(XlsxStyle& style, int number) {
  switch (static_cast<FontStyle>(number)) {
    case FontStyle::Regular:
    case FontStyle::Bold:
    case FontStyle::Italic:
    case FontStyle::BoldItalic:
      style.bold = (number & static_cast<int>(FontStyle::Bold)) != 0;
      style.italic = (number & static_cast<int>(FontStyle::Italic)) != 0;
      break;
    case FontStyle::Any:
      break;
  }
}

template <class Alignment>
void SetAlignment(Alignment& alignment, int number) {
  if (number >= 0 && number <= 2) {
    alignment = static_cast<Alignment>(number);
  }
}

void SetColors(XlsxStyle& style, std::string const& text, std::string const& background) {
  if (IsColor(text)) {
    style.color = ExpandColor(text);
  }
  if (IsColor(background)) {
    style.background = ExpandColor(background);
  }
}

template <class Format>
XlsxStyle Apply(XlsxStyle style, Format const& format) {
  std::string const font = CleanText(format.getFontName());
  if (!font.empty() && Utf16Length(font) <= kMaxFontName) {
    style.font = font;
  }
  double const size = static_cast<double>(format.getFontSize());
  if (std::isfinite(size) && size >= 1 && size <= 409) {  // what a workbook can have
    style.size = size;
  }
  SetFontStyle(style, format.getFontStyle());
  style.underline = style.underline || format.getUnderline();
  SetAlignment(style.horizontal, format.getHorizontalAlignment());
  SetAlignment(style.vertical, format.getVerticalAlignment());
  SetColors(style, format.getTextColor(), format.getBackgroundColor());
  return style;
}

}  // namespace

bool XlsxStyle::operator<(XlsxStyle const& other) const {
  return AsTuple(*this) < AsTuple(other);
}

XlsxStyle ApplyArea(XlsxStyle style, OmPivotTable const& table, FormatArea::Area area) {
  FormatArea const* const format = table.getAreaFormat(area);
  return format != nullptr ? Apply(std::move(style), *format) : style;
}

XlsxStyle ApplyProperties(XlsxStyle style, OmCellProperties const& properties) {
  return Apply(std::move(style), properties);
}

XlsxStyle ApplyAlternateColors(XlsxStyle style, FormatArea const* data) {
  if (data != nullptr && data->getUseAltRowColors()) {
    SetColors(style, data->getAlternateTextColor(), data->getAlternateBackgroundColor());
  }
  return style;
}

}  // namespace lakresvos::render
