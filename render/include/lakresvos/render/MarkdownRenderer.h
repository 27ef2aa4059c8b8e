#ifndef LAKRESVOS_RENDER_MARKDOWNRENDERER_H
#define LAKRESVOS_RENDER_MARKDOWNRENDERER_H

#include <ostream>

#include <lakresvos/render/Export.h>
#include <lakresvos/render/TableOptions.h>

class OmOutputTree;

namespace lakresvos::render {

/// How a document is written as Markdown.
///
/// Thread safety: a plain value; several threads may read it while none writes it.
struct MarkdownOptions : TableOptions {};

/// Writes a document as GitHub Flavored Markdown (the GFM specification, version 0.29) in UTF-8.
///
/// - Headings and procedures become headings of their depth, at most of level six. A text block's
///   text is a code block below its label in bold; page titles are in bold.
/// - A table is its title in bold and, for each layer, a line that names the layer and a pipe
///   table: one heading line with the labels of all levels of a column joined by " / ", every label
///   repeated where it reaches, but for one that reaches over several columns of row headings: that
///   is in the first of them. A column of numbers is aligned at the right, unless the table's area
///   format for data says otherwise.
/// - Footnotes are footnotes, named after the table's and their own number in the document. One
///   that nothing refers to is a paragraph below its table, like the caption.
/// - Charts, models, answer trees and interactive items have a placeholder in brackets.
///
/// Every text is escaped, so that markup in it is shown as text; GitHub still makes links of web
/// and mail addresses. Line ends become `<br>`, except in code blocks; spaces and line ends around
/// a text are left out. Bytes that are not UTF-8 and control characters become U+FFFD.
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
/// @param options see MarkdownOptions.
/// @throws std::length_error that names a table with more rows or columns than an int can count;
///         what comes before it has been written then. std::bad_alloc.
LAKRESVOS_RENDER_EXPORT void RenderMarkdown(OmOutputTree const& tree, std::ostream& out,
                                            MarkdownOptions const& options = {});

}  // namespace lakresvos::render

#endif
