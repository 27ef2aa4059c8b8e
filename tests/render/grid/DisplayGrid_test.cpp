#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include <lakresvos/render/DisplayGrid.h>

#include "render/support/RenderTables.h"

using lakresvos::render::DisplayGrid;
using lakresvos::render::GridCell;
using lakresvos::render::GridRole;
using namespace render_tables;

static_assert(!std::is_copy_constructible_v<DisplayGrid>);

namespace {

using Texts = std::vector<std::string>;

/// A table with the grid of its first layer.
struct Laid {
  explicit Laid(Table& table, bool skipEmpty = true, bool dimNamesInCorner = true)
      : layers(table, skipEmpty) {
    layers.NextLayer();
    grid = std::make_unique<DisplayGrid>(layers, skipEmpty, dimNamesInCorner);
  }
  DisplayGrid const* operator->() const { return grid.get(); }

  OmDisplayLayerHeading layers;
  std::unique_ptr<DisplayGrid> grid;
};

/// "label@row,column" and, where it spans, "+rows x columns"; "-" for a cell without a label.
std::string Text(GridCell const& cell) {
  std::string text = cell.label != nullptr ? cell.label->GetText() : "-";
  text += "@" + std::to_string(cell.row) + "," + std::to_string(cell.column);
  if (cell.rowSpan != 1 || cell.columnSpan != 1) {
    text += "+" + std::to_string(cell.rowSpan) + "x" + std::to_string(cell.columnSpan);
  }
  return text;
}

Texts Cells(Laid const& laid, GridRole role) {
  Texts texts;
  for (GridCell const& cell : laid->Headings()) {
    if (cell.role == role) {
      texts.push_back(Text(cell));
    }
  }
  return texts;
}

/// A dimension with a group G of x and y beside a category z.
OmDimension& AddUneven(Table& table, std::string const& label) {
  OmDimension& dimension = table.Add(label);
  auto const group = Group(dimension, dimension.Root(), "G");
  Category(dimension, group, "x", 0);
  Category(dimension, group, "y", 1);
  Category(dimension, dimension.Root(), "z", 2);
  return dimension;
}

}  // namespace

// Spans

TEST(DisplayGrid, OuterHeadingsSpanTheirInnerOnes) {
  Table table;
  table.AddFlat("A", 2);
  table.AddFlat("B", 2);
  table.Place({1, 0}, {});
  table.PutAll();
  Laid const laid(table);
  EXPECT_EQ(Cells(laid, GridRole::RowHeading),
            (Texts{"A0@1,0+2x1", "B0@1,1", "B1@2,1", "A1@3,0+2x1", "B0@3,1", "B1@4,1"}));
}

TEST(DisplayGrid, ColumnHeadingsSpanLikeRowHeadingsOnTheirSide) {
  Table table;
  table.AddFlat("A", 2);
  table.AddFlat("B", 2);
  table.Place({}, {1, 0});
  table.PutAll();
  Laid const laid(table);
  EXPECT_EQ(Cells(laid, GridRole::ColumnHeading),
            (Texts{"A@0,0+1x4", "A0@1,0+1x2", "A1@1,2+1x2", "B@2,0+1x2", "B@2,2+1x2", "B0@3,0",
                   "B1@3,1", "B0@3,2", "B1@3,3"}));
}

TEST(DisplayGrid, SameNodeBelowDifferentHeadingsIsNotMerged) {
  Table table;
  table.AddFlat("A", 2);
  table.AddFlat("B", 1);
  table.Place({1, 0}, {});
  table.PutAll();
  Laid const laid(table);
  EXPECT_EQ(Cells(laid, GridRole::RowHeading), (Texts{"A0@1,0", "B0@1,1", "A1@2,0", "B0@2,1"}));
}

