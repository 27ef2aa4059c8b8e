#ifndef LAKRESVOS_RENDER_JSONRENDERER_H
#define LAKRESVOS_RENDER_JSONRENDERER_H

#include <ostream>

#include <lakresvos/render/Export.h>
#include <lakresvos/render/TableOptions.h>

class OmOutputTree;

namespace lakresvos::render {

/// How a document is written as JSON. The options of tables matter to the layout only: the document
/// itself is written whole.
///
/// Thread safety: a plain value; several threads may read it while none writes it.
struct JsonOptions : TableOptions {
  bool layout = false;  ///< add what each table shows, for programs that lay out nothing themselves
};

/// Writes a document as JSON (RFC 8259) in UTF-8, from which ReadJson() makes the same document.
///
/// The format is described by the JSON Schema `document.schema.json` of the documentation. Whatever
/// of a document can be set is written, tables and captions that are not to be shown included;
/// fields that have their initial value are left out. Lists of items, nodes and cells are flat: the
/// text is nested no deeper for a document of 100,000 levels.
///
/// - Texts keep their bytes; one that is not UTF-8 is written as an object with its bytes in
///   base64. Payloads are in base64.
/// - Numbers read back as the same value. What is not finite is the text "NaN", "Infinity" or
///   "-Infinity".
/// - Cells of kinds that the cell library does not have are written as their text.
/// - Not written are counts of writes, the pointers of OmOutputPart::Extra(), which texts share
///   storage, and cells that OmPivotTable::FirstCell() does not reach.
///
/// Every cell and label is asked for its text at most once, and once more for the layout. Writing
/// takes time linear in the stored cells, and in the displayed ones with the layout; memory beyond
/// the document grows with its depths only, and with the headings of one layer.
///
/// Thread safety: none; one thread at a time uses a document and the stream.
///
/// @param tree the document; neither it nor its items are changed.
/// @param out where to write; its state tells whether writing failed.
/// @param options see JsonOptions.
/// @throws std::length_error that names a table with more rows or columns than an int can count,
///         with the layout; what comes before it has been written then. std::bad_alloc.
LAKRESVOS_RENDER_EXPORT void RenderJson(OmOutputTree const& tree, std::ostream& out,
                                        JsonOptions const& options = {});

}  // namespace lakresvos::render

#endif
