#include <algorithm>
#include <list>
#include <utility>

#include <lakresvos/OmDimension.h>

#include "dimension/OmChildPlan.h"

namespace {

using Element = OmDimension::Element;
using Node = OmDimension::Node;

/// The copies that an edit puts in place. They must not move while a plan names them.
using Copies = std::list<Element>;

Element& AddCopy(Copies& copies, Element const& source, OmMemoryRegion* arena) {
  Element& copy = copies.emplace_back(arena);
  OmDimension::CopySubtree(copy, source, nullptr, arena);
  return copy;
}

bool Contains(std::vector<Element*> const& path, Element const* element) {
  return std::find(path.begin(), path.end(), element) != path.end();
}

/// A node with the way to it from the root.
struct Place {
  Element* node = nullptr;
  std::vector<Element*> ancestors;

  Element& parent() const { return *ancestors.back(); }
  std::size_t position() const { return OmDimension::PositionAmong(parent(), node); }
  /// The next sibling, or null.
  Element* next() const {
    std::size_t const after = position() + 1;
    return after < parent().children.size() ? &parent().children[after] : nullptr;
  }
};

/// Carries out two prepared plans for different parents, that of the deeper one first, since the
/// other one may move it.
/// @return where `deep` is afterwards.
Element& ApplyBoth(OmChildPlan& deepPlan, Element& deep, OmChildPlan& shallowPlan,
                   Element& shallow) {
  deepPlan.Apply();
  std::size_t const moved = shallowPlan.Find(&deep);
  bool const inside = moved < shallowPlan.size();
  shallowPlan.Apply();
  return inside ? shallow.children[moved] : deep;
}

std::size_t FindPositionBefore(OmChildPlan const& plan, Element const* anchor) {
  return anchor != nullptr ? plan.FindEqual(anchor->value) : plan.size();
}

/// Exchanges two children of one parent.
void ExchangeSiblings(Place const& node, Place const& target, OmMemoryRegion* arena) {
  Element const* const nodeNext = node.next();
  Element const* const targetNext = target.next();
  bool const targetFollows = nodeNext == target.node;
  Element const* const nodeAnchor = targetFollows ? targetNext : nodeNext;
  Element const* const targetAnchor = targetNext == node.node ? nodeAnchor : targetNext;
  OmChildPlan plan(node.parent());
  plan.Drop(plan.Find(node.node));
  std::size_t const found = plan.FindEqual(target.node->value);
  if (found == plan.size()) {
    return;
  }
  plan.Drop(found);
  Copies copies;
  Element& nodeCopy = AddCopy(copies, *node.node, arena);
  Element& targetCopy = AddCopy(copies, *target.node, arena);
  if (targetFollows) {
    plan.Insert(FindPositionBefore(plan, nodeAnchor), targetCopy);
    plan.Insert(FindPositionBefore(plan, targetAnchor), nodeCopy);
  } else {
    plan.Insert(FindPositionBefore(plan, targetAnchor), nodeCopy);
    plan.Insert(FindPositionBefore(plan, nodeAnchor), targetCopy);
  }
  plan.Prepare();
  plan.Apply();
  OmDimension::RelinkParents(node.parent(), true);
}

/// Moves two nodes of different parents, each among its own siblings.
void ExchangeCousins(Place const& node, Place const& target, OmMemoryRegion* arena) {
  Copies copies;
  OmChildPlan nodePlan(node.parent());
  nodePlan.Drop(nodePlan.Find(node.node));
  nodePlan.Insert(FindPositionBefore(nodePlan, target.next()), AddCopy(copies, *node.node, arena));
  OmChildPlan targetPlan(target.parent());
  std::size_t const found = targetPlan.FindEqual(target.node->value);
  if (found == targetPlan.size() || Contains(node.ancestors, targetPlan[found])) {
    // In the second case an equal sibling of the target would go, and the node with it.
    return;
  }
  targetPlan.Drop(found);
  targetPlan.Insert(FindPositionBefore(targetPlan, node.next()),
                    AddCopy(copies, *target.node, arena));
  nodePlan.Prepare();
  targetPlan.Prepare();
  nodePlan.DestroyDropped();
  targetPlan.DestroyDropped();
  bool const nodeDeeper = node.ancestors.size() > target.ancestors.size();
  Element& shallow = nodeDeeper ? target.parent() : node.parent();
  Element& deep = nodeDeeper ? ApplyBoth(nodePlan, node.parent(), targetPlan, shallow)
                             : ApplyBoth(targetPlan, target.parent(), nodePlan, shallow);
  OmDimension::RelinkParents(shallow, true);
  OmDimension::RelinkParents(deep, true);
}

/// Moves a node below `receiver`, before the first child that equals `before`; null: to the end.
void MoveBelow(Place const& node, Element& receiver, std::size_t receiverDepth,
               Element const* before, OmMemoryRegion* arena) {
  Copies copies;
  Element& copy = AddCopy(copies, *node.node, arena);
  OmChildPlan into(receiver);
  if (&receiver == &node.parent()) {
    into.Drop(into.Find(node.node));
    into.Insert(FindPositionBefore(into, before), copy);
    into.Prepare();
    into.Apply();
    OmDimension::RelinkParents(receiver, true);
    return;
  }
  into.Insert(FindPositionBefore(into, before), copy);
  OmChildPlan outOf(node.parent());
  outOf.Drop(outOf.Find(node.node));
  into.Prepare();
  outOf.Prepare();
  bool const receiverDeeper = receiverDepth >= node.ancestors.size();
  if (receiverDeeper) {
    OmDimension::RelinkParents(ApplyBoth(into, receiver, outOf, node.parent()), true);
  } else {
    ApplyBoth(outOf, node.parent(), into, receiver);
    OmDimension::RelinkParents(receiver, true);
  }
}

/// Puts the children of `group` in its place; does nothing when no child equals the group.
/// @return the last position of the group.
Element* Dissolve(Element& parent, Element& group, OmMemoryRegion* arena) {
  OmChildPlan plan(parent);
  std::size_t const place = plan.FindEqual(group.value);
  if (place == plan.size()) {
    return &group;
  }
  Copies copies;
  std::vector<Element*> arriving;
  // A child that equals the group is taken for it once it is there: what follows goes before it.
  std::vector<Element*> alike;
  for (Element const& child : group.children.Elements()) {
    Element& copy = AddCopy(copies, child, arena);
    (copy.value == group.value ? alike : arriving).push_back(&copy);
  }
  arriving.insert(arriving.end(), alike.rbegin(), alike.rend());
  plan.InsertAll(place, arriving);
  std::size_t const last = plan.Find(&group);
  plan.Drop(last);
  plan.Prepare();
  plan.Apply();
  OmDimension::RelinkParents(parent, true);
  return parent.children.begin + last;
}

}  // namespace

