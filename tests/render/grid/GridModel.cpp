#include "render/grid/GridModel.h"

#include <algorithm>

namespace {

template <class WidthOf>
std::vector<bool> Starts(int levels, int dimensions, WidthOf widthOf) {
  std::vector<bool> starts;
  for (int j = 0; j < dimensions; ++j) {
    for (int level = 0; level < widthOf(j); ++level) {
      starts.push_back(level == 0);
    }
  }
  starts.resize(static_cast<std::size_t>(levels), false);
  return starts;
}

template <class Nodes>
std::vector<OmDisplayRowHeading::PathNode const*> Constant(Nodes const& nodes) {
  return {nodes.begin(), nodes.end()};
}

/// Whether the table has a category of this layer dimension in the current layer.
bool HasCategory(OmDisplayLayerHeading const& layers, int position) {
  std::vector<OmDisplayLayerHeading::PathNode*> path;
  layers.DimAllNodes(position, path);
  return !path.empty() || !layers.Nodes(position).empty();
}

template <class Heading>
void Forget(Heading const& heading, int position, std::vector<int>& index) {
  int const dimension = heading.getDimensionIndex(position);
  if (dimension >= 0 && dimension < static_cast<int>(index.size())) {
    index[static_cast<std::size_t>(dimension)] = -1;
  }
}

}  // namespace

GridModel::GridModel(OmDisplayLayerHeading& layers, bool skipEmpty, bool dimNamesInCorner)
    : layers_(layers), rows_(layers, skipEmpty, dimNamesInCorner), columns_(layers, skipEmpty) {
  for (int r = 0; r < rows_.NRows(); ++r) {
    rowHeading_.nodes.push_back(Constant(rows_.Row(r)));
  }
  // By rows: single columns take their places cut to 32 bits.
  columnHeading_.nodes.resize(static_cast<std::size_t>(columns_.NColumns()));
  for (int level = 0; level < columns_.NRows(); ++level) {
    std::vector<OmDisplayRowHeading::PathNode const*> const row = Constant(columns_.Row(level));
    for (std::size_t c = 0; c < row.size(); ++c) {
      columnHeading_.nodes[c].push_back(row[c]);
    }
  }
  rowHeading_.startsDimension = Starts(rows_.NColumns(), rows_.NDimensions(),
                                       [this](int j) { return rows_.VisibleWidth(j); });
  columnHeading_.startsDimension = Starts(columns_.NRows(), columns_.NDimensions(),
                                          [this](int j) { return columns_.VisibleHeight(j); });
}

int GridModel::HeadingRows() const {
  for (OmCellText const* label : rows_.CornerText()) {
    if (label != nullptr) {
      return std::max(1, columns_.NRows());
    }
  }
  return columns_.NRows();
}

void const* GridModel::Heading::Element(int place, int level) const {
  auto const* node = nodes[static_cast<std::size_t>(place)][static_cast<std::size_t>(level)];
  return node != nullptr ? node->element : nullptr;
}

bool GridModel::Heading::SamePrefix(int a, int b, int level) const {
  for (int k = 0; k <= level; ++k) {
    if (Element(a, k) != Element(b, k)) {
      return false;
    }
  }
  return true;
}

std::pair<int, int> GridModel::Heading::Run(int place, int level) const {
  int first = place;
  while (first > 0 && SamePrefix(first - 1, place, level)) {
    --first;
  }
  int end = place + 1;
  while (end < static_cast<int>(nodes.size()) && SamePrefix(end, place, level)) {
    ++end;
  }
  return {first, end};
}

int GridModel::Heading::Anchor(int place, int level) const {
  while (Element(place, level) == nullptr && !startsDimension[static_cast<std::size_t>(level)] &&
         Run(place, level) == Run(place, level - 1)) {
    --level;
  }
  return level;
}

GridModel::Position GridModel::At(int row, int column) const {
  if (row < HeadingRows() && column < HeadingColumns()) {
    return CornerAt(column);
  }
  bool const inRows = row >= HeadingRows();
  Heading const& heading = inRows ? rowHeading_ : columnHeading_;
  int const place = inRows ? row - HeadingRows() : column - HeadingColumns();
  if (heading.startsDimension.empty()) {
    return {{0, HeadingColumns()}, nullptr, nullptr};
  }
  int const level = heading.Anchor(place, inRows ? column : row);
  int const first = heading.Run(place, level).first;
  auto const* node =
      heading.nodes[static_cast<std::size_t>(place)][static_cast<std::size_t>(level)];
  std::pair<int, int> const start =
      inRows ? std::pair{HeadingRows() + first, level} : std::pair{level, HeadingColumns() + first};
  return {start, node != nullptr ? node->Value().label : nullptr,
          node != nullptr ? node->element : nullptr};
}

GridModel::Position GridModel::CornerAt(int column) const {
  std::vector<OmCellText const*> labels = rows_.CornerText();
  labels.resize(static_cast<std::size_t>(HeadingColumns()), nullptr);
  bool named = false;
  for (int j = 0; j < rows_.NDimensions(); ++j) {
    int const dimension = rows_.getDimensionIndex(j);
    OmPivotTable const& table = layers_.Table();
    if (dimension >= 0 && dimension < table.NDimensions()) {
      OmCellText const* name = table.Dimension(dimension).Root().Value().label;
      named = named || std::find(labels.begin(), labels.end(), name) != labels.end();
    }
  }
  auto const at = [&](int k) { return labels[static_cast<std::size_t>(k)]; };
  while (at(column) == nullptr && column > 0 &&
         !(named && rowHeading_.startsDimension[static_cast<std::size_t>(column)])) {
    --column;
  }
  return {{0, column}, at(column), nullptr};
}

OmCellText* GridModel::Body(int row, int column) const {
  std::vector<int> index = layers_.getCurrentCellIndex();
  for (int i = 0; i < layers_.NDimensions(); ++i) {
    if (!HasCategory(layers_, i)) {
      Forget(layers_, i, index);
    }
  }
  for (int j = 0; j < rows_.NDimensions(); ++j) {
    Forget(rows_, j, index);
  }
  rows_.Fill(index, row - HeadingRows());
  for (int j = 0; j < columns_.NDimensions(); ++j) {
    Forget(columns_, j, index);
  }
  columns_.Fill(index, column - HeadingColumns());
  bool const everywhere = std::all_of(index.begin(), index.end(), [](int s) { return s >= 0; });
  return everywhere ? layers_.Table().Cell(index) : nullptr;
}
