#include <lakresvos/OmHeading.h>
#include <lakresvos/OmOutputPart.h>
#include <lakresvos/OmTextBlock.h>

OmOutputPart::OmOutputPart(OmCellText const& label) : label_(label.Clone(nullptr)) {}

OmOutputPart::~OmOutputPart() noexcept(false) {
  AdoptLabel(nullptr);
}

void OmOutputPart::AdoptLabel(OmCellText* label) {
  OmCellText* const before = label_;
  label_ = label;
  delete before;
}

OmOutputPart::Visitor::~Visitor() = default;

void OmOutputPart::Visitor::Visit(OmProcedure& procedure) {
  Visit(static_cast<OmHeading&>(procedure));
}

void OmOutputPart::Visitor::Visit(OmPageTitle& title) {
  Visit(static_cast<OmTextBlock&>(title));
}
