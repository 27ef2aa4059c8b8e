#include "content/Placeholder.h"

#include <cstddef>
#include <vector>

#include "content/CellText.h"

namespace lakresvos::render {

namespace {

/// "[Kind: label (detail)]".
std::string MakeBracketed(char const* kind, OmOutputPart const& item, std::string const& detail) {
  std::string text = std::string("[") + kind;
  std::string const label = GetText(item.Label());
  if (!label.empty()) {
    text += ": " + label;
  }
  if (!detail.empty()) {
    text += " (" + detail + ")";
  }
  return text + "]";
}

/// "name: 2 bytes, name: 1 byte" of the streams that are not empty.
class Sizes {
 public:
  Sizes& Add(char const* name, std::size_t bytes) {
    if (bytes != 0) {
      text_ += (text_.empty() ? "" : ", ") + std::string(name) + ": " + std::to_string(bytes) +
               (bytes == 1 ? " byte" : " bytes");
    }
    return *this;
  }

  Sizes& Add(char const* name, std::vector<std::string> const& streams) {
    std::size_t bytes = 0;
    for (std::string const& stream : streams) {
      bytes += stream.size();
    }
    return Add(name, bytes);
  }

  std::string const& Text() const { return text_; }

 private:
  std::string text_;
};

std::string FindName(ChartXMLContentSubType type) {
  switch (type) {
    case ChartXMLUnspecified:
      return "";
    case ChartXMLBar:
      return "bar";
    case ChartXMLLine:
      return "line";
    case ChartXMLArea:
      return "area";
    case ChartXMLPie:
      return "pie";
    case ChartXMLScatter:
      return "scatter";
    case ChartXMLHistogram:
      return "histogram";
    case ChartXMLBoxplot:
      return "boxplot";
    case ChartXMLMap:
      return "map";
  }
  return "type " + std::to_string(static_cast<int>(type));
}

}  // namespace

std::string MakePlaceholder(OmChart const& chart) {
  return MakeBracketed("Chart", chart, FindName(chart.GetChartSubType()));
}

std::string MakePlaceholder(OmAnswerTree const& tree) {
  return MakeBracketed("Answer tree", tree,
                       Sizes()
                           .Add("path", tree.GetPath().size())
                           .Add("compressed XML", tree.GetCompressedXml().size())
                           .Add("XML", tree.GetUncompressedXml().size())
                           .Add("display XML", tree.GetUncompressedDisplayXML().size())
                           .Text());
}

std::string MakePlaceholder(OmModel const& model) {
  return MakeBracketed("Model", model,
                       Sizes()
                           .Add("PMML", model.GetPMML().size())
                           .Add("binary data", model.GetBinaryDataStream().size())
                           .Add("PMML container", model.GetPMMLContainer().size())
                           .Add("StatXML container", model.GetStatXMLContainer().size())
                           .Text());
}

std::string MakePlaceholder(OmInteractive const& item) {
  return MakeBracketed("Interactive item", item,
                       Sizes()
                           .Add("JSON", item.getInteractiveJSON().size())
                           .Add("GeoJSON", item.getGeoJSONContent())
                           .Text());
}

}  // namespace lakresvos::render