TEST(DisplayGrid, EqualLabelsUnderDifferentGroupsAreNotMerged) {
  Table table;
  OmDimension& dimension = table.Add("A");
  auto const first = Group(dimension, dimension.Root(), "first");
  auto const second = Group(dimension, dimension.Root(), "second");
  Category(dimension, first, "same", 0);
  Category(dimension, second, "same", 1);
  table.Place({0}, {});
  table.PutAll();
  Laid const laid(table);
  EXPECT_EQ(Cells(laid, GridRole::RowHeading),
            (Texts{"first@1,0", "same@1,1", "second@2,0", "same@2,1"}));
}

TEST(DisplayGrid, NeighborsWithEqualLabelsAreNotMerged) {
  Table table;
  AddCategories(table, "A", {"same", "same", "same"});
  table.Place({0}, {});
  table.PutAll();
  Laid const laid(table);
  EXPECT_EQ(Cells(laid, GridRole::RowHeading), (Texts{"same@1,0", "same@2,0", "same@3,0"}));
}

TEST(DisplayGrid, EqualGroupsAreNotMerged) {
  Table table;
  OmDimension& dimension = table.Add("A");
  for (unsigned long i = 0; i < 2; ++i) {
    Category(dimension, Group(dimension, dimension.Root(), "same"), "leaf", i);
  }
  table.Place({}, {0});
  table.PutAll();
  Laid const laid(table);
  EXPECT_EQ(Cells(laid, GridRole::ColumnHeading),
            (Texts{"A@0,0+1x2", "same@1,0", "same@1,1", "leaf@2,0", "leaf@2,1"}));
}

TEST(DisplayGrid, ShorterPathReachesTheInnerEnd) {
  Table table;
  AddUneven(table, "A");
  table.Place({0}, {});
  table.PutAll();
  Laid const laid(table);
  EXPECT_EQ(Cells(laid, GridRole::RowHeading), (Texts{"G@1,0+2x1", "x@1,1", "y@2,1", "z@3,0+1x2"}));
}

TEST(DisplayGrid, ShorterPathDoesNotReachIntoTheNextDimension) {
  Table table;
  AddUneven(table, "A");
  table.AddFlat("B", 1);
  table.Place({1, 0}, {});
  table.PutAll();
  Laid const laid(table);
  EXPECT_EQ(Cells(laid, GridRole::RowHeading),
            (Texts{"G@1,0+2x1", "x@1,1", "B0@1,2", "y@2,1", "B0@2,2", "z@3,0+1x2", "B0@3,2"}));
}

TEST(DisplayGrid, HiddenLevelClosesUp) {
  Table table;
  OmDimension& dimension = AddUneven(table, "A");
  dimension.Root().Child(0).Value().hide = true;
  table.Place({0}, {});
  table.PutAll();
  Laid const laid(table);
  EXPECT_EQ(Cells(laid, GridRole::RowHeading), (Texts{"x@1,0", "y@2,0", "z@3,0"}));
}

TEST(DisplayGrid, CategoriesBelowAGroupWithHiddenLabelsShareTheCellAbove) {
  Table table;
  OmDimension& dimension = table.Add("A");
  auto const outer = Group(dimension, dimension.Root(), "outer");
  auto const silent = Group(dimension, outer, "silent");
  silent.Value().hideLabels = true;
  Category(dimension, silent, "x", 0);
  Category(dimension, silent, "y", 1);
  table.Place({0}, {});
  table.PutAll();
  Laid const laid(table);
  EXPECT_EQ(Cells(laid, GridRole::RowHeading), (Texts{"outer@1,0+2x1"}));
  EXPECT_EQ(laid->Rows(), 3);
}

TEST(DisplayGrid, PaddingBesideShownNodesIsAnEmptyCell) {
  Table table;
  OmDimension& dimension = table.Add("A");
  auto const outer = Group(dimension, dimension.Root(), "outer");
  auto const silent = Group(dimension, outer, "silent");
  silent.Value().hideLabels = true;
  Category(dimension, silent, "x", 0);
  Category(dimension, silent, "y", 1);
  auto const inner = Group(dimension, outer, "inner");
  Category(dimension, inner, "z", 2);
  table.Place({0}, {});
  table.PutAll();
  Laid const laid(table);
  EXPECT_EQ(Cells(laid, GridRole::RowHeading),
            (Texts{"outer@1,0+3x1", "-@1,1+2x2", "inner@3,1", "z@3,2"}));
}