OmDimensionNode OmDimension::insertCategory(OmCellText const& text, Node sibling, Node parent,
                                            bool before) {
  bool const known = parent.element == this || !FindAncestors(parent.element).empty();
  OmDimensionNode category =
      known ? OmDimensionNode(text, FindNextSubscript(), false, nullptr) : OmDimensionNode();
  if (!known) {
    return category;
  }
  if (sibling.Value().label != nullptr) {
    category.label->ShareContext(*sibling.Value().label);
  }
  Place place{sibling.element, FindAncestors(sibling.element)};
  Element const* const anchor = place.ancestors.empty() ? nullptr
                                : before                ? place.node
                                                        : place.next();
  Element fresh(children.region, category);
  OmChildPlan plan(*parent.element);
  plan.Insert(FindPositionBefore(plan, anchor), fresh);
  plan.Prepare();
  plan.Apply();
  RelinkParents(*parent.element, true);
  ++categoryCount_;
  return category;
}

void OmDimension::insertChild(OmCellText const& text, std::vector<Node*> nodes) {
  OmDimensionNode value(text, static_cast<unsigned long>(-1), true, nullptr);
  if (nodes.empty() || nodes.front() == nullptr) {
    return;
  }
  std::vector<Element*> const ancestors = FindAncestors(nodes.front()->element);
  if (ancestors.empty()) {
    return;
  }
  Element& receiver = *ancestors.back();
  std::size_t const first = PositionAmong(receiver, nodes.front()->element);
  if (nodes.front()->Value().label != nullptr) {
    value.label->ShareContext(*nodes.front()->Value().label);
  }
  std::vector<bool> wrapped(receiver.children.size());
  std::vector<std::size_t> positions;
  for (Node const* node : nodes) {
    if (node == nullptr) {
      return;
    }
    std::size_t const position = PositionAmong(receiver, node->element);
    if (position >= wrapped.size() || wrapped[position]) {
      return;
    }
    wrapped[position] = true;
    positions.push_back(position);
  }
  Element group(children.region, value);
  group.children.reserve(nodes.size());
  for (std::size_t const position : positions) {
    CopySubtree(group.children.emplace_back(children.region), receiver.children[position], &group,
                children.region);
  }
  OmChildPlan plan(receiver);
  std::reverse(positions.begin(), positions.end());
  plan.DropAll(positions);
  auto const before = wrapped.begin() + static_cast<std::ptrdiff_t>(first);
  std::size_t const at =
      first - static_cast<std::size_t>(std::count(wrapped.begin(), before, true));
  plan.Insert(at < plan.size() ? plan.FindEqual(plan[at]->value) : at, group);
  plan.Prepare();
  plan.Apply();
  RelinkParents(receiver, true);
}

void OmDimension::removeChild(Node& group) {
  std::vector<Element*> const ancestors = FindAncestors(group.element);
  if (ancestors.empty() && group.element != this) {
    return;
  }
  unsigned long const former =
      std::exchange(group.element->value.subscript, static_cast<unsigned long>(-2));
  if (ancestors.empty() || group.depth == 0 || group.NChildren() == 0) {
    return;
  }
  try {
    group.element = Dissolve(*ancestors.back(), *group.element, children.region);
  } catch (...) {
    group.element->value.subscript = former;
    throw;
  }
}

void OmDimension::moveChild(Node& node, Node* target, bool exchange) {
  Place const from{node.element, FindAncestors(node.element)};
  if (from.ancestors.empty()) {
    return;
  }
  if (target == nullptr) {
    std::size_t depth = from.ancestors.size() - 1;
    while (depth != 0 && from.ancestors[depth]->value.hide) {
      --depth;
    }
    MoveBelow(from, *from.ancestors[depth], depth, nullptr, children.region);
    return;
  }
  Place const to{target->element, FindAncestors(target->element)};
  if (to.ancestors.empty() || to.node == from.node || Contains(to.ancestors, from.node)) {
    return;
  }
  if (!exchange) {
    MoveBelow(from, to.parent(), to.ancestors.size() - 1, to.node, children.region);
  } else if (&from.parent() == &to.parent()) {
    ExchangeSiblings(from, to, children.region);
  } else if (!Contains(from.ancestors, to.node)) {
    ExchangeCousins(from, to, children.region);
  }
}
