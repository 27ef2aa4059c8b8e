#include <memory>
#include <utility>
#include <vector>

#include <cells/OmComposite.h>
#include <lakresvos/OmHeading.h>
#include <lakresvos/OmVectorTreeWalk.h>

namespace {

/// Whether `cell` is `whole` itself or one of its parts, at any depth.
bool BelongsTo(OmCellText const* whole, OmCellText const& cell) {
  std::vector<OmCellText const*> pending{whole};
  while (!pending.empty()) {
    OmCellText const* const candidate = pending.back();
    pending.pop_back();
    if (candidate == &cell) {
      return true;
    }
    if (auto const* const composite = dynamic_cast<OmComposite const*>(candidate)) {
      OmVectorTreeWalk walk(composite->Parts().Root());
      while (walk.Next()) {
        pending.push_back(walk.Current().Value());
      }
    }
  }
  return false;
}

}  // namespace

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
  std::string text = label.GetText();
  std::unique_ptr<OmCellText> own;
  if (BelongsTo(Label(), label)) {
    own.reset(label.Clone(nullptr));
  }
  outlineText_ = std::move(text);
  AdoptLabel(nullptr);
  AdoptLabel(own != nullptr ? own.release() : label.Clone(nullptr));
}
