#include "support/DimensionModel.h"

#include <algorithm>
#include <set>
#include <sstream>

namespace dimension_model {

namespace {

constexpr unsigned int kNoEntry = 0xFFFFFFFF;

using Children = std::vector<NodePtr>;

std::ptrdiff_t Offset(std::size_t position) {
  return static_cast<std::ptrdiff_t>(position);
}

NodePtr Copy(Node const& source) {
  auto copy = std::make_shared<Node>(source);
  for (NodePtr& child : copy->children) {
    child = Copy(*child);
  }
  return copy;
}

Path ParentOf(Path path) {
  path.pop_back();
  return path;
}

/// Whether `path` is `above` or leads through it.
bool LeadsThrough(Path const& path, Path const& above) {
  return path.size() >= above.size() && std::equal(above.begin(), above.end(), path.begin());
}

std::size_t FirstEqual(Children const& children, Node const& value) {
  auto const found = std::find_if(children.begin(), children.end(),
                                  [&](NodePtr const& child) { return child->Equals(value); });
  return static_cast<std::size_t>(found - children.begin());
}

/// Inserts before the first child that equals the anchor; at the end when there is none.
void InsertBefore(Children& children, NodePtr const& node, std::optional<Node> const& anchor) {
  std::size_t const at = anchor ? FirstEqual(children, *anchor) : children.size();
  children.insert(children.begin() + Offset(at), node);
}

/// Takes a child away. The later ones move, and their children do not learn of it.
void Erase(Children& children, std::size_t position) {
  children.erase(children.begin() + Offset(position));
  for (std::size_t later = position; later < children.size(); ++later) {
    for (NodePtr const& child : children[later]->children) {
      child->linked = false;
    }
  }
}

void Relink(Node& parent) {
  for (NodePtr const& child : parent.children) {
    child->linked = true;
    Relink(*child);
  }
}

std::optional<Node> NextOf(Node const& parent, std::size_t position) {
  return position + 1 < parent.children.size() ? std::optional<Node>(*parent.children[position + 1])
                                               : std::nullopt;
}

/// What a binary search of a parent's index by label finds.
struct Found {
  std::size_t at;      ///< in the index
  unsigned int entry;  ///< kNoEntry unless the child there matches
};

Found Search(Node const& parent, std::string const& label, bool group) {
  auto const less = [](bool group1, std::string const& label1, bool group2,
                       std::string const& label2) {
    return group1 != group2 ? group1 : label1 < label2;
  };
  auto const childAt = [&](unsigned int entry) -> Node const* {
    return entry < parent.children.size() ? parent.children[entry].get() : nullptr;
  };
  auto const found =
      std::partition_point(parent.index.begin(), parent.index.end(), [&](unsigned int entry) {
        Node const* const child = childAt(entry);
        return child != nullptr && less(child->group, child->label, group, label);
      });
  Node const* const child = found != parent.index.end() ? childAt(*found) : nullptr;
  bool const match = child != nullptr && !less(group, label, child->group, child->label);
  return {static_cast<std::size_t>(found - parent.index.begin()), match ? *found : kNoEntry};
}

unsigned int LargestSubscript(Node const& node) {
  unsigned int largest = node.group ? 0 : static_cast<unsigned int>(node.subscript);
  for (NodePtr const& child : node.children) {
    largest = std::max(largest, LargestSubscript(*child));
  }
  return largest;
}

void Write(std::ostream& text, Node const& node) {
  text << node.label << " " << static_cast<long>(node.subscript) << (node.group ? " group" : "")
       << (node.hide ? " hide" : "") << (node.hideLabels ? " hideLabels" : "") << " sort"
       << node.sort << " [";
  for (unsigned int const entry : node.index) {
    text << " " << entry;
  }
  text << " ] {";
  for (NodePtr const& child : node.children) {
    text << " ";
    Write(text, *child);
  }
  text << " }";
}

std::string FindUnlinked(Node const& model, OmDimension::Element const& element) {
  for (std::size_t i = 0; i < model.children.size(); ++i) {
    Node const& child = *model.children[i];
    OmDimension::Element const& real = element.children[i];
    if (child.linked && real.parent != &element) {
      return child.label + " below " + model.label;
    }
    std::string const below = FindUnlinked(child, real);
    if (!below.empty()) {
      return below;
    }
  }
  return "";
}

}  // namespace

Dimension::Dimension(std::string const& label, unsigned long subscript)
    : root(std::make_shared<Node>(Node{label, subscript, true, false, false, 2, {}, {}, true})) {}

Node& Dimension::At(Path const& path) const {
  Node* node = root.get();
  for (std::size_t const position : path) {
    node = node->children[position].get();
  }
  return *node;
}

unsigned int Dimension::NextSubscript() const {
  return LargestSubscript(*root) + 1;
}

std::size_t Dimension::Child(Path const& parent, std::string const& label, unsigned long subscript,
                             bool group) {
  Node& owner = At(parent);
  Found const found = Search(owner, label, group);
  if (found.entry != kNoEntry) {
    return found.entry;
  }
  std::size_t const position = AddNewChild(parent, label, subscript, group);
  unsigned int const entry = owner.index.back();
  owner.index.pop_back();
  owner.index.insert(owner.index.begin() + Offset(found.at), entry);
  return position;
}

std::size_t Dimension::AddNewChild(Path const& parent, std::string const& label,
                                   unsigned long subscript, bool group) {
  Node& owner = At(parent);
  owner.index.push_back(static_cast<unsigned int>(owner.index.size()));
  owner.children.push_back(
      std::make_shared<Node>(Node{label, subscript, group, false, false, 2, {}, {}, true}));
  categoryCount += group ? 0 : 1;
  return owner.children.size() - 1;
}

void Dimension::Delete(Path const& path) {
  if (path.empty()) {
    return;
  }
  Node& parent = At(ParentOf(path));
  auto const position = static_cast<unsigned int>(path.back());
  Erase(parent.children, position);
  std::vector<unsigned int>& index = parent.index;
  for (std::size_t k = 0; k < index.size();) {
    if (index[k] == position) {
      index.erase(index.begin() + Offset(std::min<std::size_t>(position, index.size() - 1)));
    } else {
      index[k] -= static_cast<int>(index[k]) > static_cast<int>(position) ? 1 : 0;
      ++k;
    }
  }
  categoryCount = NextSubscript();
}

Node Dimension::insertCategory(std::string const& label, Path const* sibling, Path const& parent,
                               bool before) {
  Node const category{label, NextSubscript(), false, false, false, 2, {}, {}, true};
  std::optional<Node> anchor;
  if (sibling != nullptr && !sibling->empty()) {
    anchor = before ? At(*sibling) : NextOf(At(ParentOf(*sibling)), sibling->back());
  }
  InsertBefore(At(parent).children, std::make_shared<Node>(category), anchor);
  Relink(At(parent));
  ++categoryCount;
  return category;
}

void Dimension::insertChild(std::string const& label, std::vector<Path> const& nodes) {
  std::set<Path> const different(nodes.begin(), nodes.end());
  if (nodes.empty() || different.size() != nodes.size() || different.count({}) != 0) {
    return;
  }
  Path const above = ParentOf(nodes.front());
  if (std::any_of(nodes.begin(), nodes.end(),
                  [&](Path const& node) { return ParentOf(node) != above; })) {
    return;
  }
  auto group = std::make_shared<Node>(Node{label, ~0UL, true, false, false, 2, {}, {}, true});
  for (Path const& node : nodes) {
    group->children.push_back(Copy(At(node)));
  }
  Node& parent = At(above);
  NodePtr follows;  // the sibling before the first node that is not wrapped itself
  for (std::size_t i = 0; i < nodes.front().back(); ++i) {
    Path path = above;
    path.push_back(i);
    follows = different.count(path) == 0 ? parent.children[i] : follows;
  }
  for (auto node = different.rbegin(); node != different.rend(); ++node) {
    Erase(parent.children, node->back());
  }
  auto const remembered = std::find(parent.children.begin(), parent.children.end(), follows);
  auto const next = follows != nullptr ? remembered + 1 : parent.children.begin();
  InsertBefore(parent.children, group,
               next != parent.children.end() ? std::optional<Node>(**next) : std::nullopt);
  Relink(parent);
}

Path Dimension::removeChild(Path const& path) {
  NodePtr const group = path.empty() ? root : At(ParentOf(path)).children[path.back()];
  group->subscript = ~0UL - 1;
  if (path.empty() || group->children.empty()) {
    return path;
  }
  Node& parent = At(ParentOf(path));
  for (NodePtr const& child : group->children) {
    InsertBefore(parent.children, Copy(*child), *group);
  }
  auto const stands = std::find(parent.children.begin(), parent.children.end(), group);
  Path last = ParentOf(path);
  last.push_back(static_cast<std::size_t>(stands - parent.children.begin()));
  Erase(parent.children, last.back());
  Relink(parent);
  return last;
}

void Dimension::moveChild(Path const& path, Path const* target, bool exchange) {
  bool const senseless =
      path.empty() || (target != nullptr && (target->empty() || LeadsThrough(*target, path)));
  if (senseless) {
    return;
  }
  Node& parent = At(ParentOf(path));
  if (target != nullptr && exchange) {
    Node& other = At(ParentOf(*target));
    if (&parent == &other) {
      ExchangeSiblings(parent, parent.children[path.back()], parent.children[target->back()]);
    } else if (!LeadsThrough(path, *target)) {
      ExchangeCousins(path, *target);
    }
    return;
  }
  Path receiver = ParentOf(target != nullptr ? *target : path);
  if (target == nullptr) {
    while (!receiver.empty() && At(receiver).hide) {
      receiver.pop_back();
    }
  }
  Node& owner = At(receiver);
  std::optional<Node> const anchor =
      target != nullptr ? std::optional<Node>(At(*target)) : std::nullopt;
  NodePtr const copy = Copy(At(path));
  Erase(parent.children, path.back());
  InsertBefore(owner.children, copy, anchor);
  Relink(owner);
}

void Dimension::ExchangeSiblings(Node& parent, NodePtr const& node, NodePtr const& target) {
  Children& children = parent.children;
  auto const at = [&](NodePtr const& child) {
    return static_cast<std::size_t>(std::find(children.begin(), children.end(), child) -
                                    children.begin());
  };
  std::size_t const position = at(node);
  std::size_t const targetPosition = at(target);
  std::optional<Node> nodeAnchor = NextOf(parent, position);
  std::optional<Node> targetAnchor = NextOf(parent, targetPosition);
  bool const targetFollows = targetPosition == position + 1;
  if (targetFollows) {
    nodeAnchor = targetAnchor;
  }
  if (position == targetPosition + 1) {
    targetAnchor = nodeAnchor;
  }
  NodePtr const nodeCopy = Copy(*node);
  NodePtr const targetCopy = Copy(*target);
  Erase(children, position);
  Erase(children, FirstEqual(children, *targetCopy));
  if (targetFollows) {
    InsertBefore(children, targetCopy, nodeAnchor);
    InsertBefore(children, nodeCopy, targetAnchor);
  } else {
    InsertBefore(children, nodeCopy, targetAnchor);
    InsertBefore(children, targetCopy, nodeAnchor);
  }
  Relink(parent);
}

void Dimension::ExchangeCousins(Path const& node, Path const& target) {
  Node& nodeParent = At(ParentOf(node));
  Node& targetParent = At(ParentOf(target));
  Path erased = ParentOf(target);
  erased.push_back(FirstEqual(targetParent.children, At(target)));
  if (LeadsThrough(node, erased)) {
    return;
  }
  std::optional<Node> const nodeAnchor = NextOf(nodeParent, node.back());
  std::optional<Node> const targetAnchor = NextOf(targetParent, target.back());
  NodePtr const nodeCopy = Copy(At(node));
  NodePtr const targetCopy = Copy(At(target));
  Erase(nodeParent.children, node.back());
  Erase(targetParent.children, erased.back());
  InsertBefore(nodeParent.children, nodeCopy, targetAnchor);
  InsertBefore(targetParent.children, targetCopy, nodeAnchor);
  Relink(nodeParent);
  Relink(targetParent);
}

std::string Dimension::Text() const {
  std::ostringstream text;
  text << categoryCount << ": ";
  Write(text, *root);
  return text.str();
}

std::string Dimension::FirstUnlinked(OmDimension const& dimension) const {
  return FindUnlinked(*root, dimension);
}

}  // namespace dimension_model
