#include <typeinfo>

#include <cells/OmDataValue.h>

#include "CellOrder.h"
#include "NumberText.h"

OmNumDataValue::OmNumDataValue(double value, std::string const& label)
    : OmLabelledCell(label), value_(value) {}

OmNumDataValue::OmNumDataValue(OmNumDataValue const& other, OmMemoryRegion* region)
    : OmLabelledCell(other, region), value_(other.value_) {}

OmNumDataValue::~OmNumDataValue() = default;

OmCellText* OmNumDataValue::Clone(OmMemoryRegion* region) const {
  return new (region) OmNumDataValue(*this, region);
}

long OmNumDataValue::GetKind() const {
  return NumDataValueKind;
}

short OmNumDataValue::Compare(OmCellText const& other, bool ignoreCase) const {
  auto const* const value = cell_order::FindPeer<OmNumDataValue>(*this, other);
  if (value == nullptr) {
    return CompareTexts(other, ignoreCase);
  }
  short const order = cell_order::CompareValues(value_, value->value_);
  return order != 0 ? order : CompareLabels(*value, ignoreCase);
}

void OmNumDataValue::Accept(Visitor& visitor) {
  visitor.Visit(*this);
}

bool OmNumDataValue::GoesWithRegion() const {
  return typeid(*this) == typeid(OmNumDataValue);
}

std::string OmNumDataValue::ValueText() const {
  return NumberText(value_, -1);
}

OmStringDataValue::OmStringDataValue(std::string const& value, std::string const& label)
    : OmLabelledText(value, label) {}

OmStringDataValue::OmStringDataValue(OmStringDataValue const& other, OmMemoryRegion* region)
    : OmLabelledText(other, region) {}

OmStringDataValue::~OmStringDataValue() = default;

OmCellText* OmStringDataValue::Clone(OmMemoryRegion* region) const {
  return new (region) OmStringDataValue(*this, region);
}

long OmStringDataValue::GetKind() const {
  return StringDataValueKind;
}

void OmStringDataValue::Accept(Visitor& visitor) {
  visitor.Visit(*this);
}

bool OmStringDataValue::GoesWithRegion() const {
  return typeid(*this) == typeid(OmStringDataValue);
}
