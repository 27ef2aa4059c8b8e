#include <gtest/gtest.h>
#include <type_traits>
#include <vector>

#include "layout/OmDisplayLayerHeadingData.h"

namespace {

using PlaceCalculator = OmDisplayLayerHeading::Data::PlaceCalculator;
using Index = std::vector<int>;

static_assert(std::is_same_v<decltype(PlaceCalculator::dims), PuppetVector<short>>);
static_assert(std::is_same_v<decltype(PlaceCalculator::positions), std::vector<int>>);
static_assert(std::is_same_v<decltype(PlaceCalculator::base), MultiBase>);
static_assert(offsetof(PlaceCalculator, dims) < offsetof(PlaceCalculator, positions));
static_assert(offsetof(PlaceCalculator, positions) < offsetof(PlaceCalculator, base));

PuppetVector<short> Axis(std::vector<short> const& dimensions) {
  PuppetVector<short> axis(-1);
  axis.elements = dimensions;
  return axis;
}

Index Filled(PlaceCalculator const& calculator, unsigned long long place, Index index) {
  calculator.Fill(place, index);
  return index;
}

TEST(PlaceCalculator, CopiesTheAxisWithItsPuppet) {
  PlaceCalculator const calculator(Axis({2, 0}), {3, 4, 5});
  EXPECT_EQ(calculator.dims.elements, (std::vector<short>{2, 0}));
  EXPECT_EQ(calculator.dims.puppet, -1);
  EXPECT_EQ(calculator.positions, (Index{2, 0}));
}

TEST(PlaceCalculator, TakesItsBasesFromTheSizesOfItsDimensions) {
  PlaceCalculator const calculator(Axis({2, 0}), {3, 4, 5});
  EXPECT_EQ(calculator.base.Bases(), (std::vector<unsigned int>{5, 3}));
}

TEST(PlaceCalculator, ADimensionMayStandOnTheAxisTwice) {
  PlaceCalculator const calculator(Axis({1, 1}), {3, 4});
  EXPECT_EQ(calculator.base.Bases(), (std::vector<unsigned int>{4, 4}));
  EXPECT_EQ(calculator.Size(), 16U);
}

TEST(PlaceCalculator, AnEntryThatNamesNoDimensionHasTheBaseOne) {
  PlaceCalculator const calculator(Axis({-1, 1, 7}), {3, 4});
  EXPECT_EQ(calculator.base.Bases(), (std::vector<unsigned int>{1, 4, 1}));
  EXPECT_EQ(calculator.positions, (Index{-1, 1, 7}));
  EXPECT_EQ(calculator.Size(), 4U);
}

TEST(PlaceCalculator, WritesTheDigitsIntoTheSlotsOfItsDimensions) {
  PlaceCalculator const calculator(Axis({2, 0}), {3, 4, 5});
  EXPECT_EQ(Filled(calculator, 7, {0, 0, 0}), (Index{1, 0, 2}));
}

TEST(PlaceCalculator, LeavesTheSlotsOfOtherDimensionsUntouched) {
  PlaceCalculator const calculator(Axis({2, 0}), {3, 4, 5});
  EXPECT_EQ(Filled(calculator, 7, {9, 8, 9, 6}), (Index{1, 8, 2, 6}));
}

TEST(PlaceCalculator, DoesNotReduceTheFirstDigit) {
  PlaceCalculator const calculator(Axis({0, 1}), {3, 4});
  EXPECT_EQ(Filled(calculator, 25, {0, 0}), (Index{6, 1}));
}

TEST(PlaceCalculator, WritesNothingForAnAxisWithoutDimensions) {
  PlaceCalculator const calculator(Axis({}), {3, 4});
  EXPECT_EQ(Filled(calculator, 7, {9, 8}), (Index{9, 8}));
}

TEST(PlaceCalculator, WritesNothingOutsideTheIndex) {
  PlaceCalculator const calculator(Axis({-1, 1, 7}), {3, 4});
  EXPECT_EQ(Filled(calculator, 2, {9, 8}), (Index{9, 2}));
  EXPECT_EQ(Filled(calculator, 2, {}), Index());
}

TEST(PlaceCalculator, ADimensionTwiceOnTheAxisGetsTheLaterDigit) {
  PlaceCalculator const calculator(Axis({1, 1}), {3, 4});
  EXPECT_EQ(Filled(calculator, 6, {9, 9}), (Index{9, 2}));
}

TEST(PlaceCalculator, TheSizeIsTheProductOfAllBases) {
  EXPECT_EQ(PlaceCalculator(Axis({2, 0}), {3, 4, 5}).Size(), 15U);
  EXPECT_EQ(PlaceCalculator(Axis({1}), {3, 4, 5}).Size(), 4U);
}

TEST(PlaceCalculator, TheSizeOfAnAxisWithoutDimensionsIsOne) {
  EXPECT_EQ(PlaceCalculator(Axis({}), {3}).Size(), 1U);
}

TEST(PlaceCalculator, TheSizeWithADimensionOfNoCategoriesIsZero) {
  EXPECT_EQ(PlaceCalculator(Axis({0, 1}), {0, 4}).Size(), 0U);
  EXPECT_EQ(PlaceCalculator(Axis({1, 0}), {0, 4}).Size(), 0U);
}

TEST(PlaceCalculator, TheSizeIsComputedIn64Bits) {
  std::vector<int> const sizes{1 << 20, 1 << 21, 1 << 22};
  EXPECT_EQ(PlaceCalculator(Axis({0, 1, 2}), sizes).Size(), 1ULL << 63);
  EXPECT_EQ(PlaceCalculator(Axis({0, 2, 2}), sizes).Size(), 0U) << "and wraps";
}

}  // namespace
