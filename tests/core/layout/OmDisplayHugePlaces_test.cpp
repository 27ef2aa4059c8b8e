#include <climits>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include <lakresvos/OmDisplayColumnHeading.h>
#include <lakresvos/OmDisplayLayerHeading.h>
#include <lakresvos/OmDisplayRowHeading.h>

#include "support/LayoutModel.h"
#include "support/LayoutTables.h"
#include "support/OmDisplayTestAccess.h"

namespace {

using layout_model::Heading;
using layout_model::Layers;
using layout_model::Seen;
using layout_model::Side;
using layout_tables::Category;
using layout_tables::Group;
using layout_tables::Node;
using layout_tables::Table;
using layout_tables::Texts;
using PathNode = OmDisplayLayerHeading::PathNode;
using Labels = std::vector<std::string>;
using Index = std::vector<int>;
using Places = std::vector<unsigned long long>;

constexpr unsigned long long kTwo31 = 1ULL << 31;
constexpr unsigned long long kTwo32 = 1ULL << 32;

/// Dimensions A (3), B (65,536) and C (32,768). On an axis with A outermost, one step of A is 2^31
/// places; the three cells lie at the places 1, 2^31 and 2^32 + 1.
class OmDisplayHugePlaces : public testing::Test {
 protected:
  OmDisplayHugePlaces() {
    table.AddFlat("A", 3);
    table.AddWide("B", 65536, 2);
    table.AddWide("C", 32768, 2);
    table.Put({0, 0, 1});
    table.Put({1, 0, 0});
    table.Put({2, 0, 1});
  }

  Table table;
  Places const kept{1, kTwo31, kTwo32 + 1};
};

Index Filled(auto& heading, auto... at) {
  Index index{7, 7, 7};
  heading.Fill(index, at...);
  return index;
}

/// One dimension with a category below so many levels of groups, placed on rows and layers.
struct Deep : Table {
  explicit Deep(int levels) {
    OmDimension& dimension = Add("D");
    Node at = dimension.Root();
    for (int level = 1; level < levels; ++level) {
      at = Group(dimension, at, "g");
    }
    Category(dimension, at, "leaf", 0);
    Place({0}, {}, {0});
  }
};

}  // namespace

/// Twenty dimensions on the rows with ten subscripts each, which is more places than 64 bits count:
/// those from 10^20 modulo 2^64 on do not exist.
class OmDisplayPlacesBeyond64Bits : public testing::Test {
 protected:
  static constexpr int kDimensions = 20;

  OmDisplayPlacesBeyond64Bits() {
    for (short d = 0; d < kDimensions; ++d) {
      table.AddFlat("D" + std::to_string(d), 10);
      table.Rows().push_back(d);
    }
  }

  /// Gives a dimension a second leaf for a subscript.
  void AddLeaf(unsigned long subscript) {
    OmDimension& dimension = table.Dimension(0);
    Category(dimension, dimension.Root(), "again", subscript);
  }

  /// What the dense search keeps.
  Places KeptRows() {
    OmDisplayLayerHeading layers(table, false);
    OmDisplayTestAccess::GetData(layers).sparse = false;
    return OmDisplayRowHeading(layers, true, false).getNonEmptyRows();
  }

  Table table;
};

TEST_F(OmDisplayPlacesBeyond64Bits, PastTheEndAreNotKept) {
  table.Put(Index(kDimensions, 0));
  table.Put(Index(kDimensions, 9));
  EXPECT_EQ(KeptRows(), Places{0});
}

TEST_F(OmDisplayPlacesBeyond64Bits, PastTheEndAreNotKeptWhereALeafIsToBeChosen) {
  table.Put(Index(kDimensions, 0));
  table.Put(Index(kDimensions, 9));
  AddLeaf(9);
  EXPECT_EQ(KeptRows(), Places{0});
}

// Rows

TEST_F(OmDisplayHugePlaces, OfRowsAreKeptAtTheirFullWidth) {
  table.Place({2, 1, 0}, {});
  OmDisplayLayerHeading layers(table, false);
  EXPECT_EQ(OmDisplayRowHeading(layers, true, false).getNonEmptyRows(), kept);
}

TEST_F(OmDisplayHugePlaces, AreNarrowedForTheCellsOfARow) {
  table.Place({2, 1, 0}, {});
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, true, false);
  EXPECT_EQ(Texts(rows.Row(1)), (Labels{"-", "-", "B", "B0", "C", "C0"}));
  EXPECT_EQ(Texts(rows.Row(2)), (Labels{"A", "A0", "B", "B0", "C", "C1"}));
}

