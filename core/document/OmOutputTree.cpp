#include <iterator>
#include <memory>
#include <utility>

#include <cells/OmStringCell.h>
#include <lakresvos/OmHeading.h>
#include <lakresvos/OmOutputTree.h>
#include <lakresvos/OmTextBlock.h>

namespace {

using PartTree = ListTree<OmOutputPart*>;

/// Deletes an element's part. The element holds null while the destructor runs, so that nothing is
/// deleted twice if that throws.
void DeletePart(PartTree::Node const& node) {
  delete std::exchange(node.Value(), nullptr);
}

/// A text block whose label is `label`, or empty when there is none.
std::unique_ptr<OmTextBlock> MakeTextBlock(OmCellText const* label, std::string const& text) {
  if (label == nullptr) {
    return std::make_unique<OmTextBlock>(OmStringCell("", false), text);
  }
  return std::make_unique<OmTextBlock>(*label, text);
}

void PruneChildren(PartTree::Node const& node) {
  auto& tree = static_cast<OmOutputTree&>(*node.tree);
  for (PartTree::Node child = node.FirstChild(); !child.AtEnd(); child = node.FirstChild()) {
    tree.Prune(child);
  }
}

PartTree::Node ReplaceContent(PartTree::Node const& node, OmCellText const* label,
                              std::string const& text) {
  // The block comes first: its label and its text may belong to what goes.
  std::unique_ptr<OmTextBlock> block;
  try {
    block = MakeTextBlock(label, text);
  } catch (...) {
    PruneChildren(node);
    throw;
  }
  PruneChildren(node);
  return node.AppendChild(std::move(block));
}

PartTree::Node ReplaceItem(PartTree::Node node, std::string const& text) {
  OmOutputPart const* const part = node.Value();
  PartTree::Node const block =
      node.AppendChild(MakeTextBlock(part != nullptr ? part->Label() : nullptr, text));
  PartTree& tree = *node.tree;
  try {
    DeletePart(node);
  } catch (...) {
    DeletePart(block);
    tree.Unlink(block);
    throw;
  }
  tree.PromoteDescendants(node);
  PartTree::Node result(&tree, std::next(node.position));
  tree.Unlink(node);
  result.depth = node.depth;
  return result;
}

}  // namespace

OmOutputTree::OmOutputTree() {
  Node const root = Append(nullptr);
  root.position->value = new OmHeading(OmStringCell("Output", true));
}

OmOutputTree::~OmOutputTree() {
  for (PartTree::Node node = begin(); !node.AtEnd(); ++node) {
    try {
      DeletePart(node);
    } catch (...) {
      // A destructor that fails must not keep the others from running.
      continue;
    }
  }
}

void OmOutputTree::Erase(PartTree::Node& node) {
  if (!Holds(node)) {
    return;
  }
  DeletePart(node);
  PromoteDescendants(node);
  Unlink(node);
}

void OmOutputTree::Prune(PartTree::Node& node) {
  if (!Holds(node)) {
    return;
  }
  // Everything before the present element that is left belongs to its ancestors: once an element is
  // gone, the one before it is its parent.
  Position const end = node.SubtreeEnd().position;
  for (Node current(this, node.position);;) {
    Position const next = std::next(current.position);
    if (next != end && next->depth > current.position->depth) {
      current = Node(this, next);
      continue;
    }
    bool const last = current.position == node.position;
    Node const parent = last ? current : Node(this, std::prev(current.position));
    DeletePart(current);
    Unlink(current);
    if (last) {
      return;
    }
    current = parent;
  }
}

PartTree::Node Amputate(PartTree::Node node, OmCellText const* label, std::string const& text) {
  if (node.AtEnd()) {
    return node;
  }
  return node.depth <= 1 ? ReplaceContent(node, label, text) : ReplaceItem(node, text);
}
