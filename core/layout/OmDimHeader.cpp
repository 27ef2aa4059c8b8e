#include "layout/OmDimHeader.h"

#include <algorithm>
#include <iterator>
#include <limits>

#include <lakresvos/OmVectorTreeWalk.h>

namespace {

/// Subscripts from here on get no slot in the table of positions.
constexpr unsigned long kSubscriptLimit = 1UL << 31;

/// The table of positions has at most so many slots, and so many more for each leaf.
constexpr unsigned long kAlwaysNear = 1UL << 16;
constexpr unsigned long kSpread = 16;

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
  // Up to the largest subscript that can hold a cell.
  unsigned long subscripts = std::min<unsigned long>(dimension.CategoryCount(), kSubscriptLimit);
  std::vector<std::size_t> unslotted;
  OmVectorTreeWalk<PathNode> walk(dimension.Root());
  while (walk.Next()) {
    OmDimensionNode const& node = walk.Current().Value();
    if (!node.group) {
      AddLeaf(walk.Path());
      walk.SkipChildren();
      if (node.subscript < kSubscriptLimit) {
        subscripts = std::max(subscripts, node.subscript + 1);
      } else {
        unslotted.push_back(paths.size() - 1);
      }
    }
  }
  IndexPositions(subscripts, unslotted);
}

void OmDimHeader::AddLeaf(std::vector<PathNode> const& fromRoot) {
  Path& path = paths.emplace_back(region);
  path.reserve(fromRoot.size());
  for (std::size_t i = fromRoot.size(); i != 0; --i) {
    path.push_back(fromRoot[i - 1]);
  }
  short const levels = CountVisibleLevels(path);
  maxLevels = std::max<int>(maxLevels, levels);
  levelCounts.push_back(levels);
  visibleCategories.push_back(static_cast<unsigned int>(fromRoot.back().Value().subscript));
}

/// @param subscripts up to where there are any that can hold a cell.
/// @param unslotted  the positions of the leaves that have others, ascending.
void OmDimHeader::IndexPositions(unsigned long subscripts,
                                 std::vector<std::size_t> const& unslotted) {
  unsigned long const count = std::min(subscripts, kAlwaysNear + kSpread * paths.size());
  categoryPositions.reserve(count);
  while (categoryPositions.size() < count) {
    categoryPositions.push_back(kNoPosition);
  }
  auto skipped = unslotted.begin();
  for (unsigned int position = 0; position < visibleCategories.size(); ++position) {
    unsigned int const subscript = visibleCategories[position];
    if (skipped != unslotted.end() && *skipped == position) {
      ++skipped;
    } else if (subscript < count) {
      categoryPositions[subscript] = position;
    } else {
      farPositions_.emplace_back(subscript, position);
    }
  }
  std::sort(farPositions_.begin(), farPositions_.end());
}

unsigned int OmDimHeader::FindFarPosition(unsigned long long subscript) const {
  // Of leaves with the same subscript the last one counts, here as in the table.
  auto const next =
      std::upper_bound(farPositions_.begin(), farPositions_.end(),
                       std::pair<unsigned long, unsigned int>(subscript, kNoPosition));
  return next != farPositions_.begin() && std::prev(next)->first == subscript
             ? std::prev(next)->second
             : kNoPosition;
}
