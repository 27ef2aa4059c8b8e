#include <gtest/gtest.h>
#include <type_traits>

#include <lakresvos/OmHeading.h>
#include <lakresvos/OmPivotTable.h>
#include <lakresvos/OmTextBlock.h>

#include "core/table/OmPivotTableFixture.h"

namespace {

static_assert(std::is_base_of_v<OmOutputPart, OmPivotTable>);
static_assert(sizeof(OmPivotTable) == sizeof(OmOutputPart) + sizeof(void*));
static_assert(std::is_base_of_v<OmMemoryRegion, OmPivotTable::Data>);
static_assert(!std::is_copy_constructible_v<OmPivotTable>);
static_assert(!std::is_copy_assignable_v<OmPivotTable>);

class KindVisitor : public OmOutputPart::Visitor {
 public:
  void Visit(OmPivotTable& table) override { visited = &table; }
  void Visit(OmHeading& /*heading*/) override { ADD_FAILURE(); }
  void Visit(OmTextBlock& /*block*/) override { ADD_FAILURE(); }
  void Visit(OmChart& /*chart*/) override { ADD_FAILURE(); }
  void Visit(OmAnswerTree& /*tree*/) override { ADD_FAILURE(); }
  void Visit(OmModel& /*model*/) override { ADD_FAILURE(); }
  void Visit(OmInteractive& /*item*/) override { ADD_FAILURE(); }

  OmPivotTable* visited = nullptr;
};

TEST(OmPivotTable, IsVisitedAsAPivotTable) {
  TestTable table;
  KindVisitor visitor;
  static_cast<OmOutputPart&>(table).Accept(visitor);
  EXPECT_EQ(visitor.visited, &table);
}

TEST(OmPivotTable, TheLabelGoesToTheItemAndTheTemplateNameToTheTable) {
  OmPivotTable const table(Text("outline"), Text("kind"), false);
  ASSERT_NE(table.Label(), nullptr);
  EXPECT_EQ(table.Label()->GetText(), "outline");
  EXPECT_EQ(table.TemplateName()->GetText(), "kind");
}

TEST(OmPivotTable, IsDeletedThroughTheItem) {
  auto table = std::make_unique<TestTable>(2);
  table->Put({1, 1}, "cell");
  std::unique_ptr<OmOutputPart> const item = std::move(table);
  EXPECT_NE(item->Label(), nullptr);
}

TEST(OmPivotTable, TheRecordIsItsOwnRegion) {
  TestTable table(1);
  table.Put({0}, "cell");
  OmPivotTable::Data& data = table.data();
  EXPECT_EQ(OmMemoryRegion::FindOwner(data.templateName.get()), &data);
  EXPECT_EQ(OmMemoryRegion::FindOwner(data.cells), &data);
  EXPECT_EQ(OmMemoryRegion::FindOwner(table.Cell({0})), &data);
  EXPECT_EQ(data.footnotes.region, &data);
  EXPECT_EQ(data._dimensions.region, &data);
}

}  // namespace
