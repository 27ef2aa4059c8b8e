#include "HtmlChart.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <string_view>

#include "Base64.h"
#include "CellText.h"
#include "HtmlText.h"
#include "ItemAnnouncement.h"
#include "NumberText.h"

namespace lakresvos::render {

namespace {

using nlohmann::json;

bool IsTextList(json const& list) {
  return list.is_array() &&
         std::all_of(list.begin(), list.end(), [](json const& item) { return item.is_string(); });
}

/// Whether it is one number or null for each of `count` categories, with a name.
bool IsSeries(json const& series, std::size_t count) {
  if (!series.is_object() || !series.contains("name") || !series["name"].is_string() ||
      !series.contains("values") || !series["values"].is_array()) {
    return false;
  }
  json const& values = series["values"];
  return values.size() == count && std::all_of(values.begin(), values.end(), [](json const& value) {
           return value.is_number() || value.is_null();
         });
}

bool IsChartData(json const& data) {
  if (!data.is_object() || !data.contains("categories") || !IsTextList(data["categories"]) ||
      !data.contains("series") || !data["series"].is_array()) {
    return false;
  }
  json const& series = data["series"];
  return std::all_of(series.begin(), series.end(),
                     [&](json const& one) { return IsSeries(one, data["categories"].size()); });
}

std::string NumberCell(json const& value) {
  std::string cell = "<td class=\"n\">";
  if (value.is_number()) {
    AppendNumber(cell, value.get<double>());
  }
  return cell + "</td>";
}

/// The data as a table; empty when the JSON is of another form.
std::string DataTable(std::string const& text, std::string const& caption) {
  json const data = json::parse(text, nullptr, false);
  if (data.is_discarded() || !IsChartData(data)) {
    return {};
  }
  std::string html = "<table class=\"pivot-table\"><caption>" + caption + "</caption>";
  json const& series = data["series"];
  bool const named = std::any_of(series.begin(), series.end(), [](json const& one) {
    return !one["name"].get_ref<std::string const&>().empty();
  });
  if (named) {
    html += "<thead><tr><td></td>";
    for (json const& one : series) {
      html += "<th scope=\"col\">" + HtmlText(one["name"].get_ref<std::string const&>()) + "</th>";
    }
    html += "</tr></thead>";
  }
  html += "<tbody>";
  for (std::size_t i = 0; i < data["categories"].size(); ++i) {
    html += "<tr><th scope=\"row\">" +
            HtmlText(data["categories"][i].get_ref<std::string const&>()) + "</th>";
    for (json const& one : series) {
      html += NumberCell(one["values"][i]);
    }
    html += "</tr>";
  }
  return html + "</tbody></table>";
}

}  // namespace

std::string ImageType(std::string const& bytes) {
  std::string_view const start = bytes;
  if (start.substr(0, 8) == "\x89PNG\r\n\x1A\n") {
    return "image/png";
  }
  if (start.substr(0, 3) == "\xFF\xD8\xFF") {
    return "image/jpeg";
  }
  std::size_t const bom = start.substr(0, 3) == "\xEF\xBB\xBF" ? 3 : 0;
  std::size_t const markup = start.find_first_not_of(" \t\r\n", bom);
  std::string_view const text = markup < start.size() ? start.substr(markup) : "";
  bool const xml = text.substr(0, 5) == "<?xml" || text.substr(0, 4) == "<!--" ||
                   text.substr(0, 9) == "<!DOCTYPE";
  bool const svg = text.substr(0, 4) == "<svg" ||
                   (xml && text.substr(0, 4096).find("<svg") != std::string_view::npos);
  return svg ? "image/svg+xml" : "";
}

std::string HtmlChart(OmChart const& chart) {
  std::string const label = HtmlText(TextOf(chart.Label()));
  std::string const type = ImageType(chart.GetImageData());
  std::string const table = DataTable(chart.GetViZJSONData(), label);
  if (type.empty()) {
    return !table.empty() ? table
                          : "<p class=\"announcement\">" + HtmlText(Announcement(chart)) + "</p>";
  }
  std::string html = "<img alt=\"" + label + "\" src=\"data:" + type + ";base64,";
  AppendBase64(html, chart.GetImageData());
  html += "\"><figcaption>" + label + "</figcaption>";
  if (!table.empty()) {
    html += "<details><summary>Data of the chart</summary>" + table + "</details>";
  }
  return html;
}

}  // namespace lakresvos::render
