#ifndef TESTS_CORE_DIMENSION_OMDIMENSIONEDITINGPAIR_H
#define TESTS_CORE_DIMENSION_OMDIMENSIONEDITINGPAIR_H

#include <algorithm>
#include <rapidcheck.h>
#include <string>
#include <vector>

#include <lakresvos/OMSException.h>
#include <lakresvos/OmDimension.h>

#include "support/DimensionModel.h"
#include "support/DimensionText.h"
#include "support/SpyCell.h"

/// A dimension and its model, which are changed alike. Labels and subscripts are few, so that equal
/// siblings are many. Draws from RapidCheck, so it can only be used inside a property; when that
/// fails, the changes are printed.
class OmDimensionEditingPair {
 public:
  using Node = OmDimension::Node;
  using Path = dimension_model::Path;

  /// @param dimension has no categories yet.
  explicit OmDimensionEditingPair(OmDimension& dimension)
      : dimension_(dimension), model_(LabelOf(dimension.value), dimension.value.subscript) {}

  dimension_model::Dimension const& model() const { return model_; }

  void Child() {
    Path const parent = RandomPath(3);
    std::string const label = RandomLabel();
    bool const group = OneIn(2);
    unsigned long const subscript = RandomSubscript(group);
    Log("Child", parent);
    if (!model_.At(parent).group) {
      RC_ASSERT_THROWS_AS(dimension_.Child(At(parent), SpyCell(label), subscript, group),
                          OMSException);
      return;
    }
    Node const child = dimension_.Child(At(parent), SpyCell(label), subscript, group);
    std::size_t const position = model_.Child(parent, label, subscript, group);
    RC_ASSERT(child.element == At(parent)[position].element);
  }

  void AddNewChild() {
    bool const group = OneIn(2);
    AddNewChild(group, RandomSubscript(group));
  }

  void AddNewChild(bool group, unsigned long subscript) {
    Path const parent = RandomPath(3);
    std::string const label = RandomLabel();
    Log("AddNewChild", parent);
    dimension_.AddNewChild(At(parent), SpyCell(label), subscript, group);
    model_.AddNewChild(parent, label, subscript, group);
  }

  void Delete() {
    Path const path = RandomPath(4);
    Log("Delete", path);
    Node node = At(path);
    dimension_.Delete(node);
    model_.Delete(path);
    CheckPastTheEnd(node, path);
  }

  void ChangeFlags() {
    Path const path = RandomPath(4);
    Log("flags", path);
    dimension_model::Node& plain = model_.At(path);
    OmDimensionNode& node = At(path).Value();
    node.hide = plain.hide = OneIn(2);
    node.hideLabels = plain.hideLabels = OneIn(4);
    node.sort = plain.sort = Draw(3);
  }

  /// One of the four edits, now and then with arguments that make no sense.
  void Edit() {
    switch (Draw(8)) {
      case 0:
        return InsertCategory();
      case 1:
      case 2:
        return InsertChild();
      case 3:
      case 4:
        return RemoveChild();
      default:
        return MoveChild();
    }
  }

  /// Compares everything.
  void Check() const {
    std::string text = TextOf(dimension_);
    text.erase(std::remove(text.begin(), text.end(), '!'), text.end());
    RC_ASSERT(text == model_.Text());
    RC_ASSERT(model_.FirstUnlinked(dimension_) == "");
  }

  /// Evenly distributed however small the case is meant to be.
  static int Draw(int below) {
    return *rc::gen::resize(rc::kNominalSize, rc::gen::inRange(0, below));
  }
  static bool OneIn(int chances) { return Draw(chances) == 0; }

 private:
  void InsertCategory() {
    Path const sibling = RandomPath(5);
    Path const parent =
        sibling.empty() || OneIn(5) ? RandomPath(4) : Path(sibling.begin(), sibling.end() - 1);
    bool const none = OneIn(8);
    bool const before = OneIn(2);
    std::string const label = RandomLabel();
    Log(before ? "insertCategory before" : "insertCategory after", sibling);
    OmDimensionNode const made =
        dimension_.insertCategory(SpyCell(label), none ? Node() : At(sibling), At(parent), before);
    dimension_model::Node const plain =
        model_.insertCategory(label, none ? nullptr : &sibling, parent, before);
    RC_ASSERT(made.subscript == plain.subscript);
    RC_ASSERT(LabelOf(made) == plain.label);
  }