TEST_F(OmDisplayHugePlaces, AreNarrowedForTheCategoriesOfARow) {
  table.Place({2, 1, 0}, {});
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, true, false);
  EXPECT_EQ(Texts(rows.RowCategories(1)), (Labels{"-", "B0", "C0"}));
  EXPECT_EQ(Texts(rows.RowCategories(2)), (Labels{"A0", "B0", "C1"}));
}

TEST_F(OmDisplayHugePlaces, AreNarrowedForAHeadingColumnOfTheRows) {
  table.Place({2, 1, 0}, {});
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, true, false);
  EXPECT_EQ(Texts(rows.Column(1)), (Labels{"A0", "-", "A0"}));
}

TEST_F(OmDisplayHugePlaces, AreNotNarrowedToFillARow) {
  table.Place({2, 1, 0}, {});
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, true, false);
  EXPECT_EQ(Filled(rows, 1), (Index{1, 0, 0}));
  EXPECT_EQ(Filled(rows, 2), (Index{2, 0, 1}));
}

TEST_F(OmDisplayHugePlaces, AreNotNarrowedForTheWholePathsOfARow) {
  table.Place({2, 1, 0}, {});
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, true, false);
  std::vector<PathNode*> all;
  rows.DimAllNodes(1, all);
  EXPECT_EQ(Texts(all), (Labels{"A", "A1", "B", "B0", "C", "C0"}));
  std::vector<PathNode*> outermost;
  std::vector<PathNode*> categories;
  rows.DimCatNodes(2, outermost, categories);
  EXPECT_EQ(Texts(categories), (Labels{"A2", "B0", "C1"}));
}

TEST_F(OmDisplayHugePlaces, AreNotNarrowedForTheWidthOfAHeading) {
  Category(table.Dimension(0), Group(table.Dimension(0), table.Dimension(0).Root(), "g"), "A3", 3);
  table.Put({3, 0, 0});
  table.Place({2, 1, 0}, {});
  OmDisplayLayerHeading layers(table, false);
  EXPECT_EQ(OmDisplayRowHeading(layers, true, false).VisibleWidth(0), 3);
}

// Columns

TEST_F(OmDisplayHugePlaces, AreNarrowedForAColumnButNotForAHeadingRowOfTheColumns) {
  table.Place({}, {2, 1, 0});
  OmDisplayLayerHeading layers(table, false);
  OmDisplayColumnHeading const columns(layers, true);
  ASSERT_EQ(columns.getNonEmptyColumns(), kept);
  EXPECT_EQ(Texts(columns.Column(2)), (Labels{"A", "A0", "B", "B0", "C", "C1"}));
  EXPECT_EQ(Texts(columns.ColumnCategories(1)), (Labels{"-", "B0", "C0"}));
  EXPECT_EQ(Texts(columns.Row(1)), (Labels{"A0", "A1", "A2"}));
}

TEST_F(OmDisplayHugePlaces, AreNotNarrowedToFillAColumn) {
  table.Place({}, {2, 1, 0});
  OmDisplayLayerHeading layers(table, false);
  OmDisplayColumnHeading const columns(layers, true);
  EXPECT_EQ(Filled(columns, 2), (Index{2, 0, 1}));
  std::vector<PathNode*> all;
  columns.DimAllNodes(2, all);
  EXPECT_EQ(Texts(all), (Labels{"A", "A2", "B", "B0", "C", "C1"}));
}

// Layers

TEST_F(OmDisplayHugePlaces, AreNotNarrowedToSwitchTheLayer) {
  table.Place({}, {}, {2, 1, 0});
  OmDisplayLayerHeading layers(table, true);
  ASSERT_TRUE(layers.SwitchLayer(2));
  EXPECT_EQ(layers.getCurrentCellIndex(), (Index{2, 0, 1}));
  ASSERT_TRUE(layers.SwitchLayer(1));
  EXPECT_EQ(layers.getCurrentCellIndex(), (Index{1, 0, 0}));
}

TEST_F(OmDisplayHugePlaces, AreNarrowedToFillTheLayer) {
  table.Place({}, {}, {2, 1, 0});
  OmDisplayLayerHeading layers(table, true);
  layers.SwitchLayer(1);
  EXPECT_EQ(Filled(layers), (Index{7, 0, 0}));
  layers.SwitchLayer(2);
  EXPECT_EQ(Filled(layers), (Index{0, 0, 1}));
}

