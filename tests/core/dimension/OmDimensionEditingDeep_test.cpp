#include <gtest/gtest.h>
#include <string>

#include <cells/OmStringCell.h>
#include <lakresvos/OmDimension.h>

namespace {

using Node = OmDimension::Node;

constexpr unsigned int kLevels = 100000;

/// A dimension of a category, a group of kLevels groups one in the other, and another category.
class OmDimensionEditingDeep : public testing::Test {
 protected:
  OmDimensionEditingDeep() {
    Add(dimension_.Root(), "x", false);
    deepest_ = Add(dimension_.Root(), "g", true);
    for (unsigned int level = 1; level < kLevels; ++level) {
      deepest_ = Add(deepest_, "g", true);
    }
    deepest_ = Add(deepest_, "leaf", false);
    Add(dimension_.Root(), "y", false);
  }

  Node Add(Node const& parent, char const* label, bool group) {
    return dimension_.AddNewChild(parent, OmStringCell(label), dimension_.CategoryCount(), group);
  }

  Node Child(std::size_t position) { return dimension_.Root()[position]; }

  std::string LabelsOf(Node const& parent) {
    std::string labels;
    for (OmDimension::Element const& child : parent.element->children.Elements()) {
      labels += child.value.label->GetText() + " ";
    }
    return labels;
  }

  /// Follows first children from `top` down to the leaf, and checks every link on the way.
  void ExpectLinkedChain(Node top, unsigned int levels) {
    unsigned int below = 0;
    bool linked = true;
    for (; top.NChildren() != 0; top = top[0]) {
      linked = linked && top[0].element->parent == top.element;
      ++below;
    }
    EXPECT_TRUE(linked);
    EXPECT_EQ(below, levels);
    EXPECT_EQ(top.Value().label->GetText(), "leaf");
    EXPECT_EQ(top.Value().subscript, 1U);
  }

  OmMemoryRegion region_{false};
  OmDimension dimension_{OmDimensionNode(OmStringCell("root"), 0, true, nullptr), &region_};
  Node deepest_;
};

TEST_F(OmDimensionEditingDeep, ASubtreeMovesBeforeASibling) {
  Node node = Child(1);
  Node target = Child(0);
  dimension_.moveChild(node, &target, false);
  EXPECT_EQ(LabelsOf(dimension_.Root()), "g x y ");
  ExpectLinkedChain(Child(0), kLevels);
}

TEST_F(OmDimensionEditingDeep, ASubtreeMovesIntoAnotherGroup) {
  Node node = Child(1);
  Node const group = Add(dimension_.Root(), "h", true);
  Node target = Add(group, "z", false);
  node = Child(1);
  dimension_.moveChild(node, &target, false);
  EXPECT_EQ(LabelsOf(dimension_.Root()), "x y h ");
  EXPECT_EQ(LabelsOf(Child(2)), "g z ");
  ExpectLinkedChain(Child(2)[0], kLevels);
}

TEST_F(OmDimensionEditingDeep, ANodeMovesToTheBottom) {
  Node node = Child(0);
  dimension_.moveChild(node, &deepest_, false);
  EXPECT_EQ(LabelsOf(dimension_.Root()), "g y ");
  EXPECT_EQ(dimension_.getMaximumDepth(), kLevels + 2);
}

TEST_F(OmDimensionEditingDeep, ANodeMovesUpFromTheBottom) {
  Node target = Child(0);
  dimension_.moveChild(deepest_, &target, false);
  EXPECT_EQ(LabelsOf(dimension_.Root()), "leaf x g y ");
}

TEST_F(OmDimensionEditingDeep, ANodeMovesUpThroughHiddenLevelsOnly) {
  for (Node node = Child(1); node.NChildren() != 0; node = node[0]) {
    node.Value().hide = true;
  }
  dimension_.moveChild(deepest_, nullptr, false);
  EXPECT_EQ(LabelsOf(dimension_.Root()), "x g y leaf ");
}

TEST_F(OmDimensionEditingDeep, ASubtreeChangesPlacesWithASibling) {
  Node node = Child(1);
  Node target = Child(2);
  dimension_.moveChild(node, &target, true);
  EXPECT_EQ(LabelsOf(dimension_.Root()), "x y g ");
  ExpectLinkedChain(Child(2), kLevels);
}

TEST_F(OmDimensionEditingDeep, ANodeChangesPlacesWithOneAtTheBottom) {
  Node node = Child(0);
  dimension_.moveChild(node, &deepest_, true);
  EXPECT_EQ(LabelsOf(dimension_.Root()), "g y x ");
  ExpectLinkedChain(Child(0), kLevels);
}

TEST_F(OmDimensionEditingDeep, ASubtreeIsWrapped) {
  Node node = Child(1);
  dimension_.insertChild(OmStringCell("new"), {&node});
  EXPECT_EQ(LabelsOf(dimension_.Root()), "x new y ");
  ExpectLinkedChain(Child(1), kLevels + 1);
}

TEST_F(OmDimensionEditingDeep, TheTopGroupIsDissolved) {
  Node group = Child(1);
  dimension_.removeChild(group);
  EXPECT_EQ(LabelsOf(dimension_.Root()), "x g y ");
  ExpectLinkedChain(Child(1), kLevels - 1);
}

TEST_F(OmDimensionEditingDeep, TheBottomGroupIsDissolved) {
  Node group{deepest_.element->parent, kLevels};
  dimension_.removeChild(group);
  ExpectLinkedChain(Child(1), kLevels - 1);
}

TEST_F(OmDimensionEditingDeep, ACategoryIsInsertedAtTheTopAndAtTheBottom) {
  Node const parent{deepest_.element->parent, kLevels};
  dimension_.insertCategory(OmStringCell("low"), deepest_, parent, false);
  EXPECT_EQ(LabelsOf(parent), "leaf low ");
  dimension_.insertCategory(OmStringCell("high"), Child(0), dimension_.Root(), false);
  EXPECT_EQ(LabelsOf(dimension_.Root()), "x high g y ");
  ExpectLinkedChain(Child(2), kLevels);
  EXPECT_EQ(dimension_.CategoryCount(), 5U);
}

}  // namespace
