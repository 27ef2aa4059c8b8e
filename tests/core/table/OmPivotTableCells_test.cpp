#include <climits>
#include <gtest/gtest.h>

#include <cells/OmComposite.h>
#include <cells/OmDataValue.h>
#include <cells/OmNumber.h>
#include <cells/OmVariable.h>
#include <lakresvos/OmPivotTable.h>

#include "core/table/OmPivotTableFixture.h"
#include "support/SpyCell.h"
#include "support/faults/FailingNew.h"

namespace {

constexpr char const* kSize = "OmPivotTable::Cell() -- nind != _my->_dimensions.size()";
constexpr char const* kSubscript = "OmPivotTable::Cell() -- subscript < 0";

// Reading

TEST(OmPivotTableCells, NothingIsStoredAtFirst) {
  TestTable const table(2);
  EXPECT_EQ(table.Cell({0, 0}), nullptr);
  EXPECT_EQ(table.Cell({INT_MAX, INT_MAX}), nullptr);
}

TEST(OmPivotTableCells, ATableWithoutDimensionsReadsNullAtTheEmptyIndex) {
  TestTable const table;
  EXPECT_EQ(table.Cell(Index{}), nullptr);
}

TEST(OmPivotTableCells, ReadingOutsideTheStoreGivesNull) {
  TestTable table(3);
  table.Put({2, 2, 2}, "cell");
  EXPECT_EQ(table.At({2, 2, 2}), "cell");
  for (Index const& index :
       {Index{1, 2, 2}, Index{3, 2, 2}, Index{2, 1, 2}, Index{2, 3, 2}, Index{2, 2, 1},
        Index{2, 2, 3}, Index{INT_MAX, 2, 2}, Index{2, INT_MAX, 2}, Index{2, 2, INT_MAX}}) {
    EXPECT_EQ(table.Cell(index), nullptr);
  }
}

TEST(OmPivotTableCells, ReadingWithTooFewSubscriptsIsRefused) {
  TestTable const table(2);
  EXPECT_TRUE(Throws([&] { (void)table.Cell({0}); }, kSize, 1, 2));
  EXPECT_TRUE(Throws([&] { (void)table.Cell(Index{}); }, kSize, 0, 2));
}

TEST(OmPivotTableCells, ReadingWithTooManySubscriptsIsRefused) {
  TestTable const table(2);
  EXPECT_TRUE(Throws([&] { (void)table.Cell({0, 0, 0}); }, kSize, 3, 2));
}

TEST(OmPivotTableCells, ReadingATableWithoutDimensionsWithASubscriptIsRefused) {
  TestTable const table;
  EXPECT_TRUE(Throws([&] { (void)table.Cell(Index{0}); }, kSize, 1, 0));
}

TEST(OmPivotTableCells, ReadingANegativeSubscriptIsRefused) {
  TestTable table(2);
  EXPECT_TRUE(Throws([&] { (void)table.Cell({-1, 0}); }, kSubscript, -1, 0));
  EXPECT_TRUE(Throws([&] { (void)table.Cell({0, INT_MIN}); }, kSubscript, INT_MIN, 0));
  table.Put({0, 0}, "cell");
  EXPECT_TRUE(Throws([&] { (void)table.Cell({0, -2}); }, kSubscript, -2, 0));
}

TEST(OmPivotTableCells, ReadingANegativeSubscriptIsRefusedWhereACellWasDeleted) {
  TestTable line(1);
  line.Put({1000}, "kept");
  line.Put({2000}, "gone");
  line.deleteCell({2000});
  EXPECT_TRUE(Throws([&] { (void)line.Cell({-1}); }, kSubscript, -1, 0));
  line.Put({2000}, "gone");
  line.Clear({2000});
  EXPECT_TRUE(Throws([&] { (void)line.Cell({-1}); }, kSubscript, -1, 0));
  TestTable table(2);
  table.Put({0, 1000}, "kept");
  EXPECT_TRUE(Throws([&] { (void)table.Cell({0, -1}); }, kSubscript, -1, 0));
  table.Put({0, 2000}, "gone");
  table.deleteCell({0, 2000});
  EXPECT_TRUE(Throws([&] { (void)table.Cell({0, -1}); }, kSubscript, -1, 0));
}

TEST(OmPivotTableCells, ReadingReportsTheFirstNegativeSubscript) {
  TestTable const table(4);
  EXPECT_TRUE(Throws([&] { (void)table.Cell({0, -3, -7, -1}); }, kSubscript, -3, 0));
}

TEST(OmPivotTableCells, ReadingTestsTheNumberOfSubscriptsBeforeTheirSign) {
  TestTable const table(2);
  EXPECT_TRUE(Throws([&] { (void)table.Cell({-1}); }, kSize, 1, 2));
}

TEST(OmPivotTableCells, ReadingAllocatesNothing) {
  TestTable table(3);
  table.Put({1, 2, 3}, "cell");
  Index const stored{1, 2, 3};
  Index const outside{1, 2, 9};
  OmCellText const* found = nullptr;
  OmCellText const* missing = nullptr;
  {
    FailAfter const failing(1);
    found = table.Cell(stored);
    missing = table.Cell(outside);
  }
  EXPECT_NE(found, nullptr);
  EXPECT_EQ(missing, nullptr);
}

TEST(OmPivotTableCells, ReadingAlsoWorksOnAChangeableTable) {
  TestTable table(1);
  table.Put({0}, "cell");
  OmCellText* const cell = table.Cell({0});
  EXPECT_EQ(cell, std::as_const(table).Cell({0}));
}

// Refused writes

TEST(OmPivotTableCells, WritingToATableWithoutDimensionsIsRefused) {
  TestTable table;
  EXPECT_TRUE(Throws([&] { table.Put({}, "cell"); }, kSize, 0, 0));
  EXPECT_TRUE(Throws([&] { table.Clear({}); }, kSize, 0, 0));
  EXPECT_TRUE(Throws([&] { table.Put({0}, "cell"); }, kSize, 1, 0));
}

TEST(OmPivotTableCells, WritingWithTheWrongNumberOfSubscriptsIsRefused) {
  TestTable table(2);
  EXPECT_TRUE(Throws([&] { table.Put({0}, "cell"); }, kSize, 1, 2));
  EXPECT_TRUE(Throws([&] { table.Put({}, "cell"); }, kSize, 0, 2));
  EXPECT_TRUE(Throws([&] { table.Put({0, 0, 0}, "cell"); }, kSize, 3, 2));
}

TEST(OmPivotTableCells, ClearingWithTheWrongNumberOfSubscriptsIsRefused) {
  TestTable table(2);
  EXPECT_TRUE(Throws([&] { table.Clear({0}); }, kSize, 1, 2));
}

TEST(OmPivotTableCells, WritingANegativeSubscriptIsRefused) {
  TestTable table(2);
  EXPECT_TRUE(Throws([&] { table.Put({-1, 0}, "cell"); }, kSubscript, -1, 0));
  EXPECT_TRUE(Throws([&] { table.Put({0, INT_MIN}, "cell"); }, kSubscript, INT_MIN, 0));
  EXPECT_TRUE(Throws([&] { table.Clear({0, -2}); }, kSubscript, -2, 0));
}

TEST(OmPivotTableCells, WritingReportsTheFirstNegativeSubscript) {
  TestTable table(4);
  EXPECT_TRUE(Throws([&] { table.Put({0, -3, -7, -1}, "cell"); }, kSubscript, -3, 0));
}

TEST(OmPivotTableCells, WritingTestsTheNumberOfSubscriptsBeforeTheirSign) {
  TestTable table(2);
  EXPECT_TRUE(Throws([&] { table.Put({-1}, "cell"); }, kSize, 1, 2));
}

TEST(OmPivotTableCells, ARefusedWriteStoresNothing) {
  TestTable table(2);
  EXPECT_THROW(table.Put({0}, "cell"), OMSException);
  EXPECT_THROW(table.Put({-1, 0}, "cell"), OMSException);
  EXPECT_EQ(table.data().cells, nullptr);
  EXPECT_TRUE(table.Walk().empty());
  EXPECT_FALSE(table.IsScratched());
}

// Storing

TEST(OmPivotTableCells, AStoredCellIsReadBackAtItsIndexAlone) {
  TestTable table(2);
  EXPECT_TRUE(table.Put({1, 2}, "cell"));
  EXPECT_EQ(table.At({1, 2}), "cell");
  EXPECT_EQ(table.At({2, 1}), "(none)");
  EXPECT_EQ(table.At({0, 0}), "(none)");
}

TEST(OmPivotTableCells, BothFormsOfWritingStore) {
  TestTable table(1);
  OmStringCell const text("cell");
  EXPECT_TRUE(table.Cell({0}, text));
  EXPECT_TRUE(table.Cell({1}, &text));
  EXPECT_EQ(table.At({0}), "cell");
  EXPECT_EQ(table.At({1}), "cell");
}

TEST(OmPivotTableCells, TheTableStoresACloneInItsRegion) {
  TestTable table(1);
  OmStringCell const text("cell");
  table.Cell({0}, text);
  EXPECT_NE(table.Cell({0}), &text);
  EXPECT_EQ(OmMemoryRegion::FindOwner(table.Cell({0})), &table.data());
}

TEST(OmPivotTableCells, EveryKindOfCellIsStored) {
  TestTable table(1);
  OmStringCell const text("text");
  OmStringCellUTF8 const utf8("utf8");
  OmNumber const number(1.5);
  OmVariable const variable("name", "label");
  OmNumDataValue const numeric(3, "three");
  OmStringDataValue const string("s", "label of s");
  OmComposite composite("<{0}>");
  composite.AddPart(number);
  int at = 0;
  for (OmCellText const* cell : std::vector<OmCellText const*>{&text, &utf8, &number, &variable,
                                                               &numeric, &string, &composite}) {
    table.Cell({at}, cell);
    ASSERT_NE(table.Cell({at}), nullptr);
    EXPECT_EQ(table.Cell({at})->GetKind(), cell->GetKind());
    EXPECT_EQ(table.At({at}), cell->GetText());
    ++at;
  }
}

TEST(OmPivotTableCells, SubscriptsBeyondTheSizeAreNotRefused) {
  TestTable table(2);
  AddCategories(table.Dimension(0), 1);
  EXPECT_TRUE(table.Put({500, 300}, "cell"));
  EXPECT_EQ(table.At({500, 300}), "cell");
}

TEST(OmPivotTableCells, ALargeSubscriptIsStored) {
  TestTable table(2);
  EXPECT_TRUE(table.Put({1000000, 0}, "cell"));
  EXPECT_EQ(table.At({1000000, 0}), "cell");
  EXPECT_EQ(table.At({999999, 0}), "(none)");
}

TEST(OmPivotTableCells, ASecondWriteReplacesTheCell) {
  TestTable table(1);
  table.Put({0}, "first");
  EXPECT_TRUE(table.Put({0}, "second"));
  EXPECT_EQ(table.At({0}), "second");
  EXPECT_EQ(table.Walk().size(), 1U);
}

TEST(OmPivotTableCells, ANullCellClearsTheSlot) {
  TestTable table(1);
  table.Put({0}, "cell");
  EXPECT_TRUE(table.Clear({0}));
  EXPECT_EQ(table.At({0}), "(none)");
}

TEST(OmPivotTableCells, ClearingWhereNothingIsStoredSucceeds) {
  TestTable table(2);
  EXPECT_TRUE(table.Clear({3, 3}));
  EXPECT_EQ(table.At({3, 3}), "(none)");
}

TEST(OmPivotTableCells, AClearedSlotCanBeFilledAgain) {
  TestTable table(1);
  table.Put({0}, "first");
  table.Clear({0});
  table.Put({0}, "second");
  EXPECT_EQ(table.At({0}), "second");
}

TEST(OmPivotTableCells, AStoredCellMayBeHandedBack) {
  TestTable table(1);
  table.Put({0}, "a text that is too long to be kept inside a string object");
  table.Cell({0}, table.Cell({0}));
  EXPECT_EQ(table.At({0}), "a text that is too long to be kept inside a string object");
}

TEST(OmPivotTableCells, AStoredCellMayBeCopiedToAnotherSlot) {
  TestTable table(1);
  table.Put({0}, "cell");
  table.Cell({9}, table.Cell({0}));
  EXPECT_EQ(table.At({0}), "cell");
  EXPECT_EQ(table.At({9}), "cell");
  EXPECT_NE(table.Cell({0}), table.Cell({9}));
}

TEST(OmPivotTableCells, TwentyDimensions) {
  TestTable table(20);
  Index low(20, 0);
  Index high;
  for (int i = 0; i < 20; ++i) {
    high.push_back(i % 3);
  }
  table.Put(high, "high");
  table.Put(low, "low");
  EXPECT_EQ(table.At(low), "low");
  EXPECT_EQ(table.At(high), "high");
  EXPECT_EQ(table.Walk(), (Walked{{low, "low"}, {high, "high"}}));
  table.deleteCell(high);
  EXPECT_EQ(table.At(high), "(none)");
  EXPECT_EQ(table.At(low), "low");
}

TEST(OmPivotTableCells, VeryManyDimensionsNeedNoDeepStack) {
  constexpr std::size_t kMany = 20000;
  TestTable table(kMany);
  Index const low(kMany, 0);
  Index const high(kMany, 1);
  table.Put(low, "low");
  table.Put(high, "high");
  EXPECT_EQ(table.Walk(), (Walked{{low, "low"}, {high, "high"}}));
  table.deleteCell(low);
  EXPECT_EQ(table.Walk(), (Walked{{high, "high"}}));
  table.Put(low, "again");
}

// Dimensions added after cells

TEST(OmPivotTableCells, ANewDimensionPutsStoredCellsAtItsSubscriptZero) {
  TestTable table(2);
  table.Put({3, 1}, "cell");
  table.AddDimension(Text("third"));
  EXPECT_EQ(table.At({3, 1, 0}), "cell");
  EXPECT_EQ(table.At({3, 1, 1}), "(none)");
  EXPECT_TRUE(Throws([&] { (void)table.Cell({3, 1}); }, kSize, 2, 3));
}

TEST(OmPivotTableCells, ANewDimensionFromACopyDoesTheSame) {
  TestTable table(2);
  table.Put({3, 1}, "cell");
  table.AddDimension(table.Dimension(0));
  EXPECT_EQ(table.At({3, 1, 0}), "cell");
  EXPECT_EQ(table.At({3, 1, 1}), "(none)");
}

TEST(OmPivotTableCells, SeveralNewDimensionsMayFollow) {
  TestTable table(1);
  table.Put({4}, "cell");
  for (char const* label : {"second", "third", "fourth"}) {
    table.AddDimension(Text(label));
  }
  EXPECT_EQ(table.At({4, 0, 0, 0}), "cell");
  EXPECT_EQ(table.Walk(), (Walked{{{4, 0, 0, 0}, "cell"}}));
}

TEST(OmPivotTableCells, CellsCanBeStoredAlongANewDimension) {
  TestTable table(1);
  table.Put({4}, "old");
  table.AddDimension(Text("second"));
  table.Put({4, 1}, "new");
  table.Put({5, 0}, "beside");
  EXPECT_EQ(table.Walk(), (Walked{{{4, 0}, "old"}, {{5, 0}, "beside"}, {{4, 1}, "new"}}));
}

TEST(OmPivotTableCells, ANewDimensionKeepsTheStoredObjects) {
  TestTable table(1);
  table.Put({4}, "cell");
  OmCellText const* const cell = table.Cell({4});
  table.AddDimension(Text("second"));
  EXPECT_EQ(table.Cell({4, 0}), cell);
  EXPECT_EQ(table.getNumCells(), 1);
}

/// A cell that writes to a table whenever it is copied.
class Intruder : public OmCellText {
 public:
  Intruder(OmPivotTable& table, Index const& index) : table_(table), index_(index) {}
  OmCellText* Clone(OmMemoryRegion* region) const override {
    for (int i = 0; i < 100; ++i) {
      index_[0] += 7;
      table_.Cell(index_, Text("intruder"));
    }
    return new (region) OmStringCell("intruding");
  }
  std::string GetText() const override { return "intruder"; }
  long GetKind() const override { return 3001; }
  short Compare(OmCellText const& other, bool ignoreCase) const override {
    return CompareTexts(other, ignoreCase);
  }
  void Accept(OmCellText::Visitor& /*visitor*/) override {}

