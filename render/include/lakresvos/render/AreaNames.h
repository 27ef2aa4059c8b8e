#ifndef LAKRESVOS_RENDER_AREANAMES_H
#define LAKRESVOS_RENDER_AREANAMES_H

#include <array>
#include <optional>
#include <string_view>

#include <lakresvos/FormatArea.h>
#include <lakresvos/render/Export.h>

namespace lakresvos::render {

// What documents in JSON and style files call the areas of a table, the properties of their formats
// and the values of these.

/// The areas by their number, see FormatArea::Area.
inline constexpr std::array<std::string_view, 9> kAreaNames = {
    "title",     "caption", "footnotes", "corner", "columnLabels",
    "rowLabels", "data",    "layers",    "frame"};

/// The names of the properties of an area.
namespace area_property {

inline constexpr char kFontName[] = "fontName";                      ///< a text
inline constexpr char kFontSize[] = "fontSize";                      ///< points
inline constexpr char kFontStyle[] = "fontStyle";                    ///< see FindFontStyle()
inline constexpr char kUnderline[] = "underline";                    ///< a flag
inline constexpr char kHorizontal[] = "horizontalAlignment";         ///< see FindHorizontal()
inline constexpr char kVertical[] = "verticalAlignment";             ///< see FindVertical()
inline constexpr char kTextColor[] = "textColor";                    ///< see IsColor()
inline constexpr char kBackgroundColor[] = "backgroundColor";        ///< see IsColor()
inline constexpr char kAlternateRows[] = "useAlternateRowColors";    ///< a flag
inline constexpr char kAlternateTextColor[] = "alternateTextColor";  ///< see IsColor()
inline constexpr char kAlternateBackgroundColor[] = "alternateBackgroundColor";  ///< see IsColor()
inline constexpr char kMarginLeft[] = "marginLeft";                              ///< a whole number
inline constexpr char kMarginRight[] = "marginRight";                            ///< a whole number
inline constexpr char kMarginTop[] = "marginTop";                                ///< a whole number
inline constexpr char kMarginBottom[] = "marginBottom";                          ///< a whole number

}  // namespace area_property

/// The area with this name; none when there is no such area.
LAKRESVOS_RENDER_EXPORT std::optional<FormatArea::Area> FindArea(std::string_view name);

/// The number of "left", "center" or "centre", or "right", see HorizontalAlignment; none for any
/// other text.
LAKRESVOS_RENDER_EXPORT std::optional<int> FindHorizontal(std::string_view name);

/// The number of "top", "middle" or "bottom", see VerticalAlignment; none for any other text.
LAKRESVOS_RENDER_EXPORT std::optional<int> FindVertical(std::string_view name);

/// The number of "regular", "bold", "italic" or "bold italic", see FontStyle; none for any other
/// text.
LAKRESVOS_RENDER_EXPORT std::optional<int> FindFontStyle(std::string_view name);

/// Whether the text is a color that renderers understand: "#rgb" or "#rrggbb", the digits in either
/// case.
LAKRESVOS_RENDER_EXPORT bool IsColor(std::string_view text);

}  // namespace lakresvos::render

#endif
