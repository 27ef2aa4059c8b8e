#ifndef LAKRESVOS_CORE_DIMENSION_OMLABELORDER_H
#define LAKRESVOS_CORE_DIMENSION_OMLABELORDER_H

#include <cells/OmCellText.h>

/// Whether two labels are of one kind and equal; also true of two that are missing.
inline bool LabelEqual(OmCellText const* a, OmCellText const* b) {
  return a != nullptr && b != nullptr ? a->GetKind() == b->GetKind() && a->Compare(*b, false) == 0
                                      : a == b;
}

/// Whether label `a` comes before label `b`; a missing one comes before every other.
inline bool LabelLess(OmCellText const* a, OmCellText const* b) {
  return a != nullptr && b != nullptr ? a->Compare(*b, false) < 0 : a == nullptr && b != nullptr;
}

#endif
