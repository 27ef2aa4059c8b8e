#include "csv/CategoryColumns.h"

#include <algorithm>

#include <cells/OmCellMetaData.h>
#include <cells/OmComposite.h>
#include <lakresvos/OmVectorTreeWalk.h>

namespace lakresvos::render {

CategoryColumns::CategoryColumns(OmDimension const& dimension, LabelTexts& labels) {
  OmVectorTreeWalk<OmDimension::ConstNode> walk(dimension.Root());
  while (walk.Next()) {
    if (!walk.Current().Value().group) {
      levels_ = std::max(levels_, walk.Path().size() - 1);
    }
  }
  if (levels_ == 0 && dimension.Root().Value().group) {
    auto const* const composite = dynamic_cast<OmComposite const*>(dimension.value.label);
    levels_ =
        composite != nullptr ? std::max<std::size_t>(composite->Parts().Root().NChildren(), 1) : 1;
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
  OmCellText const* const label = dimension.value.label;
  auto const* const composite = dynamic_cast<OmComposite const*>(label);
  if (levels_ > 1 && composite != nullptr && composite->Parts().Root().NChildren() == levels_) {
    for (std::size_t level = 0; level < levels_; ++level) {
      names_.push_back(labels.Text(composite->Parts().Root()[level].Value()));
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
