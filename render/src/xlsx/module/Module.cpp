#include "xlsx/module/Module.h"

#include <type_traits>

#include "xlsx/Renderer.h"

extern "C" __attribute__((visibility("default"))) void LakresvosWriteXlsx(
    OmOutputTree const& tree, std::ostream& out,
    lakresvos::render::XlsxOptions const& options) __asm__(LAKRESVOS_RENDER_XLSX_FUNCTION);

void LakresvosWriteXlsx(OmOutputTree const& tree, std::ostream& out,
                        lakresvos::render::XlsxOptions const& options) {
  lakresvos::render::WriteXlsx(tree, out, options);
}

static_assert(std::is_same_v<decltype(LakresvosWriteXlsx), lakresvos::render::XlsxFunction>);