TEST(DisplayGrid, CategoriesThatShowNothingAreEmptyCells) {
  Table table;
  OmDimension& dimension = table.AddFlat("A", 3);
  dimension.Root().Child(1).Value().hide = true;
  dimension.Root().Child(2).Value().hide = true;
  table.Place({0}, {});
  table.PutAll();
  Laid const laid(table);
  EXPECT_EQ(Cells(laid, GridRole::RowHeading), (Texts{"A0@1,0", "-@2,0+2x1"}));
}

TEST(DisplayGrid, EmptyLabelsAreLabels) {
  Table table;
  AddCategories(table, "A", {"", ""});
  table.Place({0}, {});
  table.PutAll();
  Laid const laid(table);
  EXPECT_EQ(Cells(laid, GridRole::RowHeading), (Texts{"@1,0", "@2,0"}));
}

TEST(DisplayGrid, CellsKnowTheirNodes) {
  Table table;
  OmDimension& dimension = table.AddFlat("A", 2);
  table.Place({0}, {});
  table.PutAll();
  Laid const laid(table);
  GridCell const& second = laid->Headings().back();
  EXPECT_EQ(second.node->element, dimension.Root().Child(1).element);
  EXPECT_EQ(second.label, dimension.Root().Child(1).Value().label);
  EXPECT_EQ(laid->Headings().front().node, nullptr);
}

TEST(DisplayGrid, PathsStayRightAfterACategoryIsDeletedBeforeThem) {
  Table table;
  OmDimension& dimension = AddUneven(table, "A");
  auto first = Category(dimension, dimension.Root(), "w", 3);
  dimension.Delete(first);
  auto group = dimension.Root().Child(0);
  auto x = group.Child(0);
  dimension.Delete(x);
  table.Place({0}, {});
  table.PutAll();
  Laid const laid(table);
  EXPECT_EQ(Cells(laid, GridRole::RowHeading), (Texts{"G@1,0", "y@1,1", "z@2,0+1x2"}));
}

// Corner

TEST(DisplayGrid, DimensionNamesReachOverTheirHeadingColumns) {
  Table table;
  AddUneven(table, "A");
  table.AddFlat("B", 1);
  table.AddFlat("C", 1);
  table.Place({1, 0}, {2});
  table.PutAll();
  Laid const laid(table);
  EXPECT_EQ(Cells(laid, GridRole::Corner), (Texts{"A@0,0+2x2", "B@0,2+2x1"}));
}

TEST(DisplayGrid, NameOfAHiddenRootLeavesAnEmptyCornerCell) {
  Table table;
  table.AddFlat("A", 1).Root().Value().hide = true;
  table.AddFlat("B", 1);
  table.Place({1, 0}, {});
  table.PutAll();
  OmStringCell const corner("corner");
  table.CornerText(&corner);
  Laid const laid(table);
  EXPECT_EQ(Cells(laid, GridRole::Corner), (Texts{"-@0,0", "B@0,1"}));
}

TEST(DisplayGrid, HiddenRootAfterANamedDimensionHasAnEmptyCornerCell) {
  Table table;
  table.AddFlat("A", 1);
  table.AddFlat("B", 1).Root().Value().hide = true;
  table.Place({1, 0}, {});
  table.PutAll();
  Laid const laid(table);
  EXPECT_EQ(Cells(laid, GridRole::Corner), (Texts{"A@0,0", "-@0,1"}));
}

TEST(DisplayGrid, CornerTextReachesOverTheWholeCorner) {
  Table table;
  table.AddFlat("A", 1);
  table.AddFlat("B", 1);
  table.AddFlat("C", 1);
  table.Place({1, 0}, {2});
  table.PutAll();
  OmStringCell const corner("corner");
  table.CornerText(&corner);
  Laid const laid(table, true, false);
  EXPECT_EQ(Cells(laid, GridRole::Corner), (Texts{"corner@0,0+2x4"}));
}

