#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <utility>

#include <lakresvos/OMSException.h>
#include <lakresvos/OmChart.h>

#include "document/OmByteStreams.h"
#include "document/OmCodePageLabel.h"

struct OmChart::Data {
  Data(std::string const& codePage, long long id) : localeCodePage(codePage), chartId(id) {}

  std::string xmlDescription;
  std::string xmlData;
  std::string imageData;
  std::string vizJSON;
  std::string localeCodePage;
  std::string mapInfo;
  OmAttachedFiles csvFiles;
  OmAttachedFiles geoJSONFiles;
  std::string vizJSONTemplate;
  std::string options;
  int editable = 0;
  int editor = 1;
  ChartXMLContentSubType chartSubType = ChartXMLUnspecified;
  long long chartId;
};

namespace {

std::uint16_t SwapBytes(std::uint16_t value) {
  return __builtin_bswap16(value);
}
std::uint32_t SwapBytes(std::uint32_t value) {
  return __builtin_bswap32(value);
}

/// Reads a block from its start; what lies past its end reads as nothing.
class BlockReader {
 public:
  explicit BlockReader(std::string const& block) : block_(block) {}

  template <class Number>
  Number Read() {
    Number value = 0;
    if (block_.size() - at_ < sizeof value) {
      at_ = block_.size();
      return 0;
    }
    std::memcpy(&value, block_.data() + at_, sizeof value);
    at_ += sizeof value;
    return value;
  }

  template <class Length>
  std::string ReadText(bool reversed) {
    Length const length = Read<Length>();
    std::string text = block_.substr(at_, reversed ? SwapBytes(length) : length);
    at_ += text.size();
    return text;
  }

 private:
  std::string const& block_;
  std::size_t at_ = 0;
};

template <class Number>
void Write(std::string& block, Number value) {
  block.append(reinterpret_cast<char const*>(&value), sizeof value);
}

template <class Length>
void WriteText(std::string& block, std::string const& text, char const* which) {
  constexpr auto kMax = std::numeric_limits<Length>::max();
  if (text.size() > kMax) {
    throw OMSException("OmChart::MapInfoBlock() -- the " + std::string(which) +
                           " text is longer than " + std::to_string(kMax) + " bytes",
                       static_cast<double>(text.size()), static_cast<double>(kMax));
  }
  Write(block, static_cast<Length>(text.size()));
  block += text;
}

}  // namespace

OmChart::OmChart(OmCellText const& label, std::string const& codePage, long long id)
    : OmOutputPart(label), _my(nullptr) {
  auto data = std::make_unique<Data>(codePage, id);
  if (!codePage.empty()) {
    AdoptLabel(ConvertLabel(label, codePage).release());
  }
  _my = data.release();
}

OmChart::~OmChart() {
  delete _my;
}

void OmChart::Accept(Visitor& visitor) {
  visitor.Visit(*this);
}

// Streams

void OmChart::SetXmlDescription(char const* bytes, unsigned int count) {
  _my->xmlDescription.append(bytes, count);
}

void OmChart::SetXmlUncompressedLength(unsigned int) {}

void OmChart::SetXmlCompressedLength(unsigned int length) {
  _my->xmlDescription.reserve(length);
}

void OmChart::SetBinaryDataStream(char const* bytes, unsigned int count) {
  AppendExactly(_my->xmlData, bytes, count);
}

void OmChart::SetImageStream(char const* bytes, unsigned int count) {
  AppendExactly(_my->imageData, bytes, count);
}

void OmChart::SetViZJSON(char const* bytes, unsigned int count) {
  AppendExactly(_my->vizJSON, bytes, count);
}

void OmChart::SetImageSubType(ChartXMLContentSubType type) {
  _my->chartSubType = type;
}

void OmChart::Done(char const* bytes) {
  std::int32_t numbers[2];
  std::memcpy(numbers, bytes, sizeof numbers);
  _my->editable = numbers[0];
  _my->editor = numbers[1];
}