TEST_F(OmDisplayHugePlaces, AreNarrowedForTheNodesOfTheLayer) {
  table.Place({}, {}, {2, 1, 0});
  OmDisplayLayerHeading layers(table, true);
  layers.SwitchLayer(1);
  EXPECT_EQ(Texts(layers.Nodes(0)), Labels{});
  EXPECT_EQ(Texts(layers.Nodes(1)), (Labels{"B", "B0"}));
  layers.SwitchLayer(2);
  EXPECT_EQ(Texts(layers.Nodes(0)), (Labels{"A", "A0"}));
  EXPECT_EQ(Texts(layers.Nodes(2)), (Labels{"C", "C1"}));
}

// Counts

TEST_F(OmDisplayHugePlaces, AreCountedAsTheLargestIntWhenThereAreMore) {
  table.Place({2, 1, 0}, {});
  OmDisplayLayerHeading layers(table, false);
  EXPECT_EQ(OmDisplayRowHeading(layers, false, false).NRows(), INT_MAX);
  table.Place({}, {2, 1, 0});
  EXPECT_EQ(OmDisplayColumnHeading(layers, false).NColumns(), INT_MAX);
}

TEST_F(OmDisplayHugePlaces, AreReachedAsFarAsANumberGoes) {
  table.Place({2, 1, 0}, {}, {});
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, false, false);
  EXPECT_EQ(Texts(rows.RowCategories(INT_MAX)), (Labels{"A0", "-", "-"}));
  EXPECT_EQ(Texts(rows.RowCategories(1 << 15)), (Labels{"A0", "B1", "C0"}));
}

TEST_F(OmDisplayHugePlaces, AreSwitchedToAsFarAsANumberGoes) {
  table.Place({}, {}, {2, 1, 0});
  OmDisplayLayerHeading layers(table, false);
  EXPECT_TRUE(layers.SwitchLayer(INT_MAX));
  EXPECT_FALSE(layers.NextLayer());
  EXPECT_TRUE(layers.LastLayer());
  EXPECT_EQ(layers.getLayer(), INT_MAX);
}

TEST(OmDisplayPlacesBeyondTwo64, AreCountedModuloTheirWidth) {
  Table table;
  for (char const* label : {"A", "B", "C", "D"}) {
    table.AddWide(label, 65536, 2);
  }
  table.Put({0, 1, 0, 1});
  table.Place({0, 1, 2, 3}, {});
  OmDisplayLayerHeading layers(table, false);
  EXPECT_EQ(OmDisplayRowHeading(layers, false, false).NRows(), 0);
  EXPECT_EQ(OmDisplayRowHeading(layers, true, false).NRows(), 0);
  EXPECT_EQ(OmDisplayColumnHeading(layers, true).NColumns(), 0);
}

TEST(OmDisplayPlacesBeyondTwo64, OfOneAxisDoNotDisturbTheOther) {
  Table table;
  for (char const* label : {"A", "B", "C", "D", "E"}) {
    table.AddWide(label, 65537, 2);
  }
  table.Put({1, 1, 0, 1, 1});
  table.Place({4}, {0, 1, 2, 3});
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, true, false);
  EXPECT_EQ(rows.getNonEmptyRows(), Places{1});
  EXPECT_EQ(Filled(rows, 0), (Index{7, 7, 7, 0, 1}));
}

TEST(OmDisplayPlacesBeyondTwo64, AreThoseOfTheModel) {
  Table table;
  for (char const* label : {"A", "B", "C", "D", "E"}) {
    table.AddWide(label, 65537, 3);
  }
  for (Index const& index : std::vector<Index>{{0, 0, 0, 0, 0},
                                               {1, 0, 0, 0, 0},
                                               {0, 0, 0, 0, 1},
                                               {2, 1, 0, 1, 2},
                                               {0, 65536, 2, 0, 1}}) {
    table.Put(index);
  }
  table.Place({0, 1, 2, 3, 4}, {});
  OmDisplayLayerHeading layers(table, false);
  Layers const layout(table, false);
  OmDisplayRowHeading const rows(layers, true, false);
  Heading const model(layout, Side::Rows, true, false);
  ASSERT_TRUE(layout.sparse);
  EXPECT_EQ(rows.getNonEmptyRows(), model.nonEmpty);
  for (int r = 0; r < rows.NRows(); ++r) {
    EXPECT_EQ(Seen(rows.Row(r)), model.Row(r));
    EXPECT_EQ(Seen(rows.RowCategories(r)), model.RowCategories(r));
    Index expected{7, 7, 7};
    model.Fill(expected, r);
    EXPECT_EQ(Filled(rows, r), expected);
  }
}