TEST(DisplayGrid, CornerWithoutTextIsOneEmptyCell) {
  Table table;
  table.AddFlat("A", 1);
  table.AddFlat("B", 1);
  table.Place({0}, {1});
  table.PutAll();
  Laid const laid(table, true, false);
  EXPECT_EQ(Cells(laid, GridRole::Corner), (Texts{"-@0,0+2x2"}));
}

TEST(DisplayGrid, DimensionNamesAreAHeadingLevelWhenNotInTheCorner) {
  Table table;
  table.AddFlat("A", 2);
  table.Place({0}, {});
  table.PutAll();
  Laid const laid(table, true, false);
  EXPECT_EQ(laid->HeadingRows(), 0);
  EXPECT_EQ(Cells(laid, GridRole::RowHeading), (Texts{"A@0,0+2x1", "A0@0,1", "A1@1,1"}));
}

TEST(DisplayGrid, CornerAboveNoColumnHeadingGetsARowOfItsOwn) {
  Table table;
  table.AddFlat("A", 2);
  table.Place({0}, {});
  table.PutAll();
  Laid const laid(table);
  EXPECT_EQ(laid->HeadingRows(), 1);
  EXPECT_EQ(Cells(laid, GridRole::Corner), (Texts{"A@0,0"}));
  EXPECT_EQ(Cells(laid, GridRole::ColumnHeading), (Texts{"-@0,1"}));
}

TEST(DisplayGrid, DimensionOfWhichOnlyTheNameIsShownTakesNoColumn) {
  Table table;
  OmDimension& dimension = table.AddFlat("A", 2);
  for (std::size_t i = 0; i < 2; ++i) {
    dimension.Root().Child(i).Value().hide = true;
  }
  table.AddFlat("B", 1);
  table.Place({1, 0}, {});
  table.PutAll();
  Laid const laid(table);
  EXPECT_EQ(Cells(laid, GridRole::Corner), (Texts{"B@0,0"}));
  EXPECT_EQ(laid->HeadingColumns(), 1);
  EXPECT_EQ(laid->Rows(), 3);
}

// Axes without dimensions, places without cells

TEST(DisplayGrid, NoRowDimensionsGiveOneBodyRowWithoutHeading) {
  Table table;
  table.AddFlat("A", 2);
  table.Place({}, {0});
  table.PutAll();
  Laid const laid(table);
  EXPECT_EQ(laid->HeadingColumns(), 0);
  EXPECT_EQ(laid->Rows(), 3);
  EXPECT_EQ(laid->Columns(), 2);
  EXPECT_TRUE(Cells(laid, GridRole::Corner).empty());
  EXPECT_NE(laid->Body(2).Cell(1), nullptr);
}

TEST(DisplayGrid, CellsOfARowAreTheSameInWhateverOrderTheyAreRead) {
  constexpr int kColumns = 60;
  Table table;
  table.AddFlat("R", 2);
  table.AddFlat("C", kColumns);
  table.Place({0}, {1});
  for (int c = 0; c < kColumns; ++c) {
    if (c % 7 != 3) {
      table.Put({1, c});
    }
  }
  table.Put({0, 3});
  Laid const laid(table, false);
  int const first = laid->HeadingColumns();
  std::vector<int> order;
  for (int c = 0; c < kColumns; ++c) {
    order.push_back(c);
  }
  for (int c = kColumns - 1; c >= 0; --c) {
    order.push_back(c);
  }
  for (int c = 0; c < 4 * kColumns; ++c) {
    order.push_back(c * 17 % kColumns);
    order.push_back(c * 3 % kColumns);
  }
  for (int const start : {0, 5, kColumns - 1}) {
    DisplayGrid::BodyRow row = laid->Body(laid->Rows() - 1);
    for (std::size_t i = 0; i < order.size(); ++i) {
      int const column = (order[i] + start) % kColumns;
      EXPECT_EQ(row.Cell(first + column), table.Cell({1, column})) << column;
    }
  }
}

