#ifndef LAKRESVOS_RENDER_TEXTRENDERER_H
#define LAKRESVOS_RENDER_TEXTRENDERER_H

#include <ostream>

#include <lakresvos/render/Export.h>
#include <lakresvos/render/TableOptions.h>

class OmOutputTree;

namespace lakresvos::render {

/// How a document is shown as text.
///
/// Thread safety: a plain value; several threads may read it while none writes it.
struct TextOptions : TableOptions {
  bool ascii = false;       ///< draw frames and marks in plain ASCII; texts stay as they are
  int maxColumnWidth = 40;  ///< where table columns wrap, in terminal columns; below 2 counts as 2
  int width = 0;            ///< where lines end, in terminal columns; 0: as late as needed
};

/// Writes a document as text for a terminal or any fixed-width font, in UTF-8.
///
/// - Headings and procedures are underlined, with another line for each of the first four depths
///   and the last one for all below. A page title is between two lines. A text block's label is
///   above its text, which is then indented.
/// - A table shows its title (its label when it has none), and for each layer a line that names the
///   layer's categories and the table in a frame; below, all of its footnotes and its caption.
///   Tables and captions that are not to be shown (OmPivotTable::Show(), showCaption()) are left
///   out.
/// - Area formats align the corner, the row and column labels and the data, and the title and the
///   caption over the width of the frame next to them; see AreaStyle.h. The rest of an area format
///   has no meaning in plain text.
/// - Unless that says otherwise, in a table numbers are at the right, other texts at the left.
///   Lines separate outer row headings from one another, and all rows when some cell takes several
///   lines.
/// - Footnotes are marked by their own marker or by a letter, the same at the note and wherever it
///   is referred to: raised, or in brackets when it has no raised form or several letters.
/// - With a width, texts wrap at it, and a table that is wider is cut into parts that follow each
///   other with an empty line between, each with as many columns as fit next to the row headings,
///   which are repeated. Columns wrap earlier where otherwise none would fit. Only what has no room
///   with columns of six characters is wider.
/// - Charts, models, answer trees and interactive items have a placeholder in brackets: a chart its
///   label and sub-type, the others their label and the sizes of what they hold.
///
/// Widths are counted in terminal columns per character as readers see it, which is an extended
/// grapheme cluster (UAX #29, with the data of utf8proc): characters that are wide by East Asian
/// width (UAX #11) and emoji take two, combining characters none. Control characters, marks that
/// change the direction of what follows and bytes that are not UTF-8 become U+FFFD, tabs become
/// spaces; line ends within a text are kept.
///
/// Every cell and label is asked for its text once. Writing takes time linear in the displayed and
/// stored cells, and memory for the headings and the texts of one layer at a time and for the
/// labels that have been shown.
///
/// Thread safety: none; one thread at a time uses a document and the stream, but for those that
/// TableOptions::threads allows.
///
/// @param tree the document; neither it nor its items are changed.
/// @param out where to write; its state tells whether writing failed.
/// @param options see TextOptions.
/// @throws std::length_error that names a table with more rows or columns than an int can count;
///         what comes before it has been written then. std::bad_alloc.
LAKRESVOS_RENDER_EXPORT void RenderText(OmOutputTree const& tree, std::ostream& out,
                                        TextOptions const& options = {});

}  // namespace lakresvos::render

#endif
