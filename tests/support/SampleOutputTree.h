#ifndef TESTS_SUPPORT_SAMPLEOUTPUTTREE_H
#define TESTS_SUPPORT_SAMPLEOUTPUTTREE_H

#include <memory>
#include <string>
#include <vector>

#include <lakresvos/OmOutputTree.h>

#include "OutputTreeText.h"
#include "SpyPart.h"

/// A document whose root has the items a, b and c; b has b1 and b2, b1 has b11 and b12, b12 has
/// b121.
struct SampleOutputTree {
  using Node = OmOutputTree::Node;

  SampleOutputTree() {
    Node const root = tree->begin();
    Add(root, "a");
    Node const b = Add(root, "b");
    Node const b1 = Add(b, "b1");
    Add(b1, "b11");
    Add(Add(b1, "b12"), "b121");
    Add(b, "b2");
    Add(root, "c");
  }

  /// Appends an item that lists its name in `deleted` when it goes.
  Node Add(Node const& parent, std::string const& name, bool throws = false) {
    return parent.AppendChild(new SpyPart(name, deleted, throws));
  }
  Node Find(std::string const& name) const { return FindItem(*tree, name); }
  std::string Text() const { return TextOf(*tree); }

  static constexpr char kText[] = "Output@0 a@1 b@1 b1@2 b11@3 b12@3 b121@4 b2@2 c@1 ";

  std::vector<std::string> deleted;
  std::unique_ptr<OmOutputTree> tree = std::make_unique<OmOutputTree>();
};

#endif
