#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include "core/dimension/OmDimensionEditingFixture.h"
#include "support/faults/FailingNew.h"

namespace {

/// Everything about a dimension that an edit may change, its handles' addresses included.
struct Picture {
  std::string text;
  std::vector<OmDimension::Element const*> links;
  unsigned long bytes;

  Picture(OmDimension const& dimension, OmMemoryRegion const& region)
      : text(TextOf(dimension)), bytes(region.BytesInUse()) {
    OmVectorTreeWalk<OmDimension::ConstNode> walk(dimension.Root());
    while (walk.Next()) {
      links.push_back(walk.Current().element);
      links.push_back(walk.Current().element->parent);
    }
  }
  bool operator==(Picture const&) const = default;
};

/// Makes every call in an edit fail that can, and looks at what it leaves.
class OmDimensionEditingSafety : public OmDimensionEditing {
 protected:
  using Operation = SpyCell::Operation;

  OmDimensionEditingSafety() { Build("w e(t) f(a g(b c) d) h(i(u) j) z"); }

  /// A dimension whose root's children are full, and of whose links some are stale.
  std::unique_ptr<OmDimension> Sample(OmMemoryRegion& region) const {
    auto sample = std::make_unique<OmDimension>(dimension_, &region);
    OmDimension::EraseChildAt(*sample, 0);
    sample->AddNewChild(sample->Root(), SpyCell("y"), 9, false);
    sample->AddNewChild(sample->Root(), SpyCell("x"), 10, false);
    sample->AddNewChild(sample->Root(), SpyCell("v"), 11, false);
    sample->AddNewChild(sample->Root(), SpyCell("w"), 12, false);
    EXPECT_EQ(sample->children.size(), sample->children.capacity());
    OmDimension::EraseChildAt(*sample->Root()[1].element, 0);
    return sample;
  }

  /// Runs `edit` with failures, and compares the end with that of a twin without any.
  /// @return the number of failures.
  template <class Edit, class FailEvery>
  std::size_t Attempt(Edit edit, FailEvery failEvery) {
    OmMemoryRegion region(false);
    std::unique_ptr<OmDimension> const made = Sample(region);
    OmDimension& sample = *made;

    Picture const before(sample, region);
    EXPECT_NE(before.text.find('!'), std::string::npos);
    long const live = SpyCell::Live();
    std::size_t const failures = failEvery(sample, [&] {
      EXPECT_TRUE(Picture(sample, region) == before);
      EXPECT_EQ(SpyCell::Live(), live);
    });
    EXPECT_NE(TextOf(sample), before.text) << "the edit changes something in the end";
    OmMemoryRegion other(false);
    std::unique_ptr<OmDimension> const twin = Sample(other);
    edit(*twin);
    EXPECT_EQ(TextOf(sample), TextOf(*twin));
    return failures;
  }

