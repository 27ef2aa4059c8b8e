#include "layout/OmDimHeader.h"

#include <algorithm>
#include <limits>

#include <lakresvos/OmVectorTreeWalk.h>

namespace {

/// Subscripts from here on get no slot in the table of positions.
constexpr unsigned long kSubscriptLimit = 1UL << 31;

/// How many levels of a path from the leaf up show: those above the outermost group that hides its
/// labels, without the hidden ones.
short CountVisibleLevels(OmDimHeader::Path const& path) {
  int count = 0;
  for (OmDimHeader::PathNode const& step : path.Elements()) {
    OmDimensionNode const& node = step.Value();
    count += node.hide ? 0 : 1;
    if (node.group && node.hideLabels) {
      count = 0;
    }
  }
  return static_cast<short>(std::min<int>(count, std::numeric_limits<short>::max()));
}

}  // namespace

OmDimHeader::OmDimHeader(OmDimension const& dimension, OmMemoryRegion* arena)
    : region(arena), levelCounts(arena), visibleCategories(arena), categoryPositions(arena) {
  ExtendPositions(std::min<unsigned long>(dimension.CategoryCount(), kSubscriptLimit));
  OmVectorTreeWalk<PathNode> walk(dimension.Root());
  while (walk.Next()) {
    if (!walk.Current().Value().group) {
      AddLeaf(walk.Path());
      walk.SkipChildren();
    }
  }
}

void OmDimHeader::AddLeaf(std::vector<PathNode> const& fromRoot) {
  auto const position = static_cast<unsigned int>(paths.size());
  Path& path = paths.emplace_back(region);
  path.reserve(fromRoot.size());
  for (std::size_t i = fromRoot.size(); i != 0; --i) {
    path.push_back(fromRoot[i - 1]);
  }
  short const levels = CountVisibleLevels(path);
  maxLevels = std::max<int>(maxLevels, levels);
  levelCounts.push_back(levels);
  unsigned long const subscript = fromRoot.back().Value().subscript;
  visibleCategories.push_back(static_cast<unsigned int>(subscript));
  if (subscript < kSubscriptLimit) {
    ExtendPositions(subscript + 1);
    categoryPositions[subscript] = position;
  }
}

void OmDimHeader::ExtendPositions(unsigned long count) {
  if (count > 2 * categoryPositions.capacity()) {
    categoryPositions.reserve(count);
  }
  while (categoryPositions.size() < count) {
    categoryPositions.push_back(kNoPosition);
  }
}
