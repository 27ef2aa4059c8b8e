#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <random>
#include <rapidcheck/gtest.h>
#include <string>
#include <utility>
#include <vector>

#include <cells/cells.h>
#include <lakresvos/OmDimension.h>

// Numbers stood in the order of their values and next to texts in the order of their digits, which
// is no order: the index of a node's children lost what was in it.

namespace {

using Labels = std::vector<std::unique_ptr<OmCellText>>;

/// Adds a category for each label in this order, and finds each of them again, as the same.
void ExpectAllFound(Labels const& labels) {
  OmDimension dimension(OmDimensionNode(OmStringCell("root"), 0, true, nullptr), nullptr);
  for (std::size_t i = 0; i < labels.size(); ++i) {
    dimension.Child(dimension.Root(), *labels[i], i, false);
  }
  ASSERT_EQ(dimension.CategoryCount(), labels.size());
  for (std::size_t i = 0; i < labels.size(); ++i) {
    EXPECT_EQ(OmDimension::FindChild(dimension.Root(), *labels[i], false), i);
    EXPECT_EQ(dimension.Child(dimension.Root(), *labels[i], 99, false).Value().subscript, i);
  }
  EXPECT_EQ(dimension.CategoryCount(), labels.size());
}

TEST(OmDimensionMixedKinds, ThreeCodedAnswersAndATextAreFoundInAnyOrder) {
  std::vector<int> order{0, 1, 2, 3};
  do {
    Labels labels;
    for (int const which : order) {
      constexpr double kValues[] = {1, 9, 10};
      labels.emplace_back(which < 3
                              ? static_cast<OmCellText*>(new OmNumDataValue(kValues[which], ""))
                              : new OmStringCell("1a"));
    }
    ExpectAllFound(labels);
  } while (std::next_permutation(order.begin(), order.end()));
}

TEST(OmDimensionMixedKinds, SevenCodedAnswersAndThreeTextsAreFoundInTwoThousandOrders) {
  std::vector<int> order(10);
  std::generate(order.begin(), order.end(), [n = 0]() mutable { return n++; });
  std::mt19937 random(1);
  for (int run = 0; run < 2000; ++run) {
    std::shuffle(order.begin(), order.end(), random);
    Labels labels;
    for (int const which : order) {
      if (which < 7) {
        labels.push_back(std::make_unique<OmNumber>(3 * which));
      } else {
        labels.push_back(std::make_unique<OmStringCell>(std::to_string(which - 6) + "a"));
      }
    }
    ExpectAllFound(labels);
    ASSERT_FALSE(testing::Test::HasFailure()) << "run " << run;
  }
}

std::unique_ptr<OmCellText> LabelOfKind(int kind, int value) {
  std::string const text = std::to_string(value);
  switch (kind) {
    case 0:
      return std::make_unique<OmStringCell>(text);
    case 1:
      return std::make_unique<OmNumber>(value);
    case 2:
      return std::make_unique<OmNumDataValue>(value, *rc::gen::arbitrary<bool>() ? text : "");
    case 3:
      return std::make_unique<OmStringDataValue>(text, "label");
    case 4:
      return std::make_unique<OmVariable>(text, "label");
    default:
      return std::make_unique<OmComposite>(text);
  }
}

RC_GTEST_PROP(OmDimensionMixedKinds, LabelsOfAllKindsAreFoundWhateverTheirDisplayModes, ()) {
  OmDimension dimension(OmDimensionNode(OmStringCell("root"), 0, true, nullptr), nullptr);
  std::vector<std::pair<int, int>> const wanted =
      *rc::gen::unique<std::vector<std::pair<int, int>>>(
          rc::gen::pair(rc::gen::inRange(0, 6), rc::gen::inRange(0, 30)));
  Labels labels;
  for (auto const& [kind, value] : wanted) {
    labels.push_back(LabelOfKind(kind, value));
    if (auto* const labelled = dynamic_cast<OmLabelledCell*>(labels.back().get())) {
      labelled->Display(
          *rc::gen::element(OmLabelDisplay::Value, OmLabelDisplay::Label, OmLabelDisplay::Both));
    }
    dimension.Child(dimension.Root(), *labels.back(), labels.size(), false);
  }
  dimension.Root().Value().label->ContextDisplay(OmLabelDisplay::Both);
  RC_ASSERT(dimension.CategoryCount() == labels.size());
  for (std::size_t i = 0; i < labels.size(); ++i) {
    RC_ASSERT(OmDimension::FindChild(dimension.Root(), *labels[i], false) == i);
  }
}

}  // namespace
