#include <lakresvos/OmDimension.h>

#include "dimension/OmLabelOrder.h"

OmDimensionNode::OmDimensionNode(OmMemoryRegion* region)
    : label(nullptr),
      subscript(static_cast<unsigned long>(-1)),
      childIndex(region),
      sort(2),
      group(false),
      hide(false),
      hideLabels(false) {}

OmDimensionNode::OmDimensionNode(OmCellText const& text, unsigned long categorySubscript,
                                 bool isGroup, OmMemoryRegion* region)
    : OmDimensionNode(region) {
  label = text.Clone(region);
  subscript = categorySubscript;
  group = isGroup;
}

OmDimensionNode::OmDimensionNode(OmDimensionNode const& source, OmMemoryRegion* region)
    : OmDimensionNode(region) {
  if (source.label != nullptr) {
    label = source.label->Clone(childIndex.region);
  }
  subscript = source.subscript;
  childIndex.reserve(source.childIndex.size());
  for (unsigned int const entry : source.childIndex.Elements()) {
    childIndex.push_back(entry);
  }
  sort = source.sort;
  group = source.group;
  hide = source.hide;
  hideLabels = source.hideLabels;
}

OmDimensionNode::OmDimensionNode(OmDimensionNode const& source)
    : OmDimensionNode(source, source.childIndex.region) {}

OmDimensionNode::~OmDimensionNode() {
  childIndex.Clear();
  delete label;
}

bool OmDimensionNode::operator<(OmDimensionNode const& other) const {
  return group != other.group ? group : LabelLess(label, other.label);
}

bool OmDimensionNode::operator==(OmDimensionNode const& other) const {
  return group == other.group && subscript == other.subscript && LabelEqual(label, other.label);
}
