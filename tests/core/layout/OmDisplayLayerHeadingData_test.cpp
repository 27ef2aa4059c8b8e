#include "layout/OmDisplayLayerHeadingData.h"

#include <gtest/gtest.h>
#include <vector>

#include "support/LayoutTables.h"

namespace {

using Data = OmDisplayLayerHeading::Data;
using Index = std::vector<int>;

constexpr unsigned int kNoPosition = 0xFFFFFFFF;

/// Three dimensions: one in plain order, one whose leaves have the subscripts 2, 0, 1, and one with
/// a gap: subscripts 0 and 3.
class DisplayPlaces : public testing::Test {
 protected:
  DisplayPlaces() {
    table_.AddFlat("a", 4);
    OmDimension& mixed = table_.Add("b");
    for (unsigned long const subscript : {2UL, 0UL, 1UL}) {
      layout_tables::Category(mixed, mixed.Root(), "b", subscript);
    }
    OmDimension& gap = table_.Add("c");
    layout_tables::Category(gap, gap.Root(), "c", 0);
    layout_tables::Category(gap, gap.Root(), "c", 3);
  }

  static Data::PlaceCalculator Calculator(std::vector<short> const& dimensions,
                                          std::vector<int> const& sizes = {4, 3, 4}) {
    PuppetVector<short> axis(-1);
    axis.elements = dimensions;
    return Data::PlaceCalculator(axis, sizes);
  }

  unsigned long long PositionOf(Index const& index, std::vector<short> const& dimensions) {
    Data data(table_, false);
    return data.DisplayPosition(index, Calculator(dimensions));
  }

  Index Filled(unsigned long long place, std::vector<short> const& dimensions, Index index) {
    Data data(table_, false);
    data.Fill(place, Calculator(dimensions), index);
    return index;
  }

  layout_tables::Table table_;
};

// From a cell index to a place

TEST_F(DisplayPlaces, ACellIsCountedInDisplayPositions) {
  EXPECT_EQ(PositionOf({2, 0, 0}, {1}), 1U) << "subscript 0 stands second";
  EXPECT_EQ(PositionOf({2, 1, 0}, {1}), 2U);
  EXPECT_EQ(PositionOf({2, 2, 0}, {1}), 0U);
}

TEST_F(DisplayPlaces, ThePlaceJoinsThePositionsOfTheAxis) {
  EXPECT_EQ(PositionOf({3, 1, 0}, {0, 1}), 3U * 3 + 2);
  EXPECT_EQ(PositionOf({3, 1, 0}, {1, 0}), 2U * 4 + 3);
  EXPECT_EQ(PositionOf({1, 0, 3}, {2, 1, 0}), (1U * 3 + 1) * 4 + 1);
}

TEST_F(DisplayPlaces, AnAxisWithoutDimensionsHasThePlaceZero) {
  EXPECT_EQ(PositionOf({3, 1, 0}, {}), 0U);
}

TEST_F(DisplayPlaces, ASubscriptThatNoLeafCarriesIsAMissingPosition) {
  EXPECT_EQ(PositionOf({0, 0, 1}, {2}), kNoPosition);
  EXPECT_EQ(PositionOf({0, 0, 1}, {2, 0}), 4ULL * kNoPosition);
  EXPECT_EQ(PositionOf({2, 0, 1}, {0, 2}), 2ULL * 4 + kNoPosition);
}

TEST_F(DisplayPlaces, ASubscriptPastThePositionsIsAMissingPosition) {
  EXPECT_EQ(PositionOf({9, 0, 0}, {0}), kNoPosition);
  EXPECT_EQ(PositionOf({-1, 0, 0}, {0}), kNoPosition);
}

TEST_F(DisplayPlaces, HiddenLeavesHavePositionsToo) {
  table_.Dimension(1).Root()[0].Value().hide = true;
  EXPECT_EQ(PositionOf({0, 1, 0}, {1}), 2U);
}

// From a place to a cell index

TEST_F(DisplayPlaces, APlaceIsTurnedIntoSubscripts) {
  EXPECT_EQ(Filled(0, {1}, {0, 9, 0}), (Index{0, 2, 0}));
  EXPECT_EQ(Filled(1, {1}, {0, 9, 0}), (Index{0, 0, 0}));
  EXPECT_EQ(Filled(2, {1}, {0, 9, 0}), (Index{0, 1, 0}));
}

TEST_F(DisplayPlaces, FillingLeavesOtherDimensionsUntouched) {
  EXPECT_EQ(Filled(11, {0, 1}, {7, 8, 9}), (Index{3, 1, 9}));
}

TEST_F(DisplayPlaces, FillingMakesTheIndexAsLongAsTheTableHasDimensions) {
  EXPECT_EQ(Filled(1, {1}, {}), (Index{0, 0, 0}));
  EXPECT_EQ(Filled(2, {1}, {5}), (Index{5, 1, 0}));
  EXPECT_EQ(Filled(2, {1}, {5, 5, 5, 5, 5}), (Index{5, 1, 5}));
}

TEST_F(DisplayPlaces, AnAxisWithoutDimensionsChangesTheLengthAlone) {
  EXPECT_EQ(Filled(7, {}, {5}), (Index{5, 0, 0}));
}

TEST_F(DisplayPlaces, ADigitThatNamesNoLeafLeavesTheSlot) {
  EXPECT_EQ(Filled(0, {2}, {0, 0, 9}), (Index{0, 0, 0}));
  EXPECT_EQ(Filled(1, {2}, {0, 0, 9}), (Index{0, 0, 3}));
  EXPECT_EQ(Filled(2, {2}, {0, 0, 9}), (Index{0, 0, 9})) << "there are two leaves";
}

TEST_F(DisplayPlaces, AFirstDigitThatIsTooLargeLeavesTheSlot) {
  EXPECT_EQ(Filled(13, {0, 1}, {9, 9, 9}), (Index{9, 0, 9}));
}

TEST_F(DisplayPlaces, AnEntryOutsideTheTableIsLeftOut) {
  EXPECT_EQ(Filled(2, {-1, 1, 9}, {5, 5, 5}), (Index{5, 1, 5}));
}

TEST_F(DisplayPlaces, FillingUndoesCounting) {
  for (unsigned long long place = 0; place < 12; ++place) {
    EXPECT_EQ(PositionOf(Filled(place, {1, 0}, {}), {1, 0}), place);
  }
}

}  // namespace
