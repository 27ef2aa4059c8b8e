#include <algorithm>
#include <gtest/gtest.h>
#include <optional>
#include <vector>

#include <lakresvos/OmDisplayColumnHeading.h>
#include <lakresvos/OmDisplayLayerHeading.h>
#include <lakresvos/OmDisplayRowHeading.h>

#include "layout/OmOccupiedPlaces.h"
#include "support/LayoutModel.h"
#include "support/OmDisplayTestAccess.h"
#include "support/Property.h"
#include "support/RandomLayoutTable.h"

namespace {

using layout_model::Axis;
using layout_model::Count;
using layout_model::Heading;
using layout_model::Layers;
using layout_model::Seen;
using layout_model::ShownList;
using layout_model::Side;
using layout_tables::AddLateDimensions;
using layout_tables::ChangeTable;
using layout_tables::MakeRandomTable;
using layout_tables::Table;
using PathNode = OmDisplayLayerHeading::PathNode;

bool Flag() {
  return *rc::gen::arbitrary<bool>();
}

/// What Fill makes of an index that held something before.
template <class Fillable, class... At>
std::vector<int> Filled(Fillable&& heading, At... at) {
  std::vector<int> index{71, 72};
  heading.Fill(index, at...);
  return index;
}

std::vector<int> AllRows(layout_model::Place count) {
  constexpr int kMax = 150;
  int const rows = Count(count);
  std::vector<int> numbers{-1, rows, rows + 1};
  for (int r = 0; r < std::min(rows, kMax); ++r) {
    numbers.push_back(r);
  }
  if (rows > kMax) {
    numbers.push_back(rows - 1);
  }
  return numbers;
}

bool HasEmptyDimension(Axis const& axis) {
  return std::find(axis.radices.begin(), axis.radices.end(), 0U) != axis.radices.end();
}

void CompareLayers(OmDisplayLayerHeading& heading, Layers const& model) {
  RC_ASSERT(heading.SkipEmpty() == model.skipEmpty);
  RC_ASSERT(heading.getLayer() == model.currentLayer);
  RC_ASSERT(heading.getCurrentCellIndex() == model.cellIndex);
  RC_ASSERT(Filled(heading) == Filled(model));
  int const count = static_cast<int>(model.layers.dims.size());
  RC_ASSERT(heading.NDimensions() == count);
  for (int i = 0; i < count; ++i) {
    auto const at = static_cast<std::size_t>(i);
    RC_ASSERT(heading.getDimensionIndex(i) == model.layers.dims[at]);
    RC_ASSERT(heading.VisibleWidth(i) == model.VisibleWidth(at));
    RC_ASSERT(Seen(heading.Nodes(i)) == model.Nodes(at));

    ShownList const path = model.DimAllNodes(at);
    std::vector<PathNode*> all;
    heading.DimAllNodes(i, all);
    RC_ASSERT(Seen(all) == path);
    PathNode* ends[] = {nullptr, nullptr};
    heading.DimCatNodes(i, ends[0], ends[1]);
    ShownList const expected = path.empty() ? ShownList(2) : ShownList{path.front(), path.back()};
    RC_ASSERT(Seen(std::vector<PathNode*>{ends[0], ends[1]}) == expected);
  }
  for (int outside : {-1, count, count + 7}) {
    std::vector<PathNode*> all;
    heading.DimAllNodes(outside, all);
    RC_ASSERT(all.empty());
    RC_ASSERT(heading.Nodes(outside).empty());
  }
}

/// The queries that row and column headings share under one name.
template <class Display>
void CompareShared(Display const& heading, Heading const& model) {
  RC_ASSERT(heading.SkipEmpty() == model.skipEmpty);
  RC_ASSERT(heading.NDimensions() == static_cast<int>(model.heads.dims.size()));
  for (std::size_t j = 0; j < model.heads.dims.size(); ++j) {
    RC_ASSERT(heading.getDimensionIndex(static_cast<int>(j)) == model.heads.dims[j]);
  }
  for (int r : AllRows(model.nPlaces)) {
    RC_ASSERT(Filled(heading, r) == Filled(model, r));
    std::vector<PathNode*> all;
    heading.DimAllNodes(r, all);
    RC_ASSERT(Seen(all) == model.DimAllNodes(r));
    std::vector<PathNode*> outermost;
    std::vector<PathNode*> categories;
    heading.DimCatNodes(r, outermost, categories);
    RC_ASSERT(Seen(outermost) == model.Outermost(r));
    RC_ASSERT(Seen(categories) == model.Categories(r));
  }
}

void CompareRows(OmDisplayRowHeading const& heading, Heading const& model) {
  CompareShared(heading, model);
  RC_ASSERT(heading.DimNamesInCorner() == model.dimNamesInCorner);
  RC_ASSERT(heading.NRows() == Count(model.nPlaces));
  RC_ASSERT(heading.NColumns() == Count(model.totalLevels));
  RC_ASSERT(heading.CornerText() == model.cornerLabels);
  for (std::size_t j = 0; j < model.visibleLevels.size(); ++j) {
    RC_ASSERT(heading.VisibleWidth(static_cast<int>(j)) == model.visibleLevels[j]);
  }
  RC_ASSERT(heading.VisibleWidth(static_cast<int>(model.visibleLevels.size())) == 0);
  for (int r : AllRows(model.nPlaces)) {
    RC_ASSERT(Seen(heading.Row(r)) == model.Row(r));
    RC_ASSERT(Seen(heading.RowCategories(r)) == model.RowCategories(r));
  }
  for (std::size_t k = 0; k <= model.totalLevels; ++k) {
    RC_ASSERT(Seen(heading.Column(static_cast<int>(k))) == model.Column(k));
  }
  RC_ASSERT(heading.getNonEmptyRows() == model.Places());
  RC_ASSERT(heading.NRows() == Count(model.nPlaces));
}

void CompareColumns(OmDisplayColumnHeading const& heading, Heading const& model) {
  CompareShared(heading, model);
  RC_ASSERT(heading.NColumns() == Count(model.nPlaces));
  RC_ASSERT(heading.NRows() == Count(model.totalLevels));
  for (std::size_t j = 0; j < model.visibleLevels.size(); ++j) {
    RC_ASSERT(heading.VisibleHeight(static_cast<int>(j)) == model.visibleLevels[j]);
  }
  RC_ASSERT(heading.VisibleHeight(static_cast<int>(model.visibleLevels.size())) == 0);
  for (int n : AllRows(model.nPlaces)) {
    RC_ASSERT(Seen(heading.Column(n)) == model.Row(n));
    RC_ASSERT(Seen(heading.ColumnCategories(n)) == model.RowCategories(n));
  }
  for (std::size_t k = 0; k <= model.totalLevels; ++k) {
    RC_ASSERT(Seen(heading.Row(static_cast<int>(k))) == model.Column(k));
  }
  RC_ASSERT(heading.getNonEmptyColumns() == model.Places());
  RC_ASSERT(heading.NColumns() == Count(model.nPlaces));
}

void CompareHeadings(OmDisplayLayerHeading& heading, Layers const& model) {
  bool const skipEmpty = Flag();
  bool const inCorner = Flag();
  CompareRows(OmDisplayRowHeading(heading, skipEmpty, inCorner),
              Heading(model, Side::Rows, skipEmpty, inCorner));
  CompareColumns(OmDisplayColumnHeading(heading, skipEmpty),
                 Heading(model, Side::Columns, skipEmpty, false));
}

PuppetVector<short> AxisOf(std::vector<short> const& entries) {
  PuppetVector<short> axis(-1);
  axis.elements = entries;
  return axis;
}

/// Changes flags anywhere in a tree, as a program may while headings show it.
void ChangeFlags(OmDimension::Node const& node) {
  node.Value().hide = node.Value().hide != Flag();
  node.Value().hideLabels = node.Value().hideLabels != Flag();
  for (std::size_t i = 0; i < node.NChildren(); ++i) {
    ChangeFlags(node.Child(i));
  }
}

/// Moves heading and model to a layer, each by the same random call; whether both say the same.
void Move(OmDisplayLayerHeading& heading, Layers& model, Table& table) {
  int const layer = *rc::gen::inRange(-3, Count(model.nLayers) + 2);
  // A number above 0 cannot be taken apart where a dimension is empty.
  int const most = HasEmptyDimension(model.layers) ? 1 : 3 * Count(model.nLayers) + 9;
  switch (*rc::gen::inRange(0, 5)) {
    case 0:
      table.setLayerLoc(*rc::gen::inRange(-3, most));
      RC_ASSERT(heading.restoreLayer() == model.restoreLayer());
      break;
    case 1:
      RC_ASSERT(heading.SwitchLayer(layer) == model.SwitchLayer(layer));
      break;
    case 2:
      RC_ASSERT(heading.LastLayer() == model.LastLayer());
      break;
    default:
      RC_ASSERT(heading.NextLayer() == model.NextLayer());
  }
}

}  // namespace

