#include <climits>
#include <gtest/gtest.h>
#include <string>
#include <type_traits>
#include <vector>

#include <lakresvos/PuppetVector.h>

template class PuppetVector<short>;
template class PuppetVector<std::string>;

namespace {

using Axis = PuppetVector<short>;

static_assert(std::is_same_v<decltype(std::declval<Axis&>()[0]), short&>);
static_assert(std::is_same_v<decltype(std::declval<Axis const&>()[0]), short const&>);
static_assert(std::is_same_v<decltype(Axis::elements), std::vector<short>>);
static_assert(std::is_same_v<decltype(Axis::puppet), short>);

Axis Sample() {
  Axis axis(-1);
  axis.push_back(4);
  axis.push_back(2);
  return axis;
}

TEST(PuppetVector, ANewVectorIsEmpty) {
  Axis const axis;
  EXPECT_TRUE(axis.empty());
  EXPECT_EQ(axis.size(), 0U);
  EXPECT_EQ(axis.puppet, 0);
}

TEST(PuppetVector, HoldsItsElementsInOrder) {
  Axis const axis = Sample();
  EXPECT_EQ(axis.size(), 2U);
  EXPECT_FALSE(axis.empty());
  EXPECT_EQ(axis[0], 4);
  EXPECT_EQ(axis[1], 2);
  EXPECT_EQ(std::vector<short>(axis.begin(), axis.end()), (std::vector<short>{4, 2}));
}

TEST(PuppetVector, ReadingPastTheEndGivesThePuppetAndGrowsNothing) {
  Axis const axis = Sample();
  EXPECT_EQ(axis[2], -1);
  EXPECT_EQ(axis[LLONG_MAX], -1);
  EXPECT_EQ(&axis[2], &axis.puppet);
  EXPECT_EQ(axis.size(), 2U);
}

TEST(PuppetVector, ReadingBeforeTheBeginningGivesThePuppet) {
  Axis const axis = Sample();
  EXPECT_EQ(axis[-1], -1);
  EXPECT_EQ(axis[LLONG_MIN], -1);
}

TEST(PuppetVector, WritingWithinTheElementsChangesThem) {
  Axis axis = Sample();
  axis[1] = 7;
  EXPECT_EQ(axis.elements, (std::vector<short>{4, 7}));
}

TEST(PuppetVector, WritingPastTheEndAppendsPuppetsUntilTheElementExists) {
  Axis axis = Sample();
  axis[4] = 9;
  EXPECT_EQ(axis.elements, (std::vector<short>{4, 2, -1, -1, 9}));
  EXPECT_EQ(axis.puppet, -1);
}

TEST(PuppetVector, LookingThroughTheGrowingOperatorGrowsToo) {
  Axis axis = Sample();
  EXPECT_EQ(axis[2], -1);
  EXPECT_EQ(axis.size(), 3U);
}

TEST(PuppetVector, ANegativeIndexOfTheGrowingOperatorGivesThePuppetAndGrowsNothing) {
  Axis axis = Sample();
  EXPECT_EQ(&axis[-1], &axis.puppet);
  EXPECT_EQ(axis.size(), 2U);
}

TEST(PuppetVector, APuppetThatChangesStandsForWhatIsAppendedLater) {
  Axis axis = Sample();
  axis[2] = 3;
  axis.puppet = 8;
  EXPECT_EQ(axis[3], 8);
  EXPECT_EQ(axis.elements, (std::vector<short>{4, 2, 3, 8}));
}

TEST(PuppetVector, ACopyHasTheElementsAndThePuppet) {
  Axis const axis = Sample();
  Axis copy = axis;
  EXPECT_EQ(copy.elements, axis.elements);
  EXPECT_EQ(copy.puppet, -1);
  copy[0] = 5;
  EXPECT_EQ(axis[0], 4);
  Axis assigned;
  assigned = axis;
  EXPECT_EQ(assigned.elements, axis.elements);
  EXPECT_EQ(assigned[2], -1);
}

TEST(PuppetVector, TheElementsCanBeIteratedAndChanged) {
  Axis axis = Sample();
  for (short& element : axis) {
    ++element;
  }
  EXPECT_EQ(axis.elements, (std::vector<short>{5, 3}));
}

}  // namespace