/// A dimension R (2) and five whose extents multiply to 2^64 + 1,020,299,264, so that their axis
/// has that many places. One cell lies below, one above the last of them.
class OmDisplayWrappedPlaces : public testing::Test {
 protected:
  OmDisplayWrappedPlaces() {
    table.AddFlat("R", 2);
    for (unsigned int size : {5632U, 6727U, 5492U, 6955U, 12747U}) {
      table.AddWide("W", size, 13);
    }
    table.Put({0, 0, 0, 11, 0, 0});
    table.Put({1, 0, 0, 12, 0, 0});
    narrow.elements = {0};
    wrapped.elements = {1, 2, 3, 4, 5};
  }

  Places Dense(PuppetVector<short> const& heads, PuppetVector<short> const& others) {
    OmDisplayLayerHeading const layers(table, false);
    Places places;
    OmDisplayTestAccess::GetData(layers).FindNonEmptyHeadersDense(heads, others, places);
    return places;
  }

  Table table;
  PuppetVector<short> narrow{-1};
  PuppetVector<short> wrapped{-1};
};

TEST_F(OmDisplayWrappedPlaces, AreTriedOnTheOtherAxisAsFarAsTheyAreCounted) {
  EXPECT_EQ(Dense(narrow, wrapped), Places{0});
}

TEST_F(OmDisplayWrappedPlaces, AreTriedFromTheEndOfTheOtherAxisForTheRows) {
  table.Place({0}, {5, 4, 3, 2, 1});
  OmDisplayLayerHeading layers(table, false);
  OmDisplayTestAccess::GetData(layers).sparse = false;
  EXPECT_EQ(OmDisplayRowHeading(layers, true, false).getNonEmptyRows(), Places{0});
}

TEST_F(OmDisplayWrappedPlaces, AreTriedColumnsFirstForTheLayers) {
  table.Place({4, 5}, {1, 2, 3}, {0});
  OmDisplayLayerHeading const layers(table, false);
  OmDisplayLayerHeading::Data& data = OmDisplayTestAccess::GetData(layers);
  data.sparse = false;
  data.FindNonEmptyLayers();
  EXPECT_EQ(data.nonEmptyLayers, Places{0});
}

TEST_F(OmDisplayWrappedPlaces, AreKeptAsFarAsTheyAreCounted) {
  EXPECT_EQ(Dense(wrapped, narrow), Places{11ULL * 6955 * 12747});
}

// Deep and wide dimensions

TEST(OmDisplayDeepDimension, HasAsManyHeadingLevelsAsCanBeCounted) {
  Deep table(100000);
  OmDisplayLayerHeading layers(table, false);
  OmDisplayRowHeading const rows(layers, false, true);
  EXPECT_EQ(rows.NColumns(), 32766);
  EXPECT_EQ(rows.Row(0).size(), 32766U);
  EXPECT_EQ(rows.Row(0)[0]->depth, 1U);
  EXPECT_EQ(rows.Column(32765)[0]->depth, 32766U);
  EXPECT_EQ(rows.CornerText().size(), 32766U);
}

TEST(OmDisplayDeepDimension, GivesItsWholePath) {
  Deep table(100000);
  OmDisplayLayerHeading layers(table, false);
  layers.SwitchLayer(0);
  EXPECT_EQ(layers.VisibleWidth(0), 32767);
  EXPECT_EQ(layers.Nodes(0).size(), 100001U);
  std::vector<PathNode*> all;
  layers.DimAllNodes(0, all);
  OmDisplayRowHeading(layers, false, false).DimAllNodes(0, all);
  EXPECT_EQ(all.size(), 200002U);
}

TEST(OmDisplayWideDimension, IsLaidOutWithAMillionCategories) {
  constexpr int kCount = 1000000;
  Table table;
  table.AddFlat("R", kCount);
  table.Place({0}, {});
  for (int r = 0; r < kCount; r += 50) {
    table.Put({r});
  }
  OmDisplayLayerHeading layers(table, false);
  ASSERT_FALSE(OmDisplayTestAccess::GetData(layers).sparse);
  OmDisplayRowHeading const rows(layers, true, false);
  EXPECT_EQ(rows.NRows(), kCount / 50);
  OmDisplayRowHeading const all(layers, false, false);
  EXPECT_EQ(all.NRows(), kCount);
  EXPECT_EQ(all.Column(1).size(), static_cast<std::size_t>(kCount));
  EXPECT_EQ(Texts(all.Row(kCount - 1)), (Labels{"R", "R999999"}));
}