PROPERTY(OmDisplayLayout, AnswersEveryQueryAsTheModelInEveryLayer) {
  Table table;
  MakeRandomTable(table);
  bool const skipEmpty = Flag();
  OmDisplayLayerHeading heading(table, skipEmpty);
  Layers model(table, skipEmpty);

  CompareLayers(heading, model);
  CompareHeadings(heading, model);
  for (int steps = *rc::gen::inRange(0, 4); steps > 0; --steps) {
    RC_ASSERT(heading.NextLayer() == model.NextLayer());
    CompareLayers(heading, model);
    CompareHeadings(heading, model);
  }
}

PROPERTY(OmDisplayLayout, FollowsAnyWalkOverTheLayers) {
  Table table;
  MakeRandomTable(table, 3000);
  bool const skipEmpty = Flag();
  OmDisplayLayerHeading heading(table, skipEmpty);
  Layers model(table, skipEmpty);

  for (int steps = *rc::gen::inRange(1, 8); steps > 0; --steps) {
    Move(heading, model, table);
    CompareLayers(heading, model);
  }
  CompareHeadings(heading, model);
}

RANDOM_PROGRAM(OmDisplayLayout, AnswersAsTheModelAfterAnySequence) {
  constexpr double kMostPlaces = 60;
  Table table;
  MakeRandomTable(table, kMostPlaces);
  std::optional<OmDisplayLayerHeading> heading;
  std::optional<Layers> model;
  auto const layOut = [&] {
    bool const skipEmpty = Flag();
    heading.emplace(table, skipEmpty);
    model.emplace(table, skipEmpty);
  };
  layOut();
  for (int steps = DrawStepCount(); steps > 0; --steps) {
    if (Flag()) {
      ChangeTable(table, kMostPlaces);
      layOut();
    } else {
      Move(*heading, *model, table);
    }
    CompareLayers(*heading, *model);
    CompareHeadings(*heading, *model);
  }
}

