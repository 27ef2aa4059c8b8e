#ifndef LAKRESVOS_OMUTILITY_H
#define LAKRESVOS_OMUTILITY_H

#include <lakresvos/Export.h>
#include <lakresvos/OmVectorTree.h>

class OmCellText;
class OmComposite;
class OmNumber;

/// Look-ups in cells that are made of parts.
///
/// Thread safety: readers; several threads may search a tree or cell that none changes.
class LAKRESVOS_EXPORT OmUtility {
 public:
  /// The first number below `node`, in preorder, or null. The node's own value is not looked at,
  /// nor are the parts of composites in the tree. The result belongs to the tree and is valid as
  /// long as the tree keeps it. Linear in the number of nodes.
  /// @throws std::bad_alloc.
  static OmNumber const* GetFirstNumber(OmVectorTree<OmCellText*>::ConstNode node);

  /// The first number among the parts of `cell`, or null. The result belongs to the cell. Linear in
  /// the number of parts.
  /// @throws std::bad_alloc.
  static OmNumber const* GetFirstNumber(OmComposite const& cell);
};

#endif