  void InsertChild() {
    Path const parent = RandomPath(3);
    std::vector<Path> paths;
    for (std::size_t i = 0; i < model_.At(parent).children.size(); ++i) {
      if (OneIn(2)) {
        paths.push_back(parent);
        paths.back().push_back(i);
      }
    }
    if (OneIn(6)) {
      paths.push_back(RandomPath(4));
    }
    if (OneIn(6)) {
      std::reverse(paths.begin(), paths.end());
    }
    std::vector<Node> nodes;
    for (Path const& path : paths) {
      Log("insertChild", path);
      nodes.push_back(At(path));
    }
    std::vector<Node*> pointers;
    for (Node& node : nodes) {
      pointers.push_back(&node);
    }
    std::string const label = RandomLabel();
    dimension_.insertChild(SpyCell(label), pointers);
    model_.insertChild(label, paths);
  }

  void RemoveChild() {
    Path const path = RandomPath(4);
    Log("removeChild", path);
    Node group = At(path);
    unsigned int const depth = group.depth;
    dimension_.removeChild(group);
    Path const last = model_.removeChild(path);
    RC_ASSERT(group.depth == depth);
    if (last.empty()) {
      RC_ASSERT(group.element == &dimension_);
      return;
    }
    Node const parent = At(Path(last.begin(), last.end() - 1));
    RC_ASSERT(group.element == parent.element->children.begin + last.back());
    RC_ASSERT(group.Value().label == nullptr || last.back() < parent.NChildren());
    CheckPastTheEnd(group, last);
  }

  void MoveChild() {
    Path const path = RandomPath(5);
    Path target = RandomPath(5);
    if (!path.empty() && OneIn(2)) {
      Path const parent(path.begin(), path.end() - 1);
      target = parent;
      target.push_back(
          static_cast<std::size_t>(Draw(static_cast<int>(model_.At(parent).children.size()))));
    }
    bool const none = OneIn(4);
    bool const exchange = OneIn(2);
    Log("moveChild", path);
    Log(none ? "  nowhere" : exchange ? "  exchanged with" : "  before", target);
    Node node = At(path);
    Node before = At(target);
    dimension_.moveChild(node, none ? nullptr : &before, exchange);
    model_.moveChild(path, none ? nullptr : &target, exchange);
  }

  /// Checks that a handle whose place is past the end of its parent takes no child.
  void CheckPastTheEnd(Node const& node, Path const& path) {
    if (path.empty() || path.back() < At(Path(path.begin(), path.end() - 1)).NChildren()) {
      return;
    }
    RC_ASSERT(dimension_.AddNewChild(node, SpyCell("a"), 0, false).element == nullptr);
    RC_ASSERT(dimension_.Child(node, SpyCell("a"), 0, true).element == nullptr);
    RC_ASSERT(dimension_.insertCategory(SpyCell("a"), Node(), node, true).label == nullptr);
  }

  Node At(Path const& path) const {
    Node node = dimension_.Root();
    for (std::size_t const position : path) {
      node = node[position];
    }
    return node;
  }

  /// A way down that ends at each level with one chance in `chances`.
  Path RandomPath(int chances) const {
    Path path;
    for (dimension_model::Node const* node = model_.root.get();
         !node->children.empty() && !OneIn(chances);) {
      path.push_back(static_cast<std::size_t>(Draw(static_cast<int>(node->children.size()))));
      node = node->children[path.back()].get();
    }
    return path;
  }

  static std::string RandomLabel() { return std::string(1, static_cast<char>('a' + Draw(3))); }
  static unsigned long RandomSubscript(bool group) {
    return group ? ~0UL : static_cast<unsigned long>(Draw(3));
  }

  static void Log(char const* what, Path const& path) {
    RC_LOG() << what;
    for (std::size_t const position : path) {
      RC_LOG() << " " << position;
    }
    RC_LOG() << "\n";
  }

  OmDimension& dimension_;
  dimension_model::Dimension model_;
};

#endif
