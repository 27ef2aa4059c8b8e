#include <algorithm>
#include <functional>
#include <limits>

#include <lakresvos/OMSException.h>
#include <lakresvos/OmDimension.h>
#include <lakresvos/OmVectorTreeWalk.h>

#include "dimension/OmLabelOrder.h"

namespace {

using Node = OmDimension::Node;
using ConstNode = OmDimension::ConstNode;
using Element = OmDimension::Element;

constexpr unsigned int kNotFound = 0xFFFFFFFF;

/// What the index of a node's children is searched for.
struct Probe {
  OmCellText const* label;
  bool group;

  /// Whether `child` comes before this probe among its siblings.
  bool Follows(OmDimensionNode const& child) const {
    return child.group != group ? child.group : LabelLess(child.label, label);
  }

  /// Whether this probe comes before `child`.
  bool Precedes(OmDimensionNode const& child) const {
    return child.group != group ? group : LabelLess(label, child.label);
  }
};

struct Lookup {
  std::size_t position;  ///< in the index: of the match, or of the place to insert at
  unsigned int child;    ///< the matching child's position, or kNotFound
};

/// A binary search of the parent's index, which is right as long as the index is in label order. An
/// entry that names no child counts as the probe itself and never matches.
Lookup FindInIndex(Element const& parent, Probe const& probe) {
  OmVector<unsigned int> const& index = parent.value.childIndex;
  auto const findChild = [&index, children = parent.children.begin, count = parent.children.size()](
                             std::size_t position) -> OmDimensionNode const* {
    unsigned int const entry = index[position];
    return entry < count ? &children[entry].value : nullptr;
  };
  std::size_t low = 0;
  for (std::size_t count = index.size(); count != 0;) {
    std::size_t const half = count / 2;
    OmDimensionNode const* const child = findChild(low + half);
    if (child != nullptr && probe.Follows(*child)) {
      low += half + 1;
      count -= half + 1;
    } else {
      count = half;
    }
  }
  OmDimensionNode const* const child = low < index.size() ? findChild(low) : nullptr;
  if (child == nullptr || probe.Precedes(*child)) {
    return {low, kNotFound};
  }
  return {low, index[low]};
}

/// Makes a node ready to be a new child: it shares its parent's context and has no index.
void Prepare(OmDimensionNode& node, Element const& parent) {
  if (node.label != nullptr && parent.value.label != nullptr) {
    node.label->ShareContext(*parent.value.label);
  }
  node.childIndex.Clear();
}

}  // namespace

OmDimension::OmDimension(OmDimensionNode const& root, OmMemoryRegion* region)
    : OmVectorTree<OmDimensionNode>(region, root, region) {
  value.childIndex.Clear();
}

OmDimension::OmDimension(OmDimension const& other, OmMemoryRegion* region)
    : OmVectorTree<OmDimensionNode>(region, other.value, region),
      categoryCount_(other.categoryCount_) {
  OmMemoryRegion* const arena = children.region;
  std::vector<Node> copies;
  OmVectorTreeWalk<ConstNode> walk(other.Root());
  walk.Next();
  copies.push_back(Root());
  while (walk.Next()) {
    std::size_t const level = walk.Path().size() - 1;
    copies.resize(level);
    OmDimensionNode copy(walk.Current().Value(), arena);
    copies.push_back(AdoptChild(copies.back(), copy));
  }
}

OmDimension::~OmDimension() = default;

bool OmDimension::AcceptsChild(Node const& parent) const {
  Element const* const element = parent.element;
  if (element == nullptr || PastTheEnd(*element)) {
    return false;
  }
  if (element == this) {
    return true;
  }
  OmMemoryRegion const* const region = element->children.region;
  bool const childOfOtherRoot =
      parent.depth == 1 && PositionAmong(*this, element) >= children.size();
  return element->parent != nullptr && !childOfOtherRoot &&
         (region == nullptr || region == children.region);
}

template <class... Arguments>
Node OmDimension::FindOrAdd(Node const& parent, Arguments const&... value) {
  if (!AcceptsChild(parent)) {
    return {};
  }
  if (!parent.Value().group) {
    throw OMSException("OmDimension::Child -- parent is not group", 0, 0);
  }
  OmDimensionNode node(value..., children.region);
  Prepare(node, *parent.element);
  Lookup const found = FindInIndex(*parent.element, {node.label, node.group});
  return found.child != kNotFound ? parent.Child(found.child)
                                  : AdoptIndexed(parent, node, found.position);
}

