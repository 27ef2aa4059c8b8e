#include "content/NumberCell.h"

#include <cells/OmDataValue.h>
#include <cells/OmNumber.h>

namespace lakresvos::render {

namespace {

class NumberVisitor : public OmCellText::Visitor {
 public:
  using OmCellText::Visitor::Visit;

  void Visit(OmNumber& cell) override { number = {cell.Value(), cell.Decimals()}; }
  void Visit(OmNumDataValue& cell) override {
    if (cell.Display() == OmLabelDisplay::Value || cell.Label().empty()) {
      number = {cell.Value(), -1};
    }
  }

  std::optional<ShownNumber> number;
};

}  // namespace

std::optional<ShownNumber> NumberOf(OmCellText& cell) {
  NumberVisitor visitor;
  cell.Accept(visitor);
  return visitor.number;
}

}  // namespace lakresvos::render
