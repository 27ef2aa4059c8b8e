#include "json/read/ItemReader.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <utility>

#include <lakresvos/lakresvos.h>

#include "json/Names.h"
#include "json/read/AttributeReader.h"
#include "json/read/CellReader.h"
#include "json/read/TableReader.h"

namespace lakresvos::render {

namespace {

using Item = std::unique_ptr<OmOutputPart>;

// Headings and texts

void ReadRecords(JsonObject& object, OmHeading& heading) {
  std::optional<JsonValue> const records = object.Find("records");
  for (std::size_t i = 0; records && i < records->Count(); ++i) {
    JsonValue const value = records->Element(i);
    JsonObject fields(value);
    auto const first = fields.At("first").Integer<unsigned long long>();
    std::unique_ptr<OmCellText> cell1 = ReadCell(fields, "cell1");
    std::unique_ptr<OmCellText> cell2 = ReadCell(fields, "cell2");
    auto const last = fields.At("last").Integer<unsigned long long>();
    fields.Finish();
    heading.Records().push_back({first, cell1.get(), cell2.get(), last});
    (void)cell1.release();
    (void)cell2.release();
  }
}

Item ReadHeading(JsonObject& object) {
  auto heading = std::make_unique<OmHeading>(*NeedCell(object, "label"));
  ReadRecords(object, *heading);
  return heading;
}

Item ReadProcedure(JsonObject& object) {
  std::string const text1 = ReadText(object, "text1");
  std::string const text2 = ReadText(object, "text2");
  std::string const text3 = ReadText(object, "text3");
  auto procedure = std::make_unique<OmProcedure>(*NeedCell(object, "label"), text1, text2, text3);
  JsonValue const codes = object.At("codes");
  if (codes.Count() != procedure->Codes().size()) {
    codes.Fail("expected " + std::to_string(procedure->Codes().size()) + " numbers");
  }
  for (std::size_t i = 0; i < codes.Count(); ++i) {
    procedure->Codes()[i] = codes.Element(i).Integer<int>();
  }
  ReadRecords(object, *procedure);
  return procedure;
}

template <class Block>
Item AddTexts(JsonObject& object, std::unique_ptr<Block> block) {
  std::optional<JsonValue> const texts = object.Find("texts");
  for (std::size_t i = 0; texts && i < texts->Count(); ++i) {
    block->TextList().push_back(texts->Element(i).Text());
  }
  return block;
}

Item ReadTextBlock(JsonObject& object) {
  std::string const text = object.At("text").Text();
  return AddTexts(object, std::make_unique<OmTextBlock>(*NeedCell(object, "label"), text));
}

Item ReadPageTitle(JsonObject& object) {
  return AddTexts(object, std::make_unique<OmPageTitle>(object.At("text").Text()));
}

// Items with payloads

/// Sets a payload piece by piece, for setters cannot count beyond 4 GiB.
template <class Part, class Set>
void Deliver(Part& part, Set set, std::string const& bytes) {
  constexpr std::size_t kPiece = std::size_t{1} << 30U;
  for (std::size_t at = 0; at < bytes.size(); at += kPiece) {
    std::size_t const count = std::min(kPiece, bytes.size() - at);
    (part.*set)(bytes.data() + at, static_cast<unsigned int>(count));
  }
}

template <class Part, class Set>
void ReadPayload(JsonObject& object, std::string_view name, Part& part, Set set) {
  if (std::optional<JsonValue> const field = object.Find(name)) {
    Deliver(part, set, field->Bytes());
  }
}

/// The one length of a text that an operation can take.
unsigned int Length(std::string const& text, JsonValue const& value) {
  constexpr unsigned int kMax = std::numeric_limits<unsigned int>::max();
  if (text.size() > kMax) {
    value.Fail("longer than " + std::to_string(kMax) + " bytes");
  }
  return static_cast<unsigned int>(text.size());
}

/// Attached files. Contents that come before all names make an entry each.
template <class Part, class Set>
void ReadFiles(JsonObject& object, std::string_view name, Part& part, Set addName, Set addContent) {
  std::optional<JsonValue> const field = object.Find(name);
  if (!field) {
    return;
  }
  JsonObject files(*field);
  JsonValue const contents = files.At("contents");
  for (std::size_t i = 0; i < contents.Count(); ++i) {
    std::string const bytes = contents.Element(i).Bytes();
    (part.*addContent)(bytes.data(), Length(bytes, contents));
  }
  JsonValue const names = files.At("names");
  for (std::size_t i = 0; i < names.Count(); ++i) {
    std::string const text = names.Element(i).Text();
    (part.*addName)(text.data(), Length(text, names));
  }
  files.Finish();
}

void ReadMap(JsonObject& object, OmChart& chart) {
  std::optional<JsonValue> const map = object.Find("map");
  if (!map) {
    return;
  }
  if (map->Count() != 4) {
    map->Fail("expected four strings");
  }
  OmChart::MapInfo const info = {map->Element(0).Text(), map->Element(1).Text(),
                                 map->Element(2).Text(), map->Element(3).Text()};
  constexpr std::size_t kMax = std::numeric_limits<std::uint16_t>::max();
  if (info.second.size() > kMax || info.fourth.size() > kMax) {
    map->Fail("second or fourth string longer than " + std::to_string(kMax) + " bytes");
  }
  Deliver(chart, &OmChart::SetMapInfo, OmChart::MapInfoBlock(info));
}

/// Makes an item that has a code page and an id.
template <class Part>
std::unique_ptr<Part> MakeNumberedItem(JsonObject& object) {
  std::string const codePage = ReadText(object, "codePage");
  auto const id = object.At("id").Integer<long long>();
  std::unique_ptr<OmCellText> const label = NeedCell(object, "label");
  auto item = std::make_unique<Part>(*label, codePage, id);
  item->setLabel(*label);  // as it is, not in the code page
  return item;
}

Item ReadChart(JsonObject& object) {
  auto chart = MakeNumberedItem<OmChart>(object);
  chart->SetImageSubType(static_cast<ChartXMLContentSubType>(
      ReadInteger<int>(object, "subType", ChartXMLUnspecified)));
  std::array<std::int32_t, 2> const numbers = {ReadInteger(object, "editable", 0),
                                               ReadInteger(object, "editor", 1)};
  std::array<char, sizeof numbers> block;
  std::memcpy(block.data(), numbers.data(), sizeof numbers);
  chart->Done(block.data());
  chart->setOptions(ReadText(object, "options"));
  ReadPayload(object, "xmlDescription", *chart, &OmChart::SetXmlDescription);
  ReadPayload(object, "xmlData", *chart, &OmChart::SetBinaryDataStream);
  ReadPayload(object, "image", *chart, &OmChart::SetImageStream);
  ReadPayload(object, "vizJson", *chart, &OmChart::SetViZJSON);
  ReadPayload(object, "vizJsonTemplate", *chart, &OmChart::setVizJSONTemplate);
  ReadFiles(object, "csvFiles", *chart, &OmChart::addCSVFileName, &OmChart::addCSVFileContent);
  ReadFiles(object, "geoJsonFiles", *chart, &OmChart::addGeoJSONFileName,
            &OmChart::addGeoJSONFileContent);
  ReadMap(object, *chart);
  return chart;
}

Item ReadAnswerTree(JsonObject& object) {
  static std::string const codePage;  // the item keeps a reference to it
  auto tree = std::make_unique<OmAnswerTree>(*NeedCell(object, "label"), codePage);
  tree->SetTreeType(ReadInteger(object, "treeType", -1));
  Deliver(*tree, &OmAnswerTree::SetPath, ReadText(object, "path"));
  if (std::optional<JsonValue> const xml = object.Find("compressedXml")) {
    std::string const bytes = xml->Bytes();
    tree->SetCompressedXML(bytes.data(), Length(bytes, *xml), 0);
  }
  tree->SetCompressedXML(nullptr, 0, ReadInteger(object, "uncompressedLength", 0U));
  ReadPayload(object, "uncompressedXml", *tree, &OmAnswerTree::SetUncompressedXML);
  ReadPayload(object, "uncompressedDisplayXml", *tree, &OmAnswerTree::SetUncompressedDisplayXML);
  return tree;
}

Item ReadModel(JsonObject& object) {
  auto model = std::make_unique<OmModel>(*NeedCell(object, "label"));
  ReadPayload(object, "pmml", *model, &OmModel::SetPMML);
  ReadPayload(object, "binaryData", *model, &OmModel::SetBinaryDataStream);
  ReadPayload(object, "pmmlContainer", *model, &OmModel::SetPMMLContainer);
  ReadPayload(object, "statXmlContainer", *model, &OmModel::SetStatXMLContainer);
  model->SetModelType(static_cast<OmModel::MODEL_TYPE>(object.At("modelType").Integer<int>()));
  return model;
}

Item ReadInteractive(JsonObject& object) {
  auto item = MakeNumberedItem<OmInteractive>(object);
  ReadPayload(object, "json", *item, &OmInteractive::setInteractiveJSON);
  item->setProcedureName(ReadText(object, "procedureName"));
  item->setJSONPath(ReadText(object, "jsonPath"));
  item->setOptions(ReadText(object, "options"));
  ReadFiles(object, "geoJsonFiles", *item, &OmInteractive::addGeoJSONFileName,
            &OmInteractive::addGeoJSONFileContent);
  return item;
}

Item ReadByType(JsonObject& object) {
  JsonValue const field = object.At("type");
  std::string const& type = field.Plain();
  if (type == kTableItem) {
    return ReadTable(object, *NeedCell(object, "label"));
  }
  using Reader = Item (*)(JsonObject&);
  constexpr std::array<std::pair<std::string_view, Reader>, 8> kReaders = {{
      {kHeadingItem, ReadHeading},
      {kProcedureItem, ReadProcedure},
      {kTextItem, ReadTextBlock},
      {kPageTitleItem, ReadPageTitle},
      {kChartItem, ReadChart},
      {kAnswerTreeItem, ReadAnswerTree},
      {kModelItem, ReadModel},
      {kInteractiveItem, ReadInteractive},
  }};
  for (auto const& [name, read] : kReaders) {
    if (type == name) {
      return read(object);
    }
  }
  field.Fail("unknown item type");
}

}  // namespace

Item ReadItem(JsonObject& object) {
  Item item = ReadByType(object);
  ReadAttributes(object, *item, kPartAttributes);
  return item;
}

}  // namespace lakresvos::render
