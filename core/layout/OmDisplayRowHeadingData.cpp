#include "layout/OmDisplayRowHeadingData.h"

#include <algorithm>
#include <numeric>

#include "dimension/OmMakeRoom.h"

namespace {

using PathNode = OmDisplayRowHeading::PathNode;

/// A place cut to a signed 32-bit value and widened again, as the queries by row number take it.
unsigned long long Narrow(unsigned long long place) {
  return static_cast<unsigned long long>(static_cast<int>(place));
}

/// How many nodes from the root, which they share, on two paths have in common. Linear in what the
/// second one does not share, where one follows the other in the tree.
std::size_t CountShared(OmDimHeader::Path const& a, OmDimHeader::Path const& b) {
  std::size_t count = std::min(a.size(), b.size());
  while (a[a.size() - count].element != b[b.size() - count].element) {
    --count;
  }
  return count;
}

}  // namespace

using RowData = OmDisplayRowHeading::Data;

// Construction

RowData::Data(OmDisplayLayerHeading& layer, PuppetVector<short> const& axis,
              PuppetVector<short> const& across, bool skip, bool namesInCorner, bool collectCorner)
    : layerHeading(&layer),
      table(&layer.Table()),
      skipEmpty(skip),
      dimNamesInCorner(namesInCorner),
      heads(Layout::ReverseAxis(axis)),
      calc(heads, table->SizeVector()),
      nPlaces(0) {
  for (std::size_t j = 0; j < heads.size(); ++j) {
    if (OmDimHeader* const header = layout().FindHeader(heads.elements[j])) {
      known_.push_back({j, header});
    }
  }
  if (skipEmpty) {
    layout().FindNonEmptyHeaders(heads, Layout::ReverseAxis(across), nonEmpty);
  }
  nPlaces = CountPlaces();
  FindVisibleLevels();
  totalLevels = std::accumulate(visibleLevels.begin(), visibleLevels.end(), 0ULL);
  if (collectCorner) {
    CollectCornerLabels();
  }
}

RowData::Layout& RowData::layout() const {
  return *layerHeading->_my;
}

unsigned long long RowData::CountPlaces() const {
  return skipEmpty ? nonEmpty.size() : calc.Size();
}

void RowData::FindVisibleLevels() {
  layout().FindVisibleLevels(nonEmpty, calc, visibleLevels);
  if (!dimNamesInCorner) {
    return;
  }
  for (std::size_t j = 0; j < known_.size(); ++j) {
    Path const* const first = known_[j].header->FindPath(0);
    if (first != nullptr && visibleLevels[j] != 0 && !(*first)[first->size() - 1].Value().hide) {
      --visibleLevels[j];
    }
  }
}

bool RowData::CollectCornerLabels() {
  bool placed = false;
  if (dimNamesInCorner) {
    std::vector<Path*> const paths = FindNodes(0);
    for (std::size_t j = 0; j < paths.size(); ++j) {
      if (paths[j] == nullptr) {
        continue;
      }
      std::size_t const start = cornerLabels.size();
      cornerLabels.resize(start + visibleLevels[j], nullptr);
      OmDimensionNode const& root = (*paths[j])[paths[j]->size() - 1].Value();
      if (visibleLevels[j] != 0 && !root.hide) {
        cornerLabels[start] = root.label;
        placed = placed || root.label != nullptr;
      }
    }
  }
  if (nPlaces != 0 && !placed) {
    cornerLabels.resize(totalLevels, nullptr);
    if (!cornerLabels.empty()) {
      cornerLabels[0] = table->CornerText();
    }
  }
  return placed;
}

// Places

bool RowData::FindPlace(int r, unsigned long long& place) const {
  auto const row = static_cast<unsigned long long>(r);
  if (r < 0 || row >= nPlaces) {
    return false;
  }
  place = skipEmpty ? nonEmpty[row] : row;
  return true;
}

bool RowData::FindPathPlace(int r, unsigned long long& place) const {
  if (FindPlace(r, place)) {
    return true;
  }
  place = static_cast<unsigned long long>(r);
  return skipEmpty && r >= 0 && place < calc.Size();
}

RowData::Layout::Places const& RowData::NonEmptyPlaces() {
  if (!skipEmpty && nonEmpty.empty()) {
    nonEmpty.resize(calc.Size());
    std::iota(nonEmpty.begin(), nonEmpty.end(), 0ULL);
  }
  return nonEmpty;
}

// The nodes of a place

RowData::Path* RowData::FindPath(Head const& head, std::vector<unsigned int> const& digits) {
  return head.header->FindPath(digits[head.digit]);
}

std::vector<RowData::Path*> RowData::FindNodes(unsigned long long place) {
  calc.base.Digits(place, digits_);
  std::vector<Path*> paths;
  for (Head const& head : known_) {
    paths.push_back(FindPath(head, digits_));
  }
  return paths;
}

RowData::Visibility RowData::ClassifyNode(PathNode const& node) const {
  OmDimensionNode const& value = node.Value();
  if (value.group && value.hideLabels) {
    return Visibility::kEnd;
  }
  return value.hide || (dimNamesInCorner && node.depth == 0) ? Visibility::kSkipped
                                                             : Visibility::kShown;
}

