#include "xlsx/Plan.h"

#include <gtest/gtest.h>
#include <string>

#include <lakresvos/OmChart.h>

#include "render/support/RenderTables.h"

using lakresvos::render::XlsxOptions;
using lakresvos::render::XlsxPlan;
using lakresvos::render::XlsxRows;
using namespace render_tables;

namespace {

class XlsxPlanTest : public testing::Test {
 protected:
  Table& AddTable(std::string const& title = "title") {
    auto& table = AppendItem<Table>(document_.begin());
    table.SetTableTitle(Utf8(title));
    return table;
  }

  XlsxRows Rows() { return XlsxPlan(document_, options_).Rows(); }

  OmOutputTree document_;
  XlsxOptions options_;
};

}  // namespace

TEST_F(XlsxPlanTest, RowsOfFewSheetsAreInFiles) {
  EXPECT_EQ(Rows(), XlsxRows::InFiles);
  for (int i = 0; i < 49; ++i) {
    AddTable();
  }
  AddTable().Show(false);
  AppendItem<OmChart>(document_.begin(), Utf8("no picture"), "", 1);
  EXPECT_EQ(Rows(), XlsxRows::InFiles);
}

TEST_F(XlsxPlanTest, RowsOfManySheetsAreInMemory) {
  for (int i = 0; i < 49; ++i) {
    AddTable();
  }
  AppendItem<OmChart>(document_.begin(), Utf8("chart"), "", 1).SetImageStream("x", 1);
  EXPECT_EQ(Rows(), XlsxRows::InMemory);
}

TEST_F(XlsxPlanTest, LayersCountAsSheetsWhenEachHasOne) {
  Table& table = AddTable();
  table.AddFlat("r", 1);
  table.AddFlat("k", 7);
  table.AddFlat("l", 8);
  table.Place({0}, {}, {1, 2, 99});
  EXPECT_EQ(Rows(), XlsxRows::InFiles);
  options_.layersAsSheets = true;
  EXPECT_EQ(Rows(), XlsxRows::InMemory);
  options_.allLayers = false;
  EXPECT_EQ(Rows(), XlsxRows::InFiles);
}

TEST_F(XlsxPlanTest, RowsBelowATitleWiderThanAPageAreInMemory) {
  AddTable(std::string(82, 'x') + '\n' + std::string(82, 'x'));
  EXPECT_EQ(Rows(), XlsxRows::InFiles);
  AddTable(std::string(83, 'x'));
  EXPECT_EQ(Rows(), XlsxRows::InMemory);
}

TEST_F(XlsxPlanTest, TitlesInLargeLettersAreWider) {
  auto* const large = new FormatArea(FormatArea::AreaTitle);
  large->setFontSize(22);
  AddTable(std::string(42, 'x')).setAreaFormat(large);
  EXPECT_EQ(Rows(), XlsxRows::InMemory);
}

TEST_F(XlsxPlanTest, KnowsTheTitlesOfTables) {
  Table const& titled = AddTable("title");
  auto const& labelled = AppendItem<Table>(document_.begin());
  XlsxPlan const plan(document_, options_);
  EXPECT_EQ(plan.Title(titled), "title");
  EXPECT_EQ(plan.Title(labelled), "table");
}
