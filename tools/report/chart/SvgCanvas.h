#ifndef LAKRESVOS_REPORT_CHART_SVGCANVAS_H
#define LAKRESVOS_REPORT_CHART_SVGCANVAS_H

#include <cairo.h>
#include <memory>
#include <pango/pango-layout.h>
#include <string>

namespace lakresvos::report {

struct Color {
  double red, green, blue;  ///< from 0 to 1
};

/// A text in the letters that a canvas draws, whose size is known before there is a canvas.
/// What is not UTF-8 shows as U+FFFD, line ends and other control characters as spaces.
class ShapedText {
 public:
  /// What happens to a text that is too wide.
  enum class Overflow {
    Ellipsis,  ///< it ends with "..."
    Wrap,      ///< it goes on below, in the middle; a single word may be too wide all the same
  };

  ShapedText(std::string const& text, double maxWidth, Overflow overflow);

  // In pixels.
  double Width() const;
  double Height() const;

  int Lines() const;

 private:
  friend class SvgCanvas;

  struct Release {
    void operator()(PangoLayout* layout) const;
  };
  std::unique_ptr<PangoLayout, Release> layout_;
};

/// Draws a picture in SVG on a transparent ground; lengths are in pixels, from the top left.
/// Letters are drawn as outlines: the picture needs no fonts where it is shown, and holds no texts.
class SvgCanvas {
 public:
  SvgCanvas(double width, double height);
  SvgCanvas(SvgCanvas const&) = delete;
  SvgCanvas& operator=(SvgCanvas const&) = delete;

  void DrawRectangle(double x, double y, double width, double height, Color color);
  void DrawLine(double x1, double y1, double x2, double y2, double width, Color color);

  /// Puts the top left of a text at (x, y), turned clockwise around this point.
  void DrawText(ShapedText const& text, double x, double y, double angle, Color color);

  /// Ends the picture and returns it.
  /// @throws std::bad_alloc, and std::runtime_error when it could not be drawn.
  std::string Finish();

 private:
  struct Release {
    void operator()(cairo_t* context) const;
    void operator()(cairo_surface_t* surface) const;
  };

  std::string svg_;
  std::unique_ptr<cairo_surface_t, Release> surface_;
  std::unique_ptr<cairo_t, Release> context_;
};

}  // namespace lakresvos::report

#endif
