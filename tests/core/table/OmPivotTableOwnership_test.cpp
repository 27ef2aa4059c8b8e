#include <gtest/gtest.h>

#include <cells/OmNumber.h>
#include <lakresvos/OmPivotTable.h>

#include "core/table/OmPivotTableFixture.h"
#include "support/SpyCell.h"

namespace {

using Operation = SpyCell::Operation;
using Lines = std::vector<std::string>;

/// Writes down how many bytes its region has in use when it goes. One that is in no region writes
/// nothing.
class Gauge : public OmCellText {
 public:
  explicit Gauge(std::vector<unsigned long>& readings, OmMemoryRegion* region = nullptr)
      : readings_(readings), region_(region) {}
  ~Gauge() override {
    if (region_ != nullptr) {
      readings_.push_back(region_->BytesInUse());
    }
  }
  Gauge(Gauge const&) = delete;
  Gauge& operator=(Gauge const&) = delete;

  OmCellText* Clone(OmMemoryRegion* region) const override {
    return new (region) Gauge(readings_, region);
  }
  std::string GetText() const override { return "gauge"; }
  long GetKind() const override { return 3000; }
  short Compare(OmCellText const& other, bool ignoreCase) const override {
    return CompareTexts(other, ignoreCase);
  }
  void Accept(OmCellText::Visitor& /*visitor*/) override {}