PROPERTY(OmDisplayLayout, FollowsFlagsThatChangeWhileTheHeadingsLive) {
  Table table;
  MakeRandomTable(table);
  OmDisplayLayerHeading layers(table, false);
  Layers const model(table, false);
  bool const skipEmpty = Flag();
  bool const inCorner = Flag();
  OmDisplayRowHeading const rows(layers, skipEmpty, inCorner);
  OmDisplayColumnHeading const columns(layers, skipEmpty);
  Heading const rowModel(model, Side::Rows, skipEmpty, inCorner);
  Heading const columnModel(model, Side::Columns, skipEmpty, false);
  for (int times = 0; times < 3; ++times) {
    CompareRows(rows, rowModel);
    CompareColumns(columns, columnModel);
    for (int d = 0; d < table.NDimensions(); ++d) {
      ChangeFlags(table.Dimension(d).Root());
    }
  }
}

PROPERTY(OmDisplayLayout, AnswersAsTheModelAboutDimensionsThatCameLater) {
  Table table;
  MakeRandomTable(table);
  OmDisplayLayerHeading heading(table, false);
  Layers model(table, false);
  AddLateDimensions(table);
  model.sizes = table.SizeVector();
  RC_ASSERT(heading.NextLayer() == model.NextLayer());

  CompareHeadings(heading, model);
}

PROPERTY(OmDisplayLayout, FindsTheSamePlacesAsTheModelByEitherMethod) {
  Table table;
  MakeRandomTable(table);
  OmDisplayLayerHeading heading(table, false);
  Layers model(table, false);
  heading.SwitchLayer(0);
  model.SwitchLayer(0);

  OmDisplayLayerHeading::Data& data = OmDisplayTestAccess::GetData(heading);
  RC_ASSERT(data.sparse == model.sparse);
  std::vector<short> const axes[] = {layout_model::Reversed(table.Rows()),
                                     layout_model::Reversed(table.Columns()),
                                     layout_model::Reversed(table.Layers())};
  for (std::vector<short> const& heads : axes) {
    for (std::vector<short> const& others : axes) {
      Axis const headAxis(heads, model.sizes);
      std::vector<unsigned long long> dense;
      data.FindNonEmptyHeadersDense(AxisOf(heads), AxisOf(others), dense);
      RC_ASSERT(dense == model.NonEmptyDense(headAxis, Axis(others, model.sizes)));

      std::vector<unsigned long long> sparse;
      data.FindNonEmptyHeadersSparse(AxisOf(heads), AxisOf(others), sparse);
      RC_ASSERT(sparse == model.NonEmptySparse(headAxis));

      if (!HasEmptyDimension(headAxis)) {
        OmDisplayLayerHeading::Data::PlaceCalculator calc(AxisOf(heads), model.sizes);
        std::vector<unsigned short> levels;
        data.FindVisibleLevels(sparse, calc, levels);
        RC_ASSERT(std::vector<int>(levels.begin(), levels.end()) ==
                  model.VisibleLevels(sparse, headAxis));
      }
    }
  }
}