 private:
  OmPivotTable& table_;
  mutable Index index_;
};

TEST(OmPivotTableCells, ACellMayWriteToTheTableWhileItIsCopied) {
  TestTable table(2);
  table.Put({0, 0}, "first");
  table.Cell({7, 0}, Intruder(table, {0, 0}));
  table.Cell({0, 0}, Intruder(table, {0, 2}));
  table.Cell({0, 1}, Intruder(table, {0, 1}));
  EXPECT_EQ(table.At({7, 0}), "intruding");
  EXPECT_EQ(table.At({0, 0}), "intruding");
  EXPECT_EQ(table.At({0, 1}), "intruding");
  EXPECT_EQ(table.At({700, 1}), "intruder");
  EXPECT_EQ(table.Walk().size(), 302U);
  table.Put({1, 1}, "after");
  EXPECT_EQ(table.At({1, 1}), "after");
}

/// A cell that writes another one to a place whenever it is copied.
class Rival : public OmStringCell {
 public:
  Rival(OmPivotTable& table, Index index)
      : OmStringCell("winner"), table_(table), index_(std::move(index)) {}
  OmCellText* Clone(OmMemoryRegion* region) const override {
    table_.Cell(index_, SpyCell("rival"));
    return OmStringCell::Clone(region);
  }
  long GetKind() const override { return 3003; }