Node OmDimension::AdoptIndexed(Node const& parent, OmDimensionNode& node, std::size_t position) {
  bool const category = !node.group;
  // The index is reserved for first: once the child is there, its entry must not fail.
  OmVector<unsigned int>& index = parent.element->value.childIndex;
  index.insert(position, static_cast<unsigned int>(index.size()));
  try {
    Node const child = AdoptChild(parent, node);
    categoryCount_ += category ? 1U : 0U;
    return child;
  } catch (...) {
    index.erase(position);
    throw;
  }
}

Node OmDimension::Child(Node const& parent, OmDimensionNode const& value) {
  return FindOrAdd(parent, value);
}

Node OmDimension::Child(Node const& parent, OmCellText const& text, unsigned long subscript,
                        bool group) {
  return FindOrAdd(parent, text, subscript, group);
}

Node OmDimension::AddNewChild(Node const& parent, OmCellText const& text, unsigned long subscript,
                              bool group) {
  if (!AcceptsChild(parent)) {
    return {};
  }
  OmDimensionNode node(text, subscript, group, children.region);
  Prepare(node, *parent.element);
  return AdoptIndexed(parent, node, parent.element->value.childIndex.size());
}

unsigned int OmDimension::FindChild(ConstNode parent, OmCellText const& text, bool group) {
  return parent.element != nullptr ? FindInIndex(*parent.element, {&text, group}).child : kNotFound;
}

void OmDimension::Delete(Node& node) {
  std::vector<Element*> const ancestors = FindAncestors(node.element);
  if (ancestors.empty()) {
    return;
  }
  Element* const parent = ancestors.back();
  std::size_t const position = PositionAmong(*parent, node.element);
  unsigned int const remaining = FindNextSubscript(node.element);
  EraseChildAt(*parent, position);
  OmVector<unsigned int>& index = parent->value.childIndex;
  for (std::size_t k = 0; k < index.size();) {
    if (index[k] == position) {
      // The entry numbered like the child goes, which is this one only while the index is in order.
      index.erase(position);
      continue;
    }
    if (static_cast<int>(index[k]) > static_cast<int>(position)) {
      --index[k];
    }
    ++k;
  }
  categoryCount_ = remaining;
}

Node OmDimension::Counterpart(Node& node) {
  return node.Counterpart(*this);
}

unsigned int OmDimension::getDepth(ConstNode node) const {
  unsigned int deepest = node.depth;
  OmVectorTreeWalk<ConstNode> walk(node);
  while (walk.Next()) {
    deepest = std::max(deepest, walk.Current().depth);
  }
  return deepest;
}

unsigned int OmDimension::getMaximumDepth() const {
  return getDepth(Root()) + 1;
}

void OmDimension::getGroupCountsByLevel(ConstNode node, std::vector<unsigned long>& counts) const {
  std::vector<unsigned long> added(counts.size());
  OmVectorTreeWalk<ConstNode> walk(node);
  while (walk.Next()) {
    ConstNode const parent = walk.Current();
    std::size_t const level = static_cast<std::size_t>(parent.depth) + 1;
    if (level >= added.size()) {
      continue;
    }
    bool counted = false;
    for (Element const& child : parent.element->children.Elements()) {
      if (child.value.group && !child.value.hide) {
        ++added[level];
      } else if (!counted && child.children.size() == 0) {
        ++added[level];
        counted = true;
      }
    }
  }
  std::transform(counts.begin(), counts.end(), added.begin(), counts.begin(), std::plus<>());
}

unsigned long OmDimension::getMaxVisibleGroupCount() const {
  std::vector<unsigned long> counts(getMaximumDepth());
  getGroupCountsByLevel(Root(), counts);
  return *std::max_element(counts.begin(), counts.end());
}

std::vector<Element*> OmDimension::FindAncestors(Element const* node) {
  std::vector<Element*> ancestors;
  OmVectorTreeWalk<Node> walk(Root());
  while (walk.Next()) {
    Element const& candidate = *walk.Current().element;
    if (PositionAmong(candidate, node) < candidate.children.size()) {
      for (Node const& step : walk.Path()) {
        ancestors.push_back(step.element);
      }
      break;
    }
  }
  return ancestors;
}

unsigned int OmDimension::FindNextSubscript(Element const* without) const {
  unsigned int largest = 0;
  OmVectorTreeWalk<ConstNode> walk(Root());
  while (walk.Next()) {
    OmDimensionNode const& node = walk.Current().Value();
    if (walk.Current().element == without) {
      walk.SkipChildren();
    } else if (!node.group) {
      largest = std::max(largest, static_cast<unsigned int>(node.subscript));
    }
  }
  return largest + 1;
}
