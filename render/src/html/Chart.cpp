#include "html/Chart.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include <cells/OmNumber.h>
#include <lakresvos/render/ChartData.h>

#include "content/CellText.h"
#include "content/ImageType.h"
#include "content/Placeholder.h"
#include "html/Text.h"
#include "io/Base64.h"

namespace lakresvos::render {

namespace {

/// A name as a header cell; as a plain one when it names nothing.
std::string NameCell(std::string classes, char const* scope, std::string const& name) {
  if (HasWideWord(name)) {
    classes += classes.empty() ? "wide" : " wide";
  }
  std::string const attributes = classes.empty() ? "" : " class=\"" + classes + "\"";
  return IsBlank(name)
             ? "<td" + attributes + "></td>"
             : "<th" + attributes + " scope=\"" + scope + "\">" + HtmlText(name) + "</th>";
}

/// What is wider than the page scrolls.
std::string InScroll(std::string const& name, std::string const& content) {
  return "<div class=\"scroll\" tabindex=\"0\" role=\"group\" aria-label=\"" + name + "\">" +
         content + "</div>";
}

/// Empty where there is no number.
std::string NumberText(double value) {
  return std::isnan(value) ? "" : OmNumber(value).GetText();
}

std::string DataTable(ChartData const& data, std::string const& caption) {
  std::string html = "<table class=\"pivot-table\"><caption>" + caption + "</caption>";
  bool const named = std::any_of(data.series.begin(), data.series.end(),
                                 [](auto const& series) { return !IsBlank(series.name); });
  if (named || !IsBlank(data.categoryTitle)) {
    html += "<thead><tr>" + NameCell("corner h0 edge", "col", data.categoryTitle);
    for (ChartData::Series const& series : data.series) {
      html += NameCell("", "col", series.name);
    }
    html += "</tr></thead>";
  }
  html += "<tbody>";
  for (std::size_t i = 0; i < data.categories.size(); ++i) {
    html += "<tr>" + NameCell("h0 edge", "row", data.categories[i]);
    for (ChartData::Series const& series : data.series) {
      html += "<td class=\"n\">" + NumberText(series.values[i]) + "</td>";
    }
    html += "</tr>";
  }
  return html + "</tbody></table>";
}

}  // namespace

std::string HtmlChart(OmChart const& chart) {
  std::string const label = HtmlText(GetText(chart.Label()));
  std::string const type = ImageType(chart.GetImageData());
  std::optional<ChartData> const data = ReadChartData(chart.GetViZJSONData());
  std::string const name = label.empty() ? "Chart" : label;
  std::string const table =
      data ? InScroll("Data of the chart " + name, DataTable(*data, label)) : "";
  if (type.empty()) {
    return !table.empty()
               ? table
               : "<p class=\"announcement\">" + HtmlText(MakePlaceholder(chart)) + "</p>";
  }
  std::string image = "<img alt=\"" + name + "\" src=\"data:" + type + ";base64,";
  AppendBase64(image, chart.GetImageData());
  std::string html = InScroll(name, image + "\">");
  if (!table.empty()) {
    html += "<details><summary>Data of the chart</summary>" + table + "</details>";
  }
  return label.empty() ? html : html + "<figcaption>" + label + "</figcaption>";
}

}  // namespace lakresvos::render
