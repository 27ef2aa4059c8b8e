#ifndef LAKRESVOS_RENDER_CONTENT_AREAALIGNMENT_H
#define LAKRESVOS_RENDER_CONTENT_AREAALIGNMENT_H

#include <lakresvos/FormatArea.h>
#include <lakresvos/OmPivotTable.h>
#include <lakresvos/render/AreaStyle.h>

namespace lakresvos::render {

/// How a table wants an area to be aligned; Any when it does not say.
HorizontalAlignment FindAlignment(OmPivotTable const& table, FormatArea::Area area);

/// What is wanted, or the renderer's choice where anything will do.
inline HorizontalAlignment ChooseAlignment(HorizontalAlignment wanted, HorizontalAlignment choice) {
  return wanted == HorizontalAlignment::Any ? choice : wanted;
}

/// How many of the spaces that are free beside a text come before it. Any counts as Left.
int CountSpacesBefore(HorizontalAlignment alignment, int spaces);

}  // namespace lakresvos::render

#endif
