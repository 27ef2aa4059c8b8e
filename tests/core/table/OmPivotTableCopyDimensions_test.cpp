#include <gtest/gtest.h>
#include <utility>

#include <lakresvos/OmPivotTable.h>

#include "core/table/OmPivotTableFixture.h"

namespace {

TEST(OmPivotTableCopyDimensions, CopyingTakesAllDimensionsInOrder) {
  TestTable source;
  source.AddDimension(*Nested("first"));
  source.AddDimension(Text("second"));
  TestTable copy;
  copy.CopyDimensions(source);
  ASSERT_EQ(copy.NDimensions(), 2);
  EXPECT_EQ(LabelOf(copy.Dimension(0).Root()), "first");
  EXPECT_EQ(LabelOf(copy.Dimension(1).Root()), "second");
  EXPECT_EQ(copy.SizeVector(), (std::vector<int>{3, 0}));
  EXPECT_EQ(LabelOf(copy.Dimension(0).Root().Child(0).Child(1)), "b");
}

TEST(OmPivotTableCopyDimensions, CopiesLiveInTheCopyingTablesRegion) {
  TestTable source;
  source.AddDimension(*Nested("first"));
  TestTable copy;
  copy.CopyDimensions(source);
  OmDimension::ConstNode const leaf = std::as_const(copy).Dimension(0).Root().Child(1);
  EXPECT_EQ(OmMemoryRegion::FindOwner(&copy.Dimension(0)), &copy.data());
  EXPECT_EQ(OmMemoryRegion::FindOwner(leaf.element), &copy.data());
  EXPECT_EQ(OmMemoryRegion::FindOwner(leaf.Value().label), &copy.data());
}

TEST(OmPivotTableCopyDimensions, CopiesOutliveTheirSource) {
  auto source = std::make_unique<TestTable>();
  source->AddDimension(*Nested("first"));
  TestTable copy;
  copy.CopyDimensions(*source);
  source.reset();
  EXPECT_EQ(LabelOf(copy.Dimension(0).Root().Child(1)), "c");
}

TEST(OmPivotTableCopyDimensions, CopyingKeepsTheSourcesSubscripts) {
  TestTable source(2);
  source.Dimension(1).value.subscript = 77;
  TestTable copy;
  copy.CopyDimensions(source);
  EXPECT_EQ(copy.Dimension(0).value.subscript, 0U);
  EXPECT_EQ(copy.Dimension(1).value.subscript, 77U);
}

TEST(OmPivotTableCopyDimensions, CopyingLeavesAxesAndCellsBehind) {
  TestTable source(2);
  TestTable::Place(source.Rows(), {0});
  TestTable::Place(source.Columns(), {1});
  TestTable::Place(source.Layers(), {-1});
  source.Put({0, 0}, "cell");
  TestTable copy;
  copy.CopyDimensions(source);
  EXPECT_TRUE(copy.Rows().empty());
  EXPECT_TRUE(copy.Columns().empty());
  EXPECT_TRUE(copy.Layers().empty());
  EXPECT_EQ(copy.At({0, 0}), "(none)");
  EXPECT_EQ(copy.data().cells, nullptr);
}

TEST(OmPivotTableCopyDimensions, CopyingATableWithoutDimensionsChangesNothing) {
  TestTable copy;
  copy.CopyDimensions(TestTable());
  EXPECT_EQ(copy.NDimensions(), 0);
  copy.CopyDimensions(copy);
  EXPECT_EQ(copy.NDimensions(), 0);
}

TEST(OmPivotTableCopyDimensions, CopyingIntoATableWithDimensionsIsRefused) {
  TestTable const source(2);
  TestTable table(3);
  EXPECT_TRUE(Throws([&] { table.CopyDimensions(source); },
                     "OmPivotTable::CopyDimensions() -- _my->_dimensions.size() != 0", 3, 0));
  EXPECT_EQ(table.NDimensions(), 3);
}

TEST(OmPivotTableCopyDimensions, CopyingFromItselfIsRefused) {
  TestTable table(1);
  EXPECT_TRUE(Throws([&] { table.CopyDimensions(table); },
                     "OmPivotTable::CopyDimensions() -- _my->_dimensions.size() != 0", 1, 0));
}

TEST(OmPivotTableCopyDimensions, CopyingNothingIntoATableWithDimensionsIsRefusedToo) {
  TestTable table(1);
  EXPECT_TRUE(Throws([&] { table.CopyDimensions(TestTable()); },
                     "OmPivotTable::CopyDimensions() -- _my->_dimensions.size() != 0", 1, 0));
}

TEST(OmPivotTableCopyDimensions, ACopiedListGrowsAsOneThatWasFilledByAdding) {
  for (int const count : {1, 4, 5, 9, 20}) {
    TestTable const source(count);
    TestTable copy;
    copy.CopyDimensions(source);
    TestTable added(count);
    EXPECT_EQ(copy.data()._dimensions.capacity(), added.data()._dimensions.capacity()) << count;
  }
}

TEST(OmPivotTableCopyDimensions, CellsCanBeStoredAfterCopying) {
  TestTable copy;
  copy.CopyDimensions(TestTable(3));
  copy.Put({2, 1, 4}, "cell");
  EXPECT_EQ(copy.At({2, 1, 4}), "cell");
  EXPECT_EQ(copy.Walk(), (Walked{{{2, 1, 4}, "cell"}}));
}

TEST(OmPivotTableCopyDimensions, MoreDimensionsCanBeAddedAfterCopying) {
  TestTable copy;
  copy.CopyDimensions(TestTable(2));
  copy.Put({1, 1}, "cell");
  copy.AddDimension(Text("third"));
  EXPECT_EQ(copy.At({1, 1, 0}), "cell");
  EXPECT_EQ(copy.Dimension(2).value.subscript, 2U);
}

TEST(OmPivotTableCopyDimensions, ADimensionWithVeryManyLevelsIsCopiedAndDestroyed) {
  OmDimensionNode const root(Text("deep"), kNoSubscript, true, nullptr);
  OmDimension deep(root, nullptr);
  OmDimension::Node node = deep.Root();
  for (int level = 0; level < 100000; ++level) {
    node = deep.AddNewChild(node, Text("g"), kNoSubscript, true);
  }
  TestTable table;
  table.AddDimension(deep);
  TestTable copy;
  copy.CopyDimensions(table);
  EXPECT_EQ(copy.Dimension(0).getMaximumDepth(), 100001U);
}

/// A label that adds a dimension and a cell to a table when it is copied, once.
class Intruder : public OmStringCell {
 public:
  explicit Intruder(OmPivotTable*& table) : OmStringCell("label"), table_(table) {}
  OmCellText* Clone(OmMemoryRegion* region) const override {
    if (OmPivotTable* const table = std::exchange(table_, nullptr)) {
      table->AddDimension(Text("new"));
      table->Cell({0}, Text("cell"));
    }
    return new (region) Intruder(table_);
  }
  long GetKind() const override { return 3003; }

 private:
  OmPivotTable*& table_;
};

TEST(OmPivotTableCopyDimensions, ALabelThatAddsADimensionWhileItIsCopiedIsRefused) {
  OmPivotTable* target = nullptr;
  TestTable source;
  source.AddDimension(Intruder(target));
  source.AddDimension(Text("second"));
  TestTable copy;
  target = &copy;
  EXPECT_TRUE(Throws([&] { copy.CopyDimensions(source); },
                     "OmPivotTable::CopyDimensions() -- _my->_dimensions.size() != 0", 1, 0));
  EXPECT_EQ(copy.Walk(), (Walked{{{0}, "cell"}}));
  copy.Put({1}, "after");
  EXPECT_EQ(copy.At({1}), "after");
}

}  // namespace
