#include <gtest/gtest.h>
#include <string>
#include <vector>

#include <lakresvos/render/LayerGrids.h>

#include "render/support/RenderTables.h"

using lakresvos::render::DisplayGrid;
using lakresvos::render::LayerGrids;
using lakresvos::render::LayerLabel;
using namespace render_tables;

namespace {

/// "dimension: outer inner; " per layer dimension, "-" for a hidden one.
std::string Text(std::vector<LayerLabel> const& labels) {
  std::string text;
  for (LayerLabel const& label : labels) {
    text += (label.dimension != nullptr ? label.dimension->GetText() : "-") + ":";
    for (OmCellText const* category : label.categories) {
      text += ' ' + category->GetText();
    }
    text += "; ";
  }
  return text;
}

std::vector<std::string> ListLayers(Table& table, bool skipEmpty) {
  std::vector<std::string> texts;
  LayerGrids layers(table, lakresvos::render::TableOptions{skipEmpty, true});
  while (DisplayGrid const* grid = layers.Next()) {
    texts.push_back(Text(grid->LayerLabels()));
  }
  return texts;
}

using Texts = std::vector<std::string>;

}  // namespace

TEST(LayerGrids, TableWithoutLayerDimensionsHasOneLayerWithoutLabels) {
  Table table;
  table.AddFlat("A", 2);
  table.Place({0}, {});
  table.PutAll();
  EXPECT_EQ(ListLayers(table, true), Texts{""});
}

TEST(LayerGrids, TableWithoutCellsHasNoLayerWhenEmptyOnesAreLeftOut) {
  Table table;
  table.AddFlat("A", 2);
  table.Place({0}, {});
  EXPECT_EQ(ListLayers(table, true), Texts{});
  EXPECT_EQ(ListLayers(table, false), Texts{""});
}

TEST(LayerGrids, NextGivesNullAgainAfterTheLastLayer) {
  Table table;
  table.AddFlat("A", 1);
  table.Place({0}, {});
  table.PutAll();
  LayerGrids layers(table);
  EXPECT_NE(layers.Next(), nullptr);
  EXPECT_EQ(layers.Next(), nullptr);
  EXPECT_EQ(layers.Next(), nullptr);
}

TEST(LayerGrids, LayersWithoutCellsAreLeftOut) {
  Table table;
  table.AddFlat("A", 1);
  table.AddFlat("B", 3);
  table.Place({0}, {}, {1});
  table.Put({0, 2});
  EXPECT_EQ(ListLayers(table, true), Texts{"B: B2; "});
  EXPECT_EQ(ListLayers(table, false), (Texts{"B: B0; ", "B: B1; ", "B: B2; "}));
}

TEST(LayerGrids, FirstLayerDimensionVariesFastestAndIsLast) {
  Table table;
  table.AddFlat("A", 2);
  table.AddFlat("B", 2);
  table.Place({}, {}, {0, 1});
  table.PutAll();
  EXPECT_EQ(ListLayers(table, true),
            (Texts{"B: B0; A: A0; ", "B: B0; A: A1; ", "B: B1; A: A0; ", "B: B1; A: A1; "}));
}

TEST(LayerGrids, LabelsLeaveOutWhatIsHidden) {
  Table table;
  OmDimension& dimension = table.Add("A");
  auto const outer = Group(dimension, dimension.Root(), "outer");
  auto const hidden = Group(dimension, outer, "hidden");
  hidden.Value().hide = true;
  Category(dimension, hidden, "leaf", 0);
  table.Place({}, {}, {0});
  table.PutAll();
  EXPECT_EQ(ListLayers(table, true), Texts{"A: outer leaf; "});
  dimension.Root().Value().hide = true;
  EXPECT_EQ(ListLayers(table, true), Texts{"-: outer leaf; "});
}

TEST(LayerGrids, LabelsEndAboveAGroupWithHiddenLabels) {
  Table table;
  OmDimension& dimension = table.Add("A");
  auto const outer = Group(dimension, dimension.Root(), "outer");
  auto const silent = Group(dimension, outer, "silent");
  silent.Value().hideLabels = true;
  Category(dimension, silent, "leaf", 0);
  table.Place({}, {}, {0});
  table.PutAll();
  EXPECT_EQ(ListLayers(table, true), Texts{"A: outer; "});
}

TEST(LayerGrids, GridShowsTheCellsOfItsLayer) {
  Table table;
  table.AddFlat("A", 1);
  table.AddFlat("B", 2);
  table.Place({0}, {}, {1});
  table.Cell({0, 0}, OmNumber(10));
  table.Cell({0, 1}, OmNumber(20));
  std::vector<std::string> texts;
  LayerGrids layers(table);
  while (DisplayGrid const* grid = layers.Next()) {
    texts.push_back(grid->Body(grid->HeadingRows()).Cell(grid->HeadingColumns())->GetText());
  }
  EXPECT_EQ(texts, (Texts{"10", "20"}));
}

TEST(LayerGrids, LayerPlaceWithoutACategoryHasNoCells) {
  Table table;
  table.AddFlat("A", 1);
  table.AddWide("B", 3, 1);
  table.Place({0}, {}, {1});
  table.Cell({0, 0}, OmNumber(1));
  LayerGrids layers(table, lakresvos::render::TableOptions{false, true});
  int filled = 0;
  int count = 0;
  while (DisplayGrid const* grid = layers.Next()) {
    ++count;
    filled += grid->Body(grid->HeadingRows()).Cell(grid->HeadingColumns()) != nullptr ? 1 : 0;
  }
  EXPECT_EQ(count, 3);
  EXPECT_EQ(filled, 1);
}