 private:
  std::vector<unsigned long>& readings_;
  OmMemoryRegion* region_;
};

TEST(OmPivotTableOwnership, ADimensionsLabelIsTheTablesCopy) {
  SpyCell const spy("Age");
  {
    TestTable table;
    table.AddDimension(spy);
    EXPECT_EQ(SpyCell::Live(), 2);
    EXPECT_NE(table.Dimension(0).value.label, &spy);
  }
  EXPECT_EQ(SpyCell::Live(), 1);
}

TEST(OmPivotTableOwnership, EveryLabelOfAnAddedDimensionIsTheTablesCopy) {
  OmDimension source(OmDimensionNode(SpyCell("root"), 0, true, nullptr), nullptr);
  source.Child(source.Root(), SpyCell("leaf"), 0, false);
  EXPECT_EQ(SpyCell::Live(), 2);
  {
    TestTable table;
    table.AddDimension(source);
    EXPECT_EQ(SpyCell::Live(), 4);
    TestTable copy;
    copy.CopyDimensions(table);
    EXPECT_EQ(SpyCell::Live(), 6);
  }
  EXPECT_EQ(SpyCell::Live(), 2);
}

TEST(OmPivotTableOwnership, ACellIsClonedOnceIntoTheTablesRegion) {
  TestTable table(1);
  SpyCell const spy("cell");
  SpyLog const log;
  table.Cell({0}, spy);
  ASSERT_EQ(log.Of(Operation::Clone).size(), 1U);
  EXPECT_EQ(log.Of(Operation::Clone)[0].region, &table.data());
  EXPECT_EQ(log.Of(Operation::Clone)[0].result, table.Cell({0}));
}

TEST(OmPivotTableOwnership, AReplacedCellGoesAfterTheNewCopyIsMade) {
  TestTable table(1);
  SpyCell const first("first");
  SpyCell const second("second");
  table.Cell({0}, first);
  SpyLog const log;
  table.Cell({0}, second);
  EXPECT_EQ(log.Lines(), (Lines{"Clone second", "Destroy first"}));
}

TEST(OmPivotTableOwnership, ClearingAndDeletingDestroyTheCellAlone) {
  TestTable table(2);
  for (int i = 0; i < 4; ++i) {
    table.Cell({i, i}, SpyCell(std::to_string(i)));
  }
  SpyLog const log;
  table.Clear({1, 1});
  table.deleteCell({2, 2});
  EXPECT_EQ(log.Lines(), (Lines{"Destroy 1", "Destroy 2"}));
}

TEST(OmPivotTableOwnership, ARefusedWriteClonesNothing) {
  TestTable table(1);
  SpyCell const spy("cell");
  SpyLog const log;
  EXPECT_THROW(table.Cell({-1}, spy), OMSException);
  EXPECT_THROW(table.Cell({0, 0}, spy), OMSException);
  EXPECT_TRUE(log.calls.empty());
}

TEST(OmPivotTableOwnership, AWriteBeyondTheLimitClonesNothing) {
  TestTable table(1);
  BackendSettings settings;
  settings.setMaxCells(-1);
  table.setBackendSettings(settings);
  SpyCell const spy("cell");
  SpyLog const log;
  EXPECT_FALSE(table.Cell({0}, spy));
  EXPECT_TRUE(log.calls.empty());
}

TEST(OmPivotTableOwnership, EverythingGoesWithTheTable) {
  SpyCell const spy("text");
  {
    OmPivotTable table(spy, spy, false);
    table.AddDimension(spy);
    table.AddDimension(spy);
    table.Dimension(0).Child(table.Dimension(0).Root(), spy, 0, false);
    for (int i = 0; i < 6; ++i) {
      table.Cell({i, i % 2}, spy);
    }
    table.AddDimension(spy);
    table.Cell({9, 9, 9}, spy);
    table.SetTableTitle(spy);
    table.Caption(&spy);
    table.CornerText(&spy);
    OmFootnote footnote;
    footnote.text = spy.Clone(nullptr);
    footnote.marker = spy.Clone(nullptr);
    table.Footnote(footnote, true);
    table.Footnote(footnote, true);
  }
  EXPECT_EQ(SpyCell::Live(), 1);
}

TEST(OmPivotTableOwnership, TextsGoBeforeCellsAndCellsBeforeDimensions) {
  SpyCell const name("name");
  SpyCell const label("label");
  auto table = std::make_unique<TestTable>(0, name);
  table->AddDimension(label);
  table->Cell({0}, SpyCell("cell"));
  table->CornerText(std::make_unique<SpyCell>("corner").get());
  table->Caption(std::make_unique<SpyCell>("caption").get());
  table->SetTableTitle(SpyCell("title"));
  SpyLog const log;
  table.reset();
  EXPECT_EQ(log.Lines(), (Lines{"Destroy name", "Destroy corner", "Destroy caption",
                                "Destroy title", "Destroy cell", "Destroy label"}));
}

TEST(OmPivotTableOwnership, NothingGoesBackToTheRegionOneByOneWhenTheTableGoes) {
  std::vector<unsigned long> readings;
  Gauge const gauge(readings);
  {
    TestTable table(0, gauge);
    table.CornerText(&gauge);
    table.AddDimension(gauge);
    table.Cell({0}, gauge);
    table.Cell({1}, gauge);
  }
  ASSERT_EQ(readings.size(), 5U);
  EXPECT_GT(readings[0], 0U);
  EXPECT_EQ(readings, std::vector<unsigned long>(5, readings[0]));
}

TEST(OmPivotTableOwnership, FootnotesGoAfterDimensionsAndTheItemsLabelLast) {
  auto table = std::make_unique<OmPivotTable>(SpyCell("label"), SpyCell("name"), false);
  table->AddDimension(SpyCell("dimension"));
  OmFootnote footnote;
  footnote.text = new SpyCell("note");
  footnote.marker = new SpyCell("marker");
  table->Footnote(footnote, true);
  SpyLog const log;
  table.reset();
  EXPECT_EQ(log.Lines(), (Lines{"Destroy name", "Destroy dimension", "Destroy note",
                                "Destroy marker", "Destroy label"}));
}

TEST(OmPivotTableOwnership, AFoundDimensionIsAskedThroughItsOwnLabel) {
  TestTable table;
  table.AddDimension(SpyCell("Age"));
  SpyCell const probe("Age");
  SpyLog const log;
  EXPECT_EQ(table.FindDimension(probe), 0);
  auto const compared = log.Of(Operation::Compare);
  ASSERT_EQ(compared.size(), 1U);
  EXPECT_EQ(compared[0].cell, table.Dimension(0).value.label);
  EXPECT_EQ(compared[0].other, &probe);
  EXPECT_EQ(compared[0].number, 0) << "case is not ignored";
}

TEST(OmPivotTableOwnership, LabelsOfDifferentKindsAreDifferent) {
  TestTable table;
  table.AddDimension(SpyCell("Age", 1));
  table.AddDimension(SpyCell("Age", 2));
  EXPECT_EQ(table.FindDimension(SpyCell("Age", 2)), 1);
  EXPECT_EQ(table.FindDimension(SpyCell("Age", 3)), -1);
}

TEST(OmPivotTableOwnership, AForeignCellAmongNumbersIsDestroyed) {
  SpyBalance const balance;
  TestTable table(3);
  for (int i = 0; i < 1000; ++i) {
    table.Cell({i % 10, i / 10 % 10, i / 100}, OmNumber(i));
  }
  table.Cell({5, 5, 5}, SpyCell("foreign"));
  table.Cell({1000000, 5, 5}, SpyCell("far away"));
}

TEST(OmPivotTableOwnership, OnlyWhatOwnsSomethingOutsideTheTableIsVisitedInTheEnd) {
  auto numbers = std::make_unique<TestTable>(1);
  numbers->Cell({0}, OmNumber(1));
  numbers->Cell({1}, OmStringCell("a text of the table's own"));
  EXPECT_FALSE(numbers->data().HasOwners());
  numbers->Cell({2}, SpyCell("foreign"));
  EXPECT_TRUE(numbers->data().HasOwners());
}

}  // namespace
