#ifndef LAKRESVOS_RENDER_HTMLRENDERER_H
#define LAKRESVOS_RENDER_HTMLRENDERER_H

#include <ostream>
#include <string>

#include <lakresvos/render/Export.h>
#include <lakresvos/render/TableOptions.h>

class OmOutputTree;

namespace lakresvos::render {

/// How a document is shown as a web page.
///
/// Thread safety: a plain value; several threads may read it while none writes it.
struct HtmlOptions : TableOptions {
  /// Of the page, and its heading when the document has none. Empty: the document's own title,
  /// which is that of its first page title, else of its first heading, else of its first table with
  /// one, else "Output". Procedures do not count as headings, and translatable labels, which are a
  /// program's words ("Output", "Notes"), do not count at all.
  std::string title;
};

/// Writes a document as one HTML page that needs nothing else: no network, no other file.
///
/// - Headings and procedures are headings of their depth, never skipping a level. Items have the id
///   "part-" with their number in the document, counted from 0; the outline links to them.
/// - Every layer of a table is a title, which names it, and a table element with column groups,
///   head and bodies. A heading cell is a header cell with its scope, one without a text a plain
///   cell. With at most one row of column headings and one column of row headings the scopes say
///   all (WCAG technique H63); from two levels on, header cells have ids, and data cells name all
///   their headers (H43) in a few bytes each. There is a body for each outermost row heading. Rows
///   and columns below the label of a total (OmCellMetaData::isTotal) stand out. A script lets
///   readers choose one layer on the screen; printed, and without script, all are there.
/// - Wide and long tables scroll below their column headings and beside their row headings.
///   Printed, a table that is wider than an A4 or Letter page goes on below, the row headings
///   repeated, for which it takes the script; without it columns get narrower and their texts break
///   anywhere.
/// - Below a layer are the notes that are marked in it. Marks link to their notes, each note back
///   to its first mark or, with the script, to the one that led there. Notes that nothing in the
///   table refers to are below all layers.
/// - Area formats become style rules of the table; see AreaStyle.h. A cell whose metadata name
///   style number n has entry n of the table's cell styles; number 0 is no style. Colors are used
///   where they read "#rgb" or "#rrggbb". A table with colors of its own is shown on white.
/// - A chart with an image stream of PNG, JPEG or SVG (told by its content) is shown as that
///   picture, with the label as the text alternative; one with JSON of the form
///   `{"categories":[...],"series":[{"name":...,"values":[...]}]}` as a table of its data. Other
///   charts, models, answer trees and interactive items have a placeholder in brackets.
/// - Language (a tag of BCP 47) and text direction come from the locale of the first table, and of
///   each table that has another one.
///
/// Every text is escaped; bytes that are not UTF-8 and control characters become U+FFFD.
///
/// Every cell and label is asked for its text once. Writing takes time linear in the displayed and
/// stored cells, and memory for the headings of one layer at a time and for the labels that have
/// been shown.
///
/// Thread safety: none; one thread at a time uses a document and the stream, but for those that
/// TableOptions::threads allows.
///
/// @param tree the document; neither it nor its items are changed.
/// @param out where to write; its state tells whether writing failed.
/// @param options see HtmlOptions.
/// @throws std::length_error that names a table with more rows or columns than an int can count;
///         what comes before it has been written then. std::bad_alloc.
LAKRESVOS_RENDER_EXPORT void RenderHtml(OmOutputTree const& tree, std::ostream& out,
                                        HtmlOptions const& options = {});

}  // namespace lakresvos::render

#endif
