#include "json/write/ItemWriter.h"

#include <array>

#include <lakresvos/lakresvos.h>

#include "json/Fields.h"
#include "json/Names.h"
#include "json/write/CellWriter.h"
#include "json/write/TableWriter.h"

namespace lakresvos::render {

void ItemWriter::Visit(OmHeading& heading) {
  Begin(kHeadingItem, heading);
  WriteRecords(heading);
  json_.End();
}

void ItemWriter::Visit(OmProcedure& procedure) {
  Begin(kProcedureItem, procedure);
  WriteText(json_, "text1", procedure.Text1());
  WriteText(json_, "text2", procedure.Text2());
  WriteText(json_, "text3", procedure.Text3());
  WriteNumbers(json_, "codes", procedure.Codes());
  WriteRecords(procedure);
  json_.End();
}

void ItemWriter::Visit(OmTextBlock& block) {
  Begin(kTextItem, block);
  WriteTexts(block);
}

void ItemWriter::Visit(OmPageTitle& title) {
  Begin(kPageTitleItem, title);
  WriteTexts(title);
}

void ItemWriter::Visit(OmPivotTable& table) {
  Begin(kTableItem, table);
  WriteTableFields(json_, table);
  json_.End();
}

void ItemWriter::Visit(OmChart& chart) {
  Begin(kChartItem, chart);
  json_.Name("id").Number(chart.getChartId());
  WriteText(json_, "codePage", chart.LocaleCodePage());
  WriteNumber<int>(json_, "subType", chart.GetChartSubType(), ChartXMLUnspecified);
  WriteNumber(json_, "editable", chart.GetEditable(), 0);
  WriteNumber(json_, "editor", chart.GetEditor(), 1);
  WriteText(json_, "options", chart.getOptions());
  WriteBytes(json_, "xmlDescription", chart.GetXmlDescription());
  WriteBytes(json_, "xmlData", chart.GetXmlData());
  WriteBytes(json_, "image", chart.GetImageData());
  WriteBytes(json_, "vizJson", chart.GetViZJSONData());
  WriteBytes(json_, "vizJsonTemplate", chart.getVizJSONTemplate());
  WriteFiles("csvFiles", chart.getCSVFileNames(), chart.getCSVFiles());
  WriteFiles("geoJsonFiles", chart.getGeoJSONFileNames(), chart.getGeoJSONContent());
  WriteMap(chart);
  json_.End();
}

void ItemWriter::Visit(OmAnswerTree& tree) {
  Begin(kAnswerTreeItem, tree);
  WriteNumber(json_, "treeType", tree.GetTreeType(), -1);
  WriteText(json_, "path", tree.GetPath());
  WriteBytes(json_, "compressedXml", tree.GetCompressedXml());
  WriteNumber(json_, "uncompressedLength", tree.GetXmlUncompressedLength(), 0U);
  WriteBytes(json_, "uncompressedXml", tree.GetUncompressedXml());
  WriteBytes(json_, "uncompressedDisplayXml", tree.GetUncompressedDisplayXML());
  json_.End();
}

void ItemWriter::Visit(OmModel& model) {
  Begin(kModelItem, model);
  json_.Name("modelType").Number<int>(model.GetModelType());
  WriteBytes(json_, "pmml", model.GetPMML());
  WriteBytes(json_, "binaryData", model.GetBinaryDataStream());
  WriteBytes(json_, "pmmlContainer", model.GetPMMLContainer());
  WriteBytes(json_, "statXmlContainer", model.GetStatXMLContainer());
  json_.End();
}

void ItemWriter::Visit(OmInteractive& item) {
  Begin(kInteractiveItem, item);
  json_.Name("id").Number(item.getInteractiveId());
  WriteText(json_, "codePage", item.LocaleCodePage());
  WriteBytes(json_, "json", item.getInteractiveJSON());
  WriteText(json_, "procedureName", item.getProcedureName());
  WriteText(json_, "jsonPath", item.getJSONPath());
  WriteText(json_, "options", item.getOptions());
  WriteFiles("geoJsonFiles", item.getGeoJSONFileNames(), item.getGeoJSONContent());
  json_.End();
}

void ItemWriter::Begin(std::string_view type, OmOutputPart const& part) {
  // Elements of the tree without an item, and gaps where one was taken out, leave no level here.
  while (!path_.empty() && path_.back() >= depth) {
    path_.pop_back();
  }
  json_.BeginObject();
  json_.Name("depth").Number(path_.size());
  path_.push_back(depth);
  json_.Name("type").Text(type);
  if (type != kPageTitleItem) {
    WriteCell(json_, "label", part.Label());
  }
  WriteAttributes(json_, part, kPartAttributes);
}

void ItemWriter::WriteRecords(OmHeading const& heading) {
  if (heading.Records().size() == 0) {
    return;
  }
  json_.Name("records").BeginArray();
  for (OmHeading::HeadingRecord const& record : heading.Records().Elements()) {
    json_.BeginObject();
    json_.Name("first").Number(record.first);
    WriteCell(json_, "cell1", record.cell1);
    WriteCell(json_, "cell2", record.cell2);
    json_.Name("last").Number(record.last);
    json_.End();
  }
  json_.End();
}

void ItemWriter::WriteTexts(OmTextBlock const& block) {
  json_.Name("text").Text(block.Text());
  if (!block.TextList().empty()) {
    json_.Name("texts").BeginArray();
    for (std::string const& text : block.TextList()) {
      json_.Text(text);
    }
    json_.End();
  }
  json_.End();
}

void ItemWriter::WriteFiles(std::string_view name, std::vector<std::string> const& names,
                            std::vector<std::string> const& contents) {
  if (names.empty() && contents.empty()) {
    return;
  }
  json_.Name(name).BeginObject();
  json_.Name("names").BeginArray();
  for (std::string const& file : names) {
    json_.Text(file);
  }
  json_.End();
  json_.Name("contents").BeginArray();
  for (std::string const& content : contents) {
    json_.Bytes(content);
  }
  json_.End();
  json_.End();
}

void ItemWriter::WriteMap(OmChart& chart) {
  if (!chart.hasMap()) {
    return;
  }
  std::array<std::string, 4> texts;
  chart.getMapInfo(texts[0], texts[1], texts[2], texts[3]);
  json_.Name("map").BeginArray();
  for (std::string const& text : texts) {
    json_.Text(text);
  }
  json_.End();
}

}  // namespace lakresvos::render
