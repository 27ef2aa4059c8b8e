#include <algorithm>
#include <climits>
#include <deque>
#include <functional>
#include <stdexcept>
#include <utility>
#include <vector>

#include <lakresvos/OmDisplayColumnHeading.h>
#include <lakresvos/OmPivotTable.h>
#include <lakresvos/render/DisplayGrid.h>

#include "content/CellText.h"
#include "grid/HeadingSpans.h"

namespace lakresvos::render {

namespace {

constexpr int kNoCategory = -1;

OmCellText const* FindLabel(PathNode const* node) {
  return node != nullptr ? node->Value().label : nullptr;
}

/// @param body INT_MAX when there are more than that.
int Extent(int headings, int body, OmPivotTable const& table, char const* what) {
  if (body > INT_MAX - std::max(headings, 1)) {
    throw std::length_error("table '" + GetText(FindHeadline(table)) + "' has more " + what +
                            " than can be shown");
  }
  return headings + body;
}

/// Marks the outermost level of each heading dimension that has levels.
template <class WidthOf>
std::vector<bool> DimensionStarts(int levels, int dimensions, WidthOf widthOf) {
  std::vector<bool> starts(static_cast<std::size_t>(levels), false);
  std::size_t level = 0;
  for (int j = 0; j < dimensions && level < starts.size(); ++j) {
    int const width = widthOf(j);
    if (width > 0) {
      starts[level] = true;
      level += static_cast<std::size_t>(width);
    }
  }
  return starts;
}

/// The table's dimensions among those of a heading.
template <class Heading>
std::vector<int> TableDimensions(Heading const& heading, OmPivotTable const& table) {
  std::vector<int> dimensions;
  for (int j = 0; j < heading.NDimensions(); ++j) {
    int const dimension = heading.getDimensionIndex(j);
    if (dimension >= 0 && dimension < table.NDimensions()) {
      dimensions.push_back(dimension);
    }
  }
  return dimensions;
}

using LevelNodes = std::function<std::deque<PathNode*>(int)>;

/// The nodes of a heading level by level. Each level is searched for from the root of the tree, so
/// a deep heading of few places is read place by place.
LevelNodes ReadLevels(int levels, int places, LevelNodes const& readLevel,
                      LevelNodes const& readPlace) {
  constexpr int kManyLevels = 1000;
  constexpr int kFewPlaces = 100;
  if (levels < kManyLevels || places > kFewPlaces) {
    return readLevel;
  }
  std::vector<std::deque<PathNode*>> nodes;
  for (int place = 0; place < places; ++place) {
    nodes.push_back(readPlace(place));
    nodes.back().resize(static_cast<std::size_t>(levels), nullptr);
  }
  return [nodes = std::move(nodes)](int level) {
    std::deque<PathNode*> line;
    for (std::deque<PathNode*> const& place : nodes) {
      line.push_back(place[static_cast<std::size_t>(level)]);
    }
    return line;
  };
}

/// Whether single columns can be read: their places are cut to 32 bits.
bool FitColumns(OmDisplayColumnHeading const& columns) {
  std::vector<unsigned long long> const& places = columns.getNonEmptyColumns();
  return std::all_of(places.begin(), places.end(),
                     [](unsigned long long place) { return place <= INT_MAX; });
}

}  // namespace

// Construction

DisplayGrid::DisplayGrid(OmDisplayLayerHeading& layers, bool skipEmpty, bool dimNamesInCorner)
    : table_(layers.Table()), rowHeading_(layers, skipEmpty, dimNamesInCorner) {
  OmDisplayColumnHeading const columns(layers, skipEmpty);
  headingColumns_ = rowHeading_.NColumns();
  headingRows_ = std::max(columns.NRows(), HasCornerText() ? 1 : 0);
  columns_ = Extent(headingColumns_, columns.NColumns(), table_, "columns");
  rows_ = Extent(headingRows_, rowHeading_.NRows(), table_, "rows");
  BuildHeadings(columns);
  ReadLayer(layers);
  ReadColumns(columns);
}

bool DisplayGrid::HasCornerText() const {
  std::vector<OmCellText const*> const labels = rowHeading_.CornerText();
  return std::any_of(labels.begin(), labels.end(),
                     [](OmCellText const* label) { return label != nullptr; });
}

void DisplayGrid::BuildHeadings(OmDisplayColumnHeading const& columns) {
  std::vector<bool> const startsDimension =
      DimensionStarts(headingColumns_, rowHeading_.NDimensions(),
                      [this](int j) { return rowHeading_.VisibleWidth(j); });
  headingStarts_.assign(static_cast<std::size_t>(rows_) + 1, 0);
  if (headingRows_ > 0) {
    AddCorner(startsDimension);
    AddColumnHeadings(columns);
  }
  AddRowHeadings(startsDimension);
}

void DisplayGrid::AddCorner(std::vector<bool> const& startsDimension) {
  std::vector<OmCellText const*> labels = rowHeading_.CornerText();
  labels.resize(startsDimension.size(), nullptr);
  bool const oneText =
      !labels.empty() && labels.front() == table_.CornerText() &&
      std::count(labels.begin() + 1, labels.end(), nullptr) + 1 == std::ssize(labels);
  for (std::size_t column = 0; column < labels.size(); ++column) {
    bool const starts = startsDimension[column] && !oneText;
    if (column == 0 || starts || labels[column] != nullptr) {
      headings_.push_back({GridRole::Corner, labels[column], nullptr, 0, static_cast<int>(column),
                           headingRows_, 1});
    } else {
      ++headings_.back().columnSpan;
    }
  }
}

void DisplayGrid::AddColumnHeadings(OmDisplayColumnHeading const& columns) {
  int const bodyColumns = columns_ - headingColumns_;
  std::size_t row = 0;
  auto const startRowsUpTo = [&](std::size_t last) {
    while (row < last) {
      headingStarts_[++row] = headings_.size();
    }
  };
  if (columns.NRows() == 0 && bodyColumns > 0) {
    headings_.push_back(
        {GridRole::ColumnHeading, nullptr, nullptr, 0, headingColumns_, headingRows_, bodyColumns});
  }
  std::vector<bool> const startsDimension = DimensionStarts(
      columns.NRows(), columns.NDimensions(), [&](int j) { return columns.VisibleHeight(j); });
  auto const readLevel = [&](int level) { return columns.Row(level); };
  auto const readPlace = [&](int place) { return columns.Column(place); };
  LevelNodes const levelNodes = FitColumns(columns)
                                    ? ReadLevels(columns.NRows(), bodyColumns, readLevel, readPlace)
                                    : readLevel;
  for (HeadingSpan const& span : MergeHeading(bodyColumns, startsDimension, levelNodes)) {
    startRowsUpTo(static_cast<std::size_t>(span.level));
    headings_.push_back({GridRole::ColumnHeading, FindLabel(span.node), span.node, span.level,
                         headingColumns_ + span.first, span.levels, span.count});
  }
  startRowsUpTo(static_cast<std::size_t>(headingRows_));
}

// The spans come level by level, that is column by column: counting how many start in each row
// tells where in the frame each of them belongs.
void DisplayGrid::AddRowHeadings(std::vector<bool> const& startsDimension) {
  LevelNodes const levelNodes = ReadLevels(
      headingColumns_, rows_ - headingRows_,
      [this](int level) { return rowHeading_.Column(level); },
      [this](int place) { return rowHeading_.Row(place); });
  std::vector<HeadingSpan> const spans =
      MergeHeading(rows_ - headingRows_, startsDimension, levelNodes);
  std::size_t* const starts = headingStarts_.data() + headingRows_;
  for (HeadingSpan const& span : spans) {
    ++starts[span.first + 1];
  }
  starts[0] = headings_.size();
  for (int r = headingRows_; r < rows_; ++r) {
    headingStarts_[static_cast<std::size_t>(r) + 1] += headingStarts_[static_cast<std::size_t>(r)];
  }
  headings_.resize(headings_.size() + spans.size());
  std::vector<std::size_t> next(starts, starts + (rows_ - headingRows_));
  for (HeadingSpan const& span : spans) {
    headings_[next[static_cast<std::size_t>(span.first)]++] = {
        GridRole::RowHeading, FindLabel(span.node), span.node,  headingRows_ + span.first,
        span.level,           span.count,           span.levels};
  }
}

void DisplayGrid::ReadLayer(OmDisplayLayerHeading& layers) {
  layerIndex_ = layers.getCurrentCellIndex();
  for (int i = 0; i < layers.NDimensions(); ++i) {
    std::deque<PathNode*> const path = layers.Nodes(i);
    LayerLabel label{nullptr, {}};
    for (PathNode const* node : path) {
      if (node != nullptr && node->depth == 0) {
        label.dimension = FindLabel(node);
      } else if (FindLabel(node) != nullptr) {
        label.categories.push_back(FindLabel(node));
      }
    }
    layerLabels_.push_back(std::move(label));
    PathNode* outermost = nullptr;
    PathNode* category = nullptr;
    layers.DimCatNodes(i, outermost, category);
    int const dimension = layers.getDimensionIndex(i);
    if (path.empty() && category == nullptr && dimension >= 0 && dimension < table_.NDimensions()) {
      layerIndex_[static_cast<std::size_t>(dimension)] = kNoCategory;
    }
  }
}

void DisplayGrid::ReadColumns(OmDisplayColumnHeading const& columns) {
  columnDimensions_ = TableDimensions(columns, table_);
  for (int dimension : TableDimensions(rowHeading_, table_)) {
    layerIndex_[static_cast<std::size_t>(dimension)] = kNoCategory;
  }
  for (int dimension : columnDimensions_) {
    layerIndex_[static_cast<std::size_t>(dimension)] = kNoCategory;
  }
  int const bodyColumns = columns_ - headingColumns_;
  columnSubscripts_.reserve(static_cast<std::size_t>(bodyColumns) * columnDimensions_.size());
  std::vector<int> index;
  for (int column = 0; column < bodyColumns; ++column) {
    index = layerIndex_;
    columns.Fill(index, column);
    for (int dimension : columnDimensions_) {
      columnSubscripts_.push_back(index[static_cast<std::size_t>(dimension)]);
    }
  }
}

// Reading

GridCells DisplayGrid::Headings(int row) const {
  if (row < 0 || row >= rows_) {
    return {nullptr, nullptr};
  }
  auto const at = static_cast<std::size_t>(row);
  return {headings_.data() + headingStarts_[at], headings_.data() + headingStarts_[at + 1]};
}

DisplayGrid::BodyRow DisplayGrid::Body(int row) const {
  std::vector<int> index = layerIndex_;
  rowHeading_.Fill(index, row - headingRows_);
  return {*this, std::move(index)};
}

OmCellText* DisplayGrid::BodyRow::Cell(int column) {
  auto const place = [&](int at) -> OmCellText*& {
    return found_[static_cast<std::size_t>(at % kRoom)];
  };
  if (column < first_ || column >= next_ || next_ - column > kRoom) {
    first_ = next_ = column;
  }
  for (int const last = column + std::min(kAhead, grid_.columns_ - 1 - column); next_ <= last;
       ++next_) {
    place(next_) = Find(next_);
    __builtin_prefetch(place(next_));
  }
  return place(column);
}

OmCellText* DisplayGrid::BodyRow::Find(int column) {
  std::size_t const count = grid_.columnDimensions_.size();
  int const* subscript = grid_.columnSubscripts_.data() +
                         static_cast<std::size_t>(column - grid_.headingColumns_) * count;
  for (int dimension : grid_.columnDimensions_) {
    index_[static_cast<std::size_t>(dimension)] = *subscript++;
  }
  bool const complete =
      std::none_of(index_.begin(), index_.end(), [](int position) { return position < 0; });
  return complete ? grid_.table_.Cell(index_) : nullptr;
}

}  // namespace lakresvos::render
