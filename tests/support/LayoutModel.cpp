#include "support/LayoutModel.h"

#include <algorithm>
#include <climits>
#include <numeric>
#include <set>

namespace layout_model {

namespace {

constexpr int kMaxLevels = 32767;

template <class List>
ShownList SeenIn(List const& nodes) {
  ShownList seen;
  for (PathNode* node : nodes) {
    seen.push_back(node == nullptr ? Shown{} : Shown{node->element, node->depth});
  }
  return seen;
}

Shown Show(PathNode const& node) {
  return {node.element, node.depth};
}

bool EndsTheWalk(PathNode const& node) {
  return node.Value().group && node.Value().hideLabels;
}

std::vector<short> Joined(PuppetVector<short> const& first, PuppetVector<short> const& second) {
  std::vector<short> all = first.elements;
  all.insert(all.end(), second.elements.begin(), second.elements.end());
  return all;
}

}  // namespace

std::ostream& operator<<(std::ostream& out, Shown const& shown) {
  if (shown.element == nullptr) {
    return out << "-";
  }
  OmCellText const* label = shown.element->value.label;
  return out << (label == nullptr ? "?" : label->GetText()) << "@" << shown.depth;
}

ShownList Seen(std::deque<PathNode*> const& nodes) {
  return SeenIn(nodes);
}

ShownList Seen(std::vector<PathNode*> const& nodes) {
  return SeenIn(nodes);
}

Place Narrow(Place place) {
  return static_cast<Place>(static_cast<long long>(static_cast<int>(place)));
}

int Count(Place count) {
  return static_cast<int>(std::min<Place>(count, INT_MAX));
}

std::vector<short> Reversed(PuppetVector<short> const& axis) {
  return {axis.elements.rbegin(), axis.elements.rend()};
}

// Header

Header::Header(OmDimension const& dimension)
    : categoryPositions(dimension.CategoryCount(), kNoPosition) {
  Path fromRoot;
  Walk(dimension.Root(), fromRoot);
}

void Header::Walk(PathNode node, Path& fromRoot) {
  fromRoot.push_back(node);
  if (!node.Value().group) {
    AddLeaf(fromRoot);
  } else {
    for (std::size_t i = 0; i < node.NChildren(); ++i) {
      Walk(node.Child(i), fromRoot);
    }
  }
  fromRoot.pop_back();
}

void Header::AddLeaf(Path const& fromRoot) {
  Path const path(fromRoot.rbegin(), fromRoot.rend());
  int count = 0;
  for (PathNode const& node : path) {
    if (!node.Value().hide) {
      ++count;
    }
    if (node.Value().group && node.Value().hideLabels) {
      count = 0;
    }
  }
  paths.push_back(path);
  levelCounts.push_back(std::min(count, kMaxLevels));
  maxLevels = std::max(maxLevels, levelCounts.back());

  unsigned long const subscript = path.front().Value().subscript;
  visibleCategories.push_back(static_cast<unsigned int>(subscript));
  if (subscript <= INT_MAX) {
    if (subscript >= categoryPositions.size()) {
      categoryPositions.resize(subscript + 1, kNoPosition);
    }
    categoryPositions[subscript] = static_cast<unsigned int>(visibleCategories.size() - 1);
  }
}

// Axis

Axis::Axis(std::vector<short> dimensions, std::vector<int> const& sizes)
    : dims(std::move(dimensions)) {
  for (short d : dims) {
    bool const inTable = d >= 0 && static_cast<std::size_t>(d) < sizes.size();
    radices.push_back(inTable ? static_cast<unsigned int>(sizes[static_cast<std::size_t>(d)]) : 1);
  }
}

Place Axis::Size() const {
  return std::accumulate(radices.begin(), radices.end(), Place{1},
                         [](Place product, unsigned int radix) { return product * radix; });
}

Digits Axis::DigitsOf(Place place) const {
  Digits digits(radices.size(), 0);
  for (std::size_t i = radices.size(); i-- > 1 && place != 0;) {
    digits[i] = static_cast<unsigned int>(place % radices[i]);
    place /= radices[i];
  }
  if (!digits.empty()) {
    digits[0] = static_cast<unsigned int>(place);
  }
  return digits;
}

// Layers

Layers::Layers(OmPivotTable const& source, bool skip)
    : table(source),
      skipEmpty(skip),
      sizes(source.SizeVector()),
      sparse(IsSparse()),
      cellIndex(sizes.size(), 0),
      layers(Reversed(source.Layers()), sizes) {
  for (int d = 0; d < table.NDimensions(); ++d) {
    headers.emplace_back(table.Dimension(d));
  }
  if (skipEmpty) {
    nonEmptyLayers = NonEmpty(layers, Axis(Joined(table.Columns(), table.Rows()), sizes));
  }
  nLayers = skipEmpty ? nonEmptyLayers.size() : layers.Size();
}

Header const* Layers::HeaderOf(long long dimension) const {
  return dimension >= 0 && static_cast<std::size_t>(dimension) < headers.size()
             ? &headers[static_cast<std::size_t>(dimension)]
             : nullptr;
}

bool Layers::IsSparse() const {
  Place const total = std::accumulate(sizes.begin(), sizes.end(), Place{1},
                                      [](Place product, int size) { return product * size; });
  Place const threshold = (total + 50) / 100;
  Place cells = 0;
  for (OmPivotTable::ConstIterator at = table.FirstCell(); at.Cell() != nullptr; ++at) {
    if (++cells >= threshold) {
      break;
    }
  }
  return cells < threshold;
}

std::vector<Place> Layers::NonEmpty(Axis const& heads, Axis const& others) const {
  return sparse ? NonEmptySparse(heads) : NonEmptyDense(heads, others);
}

std::vector<Place> Layers::NonEmptySparse(Axis const& heads) const {
  std::set<Place> places;
  for (OmPivotTable::ConstIterator at = table.FirstCell(); at.Cell() != nullptr; ++at) {
    std::vector<int> const index = at.Index();
    Place place = 0;
    for (std::size_t i = 0; i < heads.dims.size(); ++i) {
      Header const* header = HeaderOf(heads.dims[i]);
      unsigned int digit = 0;
      if (header != nullptr) {
        auto const subscript =
            static_cast<std::size_t>(index[static_cast<std::size_t>(heads.dims[i])]);
        digit = subscript < header->categoryPositions.size() ? header->categoryPositions[subscript]
                                                             : kNoPosition;
      }
      place = place * heads.radices[i] + digit;
    }
    places.insert(place);
  }
  return {places.begin(), places.end()};
}

bool Layers::PutHeads(Axis const& heads, Place place, std::vector<int>& index) const {
  Digits const digits = heads.DigitsOf(place);
  for (std::size_t i = 0; i < heads.dims.size(); ++i) {
    Header const* header = HeaderOf(heads.dims[i]);
    if (header == nullptr) {
      // A dimension that came later is held at its first subscript.
      if (digits[i] != 0) {
        return false;
      }
      continue;
    }
    if (digits[i] >= header->visibleCategories.size()) {
      return false;
    }
    index[static_cast<std::size_t>(heads.dims[i])] =
        static_cast<int>(header->visibleCategories[digits[i]]);
  }
  return true;
}

bool Layers::AnyCell(Axis const& others, std::vector<int> index) const {
  for (Place q = 0; q < others.Size(); ++q) {
    Digits const digits = others.DigitsOf(q);
    for (std::size_t i = 0; i < digits.size(); ++i) {
      if (HeaderOf(others.dims[i]) != nullptr) {
        index[static_cast<std::size_t>(others.dims[i])] = static_cast<int>(digits[i]);
      }
    }
    bool const addressable = std::all_of(index.begin(), index.end(), [](int s) { return s >= 0; });
    ++probes;
    if (addressable && table.Cell(index) != nullptr) {
      return true;
    }
  }
  return false;
}

std::vector<Place> Layers::NonEmptyDense(Axis const& heads, Axis const& others) const {
  std::vector<Place> places;
  for (Place p = 0; p < heads.Size(); ++p) {
    std::vector<int> index = cellIndex;
    index.resize(sizes.size(), 0);
    if (PutHeads(heads, p, index) && AnyCell(others, index)) {
      places.push_back(p);
    }
  }
  return places;
}

std::vector<int> Layers::VisibleLevels(std::vector<Place> const& places, Axis const& axis) const {
  std::vector<int> levels;
  for (std::size_t i = 0; i < axis.dims.size(); ++i) {
    Header const* header = HeaderOf(axis.dims[i]);
    if (header == nullptr) {
      continue;
    }
    if (places.empty()) {
      levels.push_back(header->maxLevels);
      continue;
    }
    std::vector<bool> occurs(header->levelCounts.size(), false);
    for (Place place : places) {
      unsigned int const digit = axis.DigitsOf(place)[i];
      if (digit < occurs.size()) {
        occurs[digit] = true;
      }
    }
    int level = 0;
    for (std::size_t k = 0; k < occurs.size(); ++k) {
      level = occurs[k] ? std::max(level, header->levelCounts[k]) : level;
    }
    levels.push_back(level);
  }
  return levels;
}

void Layers::Fill(Place place, Axis const& axis, std::vector<int>& index) const {
  index.resize(headers.size());
  Digits const digits = axis.DigitsOf(place);
  for (std::size_t i = 0; i < digits.size(); ++i) {
    Header const* header = HeaderOf(axis.dims[i]);
    if (header != nullptr && digits[i] < header->visibleCategories.size()) {
      index[static_cast<std::size_t>(axis.dims[i])] =
          static_cast<int>(header->visibleCategories[digits[i]]);
    }
  }
}

bool Layers::SwitchLayer(int layer) {
  if (layer >= 0 && static_cast<Place>(layer) < nLayers) {
    currentLayer = layer;
    Fill(*CurrentPlace(), layers, cellIndex);
    return true;
  }
  if (layer == -1) {
    currentLayer = -1;
  }
  return false;
}

std::optional<Place> Layers::CurrentPlace() const {
  // Without the flag, a restored number is taken as it is.
  if (currentLayer < 0 || (skipEmpty && static_cast<Place>(currentLayer) >= nLayers)) {
    return std::nullopt;
  }
  return skipEmpty ? nonEmptyLayers[static_cast<std::size_t>(currentLayer)]
                   : static_cast<Place>(currentLayer);
}

void Layers::Fill(std::vector<int>& index) const {
  if (std::optional<Place> const place = CurrentPlace()) {
    Fill(Narrow(*place), layers, index);
  }
}

int Layers::VisibleWidth(std::size_t i) const {
  Header const* header = i < layers.dims.size() ? HeaderOf(layers.dims[i]) : nullptr;
  return header == nullptr ? 0 : header->maxLevels;
}

Header::Path const* Layers::CurrentPath(std::size_t i) const {
  std::optional<Place> const place = CurrentPlace();
  Header const* header = i < layers.dims.size() ? HeaderOf(layers.dims[i]) : nullptr;
  return place.has_value() && header != nullptr ? header->PathAt(layers.DigitsOf(Narrow(*place))[i])
                                                : nullptr;
}

ShownList Layers::Nodes(std::size_t i) const {
  ShownList shown;
  Header::Path const* path = CurrentPath(i);
  if (path == nullptr) {
    return shown;
  }
  for (auto node = path->rbegin(); node != path->rend(); ++node) {
    if (node->Value().hide) {
      shown.push_back({});
    } else if (EndsTheWalk(*node)) {
      break;
    } else {
      shown.push_back(Show(*node));
    }
  }
  return shown;
}

ShownList Layers::DimAllNodes(std::size_t i) const {
  ShownList shown;
  Header::Path const* path = CurrentPath(i);
  if (path != nullptr && path->size() >= 2) {
    std::transform(path->rbegin(), path->rend(), std::back_inserter(shown), Show);
  }
  return shown;
}

// Heading

Heading::Heading(Layers const& layers, Side which, bool skip, bool namesInCorner)
    : layout(layers),
      side(which),
      skipEmpty(skip),
      dimNamesInCorner(namesInCorner && side == Side::Rows) {
  OmPivotTable const& table = layout.table;
  Axis const rows(Reversed(table.Rows()), layout.sizes);
  Axis const columns(Reversed(table.Columns()), layout.sizes);
  heads = side == Side::Rows ? rows : columns;
  if (skipEmpty) {
    nonEmpty = layout.NonEmpty(heads, side == Side::Rows ? columns : rows);
  }
  nPlaces = skipEmpty ? nonEmpty.size() : heads.Size();
  visibleLevels = layout.VisibleLevels(nonEmpty, heads);
  ReduceLevels();
  totalLevels = std::accumulate(visibleLevels.begin(), visibleLevels.end(), Place{0});
  if (side == Side::Rows) {
    CollectCorner();
  }
}

void Heading::ReduceLevels() {
  std::size_t at = 0;
  for (short d : heads.dims) {
    Header const* header = layout.HeaderOf(d);
    if (header == nullptr) {
      continue;
    }
    int& levels = visibleLevels[at++];
    if (dimNamesInCorner && levels != 0 && !header->paths.empty() &&
        !header->paths.front().back().Value().hide) {
      --levels;
    }
  }
}

std::optional<Place> Heading::PlaceOf(int r) const {
  if (r < 0 || static_cast<Place>(r) >= nPlaces) {
    return std::nullopt;
  }
  return skipEmpty ? nonEmpty[static_cast<std::size_t>(r)] : static_cast<Place>(r);
}

std::vector<Header::Path const*> Heading::PathsAt(Place place) const {
  std::vector<Header::Path const*> paths;
  Digits const digits = heads.DigitsOf(place);
  for (std::size_t j = 0; j < heads.dims.size(); ++j) {
    Header const* header = layout.HeaderOf(heads.dims[j]);
    if (header != nullptr) {
      paths.push_back(header->PathAt(digits[j]));
    }
  }
  return paths;
}

ShownList Heading::RowAt(Place place) const {
  ShownList row;
  std::vector<Header::Path const*> const paths = PathsAt(place);
  for (std::size_t j = 0; j < paths.size(); ++j) {
    ShownList block;
    if (paths[j] != nullptr) {
      for (auto node = paths[j]->rbegin(); node != paths[j]->rend(); ++node) {
        if (EndsTheWalk(*node)) {
          break;
        }
        if (!node->Value().hide && !(dimNamesInCorner && node->depth == 0)) {
          block.push_back(Show(*node));
        }
      }
    }
    block.resize(static_cast<std::size_t>(visibleLevels[j]));
    row.insert(row.end(), block.begin(), block.end());
  }
  return row;
}

ShownList Heading::Row(int r) const {
  std::optional<Place> const place = PlaceOf(r);
  return place.has_value() ? RowAt(Narrow(*place)) : ShownList{};
}

ShownList Heading::Column(std::size_t k) const {
  ShownList column;
  for (Place r = 0; k < totalLevels && r < nPlaces; ++r) {
    Place const place = *PlaceOf(static_cast<int>(r));
    column.push_back(RowAt(side == Side::Rows ? Narrow(place) : place)[k]);
  }
  return column;
}

ShownList Heading::RowCategories(int r) const {
  ShownList categories;
  if (std::optional<Place> const place = PlaceOf(r)) {
    for (Header::Path const* path : PathsAt(Narrow(*place))) {
      categories.push_back(path == nullptr ? Shown{} : Show(path->front()));
    }
  }
  return categories;
}

/// A row that was not kept stands for the place of its own number.
std::vector<Header::Path const*> Heading::LongPaths(int r) const {
  std::optional<Place> place = PlaceOf(r);
  if (!place.has_value() && skipEmpty && r >= 0 && static_cast<Place>(r) < heads.Size()) {
    place = static_cast<Place>(r);
  }
  std::vector<Header::Path const*> paths;
  if (place.has_value()) {
    paths = PathsAt(*place);
    std::erase_if(paths,
                  [](Header::Path const* path) { return path == nullptr || path->size() < 2; });
  }
  return paths;
}

ShownList Heading::DimAllNodes(int r) const {
  ShownList shown;
  for (Header::Path const* path : LongPaths(r)) {
    std::transform(path->rbegin(), path->rend(), std::back_inserter(shown), Show);
  }
  return shown;
}

ShownList Heading::Outermost(int r) const {
  ShownList shown;
  for (Header::Path const* path : LongPaths(r)) {
    shown.push_back(Show(path->back()));
  }
  return shown;
}

ShownList Heading::Categories(int r) const {
  ShownList shown;
  for (Header::Path const* path : LongPaths(r)) {
    shown.push_back(Show(path->front()));
  }
  return shown;
}

void Heading::Fill(std::vector<int>& index, int r) const {
  if (std::optional<Place> const place = PlaceOf(r)) {
    layout.Fill(*place, heads, index);
  }
}

std::vector<Place> Heading::Places() const {
  if (skipEmpty) {
    return nonEmpty;
  }
  std::vector<Place> all(heads.Size());
  std::iota(all.begin(), all.end(), Place{0});
  return all;
}

void Heading::CollectCorner() {
  bool placed = false;
  if (dimNamesInCorner) {
    std::vector<Header::Path const*> const paths = PathsAt(0);
    for (std::size_t j = 0; j < paths.size(); ++j) {
      if (paths[j] == nullptr) {
        continue;
      }
      std::vector<OmCellText const*> block(static_cast<std::size_t>(visibleLevels[j]), nullptr);
      OmDimensionNode const& root = paths[j]->back().Value();
      if (!block.empty() && !root.hide) {
        block.front() = root.label;
        placed = placed || root.label != nullptr;
      }
      cornerLabels.insert(cornerLabels.end(), block.begin(), block.end());
    }
  }
  if (nPlaces == 0 || placed) {
    return;
  }
  cornerLabels.resize(totalLevels, nullptr);
  if (totalLevels != 0) {
    cornerLabels.front() = layout.table.CornerText();
  }
}

}  // namespace layout_model