TEST(DisplayGrid, NoDimensionsOnEitherAxisGiveASingleCell) {
  Table table;
  table.AddFlat("A", 2);
  table.Place({}, {}, {0});
  table.PutAll();
  Laid const laid(table);
  EXPECT_EQ(laid->Rows(), 1);
  EXPECT_EQ(laid->Columns(), 1);
  EXPECT_TRUE(laid->Headings().empty());
  EXPECT_NE(laid->Body(0).Cell(0), nullptr);
}

TEST(DisplayGrid, TableWithoutDimensionsIsOnePositionWithoutCell) {
  Table table;
  Laid const laid(table, false);
  EXPECT_EQ(laid->Rows(), 1);
  EXPECT_EQ(laid->Columns(), 1);
  EXPECT_EQ(laid->Body(0).Cell(0), nullptr);
}

TEST(DisplayGrid, DimensionWithoutCategoriesGivesNoRows) {
  Table table;
  table.Add("A");
  table.AddFlat("B", 2);
  table.Place({0}, {1});
  Laid const laid(table, false);
  EXPECT_EQ(laid->Rows(), laid->HeadingRows());
  EXPECT_EQ(laid->HeadingRows(), 2);
  EXPECT_EQ(laid->Columns(), 2);
  EXPECT_EQ(Cells(laid, GridRole::ColumnHeading), (Texts{"B@0,0+1x2", "B0@1,0", "B1@1,1"}));
}

TEST(DisplayGrid, RowsAndColumnsWithoutCellsAreLeftOut) {
  Table table;
  table.AddFlat("A", 3);
  table.AddFlat("B", 3);
  table.Place({0}, {1});
  table.Put({1, 2});
  Laid const laid(table);
  EXPECT_EQ(Cells(laid, GridRole::RowHeading), (Texts{"A1@2,0"}));
  EXPECT_EQ(Cells(laid, GridRole::ColumnHeading), (Texts{"B@0,1", "B2@1,1"}));
  EXPECT_NE(laid->Body(2).Cell(1), nullptr);
}

TEST(DisplayGrid, EmptyRowsAndColumnsAreKeptOnRequest) {
  Table table;
  table.AddFlat("A", 3);
  table.AddFlat("B", 3);
  table.Place({0}, {1});
  table.Put({1, 2});
  Laid const laid(table, false);
  EXPECT_EQ(laid->Rows(), 5);
  EXPECT_EQ(laid->Columns(), 4);
  EXPECT_EQ(laid->Body(3).Cell(1), nullptr);
  EXPECT_NE(laid->Body(3).Cell(3), nullptr);
}

TEST(DisplayGrid, PlacesWithoutACategoryHaveNoCell) {
  Table table;
  table.AddWide("A", 4, 1);
  table.Place({0}, {});
  table.Put({0});
  Laid const laid(table, false);
  EXPECT_EQ(laid->Rows(), 5);
  EXPECT_NE(laid->Body(1).Cell(1), nullptr);
  for (int row = 2; row < 5; ++row) {
    EXPECT_EQ(laid->Body(row).Cell(1), nullptr) << row;
  }
}

TEST(DisplayGrid, FrameOfARowOutsideTheGridIsEmpty) {
  Table table;
  table.AddFlat("A", 1);
  table.Place({0}, {});
  table.PutAll();
  Laid const laid(table);
  for (int row : {-1, 2, 1 << 30}) {
    EXPECT_EQ(laid->Headings(row).begin(), laid->Headings(row).end()) << row;
  }
}

// Extent

TEST(DisplayGrid, HundredThousandRowsAndColumnsAreLaidOut) {
  Table table;
  table.AddFlat("A", 100'000);
  table.AddFlat("B", 2);
  table.Place({1, 0}, {});
  table.PutAll();
  Laid const rows(table);
  EXPECT_EQ(rows->Rows(), 200'001);
  EXPECT_EQ(rows->Headings().size(), 3U + 300'000U);
  table.Place({}, {1, 0});
  Laid const columns(table);
  EXPECT_EQ(columns->Columns(), 200'000);
  EXPECT_EQ(columns->Headings().size(), 1U + 100'000U + 100'000U + 200'000U);
}
