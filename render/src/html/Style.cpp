#include "html/Style.h"

#include <array>
#include <cmath>
#include <string_view>

#include <lakresvos/render/AreaNames.h>
#include <lakresvos/render/AreaStyle.h>

#include "content/AreaAlignment.h"
#include "content/NumberText.h"
#include "unicode/CleanText.h"

namespace lakresvos::render {

namespace {

struct AreaSelector {
  FormatArea::Area area;
  char const* selector;
};

constexpr std::array<AreaSelector, 9> kSelectors = {{
    {FormatArea::AreaTitle, ".title"},
    {FormatArea::AreaCaption, ".table-caption"},
    {FormatArea::AreaFootnotes, ".notes"},
    {FormatArea::AreaCorner, "thead .corner"},
    {FormatArea::AreaColumnLabels, "thead tr > :not(.corner)"},
    {FormatArea::AreaRowLabels, "tbody [class^=h]"},
    {FormatArea::AreaData, "tbody td:not([class^=h])"},
    {FormatArea::AreaLayers, ".layer-line"},
    {FormatArea::AreaFrame, ".pivot-table"},
}};

/// The share of each of red, green and blue, from 0 to 15.
int Digit(char c) {
  return c <= '9' ? c - '0' : (c | 0x20) - 'a' + 10;
}

/// The page's own text color on a light background, else black or white, whichever can be read;
/// brightness as in ITU-R BT.601. A table with colors is on a light page.
char const* Readable(std::string const& background) {
  std::size_t const step = background.size() == 4 ? 1 : 2;
  int const brightness = 299 * Digit(background[1]) + 587 * Digit(background[1 + step]) +
                         114 * Digit(background[1 + 2 * step]);
  if (brightness >= 10'000) {
    return "var(--text)";
  }
  return brightness >= 7500 ? "#000" : "#fff";
}

/// A text as a CSS string.
std::string QuoteCss(std::string_view text) {
  std::string css = "\"";
  for (char const c : CleanText(text)) {
    if (c == '"' || c == '\\' || c == '<' || c == '\n') {
      static constexpr char kHex[] = "0123456789abcdef";
      auto const byte = static_cast<unsigned char>(c);
      css += {'\\', kHex[byte >> 4U], kHex[byte & 15U], ' '};
    } else {
      css += c;
    }
  }
  return css + '"';
}

std::string Colors(std::string const& text, std::string const& background) {
  std::string css;
  if (IsColor(background)) {
    css += "background-color:" + background + ";";
  }
  if (IsColor(text)) {
    css += "color:" + text + ";";
  } else if (IsColor(background)) {
    css += std::string("color:") + Readable(background) + ";";
  }
  return css;
}

char const* FontStyleCss(int style) {
  switch (static_cast<FontStyle>(style)) {
    case FontStyle::Regular:
      return "font-weight:normal;font-style:normal;";
    case FontStyle::Bold:
      return "font-weight:bold;font-style:normal;";
    case FontStyle::Italic:
      return "font-weight:normal;font-style:italic;";
    case FontStyle::BoldItalic:
      return "font-weight:bold;font-style:italic;";
    case FontStyle::Any:
      break;
  }
  return "";
}

char const* HorizontalCss(int alignment) {
  switch (static_cast<HorizontalAlignment>(alignment)) {
    case HorizontalAlignment::Left:
      return "text-align:left;";
    case HorizontalAlignment::Center:
      return "text-align:center;";
    case HorizontalAlignment::Right:
      return "text-align:right;";
    case HorizontalAlignment::Any:
      break;
  }
  return "";
}

char const* VerticalCss(int alignment) {
  switch (static_cast<VerticalAlignment>(alignment)) {
    case VerticalAlignment::Top:
      return "vertical-align:top;";
    case VerticalAlignment::Middle:
      return "vertical-align:middle;";
    case VerticalAlignment::Bottom:
      return "vertical-align:bottom;";
    case VerticalAlignment::Any:
      break;
  }
  return "";
}

/// What area formats and cell styles have in common.
template <class Format>
std::string MakeDeclarations(Format const& format) {
  std::string css;
  if (!format.getFontName().empty()) {
    css += "font-family:" + QuoteCss(format.getFontName()) + ";";
  }
  if (std::isfinite(format.getFontSize()) && format.getFontSize() > 0) {
    css += "font-size:";
    AppendNumber(css, static_cast<double>(format.getFontSize()));
    css += "pt;";
  }
  css += FontStyleCss(format.getFontStyle());
  css += format.getUnderline() ? "text-decoration:underline;" : "";
  css += HorizontalCss(format.getHorizontalAlignment());
  css += VerticalCss(format.getVerticalAlignment());
  return css + Colors(format.getTextColor(), format.getBackgroundColor());
}

std::string Padding(FormatArea const& format) {
  auto const points = [](int margin) { return std::to_string(margin < 0 ? 0 : margin) + "pt"; };
  return "padding:" + points(format.getMarginTop()) + " " + points(format.getMarginRight()) + " " +
         points(format.getMarginBottom()) + " " + points(format.getMarginLeft()) + ";";
}

std::string Rule(std::string const& selector, std::string const& declarations) {
  return declarations.empty() ? declarations : selector + "{" + declarations + "}\n";
}

/// Makes a selector of what is within the table. All areas weigh the same, so that a later rule
/// wins over an earlier one, and less than a class, so that a cell's own style wins over both.
std::string MakeSelector(std::string const& table, std::string const& selector) {
  return table + " :where(" + selector + ")";
}

bool HasColor(std::string const& text, std::string const& background) {
  return IsColor(text) || IsColor(background);
}

}  // namespace

std::string HtmlStyle(OmPivotTable const& table, std::string const& selector) {
  std::string css;
  for (AreaSelector const& area : kSelectors) {
    FormatArea const* const format = table.getAreaFormat(area.area);
    if (format == nullptr) {
      continue;
    }
    std::string const padding = area.area == FormatArea::AreaFrame ? "" : Padding(*format);
    css += Rule(MakeSelector(selector, area.selector), MakeDeclarations(*format) + padding);
    if (area.area == FormatArea::AreaData && format->getUseAltRowColors()) {
      css += Rule(MakeSelector(selector, "tbody tr.alt td:not([class^=h])"),
                  Colors(format->getAlternateTextColor(), format->getAlternateBackgroundColor()));
    }
  }
  std::size_t number = 0;
  for (OmCellProperties const& style : table.getCellStyles()) {
    if (number != 0) {
      css += Rule(selector + " .s" + std::to_string(number), MakeDeclarations(style));
    }
    ++number;
  }
  return css;
}

bool HasColors(OmPivotTable const& table) {
  for (AreaSelector const& area : kSelectors) {
    FormatArea const* const format = table.getAreaFormat(area.area);
    if (format != nullptr &&
        (HasColor(format->getTextColor(), format->getBackgroundColor()) ||
         (format->getUseAltRowColors() &&
          HasColor(format->getAlternateTextColor(), format->getAlternateBackgroundColor())))) {
      return true;
    }
  }
  for (OmCellProperties const& style : table.getCellStyles()) {
    if (HasColor(style.getTextColor(), style.getBackgroundColor())) {
      return true;
    }
  }
  return false;
}

}  // namespace lakresvos::render
