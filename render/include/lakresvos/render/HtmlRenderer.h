#ifndef LAKRESVOS_RENDER_HTMLRENDERER_H
#define LAKRESVOS_RENDER_HTMLRENDERER_H

#include <ostream>
#include <string>

#include <lakresvos/render/Export.h>
#include <lakresvos/render/TableOptions.h>

class OmOutputTree;

namespace lakresvos::render {

/// How a document is shown as a web page.
struct HtmlOptions : TableOptions {
  /// Of the page, and its heading when the document has none; empty counts as "Output".
  std::string title = "Output";
};

/// Writes a document as one HTML page that needs nothing else: no network, no other file.
///
/// - Headings and procedures are headings of their depth, never skipping a level. Items have the id
///   "part-" with their number in the document, counted from 0; the outline links to them.
/// - Every layer of a table is a table element with caption, column groups, head, body and foot. A
///   heading cell is a header cell with its scope, a blank one a plain cell. From two heading levels
///   on, header cells have ids and data cells name all their headers. A body stands for each
///   outermost row heading. A script lets readers choose one layer on the screen; printed, and
///   without script, all are there.
/// - Marks of footnotes link to their notes in the foot of the table, and those back.
/// - Area formats become style rules of the table; see AreaStyle.h. A cell whose metadata name style
///   number n has entry n of the table's cell styles; number 0 is no style. Colours are used where
///   they read "#rgb" or "#rrggbb". A table with colours of its own is shown on white.
/// - A chart with an image stream of PNG, JPEG or SVG (told by its content) is shown as that picture,
///   with the label as the text alternative; one with JSON of the form
///   `{"categories":[...],"series":[{"name":...,"values":[...]}]}` as a table of its data. Other
///   charts, models, answer trees and interactive items are announced.
/// - Language and text direction come from the locale of the first table, and of each table that
///   has another one.
///
/// Every text is escaped; bytes that are not UTF-8 and control characters become U+FFFD.
///
/// Writing takes time linear in the displayed and stored cells; beside the headings of one layer no
/// memory grows with the number of cells.
///
/// @param out where to write. Its state tells whether writing failed.
LAKRESVOS_RENDER_EXPORT void RenderHtml(OmOutputTree& tree, std::ostream& out,
                                        HtmlOptions const& options = {});

}  // namespace lakresvos::render

#endif