  /// @param clones, contexts the labels that the edit copies, and those that it hands a context.
  /// @param comparesLabels   whether it looks for a value.
  template <class Edit>
  void ExpectFailuresChangeNothing(Edit edit, std::size_t clones, std::size_t contexts,
                                   bool comparesLabels) {
    auto const calls = [&](Operation operation) {
      return Attempt(edit, [&](OmDimension& sample, auto check) {
        return FailEveryCall(
            operation, [&] { edit(sample); }, check);
      });
    };
    EXPECT_EQ(calls(Operation::Clone), clones);
    EXPECT_EQ(calls(Operation::ShareContext), contexts);
    EXPECT_EQ(calls(Operation::Compare) > 0, comparesLabels);
    EXPECT_EQ(calls(Operation::GetKind) > 0, comparesLabels);
    EXPECT_GT(Attempt(edit,
                      [&](OmDimension& sample, auto check) {
                        return FailEveryAllocation([&] { edit(sample); }, check);
                      }),
              2 * clones)
        << "each label, and a block of children, in both modes";
  }
};

TEST_F(OmDimensionEditingSafety, InsertCategory) {
  ExpectFailuresChangeNothing(
      [](OmDimension& sample) {
        sample.insertCategory(SpyCell("new"), sample.Root()[3], sample.Root(), true);
      },
      2, 1, true);
}

TEST_F(OmDimensionEditingSafety, InsertCategoryAtTheEnd) {
  ExpectFailuresChangeNothing(
      [](OmDimension& sample) {
        sample.insertCategory(SpyCell("new"), sample.Root()[7], sample.Root(), false);
      },
      2, 1, false);
}

TEST_F(OmDimensionEditingSafety, InsertChild) {
  ExpectFailuresChangeNothing(
      [](OmDimension& sample) {
        Node first = sample.Root()[1];
        Node second = sample.Root()[2];
        sample.insertChild(SpyCell("new"), {&first, &second});
      },
      11, 1, true);
}

TEST_F(OmDimensionEditingSafety, RemoveChildWhichGivesTheGroupItsSubscriptBack) {
  ExpectFailuresChangeNothing(
      [](OmDimension& sample) {
        Node group = sample.Root()[1];
        sample.removeChild(group);
      },
      4, 0, true);
}

TEST_F(OmDimensionEditingSafety, RemoveChildLeavesTheHandleAloneWhenItFails) {
  Node group = At("f");
  OmDimension::Element const* const stood = group.element;
  FailEveryCall(
      Operation::Clone, [&] { dimension_.removeChild(group); },
      [&] {
        EXPECT_EQ(group.element, stood);
        EXPECT_EQ(group.depth, 1U);
      });
  EXPECT_EQ(LabelOf(group.Value()), "h");
}

TEST_F(OmDimensionEditingSafety, MoveBeforeASibling) {
  ExpectFailuresChangeNothing(
      [](OmDimension& sample) {
        Node node = sample.Root()[2];
        Node target = sample.Root()[0];
        sample.moveChild(node, &target, false);
      },
      4, 0, true);
}

TEST_F(OmDimensionEditingSafety, MoveDownIntoAnotherParent) {
  ExpectFailuresChangeNothing(
      [](OmDimension& sample) {
        Node node = sample.Root()[0];
        Node target = sample.Root()[2][0];
        sample.moveChild(node, &target, false);
      },
      2, 0, true);
}

TEST_F(OmDimensionEditingSafety, MoveUpIntoAParentThatGrows) {
  ExpectFailuresChangeNothing(
      [](OmDimension& sample) {
        Node node = sample.Root()[1][0];
        Node target = sample.Root()[2];
        sample.moveChild(node, &target, false);
      },
      3, 0, true);
}

TEST_F(OmDimensionEditingSafety, MoveToTheNearestShownAncestor) {
  At("f").Value().hide = true;
  ExpectFailuresChangeNothing(
      [](OmDimension& sample) {
        Node node = sample.Root()[1][0];
        sample.moveChild(node, nullptr, false);
      },
      3, 0, false);
}

TEST_F(OmDimensionEditingSafety, ExchangeOfSiblings) {
  ExpectFailuresChangeNothing(
      [](OmDimension& sample) {
        Node node = sample.Root()[0];
        Node target = sample.Root()[2];
        sample.moveChild(node, &target, true);
      },
      6, 0, true);
}

TEST_F(OmDimensionEditingSafety, ExchangeOfNeighbours) {
  ExpectFailuresChangeNothing(
      [](OmDimension& sample) {
        Node node = sample.Root()[2];
        Node target = sample.Root()[1];
        sample.moveChild(node, &target, true);
      },
      9, 0, true);
}

TEST_F(OmDimensionEditingSafety, ExchangeOfCousins) {
  ExpectFailuresChangeNothing(
      [](OmDimension& sample) {
        Node node = sample.Root()[1][0];
        Node target = sample.Root()[2][0];
        sample.moveChild(node, &target, true);
      },
      5, 0, true);
}

TEST_F(OmDimensionEditingSafety, ExchangeOfNodesOnDifferentLevels) {
  ExpectFailuresChangeNothing(
      [](OmDimension& sample) {
        Node node = sample.Root()[0];
        Node target = sample.Root()[1][0];
        sample.moveChild(node, &target, true);
      },
      5, 0, true);
}

}  // namespace
