#include <climits>
#include <gtest/gtest.h>

#include <cells/OmNumber.h>
#include <lakresvos/OmPivotTable.h>

#include "core/table/OmPivotTableFixture.h"

namespace {

// Adding dimensions

TEST(OmPivotTableDimensions, NewTableHasNone) {
  TestTable const table;
  EXPECT_EQ(table.NDimensions(), 0);
  EXPECT_TRUE(table.SizeVector().empty());
}

TEST(OmPivotTableDimensions, AddingReturnsTheTablesOwnDimension) {
  TestTable table;
  OmDimension& first = table.AddDimension(Text("first"));
  OmDimension& second = table.AddDimension(*Nested("second"));
  EXPECT_EQ(table.NDimensions(), 2);
  EXPECT_EQ(&first, &table.Dimension(0));
  EXPECT_EQ(&second, &table.Dimension(1));
}

TEST(OmPivotTableDimensions, ADimensionMadeFromALabelIsAnEmptyGroup) {
  TestTable table;
  OmDimension const& dimension = table.AddDimension(Text("Age"));
  EXPECT_EQ(LabelOf(dimension.Root()), "Age");
  EXPECT_TRUE(dimension.value.group);
  EXPECT_EQ(dimension.value.sort, 2);
  EXPECT_FALSE(dimension.value.hide);
  EXPECT_FALSE(dimension.value.hideLabels);
  EXPECT_EQ(dimension.Root().NChildren(), 0U);
  EXPECT_EQ(dimension.CategoryCount(), 0U);
}

TEST(OmPivotTableDimensions, TheRootsSubscriptIsTheDimensionsNumber) {
  TestTable table(3);
  for (int number = 0; number < 3; ++number) {
    EXPECT_EQ(table.Dimension(number).value.subscript, static_cast<unsigned long>(number));
  }
}

TEST(OmPivotTableDimensions, AnAddedCopyIsNumberedToo) {
  TestTable table(2);
  std::unique_ptr<OmDimension> const source = Nested("source");
  table.AddDimension(*source);
  EXPECT_EQ(table.Dimension(2).value.subscript, 2U);
  EXPECT_EQ(source->value.subscript, kNoSubscript);
}

TEST(OmPivotTableDimensions, AnAddedCopyHasAllCategories) {
  TestTable table;
  OmDimension const& copy = table.AddDimension(*Nested("source"));
  EXPECT_EQ(LabelOf(copy.Root()), "source");
  ASSERT_EQ(copy.Root().NChildren(), 2U);
  OmDimension::ConstNode const group = copy.Root().Child(0);
  EXPECT_EQ(LabelOf(group), "g");
  EXPECT_TRUE(group.Value().group);
  ASSERT_EQ(group.NChildren(), 2U);
  EXPECT_EQ(LabelOf(group.Child(0)), "a");
  EXPECT_EQ(LabelOf(group.Child(1)), "b");
  EXPECT_EQ(group.Child(1).Value().subscript, 1U);
  EXPECT_EQ(LabelOf(copy.Root().Child(1)), "c");
  EXPECT_EQ(copy.CategoryCount(), 3U);
}

TEST(OmPivotTableDimensions, AnAddedCopyIsIndependentOfItsSource) {
  TestTable table;
  std::unique_ptr<OmDimension> source = Nested("source");
  OmDimension const& copy = table.AddDimension(*source);
  source->Child(source->Root(), Text("late"), 3, false);
  EXPECT_EQ(copy.CategoryCount(), 3U);
  source.reset();
  EXPECT_EQ(LabelOf(copy.Root().Child(1)), "c");
}

TEST(OmPivotTableDimensions, ADimensionOfTheTableItselfCanBeAdded) {
  TestTable table;
  table.AddDimension(*Nested("source"));
  table.AddDimension(table.Dimension(0));
  EXPECT_EQ(table.SizeVector(), (std::vector<int>{3, 3}));
  EXPECT_EQ(table.Dimension(0).value.subscript, 0U);
  EXPECT_EQ(table.Dimension(1).value.subscript, 1U);
}

TEST(OmPivotTableDimensions, ADimensionFromALabelLivesInTheTablesRegion) {
  TestTable table;
  OmDimension& dimension = table.AddDimension(Text("Age"));
  EXPECT_EQ(OmMemoryRegion::FindOwner(&dimension), &table.data());
  EXPECT_EQ(OmMemoryRegion::FindOwner(dimension.value.label), &table.data());
  EXPECT_EQ(dimension.value.childIndex.region, &table.data());
  EXPECT_EQ(dimension.children.region, &table.data());
}

TEST(OmPivotTableDimensions, AnAddedCopyLivesInTheTablesRegion) {
  TestTable table;
  OmDimension const& copy = table.AddDimension(*Nested("source"));
  OmDimension::ConstNode const leaf = copy.Root().Child(0).Child(1);
  EXPECT_EQ(OmMemoryRegion::FindOwner(&copy), &table.data());
  EXPECT_EQ(OmMemoryRegion::FindOwner(copy.value.label), &table.data());
  EXPECT_EQ(OmMemoryRegion::FindOwner(leaf.element), &table.data());
  EXPECT_EQ(OmMemoryRegion::FindOwner(leaf.Value().label), &table.data());
}

TEST(OmPivotTableDimensions, AddingLeavesNothingOnTheDefaultHeap) {
  TestTable table;
  unsigned long const before = OmMemoryRegion::DefaultHeap()->BytesInUse();
  table.AddDimension(Text("Age"));
  EXPECT_EQ(OmMemoryRegion::DefaultHeap()->BytesInUse(), before);
}

TEST(OmPivotTableDimensions, CategoriesAddedLaterLiveInTheTablesRegion) {
  TestTable table(1);
  AddCategories(table.Dimension(0), 1);
  OmDimension::ConstNode const leaf = std::as_const(table).Dimension(0).Root().Child(0);
  EXPECT_EQ(OmMemoryRegion::FindOwner(leaf.Value().label), &table.data());
}

TEST(OmPivotTableDimensions, AddingPlacesNothingOnAnAxis) {
  TestTable table;
  table.AddDimension(Text("first"));
  table.AddDimension(*Nested("second"));
  EXPECT_TRUE(table.Rows().empty());
  EXPECT_TRUE(table.Columns().empty());
  EXPECT_TRUE(table.Layers().empty());
}

TEST(OmPivotTableDimensions, DimensionsStayWhereTheyAreAsMoreAreAdded) {
  TestTable table;
  std::vector<OmDimension*> added;
  for (int number = 0; number < 20; ++number) {
    added.push_back(&table.AddDimension(Text(std::to_string(number))));
  }
  for (int number = 0; number < 20; ++number) {
    EXPECT_EQ(&table.Dimension(number), added[static_cast<std::size_t>(number)]);
  }
}

TEST(OmPivotTableDimensions, TheListGrowsToFourAndThenByDoubling) {
  TestTable table;
  std::vector<std::size_t> capacities;
  for (int number = 0; number < 17; ++number) {
    table.AddDimension(Text("d"));
    capacities.push_back(table.data()._dimensions.capacity());
  }
  EXPECT_EQ(capacities,
            (std::vector<std::size_t>{4, 4, 4, 4, 8, 8, 8, 8, 16, 16, 16, 16, 16, 16, 16, 16, 32}));
}

TEST(OmPivotTableDimensions, ADimensionWithoutALabelCanBeAdded) {
  TestTable table;
  OmDimension const nameless(OmDimensionNode(nullptr), nullptr);
  OmDimension const& added = table.AddDimension(nameless);
  EXPECT_EQ(added.value.label, nullptr);
  EXPECT_EQ(added.value.subscript, 0U);
}

// Access

TEST(OmPivotTableDimensions, BothFormsOfAccessGiveTheSameObject) {
  TestTable table(2);
  OmPivotTable const& reader = table;
  EXPECT_EQ(&reader.Dimension(1), &table.Dimension(1));
}

TEST(OmPivotTableDimensions, ANegativeNumberIsRefused) {
  TestTable table(2);
  for (int const which : {-1, -7, INT_MIN}) {
    EXPECT_TRUE(Throws([&] { table.Dimension(which); }, "OmPivotTable::Dimension() -- which < 0",
                       which, 0));
  }
}

TEST(OmPivotTableDimensions, ANegativeNumberIsRefusedForReaders) {
  TestTable const table(2);
  EXPECT_TRUE(
      Throws([&] { table.Dimension(-1); }, "OmPivotTable::Dimension() -- which < 0", -1, 0));
}

TEST(OmPivotTableDimensions, ANumberPastTheLastIsRefused) {
  TestTable table(2);
  for (int const which : {2, 3, INT_MAX}) {
    EXPECT_TRUE(Throws([&] { table.Dimension(which); },
                       "OmPivotTable::Dimension() -- which < NDimensions()", which, 2));
  }
}

TEST(OmPivotTableDimensions, ANumberPastTheLastIsRefusedForReaders) {
  TestTable const table(3);
  EXPECT_TRUE(Throws([&] { table.Dimension(3); },
                     "OmPivotTable::Dimension() -- which < NDimensions()", 3, 3));
}

TEST(OmPivotTableDimensions, ATableWithoutDimensionsHasNoDimensionZero) {
  TestTable table;
  EXPECT_TRUE(Throws([&] { table.Dimension(0); },
                     "OmPivotTable::Dimension() -- which < NDimensions()", 0, 0));
}

// Sizes

TEST(OmPivotTableDimensions, TheSizeIsTheCategoryCount) {
  TestTable table(2);
  AddCategories(table.Dimension(0), 3);
  AddCategories(table.Dimension(1), 5);
  EXPECT_EQ(table.Size(0), 3);
  EXPECT_EQ(table.Size(1), 5);
  EXPECT_EQ(table.SizeVector(), (std::vector<int>{3, 5}));
  EXPECT_EQ(table.data().SizeVector(), (std::vector<int>{3, 5}));
}

TEST(OmPivotTableDimensions, GroupsDoNotCountInTheSize) {
  TestTable table;
  table.AddDimension(*Nested("source"));
  EXPECT_EQ(table.Size(0), 3);
}

TEST(OmPivotTableDimensions, StoredCellsDoNotChangeTheSize) {
  TestTable table(1);
  AddCategories(table.Dimension(0), 2);
  table.Put({40}, "far out");
  EXPECT_EQ(table.Size(0), 2);
}

TEST(OmPivotTableDimensions, TheSizeOfANegativeNumberIsRefused) {
  TestTable const table(2);
  for (int const which : {-1, INT_MIN}) {
    EXPECT_TRUE(Throws([&] { table.Size(which); }, "OmPivotTable::Size() -- which < 0", which, 0));
  }
}

TEST(OmPivotTableDimensions, TheSizeOfANumberPastTheLastIsRefused) {
  TestTable const table(2);
  for (int const which : {2, INT_MAX}) {
    EXPECT_TRUE(Throws([&] { table.Size(which); }, "OmPivotTable::Size() -- which < NDimensions()",
                       which, 2));
  }
}

TEST(OmPivotTableDimensions, ATableWithoutDimensionsHasNoSizeZero) {
  TestTable const table;
  EXPECT_TRUE(
      Throws([&] { table.Size(0); }, "OmPivotTable::Size() -- which < NDimensions()", 0, 0));
}

// Finding

TEST(OmPivotTableDimensions, FindingGivesTheNumberOfTheLabel) {
  TestTable table;
  table.AddDimension(Text("Class"));
  table.AddDimension(Text("Sex"));
  EXPECT_EQ(table.FindDimension(Text("Class")), 0);
  EXPECT_EQ(table.FindDimension(Text("Sex")), 1);
}

TEST(OmPivotTableDimensions, FindingASharedLabelGivesTheLowerNumber) {
  TestTable table;
  for (char const* label : {"Class", "Sex", "Sex"}) {
    table.AddDimension(Text(label));
  }
  EXPECT_EQ(table.FindDimension(Text("Sex")), 1);
}

TEST(OmPivotTableDimensions, FindingAnUnknownLabelGivesMinusOne) {
  TestTable table;
  EXPECT_EQ(table.FindDimension(Text("Class")), -1);
  table.AddDimension(Text("Class"));
  EXPECT_EQ(table.FindDimension(Text("Clas")), -1);
  EXPECT_EQ(table.FindDimension(Text("")), -1);
}

TEST(OmPivotTableDimensions, FindingTellsUpperFromLowerCase) {
  TestTable table;
  table.AddDimension(Text("Class"));
  EXPECT_EQ(table.FindDimension(Text("class")), -1);
}

TEST(OmPivotTableDimensions, FindingTellsKindsApart) {
  TestTable table;
  table.AddDimension(Text("5"));
  EXPECT_EQ(table.FindDimension(OmStringCellUTF8("5")), -1);
  EXPECT_EQ(table.FindDimension(OmNumber(5)), -1);
  table.AddDimension(OmNumber(5));
  EXPECT_EQ(table.FindDimension(OmNumber(5)), 1);
}

TEST(OmPivotTableDimensions, FindingPassesOverADimensionWithoutALabel) {
  TestTable table;
  table.AddDimension(OmDimension(OmDimensionNode(nullptr), nullptr));
  table.AddDimension(Text("Class"));
  EXPECT_EQ(table.FindDimension(Text("Class")), 1);
}

}  // namespace
