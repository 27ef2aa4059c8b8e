#include <typeinfo>

#include <cells/OmVariable.h>

OmVariable::OmVariable(std::string const& name, std::string const& label)
    : OmLabelledText(name, label) {}

OmVariable::OmVariable(OmVariable const& other, OmMemoryRegion* region)
    : OmLabelledText(other, region) {}

OmVariable::~OmVariable() = default;

OmCellText* OmVariable::Clone(OmMemoryRegion* region) const {
  return new (region) OmVariable(*this, region);
}

long OmVariable::GetKind() const {
  return VariableKind;
}

void OmVariable::Accept(Visitor& visitor) {
  visitor.Visit(*this);
}

bool OmVariable::GoesWithRegion() const {
  return typeid(*this) == typeid(OmVariable);
}
