#ifndef LAKRESVOS_CORE_LAYOUT_OMDIMHEADER_H
#define LAKRESVOS_CORE_LAYOUT_OMDIMHEADER_H

#include <cstddef>
#include <deque>
#include <utility>
#include <vector>

#include <lakresvos/OmDimension.h>

/// The display header of one dimension: its leaf categories in the depth-first order of the tree.
/// The rank of a leaf in that order is its display position; hidden leaves have one too.
struct OmDimHeader {
  using PathNode = OmVectorTree<OmDimensionNode>::ConstNode;
  using Path = OmVector<PathNode>;

  /// The entry of `categoryPositions` for a subscript that no leaf carries.
  static constexpr unsigned int kNoPosition = 0xFFFFFFFF;

  OmDimHeader(OmDimension const& dimension, OmMemoryRegion* arena);

  /// The path of the leaf at a display position, or null.
  Path* FindPath(unsigned long long position) {
    return position < paths.size() ? &paths[position] : nullptr;
  }

  /// Appends the nodes of a path from the root to the leaf.
  static void AppendFromRoot(Path& path, std::vector<PathNode*>& out) {
    for (std::size_t step = path.size(); step != 0; --step) {
      out.push_back(&path[step - 1]);
    }
  }

  /// The display position of the leaf that carries `subscript`, or kNoPosition.
  unsigned int FindPosition(unsigned long long subscript) const {
    return subscript < categoryPositions.size() ? categoryPositions[subscript]
                                                : FindFarPosition(subscript);
  }

  OmMemoryRegion* region;
  std::deque<Path> paths;       ///< per leaf: the leaf, its parent and so on up to the root
  OmVector<short> levelCounts;  ///< per leaf: the visible levels on its path
  int maxLevels = 0;            ///< the largest of levelCounts
  OmVector<unsigned int> visibleCategories;  ///< display position to subscript
  OmVector<unsigned int> categoryPositions;  ///< subscript to display position, or kNoPosition

 private:
  void AddLeaf(std::vector<PathNode> const& fromRoot);
  void IndexPositions(unsigned long subscripts, std::vector<std::size_t> const& unslotted);
  unsigned int FindFarPosition(unsigned long long subscript) const;

  /// Subscripts too far out for a slot in a table that is to stay in proportion to the leaves, with
  /// their positions, ascending.
  std::vector<std::pair<unsigned long, unsigned int>> farPositions_;
};

#endif
