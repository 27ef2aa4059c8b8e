#ifndef LAKRESVOS_RENDER_TABLEOPTIONS_H
#define LAKRESVOS_RENDER_TABLEOPTIONS_H

namespace lakresvos::render {

/// What every renderer lets its caller choose of the tables of a document.
///
/// Thread safety: a plain value; several threads may read it while none writes it.
struct TableOptions {
  bool skipEmpty = true;  ///< leave out layers, rows and columns without a cell
  bool allLayers = true;  ///< show all layers of a table, not only the first
};

}  // namespace lakresvos::render

#endif
