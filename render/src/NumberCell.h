#ifndef LAKRESVOS_RENDER_NUMBERCELL_H
#define LAKRESVOS_RENDER_NUMBERCELL_H

#include <cells/OmCellText.h>

namespace lakresvos::render {

/// Whether what a cell shows is a number: an OmNumber, or a numeric data value that is not shown by
/// its label.
bool ShowsNumber(OmCellText& cell);

}  // namespace lakresvos::render

#endif
