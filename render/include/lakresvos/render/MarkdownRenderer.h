#ifndef LAKRESVOS_RENDER_MARKDOWNRENDERER_H
#define LAKRESVOS_RENDER_MARKDOWNRENDERER_H

#include <ostream>

#include <lakresvos/render/Export.h>
#include <lakresvos/render/TableOptions.h>

class OmOutputTree;

namespace lakresvos::render {

/// How a document is written as Markdown.
struct MarkdownOptions : TableOptions {};

/// Writes a document as Markdown the way GitHub reads it, in UTF-8.
///
/// - Headings and procedures become headings of their depth, at most of level six. A text block's
///   text is a code block below its label in bold; page titles are in bold.
/// - A table is its title in bold and, for each layer, a line that names the layer and a pipe table:
///   one heading line with the labels of all levels of a column joined by " / ", every label
///   repeated where it reaches, but for one that reaches over several columns of row headings: that
///   stands in the first of them. A column of numbers stands at the right, unless the table's area
///   format for data or column labels says otherwise.
/// - Footnotes are footnotes, named after the table's and their own number in the document. One that
///   nothing refers to stands as a paragraph below its table, like the caption.
/// - Charts, models, answer trees and interactive items are announced in brackets.
///
/// Every text is escaped, so that markup in it is shown as text; GitHub still makes links of web and
/// mail addresses. Line ends become `<br>`, except in code blocks; blanks and line ends around a
/// text are left out. Bytes that are not UTF-8 and control characters become U+FFFD.
///
/// Writing takes time linear in the displayed and stored cells; beside the headings of one layer no
/// memory grows with the number of cells.
///
/// @param tree the document; neither it nor its items are changed.
/// @param out where to write. Its state tells whether writing failed.
LAKRESVOS_RENDER_EXPORT void RenderMarkdown(OmOutputTree const& tree, std::ostream& out,
                                            MarkdownOptions const& options = {});

}  // namespace lakresvos::render

#endif