void RowData::AppendLevels(Path* path, std::size_t width, std::deque<PathNode*>& out) const {
  std::size_t const end = out.size() + width;
  for (std::size_t step = path != nullptr ? path->size() : 0; step != 0 && out.size() != end;
       --step) {
    PathNode& node = (*path)[step - 1];
    Visibility const visibility = ClassifyNode(node);
    if (visibility == Visibility::kEnd) {
      break;
    }
    if (visibility == Visibility::kShown) {
      out.push_back(&node);
    }
  }
  out.resize(end, nullptr);
}

std::vector<PathNode*> RowData::FindLevelNodes(OmDimHeader& header, std::size_t level) const {
  // How far down the search has come on the present path, and what it found: paths that follow each
  // other share their upper nodes, so that each node is looked at once.
  struct Reached {
    std::size_t shown;  // nodes down to here
    bool ended;
  };
  std::vector<Reached> reached;
  std::vector<PathNode*> nodes;
  nodes.reserve(header.paths.size());
  Path const* before = nullptr;
  for (Path& path : header.paths) {
    reached.resize(std::min(reached.size(), before != nullptr ? CountShared(*before, path) : 0));
    while (reached.size() < path.size() && (reached.empty() || !reached.back().ended)) {
      Visibility const visibility = ClassifyNode(path[path.size() - 1 - reached.size()]);
      std::size_t const shown =
          (reached.empty() ? 0 : reached.back().shown) + (visibility == Visibility::kShown ? 1 : 0);
      reached.push_back({shown, visibility == Visibility::kEnd || shown > level});
    }
    bool const found = !reached.empty() && reached.back().shown > level;
    nodes.push_back(found ? &path[path.size() - reached.size()] : nullptr);
    before = &path;
  }
  return nodes;
}

void RowData::GetRowNodes(unsigned long long place, std::deque<PathNode*>& out) {
  calc.base.Digits(place, digits_);
  for (std::size_t j = 0; j < known_.size(); ++j) {
    AppendLevels(FindPath(known_[j], digits_), visibleLevels[j], out);
  }
}

void RowData::GetRowNodeCategories(unsigned long long place, std::deque<PathNode*>& out) {
  for (Path* path : FindNodes(place)) {
    out.push_back(path != nullptr ? path->begin : nullptr);
  }
}

// Queries by row

std::deque<PathNode*> RowData::Row(int r) {
  std::deque<PathNode*> nodes;
  unsigned long long place = 0;
  if (FindPlace(r, place)) {
    GetRowNodes(Narrow(place), nodes);
  }
  return nodes;
}

std::deque<PathNode*> RowData::RowCategories(int r) {
  std::deque<PathNode*> nodes;
  unsigned long long place = 0;
  if (FindPlace(r, place)) {
    GetRowNodeCategories(Narrow(place), nodes);
  }
  return nodes;
}

std::deque<PathNode*> RowData::Level(int level, bool narrow) {
  std::deque<PathNode*> nodes;
  std::size_t j = 0;
  long long within = level;
  while (j < visibleLevels.size() && within >= visibleLevels[j]) {
    within -= visibleLevels[j];
    ++j;
  }
  if (within < 0 || j == visibleLevels.size()) {
    return nodes;
  }
  Head const& head = known_[j];
  std::vector<PathNode*> const shown =
      FindLevelNodes(*head.header, static_cast<std::size_t>(within));
  for (unsigned long long row = 0; row < nPlaces; ++row) {
    unsigned long long const place = skipEmpty ? nonEmpty[row] : row;
    calc.base.Digits(narrow ? Narrow(place) : place, digits_);
    std::size_t const position = digits_[head.digit];
    nodes.push_back(position < shown.size() ? shown[position] : nullptr);
  }
  return nodes;
}

std::vector<RowData::Path*> RowData::FindLongPaths(int r) {
  std::vector<Path*> paths;
  unsigned long long place = 0;
  if (FindPathPlace(r, place)) {
    paths = FindNodes(place);
    std::erase_if(paths, [](Path const* path) { return path == nullptr || path->size() < 2; });
  }
  return paths;
}

void RowData::DimAllNodes(int r, std::vector<PathNode*>& out) {
  std::vector<Path*> const paths = FindLongPaths(r);
  std::size_t count = 0;
  for (Path const* path : paths) {
    count += path->size();
  }
  MakeRoom(out, count);
  for (Path* path : paths) {
    OmDimHeader::AppendFromRoot(*path, out);
  }
}

void RowData::DimCatNodes(int r, std::vector<PathNode*>& outermost,
                          std::vector<PathNode*>& categories) {
  std::vector<Path*> const paths = FindLongPaths(r);
  MakeRoom(outermost, paths.size());
  MakeRoom(categories, paths.size());
  for (Path* path : paths) {
    outermost.push_back(path->end - 1);
    categories.push_back(path->begin);
  }
}

void RowData::Fill(std::vector<int>& index, int r) {
  unsigned long long place = 0;
  if (FindPlace(r, place)) {
    layout().Fill(place, calc, index);
  }
}

int RowData::VisibleLevels(int j) const {
  auto const position = static_cast<std::size_t>(j);
  return position < visibleLevels.size() ? visibleLevels[position] : 0;
}

int RowData::GetDimensionIndex(int j) const {
  return heads[j];
}
