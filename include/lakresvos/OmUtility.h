#ifndef LAKRESVOS_OMUTILITY_H
#define LAKRESVOS_OMUTILITY_H

#include <lakresvos/Export.h>
#include <lakresvos/OmVectorTree.h>

class OmCellText;
class OmComposite;
class OmNumber;

/// Look-ups in cells that are made of parts.
class LAKRESVOS_EXPORT OmUtility {
 public:
  /// The first number below `node`, in preorder, or null. The node's own value is not looked at,
  /// nor the parts of composites that stand in the tree. The result belongs to the tree.
  static OmNumber const* GetFirstNumber(OmVectorTree<OmCellText*>::ConstNode node);

  /// The first number among the parts of `cell`, or null.
  static OmNumber const* GetFirstNumber(OmComposite const& cell);
};

#endif
