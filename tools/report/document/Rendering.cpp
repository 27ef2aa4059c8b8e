#include "document/Rendering.h"

#include <unistd.h>

#include <lakresvos/render/CsvRenderer.h>
#include <lakresvos/render/HtmlRenderer.h>
#include <lakresvos/render/JsonRenderer.h>
#include <lakresvos/render/MarkdownRenderer.h>
#include <lakresvos/render/TextRenderer.h>
#include <lakresvos/render/XlsxRenderer.h>

#include "cli/TerminalWidth.h"

namespace lakresvos::report {

namespace {

int WidthOf(Options const& options) {
  bool const printed = options.outputFile.empty();
  return options.width.value_or(TerminalWidth(printed ? STDOUT_FILENO : -1));
}

/// What all renderers' options have in common, in those of one of them.
template <class RendererOptions>
RendererOptions With(Options const& options) {
  RendererOptions result;
  result.skipEmpty = !options.keepEmpty;
  result.allLayers = options.allLayers;
  return result;
}

}  // namespace

std::vector<std::string> Render(OmOutputTree& document, Options const& options, std::ostream& out) {
  std::vector<std::string> losses;
  switch (options.format) {
    case OutputFormat::Text: {
      auto text = With<render::TextOptions>(options);
      text.ascii = options.ascii;
      text.width = WidthOf(options);
      render::RenderText(document, out, text);
      break;
    }
    case OutputFormat::Html:
      render::RenderHtml(document, out, With<render::HtmlOptions>(options));
      break;
    case OutputFormat::Markdown:
      render::RenderMarkdown(document, out, With<render::MarkdownOptions>(options));
      break;
    case OutputFormat::Csv: {
      auto csv = With<render::CsvOptions>(options);
      using Shape = render::CsvOptions::Shape;
      csv.shape = options.csvDisplay ? Shape::Display : Shape::Long;
      csv.safe = options.csvSafe;
      render::RenderCsv(document, out, csv);
      break;
    }
    case OutputFormat::Json: {
      auto json = With<render::JsonOptions>(options);
      json.layout = options.jsonLayout;
      render::RenderJson(document, out, json);
      break;
    }
    case OutputFormat::Xlsx: {
      auto xlsx = With<render::XlsxOptions>(options);
      xlsx.layersAsSheets = options.xlsxLayersAsSheets;
      xlsx.mergeRows = options.xlsxMergeRows;
      xlsx.mergeColumns = options.xlsxMergeColumns;
      xlsx.onLoss = [&](std::string const& loss) { losses.push_back(loss); };
      render::RenderXlsx(document, out, xlsx);
      break;
    }
  }
  return losses;
}

}  // namespace lakresvos::report