 private:
  OmPivotTable& table_;
  Index index_;
};

TEST(OmPivotTableCells, ACellReplacesWhatWasWrittenToItsPlaceWhileItWasCopied) {
  long const outside = SpyCell::Live();
  TestTable table(2);
  table.Cell({1, 1}, Rival(table, {1, 1}));
  EXPECT_EQ(table.At({1, 1}), "winner");
  EXPECT_EQ(SpyCell::Live(), outside);
  table.Cell({2, 1}, SpyCell("before"));
  table.Cell({2, 1}, Rival(table, {2, 1}));
  EXPECT_EQ(table.At({2, 1}), "winner");
  EXPECT_EQ(SpyCell::Live(), outside);
}

/// A cell that adds a dimension to a table whenever it is copied.
class Widener : public OmStringCell {
 public:
  explicit Widener(OmPivotTable& table) : OmStringCell("widener"), table_(table) {}
  OmCellText* Clone(OmMemoryRegion* region) const override {
    table_.AddDimension(Text("new"));
    return OmStringCell::Clone(region);
  }
  long GetKind() const override { return 3002; }

 private:
  OmPivotTable& table_;
};

TEST(OmPivotTableCells, ACellThatAddsADimensionWhileItIsCopiedIsNotStored) {
  TestTable table(2);
  table.Put({1, 2}, "before");
  EXPECT_THROW(table.Cell({1, 2}, Widener(table)), OMSException);
  EXPECT_THROW(table.Cell({0, 0, 5}, Widener(table)), OMSException);
  EXPECT_EQ(table.NDimensions(), 4);
  EXPECT_EQ(table.At({1, 2, 0, 0}), "before");
  EXPECT_EQ(table.Walk().size(), 1U);
}

}  // namespace