PROPERTY(OmDisplayLayout, TheDenseSearchCostsNoMoreThanTryingPlaceByPlace) {
  // With the others in the order of the store, both try the combinations in the same order, so that
  // the costs can be compared: each place is tried until its first cell, and no further.
  Table table;
  int const share = *rc::gen::element(0, 10, 50, 90, 100);  // per cent of the cells
  std::vector<short> heads;
  std::vector<short> others;
  auto const levels = static_cast<std::size_t>(*rc::gen::inRange(1, 6));
  for (std::size_t d = 0; d < levels; ++d) {
    table.AddFlat("D", static_cast<unsigned int>(*rc::gen::inRange(1, 7)));
    int const axis = *rc::gen::inRange(0, 3);
    if (axis == 0) {
      heads.insert(heads.begin() + *rc::gen::inRange<std::ptrdiff_t>(0, std::ssize(heads) + 1),
                   static_cast<short>(d));
    } else if (axis == 1) {
      others.insert(others.begin(), static_cast<short>(d));
    }
  }
  table.PutAll();
  std::vector<std::vector<int>> cells;
  for (auto at = table.FirstCell(); at.Cell() != nullptr; ++at) {
    cells.push_back(at.Index());
  }
  for (std::vector<int> const& index : cells) {
    if (*rc::gen::resize(rc::kNominalSize, rc::gen::inRange(0, 100)) >= share) {
      table.deleteCell(index);
    }
  }
  OmDisplayLayerHeading heading(table, false);
  OmDisplayLayerHeading::Data& data = OmDisplayTestAccess::GetData(heading);
  Layers const model(table, false);

  std::vector<unsigned long long> places;
  OmOccupiedPlaces search(data, data.GetTableData()->cells, AxisOf(heads), AxisOf(others));
  search.AppendTo(places);
  RC_ASSERT(places == model.NonEmptyDense(Axis(heads, model.sizes), Axis(others, model.sizes)));
  RC_ASSERT(search.CountLooks() <= 2 * levels * (model.probes + 1));
}

PROPERTY(OmDisplayLayout, PreparesTheSameHeadersAsTheModel) {
  Table table;
  MakeRandomTable(table);
  OmDisplayLayerHeading heading(table, false);
  OmVector<OmDimHeader*>& headers = OmDisplayTestAccess::GetData(heading).dimHeaders;

  RC_ASSERT(headers.size() == static_cast<std::size_t>(table.NDimensions()));
  for (std::size_t d = 0; d < headers.size(); ++d) {
    layout_model::Header const model(table.Dimension(static_cast<int>(d)));
    OmDimHeader const& header = *headers[d];
    auto const list = [](auto const& vector) {
      return std::vector<unsigned int>(vector.begin, vector.end);
    };
    RC_ASSERT(header.maxLevels == model.maxLevels);
    RC_ASSERT(std::vector<int>(header.levelCounts.begin, header.levelCounts.end) ==
              model.levelCounts);
    RC_ASSERT(list(header.visibleCategories) == model.visibleCategories);
    RC_ASSERT(list(header.categoryPositions) == model.categoryPositions);
    RC_ASSERT(header.paths.size() == model.paths.size());
    for (std::size_t k = 0; k < header.paths.size(); ++k) {
      std::vector<PathNode> const& expected = model.paths[k];
      RC_ASSERT(std::equal(header.paths[k].begin, header.paths[k].end, expected.begin(),
                           expected.end(), [](PathNode const& a, PathNode const& b) {
                             return a.element == b.element && a.depth == b.depth;
                           }));
    }
  }
}
