#include "chart/SvgCanvas.h"

#include <algorithm>
#include <cairo-svg.h>
#include <exception>
#include <new>
#include <pango/pangocairo.h>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace lakresvos::report {

namespace {

constexpr double kFontSize = 12;

struct Unref {
  template <class Object>
  void operator()(Object* object) const {
    g_object_unref(object);
  }
};

struct Free {
  void operator()(char* text) const { g_free(text); }
  void operator()(PangoFontDescription* font) const { pango_font_description_free(font); }
};

std::string OneLine(std::string const& text) {
  std::unique_ptr<char, Free> const valid(
      g_utf8_make_valid(text.data(), static_cast<gssize>(text.size())));
  std::string line = valid.get();
  std::replace_if(
      line.begin(), line.end(),
      [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; }, ' ');
  return line;
}

cairo_status_t Append(void* svg, unsigned char const* bytes, unsigned int count) {
  try {
    static_cast<std::string*>(svg)->append(reinterpret_cast<char const*>(bytes), count);
    return CAIRO_STATUS_SUCCESS;
  } catch (std::exception const&) {
    return CAIRO_STATUS_NO_MEMORY;  // what called this is C
  }
}

/// Removes the number from the picture's own id, which counts the surfaces of the process: equal
/// pictures are equal bytes.
void MakeRepeatable(std::string& svg) {
  static constexpr std::string_view kId = "<g id=\"surface";
  std::size_t const id = svg.find(kId);
  if (id != std::string::npos) {
    std::size_t const number = id + kId.size();
    svg.erase(number, svg.find('"', number) - number);
  }
}

void Check(cairo_status_t status) {
  if (status == CAIRO_STATUS_NO_MEMORY) {
    throw std::bad_alloc();
  }
  if (status != CAIRO_STATUS_SUCCESS) {
    throw std::runtime_error(std::string("cannot draw the chart: ") +
                             cairo_status_to_string(status));
  }
}

void SetColor(cairo_t* context, Color color) {
  cairo_set_source_rgb(context, color.red, color.green, color.blue);
}

}  // namespace

// ShapedText

ShapedText::ShapedText(std::string const& text, double maxWidth, Overflow overflow) {
  std::unique_ptr<PangoContext, Unref> const context(
      pango_font_map_create_context(pango_cairo_font_map_get_default()));
  pango_context_set_round_glyph_positions(context.get(), FALSE);
  std::unique_ptr<PangoFontDescription, Free> const font(pango_font_description_new());
  pango_font_description_set_family(font.get(), "sans-serif");
  pango_font_description_set_absolute_size(font.get(), kFontSize * PANGO_SCALE);
  layout_.reset(pango_layout_new(context.get()));
  pango_layout_set_font_description(layout_.get(), font.get());
  pango_layout_set_width(layout_.get(), pango_units_from_double(maxWidth));
  if (overflow == Overflow::Ellipsis) {
    pango_layout_set_ellipsize(layout_.get(), PANGO_ELLIPSIZE_END);
  } else {
    pango_layout_set_alignment(layout_.get(), PANGO_ALIGN_CENTER);
  }
  std::string const line = OneLine(text);
  pango_layout_set_text(layout_.get(), line.data(), static_cast<int>(line.size()));
  // Lines are placed in the given width as their script asks; from here on they begin where they
  // end up.
  pango_layout_set_width(layout_.get(), pango_units_from_double(std::min(maxWidth, Width())));
}

double ShapedText::Width() const {
  PangoRectangle extents;
  pango_layout_get_extents(layout_.get(), nullptr, &extents);
  return pango_units_to_double(extents.width);
}

double ShapedText::Height() const {
  PangoRectangle extents;
  pango_layout_get_extents(layout_.get(), nullptr, &extents);
  return pango_units_to_double(extents.height);
}

int ShapedText::Lines() const {
  return pango_layout_get_line_count(layout_.get());
}

void ShapedText::Release::operator()(PangoLayout* layout) const {
  g_object_unref(layout);
}

// SvgCanvas

SvgCanvas::SvgCanvas(double width, double height)
    : surface_(cairo_svg_surface_create_for_stream(Append, &svg_, width, height)),
      context_(cairo_create(surface_.get())) {}

void SvgCanvas::DrawRectangle(double x, double y, double width, double height, Color color) {
  SetColor(context_.get(), color);
  cairo_rectangle(context_.get(), x, y, width, height);
  cairo_fill(context_.get());
}

void SvgCanvas::DrawLine(double x1, double y1, double x2, double y2, double width, Color color) {
  SetColor(context_.get(), color);
  cairo_set_line_width(context_.get(), width);
  cairo_move_to(context_.get(), x1, y1);
  cairo_line_to(context_.get(), x2, y2);
  cairo_stroke(context_.get());
}

void SvgCanvas::DrawText(ShapedText const& text, double x, double y, double angle, Color color) {
  SetColor(context_.get(), color);
  cairo_save(context_.get());
  cairo_translate(context_.get(), x, y);
  cairo_rotate(context_.get(), angle);
  cairo_move_to(context_.get(), 0, 0);
  pango_cairo_show_layout(context_.get(), text.layout_.get());
  cairo_restore(context_.get());
}

std::string SvgCanvas::Finish() {
  Check(cairo_status(context_.get()));
  context_.reset();
  cairo_surface_finish(surface_.get());
  Check(cairo_surface_status(surface_.get()));
  MakeRepeatable(svg_);
  return std::move(svg_);
}

void SvgCanvas::Release::operator()(cairo_t* context) const {
  cairo_destroy(context);
}

void SvgCanvas::Release::operator()(cairo_surface_t* surface) const {
  cairo_surface_destroy(surface);
}

}  // namespace lakresvos::report
