#ifndef LAKRESVOS_RENDER_XLSX_RENDERER_H
#define LAKRESVOS_RENDER_XLSX_RENDERER_H

#include <ostream>

#include <lakresvos/render/XlsxRenderer.h>

namespace lakresvos::render {

/// What RenderXlsx() does once the module is loaded.
void WriteXlsx(OmOutputTree const& tree, std::ostream& out, XlsxOptions const& options);

}  // namespace lakresvos::render

#endif
