#include "NumberCell.h"

#include <cells/OmDataValue.h>
#include <cells/OmNumber.h>

namespace lakresvos::render {

namespace {

class NumberVisitor : public OmCellText::Visitor {
 public:
  using OmCellText::Visitor::Visit;

  void Visit(OmNumber& /*cell*/) override { number = true; }
  void Visit(OmNumDataValue& cell) override {
    number = cell.Display() == OmLabelDisplay::Value || cell.Label().empty();
  }

  bool number = false;
};

}  // namespace

bool ShowsNumber(OmCellText& cell) {
  NumberVisitor visitor;
  cell.Accept(visitor);
  return visitor.number;
}

}  // namespace lakresvos::render
