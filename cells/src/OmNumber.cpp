#include <typeinfo>

#include <cells/OmNumber.h>

#include "CellOrder.h"
#include "NumberText.h"

OmNumber::OmNumber(double value, int decimals) : value_(value), decimals_(decimals) {}

OmNumber::OmNumber(OmNumber const& other) = default;

OmNumber::~OmNumber() = default;

OmCellText* OmNumber::Clone(OmMemoryRegion* region) const {
  return new (region) OmNumber(*this);
}

std::string OmNumber::GetText() const {
  return NumberText(value_, decimals_);
}

long OmNumber::GetKind() const {
  return NumberKind;
}

short OmNumber::Compare(OmCellText const& other, bool ignoreCase) const {
  auto const* const number = cell_order::FindPeer<OmNumber>(*this, other);
  if (number == nullptr) {
    return CompareTexts(other, ignoreCase);
  }
  short const order = cell_order::CompareValues(value_, number->value_);
  return order != 0 ? order : cell_order::CompareValues(decimals_, number->decimals_);
}

void OmNumber::Accept(Visitor& visitor) {
  visitor.Visit(*this);
}

bool OmNumber::GoesWithRegion() const {
  return typeid(*this) == typeid(OmNumber);
}

bool OmNumber::TakeValue(OmCellText const& other) {
  if (typeid(*this) != typeid(OmNumber) || typeid(other) != typeid(OmNumber) || hasContext()) {
    return false;
  }
  auto const& number = static_cast<OmNumber const&>(other);
  if (!number.IsBare()) {
    return false;
  }
  value_ = number.value_;
  decimals_ = number.decimals_;
  return true;
}
