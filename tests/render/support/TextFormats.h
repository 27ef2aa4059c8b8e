#ifndef TESTS_RENDER_SUPPORT_TEXTFORMATS_H
#define TESTS_RENDER_SUPPORT_TEXTFORMATS_H

#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include <lakresvos/OmOutputTree.h>
#include <lakresvos/render/CsvRenderer.h>
#include <lakresvos/render/HtmlRenderer.h>
#include <lakresvos/render/MarkdownRenderer.h>
#include <lakresvos/render/TextRenderer.h>

/// A way to write a document that uses several threads when it is told to.
struct TextFormat {
  std::string name;
  std::function<void(OmOutputTree const& tree, std::ostream& out,
                     lakresvos::render::TableOptions const& tables)>
      write;
};

/// All of them: each format, and the shapes that it has.
inline std::vector<TextFormat> TextFormats() {
  using namespace lakresvos::render;
  auto const with = [](auto options, TableOptions const& tables) {
    static_cast<TableOptions&>(options) = tables;
    return options;
  };
  auto const csv = [with](CsvOptions::Shape shape) {
    return [with, shape](auto const& tree, auto& out, auto const& tables) {
      CsvOptions options;
      options.shape = shape;
      RenderCsv(tree, out, with(options, tables));
    };
  };
  auto const text = [with](int columnWidth, int width) {
    return [with, columnWidth, width](auto const& tree, auto& out, auto const& tables) {
      TextOptions options;
      options.maxColumnWidth = columnWidth;
      options.width = width;
      RenderText(tree, out, with(options, tables));
    };
  };
  return {
      {"html", [with](auto const& tree, auto& out,
                      auto const& tables) { RenderHtml(tree, out, with(HtmlOptions(), tables)); }},
      {"long csv", csv(CsvOptions::Shape::Long)},
      {"displayed csv", csv(CsvOptions::Shape::Display)},
      {"text", text(40, 0)},
      {"text in narrow columns", text(4, 0)},
      {"text in parts", text(40, 30)},
      {"markdown", [with](auto const& tree, auto& out, auto const& tables) {
         RenderMarkdown(tree, out, with(MarkdownOptions(), tables));
       }}};
}

#endif
