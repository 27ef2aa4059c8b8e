#ifndef LAKRESVOS_RENDER_TABLEOPTIONS_H
#define LAKRESVOS_RENDER_TABLEOPTIONS_H

namespace lakresvos::render {

/// What every renderer lets its caller choose of the tables of a document.
///
/// Thread safety: a plain value; several threads may read it while none writes it.
struct TableOptions {
  bool skipEmpty = true;  ///< leave out layers, rows and columns without a cell
  bool allLayers = true;  ///< show all layers of a table, not only the first

  /// How many threads may write the rows of a table, the calling one included; 0 counts as 1. What is
  /// written is the same with any number. Threads are started for large tables only, never for
  /// workbooks and JSON, and have ended when the renderer returns or throws. Each takes memory for
  /// what a few thousand cells show.
  ///
  /// With more than one, labels and cells of kinds that others derive have to bear that several
  /// threads call GetText(), GetKind(), getMeta() and Accept() at once.
  unsigned int threads = 1;
};

}  // namespace lakresvos::render

#endif
