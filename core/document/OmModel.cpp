#include <lakresvos/OmModel.h>

#include "document/OmByteStreams.h"

struct OmModel::Data {
  MODEL_TYPE modelType = MODEL_DOCUMENT;
  std::string pmml;
  std::string binaryDataStream;
  std::string pmmlContainer;
  std::string statXMLContainer;
};

OmModel::OmModel(OmCellText const& label) : OmOutputPart(label), _my(new Data()) {}

OmModel::~OmModel() {
  delete _my;
}

void OmModel::Accept(Visitor& visitor) {
  visitor.Visit(*this);
}

void OmModel::SetPMML(char const* bytes, unsigned int count) {
  _my->pmml.append(bytes, count);
}

void OmModel::SetBinaryDataStream(char const* bytes, unsigned int count) {
  AppendExactly(_my->binaryDataStream, bytes, count);
}

void OmModel::SetPMMLContainer(char const* bytes, unsigned int count) {
  _my->pmmlContainer.append(bytes, count);
  SetModelType(MODEL_CONTAINER);
}

void OmModel::SetStatXMLContainer(char const* bytes, unsigned int count) {
  _my->statXMLContainer.append(bytes, count);
  SetModelType(MODEL_CONTAINER);
}

void OmModel::SetModelType(MODEL_TYPE type) {
  _my->modelType = type;
}
OmModel::MODEL_TYPE OmModel::GetModelType() const {
  return _my->modelType;
}

std::string const& OmModel::GetPMML() const {
  return _my->pmml;
}
std::string const& OmModel::GetBinaryDataStream() const {
  return _my->binaryDataStream;
}
std::string const& OmModel::GetPMMLContainer() const {
  return _my->pmmlContainer;
}
std::string const& OmModel::GetStatXMLContainer() const {
  return _my->statXMLContainer;
}
