#include "content/NumberCell.h"

#include <cells/OmDataValue.h>
#include <cells/OmNumber.h>

namespace lakresvos::render {

namespace {

class NumberVisitor : public OmCellText::Visitor {
 public:
  using OmCellText::Visitor::Visit;

  void Visit(OmNumber& cell) override {
    numeric = true;
    number = {cell.Value(), cell.Decimals()};
  }
  void Visit(OmNumDataValue& cell) override {
    numeric = true;
    if (cell.Display() == OmLabelDisplay::Value || cell.Label().empty()) {
      number = {cell.Value(), -1};
    }
  }

  bool numeric = false;
  std::optional<ShownNumber> number;
};

}  // namespace

std::optional<ShownNumber> FindNumber(OmCellText& cell) {
  NumberVisitor visitor;
  cell.Accept(visitor);
  return visitor.number;
}

bool IsNumeric(OmCellText const& cell) {
  NumberVisitor visitor;
  // Visitors take cells that may change; this one changes none.
  const_cast<OmCellText&>(cell).Accept(visitor);
  return visitor.numeric;
}

}  // namespace lakresvos::render
