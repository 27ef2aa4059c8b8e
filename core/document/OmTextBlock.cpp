#include <cells/OmStringCell.h>
#include <lakresvos/OmTextBlock.h>

OmTextBlock::OmTextBlock(OmCellText const& label, std::string const& text)
    : OmOutputPart(label), isLog_(label.GetText() == "Log"), text_(text) {}

OmTextBlock::~OmTextBlock() = default;

void OmTextBlock::Accept(Visitor& visitor) {
  visitor.Visit(*this);
}

OmPageTitle::OmPageTitle(std::string const& text) : OmTextBlock(OmStringCell("", false), text) {}

OmPageTitle::~OmPageTitle() = default;

void OmPageTitle::Accept(Visitor& visitor) {
  visitor.Visit(*this);
}
