#include "document/Rendering.h"

#include <lakresvos/render/CsvRenderer.h>
#include <lakresvos/render/HtmlRenderer.h>
#include <lakresvos/render/JsonRenderer.h>
#include <lakresvos/render/MarkdownRenderer.h>
#include <lakresvos/render/TextRenderer.h>
#include <lakresvos/render/XlsxRenderer.h>

namespace lakresvos::report {

std::vector<std::string> Render(OmOutputTree const& document, Options const& options,
                                std::ostream& out) {
  std::vector<std::string> losses;
  switch (options.format) {
    case OutputFormat::Text:
      render::RenderText(document, out, options.text);
      break;
    case OutputFormat::Html:
      render::RenderHtml(document, out, options.html);
      break;
    case OutputFormat::Markdown:
      render::RenderMarkdown(document, out, options.markdown);
      break;
    case OutputFormat::Csv:
      render::RenderCsv(document, out, options.csv);
      break;
    case OutputFormat::Json:
      render::RenderJson(document, out, options.json);
      break;
    case OutputFormat::Xlsx: {
      render::XlsxOptions xlsx = options.xlsx;
      xlsx.onLoss = [&](std::string const& loss) { losses.push_back(loss); };
      render::RenderXlsx(document, out, xlsx);
      break;
    }
  }
  return losses;
}

}  // namespace lakresvos::report
