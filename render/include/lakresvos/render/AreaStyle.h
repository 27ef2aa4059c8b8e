#ifndef LAKRESVOS_RENDER_AREASTYLE_H
#define LAKRESVOS_RENDER_AREASTYLE_H

namespace lakresvos::render {

// What the numbers of a FormatArea mean to the renderers. Any number that is not listed counts as
// one that leaves the choice to the renderer.

/// FormatArea::getHorizontalAlignment().
enum class HorizontalAlignment : int {
  Any = -1,  ///< as the renderer chooses
  Left = 0,
  Centre = 1,
  Right = 2
};

/// FormatArea::getVerticalAlignment().
enum class VerticalAlignment : int {
  Any = -1,  ///< as the renderer chooses
  Top = 0,
  Middle = 1,
  Bottom = 2
};

/// FormatArea::getFontStyle().
enum class FontStyle : int {
  Any = -1,  ///< as the renderer chooses
  Regular = 0,
  Bold = 1,
  Italic = 2,
  BoldItalic = 3
};

}  // namespace lakresvos::render

#endif
