#ifndef LAKRESVOS_RENDER_AREASTYLE_H
#define LAKRESVOS_RENDER_AREASTYLE_H

namespace lakresvos::render {

// What the numbers of a FormatArea and of an OmCellProperties mean to the renderers. Any number
// that is not listed counts as one that leaves the choice to the renderer.

/// The numbers of FormatArea::getHorizontalAlignment().
enum class HorizontalAlignment : int {
  Any = -1,    ///< as the renderer chooses
  Left = 0,    ///< at the left edge
  Center = 1,  ///< in the middle
  Right = 2    ///< at the right edge
};

/// The numbers of FormatArea::getVerticalAlignment().
enum class VerticalAlignment : int {
  Any = -1,    ///< as the renderer chooses
  Top = 0,     ///< at the upper edge
  Middle = 1,  ///< half way between the edges
  Bottom = 2   ///< at the lower edge
};

/// The numbers of FormatArea::getFontStyle().
enum class FontStyle : int {
  Any = -1,       ///< as the renderer chooses
  Regular = 0,    ///< neither bold nor italic
  Bold = 1,       ///< bold, not italic
  Italic = 2,     ///< italic, not bold
  BoldItalic = 3  ///< both
};

}  // namespace lakresvos::render

#endif
