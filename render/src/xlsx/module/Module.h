#ifndef LAKRESVOS_RENDER_XLSX_MODULE_MODULE_H
#define LAKRESVOS_RENDER_XLSX_MODULE_MODULE_H

#include <ostream>

#include <lakresvos/render/XlsxRenderer.h>

namespace lakresvos::render {

// What the library and the module that writes workbooks agree on.

/// Has the version in it, so that a module of another one is not taken for this one's.
constexpr char kXlsxFunction[] = LAKRESVOS_RENDER_XLSX_FUNCTION;

/// As WriteXlsx().
using XlsxFunction = void(OmOutputTree const& tree, std::ostream& out, XlsxOptions const& options);

}  // namespace lakresvos::render

#endif
