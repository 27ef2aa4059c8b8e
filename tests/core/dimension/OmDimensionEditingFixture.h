#ifndef TESTS_CORE_DIMENSION_OMDIMENSIONEDITINGFIXTURE_H
#define TESTS_CORE_DIMENSION_OMDIMENSIONEDITINGFIXTURE_H

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include <lakresvos/OmDimension.h>
#include <lakresvos/OmVectorTreeWalk.h>

#include "support/DimensionText.h"
#include "support/SpyCell.h"

/// A label that differs from every other and from itself.
class UnlikeAnyCell : public SpyCell {
 public:
  using SpyCell::SpyCell;
  OmCellText* Clone(OmMemoryRegion* region) const override {
    return new (region) UnlikeAnyCell(*this);
  }
  short Compare(OmCellText const& /*other*/, bool /*ignoreCase*/) const override { return 1; }
};

/// Those of `cells` that were destroyed during the log, in that order.
inline std::vector<SpyCell const*> Destroyed(SpyLog const& log,
                                             std::vector<SpyCell const*> const& cells) {
  std::vector<SpyCell const*> gone;
  for (SpyLog::Call const& call : log.Of(SpyCell::Operation::Destroy)) {
    if (std::find(cells.begin(), cells.end(), call.cell) != cells.end()) {
      gone.push_back(call.cell);
    }
  }
  return gone;
}

/// A dimension that is written down as an outline: "x g(a b) y" is a category, a group of two
/// categories and another category. Categories get the subscripts 0, 1, ... in that order, groups
/// none. Groups with one label are equal to each other, and their children tell them apart.
class OmDimensionEditing : public testing::Test {
 protected:
  using Node = OmDimension::Node;
  using Index = std::vector<unsigned int>;

  /// Adds what `outline` says below the root.
  void Build(std::string const& outline) {
    std::vector<Node> path{root()};
    std::string label;
    for (char const c : outline + " ") {
      bool const opens = c == '(';
      if (!label.empty() && (opens || c == ' ' || c == ')')) {
        Node const child = dimension_.AddNewChild(path.back(), SpyCell(label),
                                                  opens ? ~0UL : dimension_.CategoryCount(), opens);
        label.clear();
        if (opens) {
          path.push_back(child);
        }
      }
      if (c == ')') {
        path.pop_back();
      } else if (!opens && c != ' ') {
        label += c;
      }
    }
  }

  Node root() { return dimension_.Root(); }

  /// Adds a last child that equals no node, itself included.
  Node AddUnlikeAny(Node const& parent, std::string const& label, bool group = false) {
    return dimension_.AddNewChild(parent, UnlikeAnyCell(label),
                                  group ? ~0UL : dimension_.CategoryCount(), group);
  }

  /// The first node with this label.
  Node At(std::string const& label) {
    OmVectorTreeWalk<Node> walk(root());
    while (walk.Next()) {
      if (LabelOf(walk.Current().Value()) == label) {
        return walk.Current();
      }
    }
    ADD_FAILURE() << "there is no " << label;
    return {};
  }

  void SetSubscript(std::string const& label, unsigned long subscript) {
    At(label).Value().subscript = subscript;
  }

  /// The dimension as an outline.
  std::string Shape() { return ShapeOf(dimension_); }

  /// "label=subscript" for every node below the root, in order; groups without one show -1.
  std::string Subscripts() {
    std::string text;
    OmVectorTreeWalk<Node> walk(root());
    for (walk.Next(); walk.Next();) {
      OmDimensionNode const& node = walk.Current().Value();
      text += (text.empty() ? "" : " ") + LabelOf(node) + "=" +
              std::to_string(static_cast<long>(node.subscript));
    }
    return text;
  }

  /// The labels of the nodes that do not name their parent.
  std::string StaleLinks() {
    std::string text;
    OmVectorTreeWalk<Node> walk(root());
    while (walk.Next()) {
      Node const parent = walk.Current();
      for (OmDimension::Element const& child : parent.element->children.Elements()) {
        if (child.parent != parent.element) {
          text += (text.empty() ? "" : " ") + LabelOf(child.value);
        }
      }
    }
    return text;
  }

  SpyBalance balance_;
  OmMemoryRegion region_{false};
  OmDimension dimension_{OmDimensionNode(SpyCell("root"), 0, true, nullptr), &region_};

 private:
  static std::string ShapeOf(OmDimension::Element const& parent) {
    std::string text;
    for (OmDimension::Element const& child : parent.children.Elements()) {
      text += (text.empty() ? "" : " ") + LabelOf(child.value);
      if (child.value.group || child.children.size() != 0) {
        text += "(" + ShapeOf(child) + ")";
      }
    }
    return text;
  }
};

#endif
