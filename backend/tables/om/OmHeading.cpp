#include <memory>

#include <lakresvos/OmHeading.h>

OmHeading::OmHeading(OmCellText const& label)
    : OmOutputPart(label), records_(new OmVector<HeadingRecord>()) {}

OmHeading::~OmHeading() {
  for (HeadingRecord const& record : records_->Elements()) {
    delete record.cell1;
    delete record.cell2;
  }
  delete records_;
}

void OmHeading::Accept(Visitor& visitor) {
  visitor.Visit(*this);
}

OmProcedure::OmProcedure(OmCellText const& label, std::string const& a, std::string const& b,
                         std::string const& c)
    : OmHeading(label),
      outlineText_(label.GetText()),
      text1_(a),
      text2_(b),
      text3_(c),
      codes_{2, 2, 2, 2} {}

OmProcedure::~OmProcedure() = default;

void OmProcedure::Accept(Visitor& visitor) {
  visitor.Visit(*this);
}

void OmProcedure::setOutlineText(OmCellText const& label) {
  outlineText_ = label.GetText();
  std::unique_ptr<OmCellText> own;
  if (&label == Label()) {
    own.reset(label.Clone(nullptr));
  }
  AdoptLabel(nullptr);
  AdoptLabel(own != nullptr ? own.release() : label.Clone(nullptr));
}
