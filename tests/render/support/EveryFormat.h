#ifndef TESTS_RENDER_SUPPORT_EVERYFORMAT_H
#define TESTS_RENDER_SUPPORT_EVERYFORMAT_H

#include <ostream>
#include <stdexcept>

#include <lakresvos/render/CsvRenderer.h>
#include <lakresvos/render/HtmlRenderer.h>
#include <lakresvos/render/JsonRenderer.h>
#include <lakresvos/render/MarkdownRenderer.h>
#include <lakresvos/render/TextRenderer.h>
#include <lakresvos/render/XlsxRenderer.h>

#include "render/support/Sink.h"

/// Renders a document by every renderer, to nowhere.
inline void RenderInEveryFormat(OmOutputTree const& tree) {
  using namespace lakresvos::render;
  Sink sink;
  std::ostream out(&sink);
  RenderText(tree, out);
  RenderHtml(tree, out);
  RenderMarkdown(tree, out);
  for (auto const shape : {CsvOptions::Shape::Long, CsvOptions::Shape::Display}) {
    CsvOptions options;
    options.shape = shape;
    RenderCsv(tree, out, options);
  }
  JsonOptions options;
  options.layout = true;
  RenderJson(tree, out, options);
  try {
    RenderXlsx(tree, out);
  } catch (std::length_error const&) {  // sheets have limits of their own
  }
}

#endif
