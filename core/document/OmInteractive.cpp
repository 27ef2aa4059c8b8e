#include <memory>

#include <lakresvos/OmInteractive.h>

#include "document/OmByteStreams.h"
#include "document/OmCodePageLabel.h"

struct OmInteractive::Data {
  Data(std::string const& codePage, long long id) : localeCodePage(codePage), interactiveId(id) {}

  std::string localeCodePage;
  OmAttachedFiles geoJSONFiles;
  std::string interactiveJSON;
  std::string procedureName;
  std::string jsonPath;
  std::string options;
  long long interactiveId;
};

OmInteractive::OmInteractive(OmCellText const& label, std::string const& codePage, long long id)
    : OmOutputPart(label), _my(nullptr) {
  auto data = std::make_unique<Data>(codePage, id);
  if (!codePage.empty()) {
    AdoptLabel(ConvertLabel(label, codePage).release());
  }
  _my = data.release();
}

OmInteractive::~OmInteractive() {
  delete _my;
}

void OmInteractive::Accept(Visitor& visitor) {
  visitor.Visit(*this);
}

std::string const& OmInteractive::LocaleCodePage() const {
  return _my->localeCodePage;
}
long long OmInteractive::getInteractiveId() const {
  return _my->interactiveId;
}

void OmInteractive::setInteractiveJSON(char const* bytes, unsigned int count) {
  _my->interactiveJSON.append(bytes, count);
}
std::string const& OmInteractive::getInteractiveJSON() const {
  return _my->interactiveJSON;
}

void OmInteractive::setProcedureName(std::string const& name) {
  _my->procedureName = name;
}
std::string const& OmInteractive::getProcedureName() const {
  return _my->procedureName;
}

void OmInteractive::setJSONPath(std::string const& path) {
  _my->jsonPath = path;
}
std::string& OmInteractive::getJSONPath() {
  return _my->jsonPath;
}

void OmInteractive::setOptions(std::string const& options) {
  _my->options = options;
}
std::string& OmInteractive::getOptions() {
  return _my->options;
}

void OmInteractive::addGeoJSONFileName(char const* bytes, unsigned int count) {
  _my->geoJSONFiles.AddName(bytes, count);
}
void OmInteractive::addGeoJSONFileContent(char const* bytes, unsigned int count) {
  _my->geoJSONFiles.AddContent(bytes, count);
}
bool OmInteractive::hasGeoJSONFile() const {
  return !_my->geoJSONFiles.names.empty();
}
std::vector<std::string> const& OmInteractive::getGeoJSONFileNames() const {
  return _my->geoJSONFiles.names;
}
std::vector<std::string> const& OmInteractive::getGeoJSONContent() const {
  return _my->geoJSONFiles.contents;
}