std::string const& OmChart::GetXmlDescription() const {
  return _my->xmlDescription;
}
std::string const& OmChart::GetXmlData() const {
  return _my->xmlData;
}
std::string const& OmChart::GetImageData() const {
  return _my->imageData;
}
std::string const& OmChart::GetViZJSONData() const {
  return _my->vizJSON;
}
std::string const& OmChart::LocaleCodePage() const {
  return _my->localeCodePage;
}
ChartXMLContentSubType OmChart::GetChartSubType() const {
  return _my->chartSubType;
}
int OmChart::GetEditable() const {
  return _my->editable;
}
int OmChart::GetEditor() const {
  return _my->editor;
}
long long OmChart::getChartId() const {
  return _my->chartId;
}

void OmChart::setVizJSONTemplate(char const* bytes, unsigned int count) {
  _my->vizJSONTemplate.append(bytes, count);
}
std::string const& OmChart::getVizJSONTemplate() const {
  return _my->vizJSONTemplate;
}

void OmChart::setOptions(std::string const& options) {
  _my->options = options;
}
std::string& OmChart::getOptions() {
  return _my->options;
}

void OmChart::deleteData() {
  _my->xmlData.clear();
}

// Attached files

void OmChart::addCSVFileName(char const* bytes, unsigned int count) {
  _my->csvFiles.AddName(bytes, count);
}
void OmChart::addCSVFileContent(char const* bytes, unsigned int count) {
  _my->csvFiles.AddContent(bytes, count);
}
bool OmChart::hasCSVFile() const {
  return !_my->csvFiles.names.empty();
}
std::vector<std::string> const& OmChart::getCSVFileNames() const {
  return _my->csvFiles.names;
}
std::vector<std::string> const& OmChart::getCSVFiles() const {
  return _my->csvFiles.contents;
}

void OmChart::addGeoJSONFileName(char const* bytes, unsigned int count) {
  _my->geoJSONFiles.AddName(bytes, count);
}
void OmChart::addGeoJSONFileContent(char const* bytes, unsigned int count) {
  _my->geoJSONFiles.AddContent(bytes, count);
}
bool OmChart::hasGeoJSONFile() const {
  return !_my->geoJSONFiles.names.empty();
}
std::vector<std::string> const& OmChart::getGeoJSONFileNames() const {
  return _my->geoJSONFiles.names;
}
std::vector<std::string> const& OmChart::getGeoJSONContent() const {
  return _my->geoJSONFiles.contents;
}

// Map information

void OmChart::SetMapInfo(char const* bytes, unsigned int count) {
  _my->mapInfo.append(bytes, count);
}

std::string OmChart::MapInfoBlock(MapInfo const& info) {
  std::string block;
  Write(block, std::uint16_t{1});
  WriteText<std::uint32_t>(block, info.first, "first");
  WriteText<std::uint16_t>(block, info.second, "second");
  WriteText<std::uint32_t>(block, info.third, "third");
  WriteText<std::uint16_t>(block, info.fourth, "fourth");
  return block;
}

bool OmChart::hasMap() const {
  return !_my->mapInfo.empty();
}

void OmChart::getMapInfo(std::string& s1, std::string& s2, std::string& s3, std::string& s4) {
  if (!hasMap()) {
    return;
  }
  BlockReader reader(_my->mapInfo);
  bool const reversed = reader.Read<std::uint16_t>() != 1;
  auto first = reader.ReadText<std::uint32_t>(reversed);
  auto second = reader.ReadText<std::uint16_t>(reversed);
  auto third = reader.ReadText<std::uint32_t>(reversed);
  auto fourth = reader.ReadText<std::uint16_t>(reversed);
  s1 = std::move(first);
  s2 = std::move(second);
  s3 = std::move(third);
  s4 = std::move(fourth);
}
