#include <deque>
#include <gtest/gtest.h>
#include <initializer_list>
#include <limits>
#include <rapidcheck/gtest.h>
#include <vector>

#include <cells/cells.h>
#include <lakresvos/OmUtility.h>

namespace {

using Tree = OmVectorTree<OmCellText*>;
using Node = Tree::Node;

class OmUtilityTest : public testing::Test {
 protected:
  static OmNumber const* First(Tree::ConstNode node) { return OmUtility::GetFirstNumber(node); }
  OmNumber const* First() { return First(tree.Root()); }

  OmStringCell text{"text"};
  OmNumber a{1};
  OmNumber b{2};
  Tree tree{nullptr, nullptr};
};

TEST_F(OmUtilityTest, ANodeWithoutChildrenHasNoNumber) {
  EXPECT_EQ(First(), nullptr);
}

TEST_F(OmUtilityTest, AnEmptyHandleHasNoNumber) {
  EXPECT_EQ(First(Tree::ConstNode()), nullptr);
}

TEST_F(OmUtilityTest, TheNodesOwnNumberIsNotLookedAt) {
  tree.Root().Value() = &a;
  EXPECT_EQ(First(), nullptr);
  Node const child = Tree::AppendChild(tree.Root(), &text);
  Tree::AppendChild(child, &text);
  EXPECT_EQ(First(), nullptr);
}

TEST_F(OmUtilityTest, AChildsNumberIsFound) {
  Tree::AppendChild(tree.Root(), &a);
  EXPECT_EQ(First(), &a);
}

TEST_F(OmUtilityTest, TheFirstOfSeveralChildrenIsFound) {
  Tree::AppendChild(tree.Root(), &text);
  Tree::AppendChild(tree.Root(), &a);
  Tree::AppendChild(tree.Root(), &b);
  EXPECT_EQ(First(), &a);
}

TEST_F(OmUtilityTest, TheSearchGoesDeepBeforeItGoesOn) {
  Tree::AppendChild(tree.Root(), &text);
  Tree::AppendChild(tree.Root(), nullptr);
  Tree::AppendChild(tree.Root(), &b);
  Node const group = tree.Root().Child(1);
  Tree::AppendChild(group, &text);
  Tree::AppendChild(group, &a);
  EXPECT_EQ(First(), &a);
}

TEST_F(OmUtilityTest, ANumberIsFoundBeforeTheNumbersBelowIt) {
  Node const child = Tree::AppendChild(tree.Root(), &a);
  Tree::AppendChild(child, &b);
  EXPECT_EQ(First(), &a);
}

TEST_F(OmUtilityTest, TheSearchReturnsFromABranchWithoutNumbers) {
  Node const group = Tree::AppendChild(tree.Root(), &text);
  Tree::AppendChild(Tree::AppendChild(group, nullptr), &text);
  Tree::AppendChild(tree.Root(), &b);
  EXPECT_EQ(First(), &b);
}

TEST_F(OmUtilityTest, EmptyNodesArePassedOver) {
  Tree::AppendChild(tree.Root(), nullptr);
  Tree::AppendChild(tree.Root(), &a);
  EXPECT_EQ(First(), &a);
}

TEST_F(OmUtilityTest, TheSearchStaysBelowItsNode) {
  Node const before = Tree::AppendChild(tree.Root(), &text);
  Tree::AppendChild(before, &text);
  Tree::AppendChild(tree.Root(), &a);
  EXPECT_EQ(First(tree.Root().Child(0)), nullptr);
  EXPECT_EQ(First(tree.Root().Child(1)), nullptr);
}

TEST_F(OmUtilityTest, TheDepthInTheHandleMakesNoDifference) {
  Tree::AppendChild(tree.Root(), &a);
  EXPECT_EQ(First({&tree, 17}), &a);
}

TEST_F(OmUtilityTest, OtherKindsArePassedOver) {
  OmStringCellUTF8 utf8("1");
  OmStringCell digits("1");
  OmVariable variable("v1", "1");
  OmNumDataValue value(1, "one");
  OmStringDataValue string_value("1", "one");
  for (OmCellText* cell :
       std::initializer_list<OmCellText*>{&utf8, &digits, &variable, &value, &string_value}) {
    Tree::AppendChild(tree.Root(), cell);
  }
  EXPECT_EQ(First(), nullptr);
  Tree::AppendChild(tree.Root(), &b);
  EXPECT_EQ(First(), &b);
}

TEST_F(OmUtilityTest, TheSystemMissingValueIsANumber) {
  OmNumber missing(std::numeric_limits<double>::quiet_NaN());
  Tree::AppendChild(tree.Root(), &missing);
  Tree::AppendChild(tree.Root(), &a);
  EXPECT_EQ(First(), &missing);
}

TEST_F(OmUtilityTest, AClassDerivedFromANumberIsANumber) {
  struct Percentage : OmNumber {
    using OmNumber::OmNumber;
  } percentage(50);
  Tree::AppendChild(tree.Root(), &percentage);
  EXPECT_EQ(First(), &percentage);
}

TEST_F(OmUtilityTest, ThePartsOfACompositeInTheTreeAreNotSearched) {
  OmComposite composite("{0}");
  composite.AddPart(a);
  Tree::AppendChild(tree.Root(), &composite);
  EXPECT_EQ(First(), nullptr);
  Tree::AppendChild(tree.Root(), &b);
  EXPECT_EQ(First(), &b);
}

TEST_F(OmUtilityTest, ANumberUnderAHundredThousandLevelsIsFound) {
  Node node = tree.Root();
  for (int level = 0; level < 100000; ++level) {
    node = Tree::AppendChild(node, &text);
  }
  EXPECT_EQ(First(), nullptr);
  Tree::AppendChild(node, &a);
  Tree::AppendChild(tree.Root(), &b);
  EXPECT_EQ(First(), &a);
}

// Composites

TEST_F(OmUtilityTest, ACompositeWithoutPartsHasNoNumber) {
  EXPECT_EQ(OmUtility::GetFirstNumber(OmComposite("1 and 2")), nullptr);
}

TEST_F(OmUtilityTest, TheFirstNumberOfACompositeIsItsOwnPart) {
  OmComposite composite("{0} {1} {2}");
  composite.AddPart(text);
  composite.AddPart(a);
  composite.AddPart(b);
  EXPECT_EQ(OmUtility::GetFirstNumber(composite), composite.Parts().Root().Child(1).Value());
}

TEST_F(OmUtilityTest, ANumberBelowAPartIsFoundToo) {
  OmComposite composite("{0}");
  composite.AddPart(text);
  Tree::AppendChild(composite.Parts().Root().Child(0), new OmNumber(5));
  OmNumber const* const found = OmUtility::GetFirstNumber(composite);
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(found->Value(), 5);
}

TEST_F(OmUtilityTest, ACompositeInACompositeIsNotSearched) {
  OmComposite inner("{0}");
  inner.AddPart(a);
  OmComposite outer("{0}");
  outer.AddPart(inner);
  EXPECT_EQ(OmUtility::GetFirstNumber(outer), nullptr);
}

// Comparison with the search as it is described, one level of recursion per level of the tree

OmNumber const* Search(Tree::ConstNode node) {
  for (std::size_t i = 0; i < node.NChildren(); ++i) {
    Tree::ConstNode const child = node.Child(i);
    if (child.Value() != nullptr) {
      if (auto const* number = dynamic_cast<OmNumber const*>(child.Value())) {
        return number;
      }
    }
    if (child.NChildren() != 0) {
      if (OmNumber const* number = Search(child)) {
        return number;
      }
    }
  }
  return nullptr;
}

RC_GTEST_PROP(OmUtilityProperty, FindsWhatAPlainRecursionFinds, ()) {
  std::deque<OmNumber> numbers;
  OmStringCell text("text");
  Tree tree(nullptr, nullptr);
  std::vector<std::vector<std::size_t>> paths{{}};
  auto const at = [&](std::vector<std::size_t> const& path) {
    Node node = tree.Root();
    for (std::size_t const position : path) {
      node = node.Child(position);
    }
    return node;
  };
  int const count = *rc::gen::inRange(0, 20);
  for (int i = 0; i < count; ++i) {
    std::vector<std::size_t> path = paths[*rc::gen::inRange<std::size_t>(0, paths.size())];
    Node const parent = at(path);
    OmCellText* value = nullptr;
    switch (*rc::gen::inRange(0, 4)) {
      case 0:
        value = &numbers.emplace_back(i);
        break;
      case 1:
        break;
      default:
        value = &text;
    }
    path.push_back(parent.NChildren());
    Tree::AppendChild(parent, value);
    paths.push_back(path);
  }
  for (std::vector<std::size_t> const& path : paths) {
    RC_ASSERT(OmUtility::GetFirstNumber(at(path)) == Search(at(path)));
  }
}

}  // namespace
