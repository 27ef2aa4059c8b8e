#include "csv/CategoryColumns.h"

#include <algorithm>

#include <cells/OmCellMetaData.h>
#include <cells/OmComposite.h>
#include <lakresvos/OmVectorTreeWalk.h>

namespace lakresvos::render {

namespace {

using Parts = OmVectorTree<OmCellText*>;

class PartsVisitor : public OmCellText::Visitor {
 public:
  using OmCellText::Visitor::Visit;

  void Visit(OmComposite& label) override { parts = &label.Parts(); }

  Parts const* parts = nullptr;
};

/// The parts of a label that is a composite; null for any other.
Parts const* FindParts(OmCellText* label) {
  PartsVisitor visitor;
  if (label != nullptr) {
    label->Accept(visitor);
  }
  return visitor.parts;
}

}  // namespace

CategoryColumns::CategoryColumns(OmDimension const& dimension, LabelTexts& labels) {
  OmVectorTreeWalk<OmDimension::ConstNode> walk(dimension.Root());
  while (walk.Next()) {
    if (!walk.Current().Value().group) {
      levels_ = std::max(levels_, walk.Path().size() - 1);
    }
  }
  if (levels_ == 0 && dimension.Root().Value().group) {
    Parts const* const parts = FindParts(dimension.value.label);
    levels_ = parts != nullptr ? std::max<std::size_t>(parts->Root().NChildren(), 1) : 1;
  }
  OmVectorTreeWalk<OmDimension::ConstNode> again(dimension.Root());
  while (again.Next()) {
    OmDimensionNode const& node = again.Current().Value();
    std::size_t const depth = again.Path().size() - 1;
    if (node.group) {
      continue;
    }
    auto const subscript = static_cast<int>(static_cast<unsigned int>(node.subscript));
    positions_.emplace(subscript, subscripts_.size());
    subscripts_.push_back(subscript);
    for (std::size_t level = 1; level < depth; ++level) {
      labels_.push_back(again.Path()[level].Value().label);
    }
    labels_.insert(labels_.end(), levels_ - depth, nullptr);
    if (depth > 0) {
      labels_.push_back(node.label);
    }
    OmCellMetaData const* const meta = node.label != nullptr ? node.label->getMeta() : nullptr;
    totals_.push_back(meta != nullptr && meta->isTotal());
  }
  NameLevels(dimension, labels);
}

void CategoryColumns::NameLevels(OmDimension const& dimension, LabelTexts& labels) {
  OmCellText* const label = dimension.value.label;
  Parts const* const parts = FindParts(label);
  if (levels_ > 1 && parts != nullptr && parts->Root().NChildren() == levels_) {
    for (std::size_t level = 0; level < levels_; ++level) {
      names_.push_back(labels.Text(parts->Root()[level].Value()));
    }
    return;
  }
  for (std::size_t level = 1; level <= levels_; ++level) {
    names_.push_back(labels.Text(label) + (levels_ > 1 ? " " + std::to_string(level) : ""));
  }
}

bool CategoryColumns::HasTotal() const {
  return std::find(totals_.begin(), totals_.end(), true) != totals_.end();
}

std::size_t CategoryColumns::Find(int subscript) const {
  auto const found = positions_.find(subscript);
  return found != positions_.end() ? found->second : Count();
}

}  // namespace lakresvos::render
