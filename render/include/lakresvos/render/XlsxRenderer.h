#ifndef LAKRESVOS_RENDER_XLSXRENDERER_H
#define LAKRESVOS_RENDER_XLSXRENDERER_H

#include <filesystem>
#include <functional>
#include <ostream>
#include <string>

#include <lakresvos/render/Export.h>
#include <lakresvos/render/TableOptions.h>

class OmOutputTree;

namespace lakresvos::render {

/// How a document becomes a workbook.
///
/// Thread safety: a plain value; several threads may read it while none writes it.
struct XlsxOptions : TableOptions {
  bool layersAsSheets = false;  ///< a sheet for each layer, not only for each table
  bool mergeRows = true;        ///< row headings that reach over several cells are merged ones
  bool mergeColumns = true;     ///< the same of column headings and of the corner

  /// Called once for each kind of loss, with one line that gives the count and the place of the
  /// first one, before anything is written to the stream; empty: no reports. Exceptions pass
  /// through RenderXlsx().
  std::function<void(std::string const&)> onLoss;
};

/// Writes a document as a workbook of Office Open XML (ECMA-376, ".xlsx").
///
/// - The first sheet, "Contents", lists the document's items, indented by depth, with the texts
///   line by line, wrapped to the width of a page, and with a link to the sheet of each table and
///   picture; those link back.
/// - A table has a sheet of its own, named after its title: the title, then each layer with its
///   name above it, below all the notes and the caption. With layers as sheets, each layer has a
///   sheet with all of these, named after the layer and the title; its notes are those that it
///   refers to, and the last one has those too that no layer refers to.
/// - Numbers are numbers of 16 digits with their decimals as number format, everything else is
///   text, never a formula; so are the system-missing value, ".", and numbers above
///   9.99999999999999e307. Marks of footnotes are raised after texts and, through the number
///   format, after numbers, which are texts where marks are too long for that and after the first
///   160 such formats, for spreadsheets open workbooks with some 200 of them. A text of more than
///   32,767 characters is left out; a note in its place says so.
/// - Heading cells are merged, or where that is not wanted repeated; so are those after the first
///   65,535 of a sheet. The heading of one column is at its right, as numbers do, that of several
///   in their middle. A rule separates the outermost groups of rows. Panes are frozen at the first
///   data cell, groups are outlined after their first row or column: for the columns and on the
///   screen as the first layer of a sheet wants it. Columns are as wide as their widest number or
///   text, headings over several columns left out, up to a limit beyond which texts wrap.
/// - Sheets are printed on the width of one page, down to half their size; those that are too wide
///   are printed in landscape, and when they are too wide even so, over several pages at half their
///   size. Heading rows and columns are repeated on every printed page of the first 32,768
///   sheets. Where a long name with characters beyond ASCII leaves no room for both, only the rows
///   are, and only the columns on a sheet that goes over several pages side by side.
/// - Area formats and the styles of cells become cell formats, margins left out; see AreaStyle.h. A
///   cell whose metadata name style number n has entry n of the table's cell styles; number 0 is no
///   style. After the first 64,000 different looks cells are plain.
/// - A chart with a PNG or JPEG image is a sheet with the picture, which has the start of the label
///   as its description; where the picture is damaged or of an unknown kind, a note that says so.
///   One that is larger than the sheet is made smaller. Charts with an SVG image or none, models,
///   answer trees and interactive items have a placeholder in the contents.
///
/// Bytes that are not UTF-8 and control characters become U+FFFD.
///
/// Every cell and label is asked for its text once. Writing takes time linear in the displayed and
/// stored cells. Beside the headings, memory does not grow with the rows, which go to temporary
/// files, one for each sheet, in the directory that TMPDIR names or else in /tmp. Documents of more
/// than 50 sheets, and those with a title that wraps, are held in memory instead.
///
/// What writes workbooks is a module that stands beside the library and is loaded by the first call,
/// with the libraries that it needs, and stays. In a process that had loaded libxlsxwriter before, no
/// workbook is written, for that then does not tell of all errors.
///
/// Thread safety: one thread at a time uses a document and the stream. Any number of threads may
/// each write a workbook; some steps, of which completing it takes the longest, are done for one of
/// them at a time. During these steps `stderr` leads nowhere, in all threads, and signals to the
/// thread wait, but for SIGKILL.
///
/// @param tree the document; neither it nor its items are changed.
/// @param out where to write; its state tells whether writing failed.
/// @param options see XlsxOptions.
/// @throws std::length_error that names the table when it has more than 1,048,576 rows or 16,384
///         columns, and for more than 65,000 sheets; std::runtime_error when the module
///         cannot be loaded, libxlsxwriter was loaded before it, or there can be no temporary file,
///         std::system_error when that cannot be written. Nothing is written to `out` then.
LAKRESVOS_RENDER_EXPORT void RenderXlsx(OmOutputTree const& tree, std::ostream& out,
                                        XlsxOptions const& options = {});

/// As above, to a file that is there as a whole or not at all; see OutputFile.h. When anything is
/// thrown, a file that was there is as it was.
///
/// @param tree the document; neither it nor its items are changed.
/// @param file a file that is there is replaced and keeps its permissions; a symbolic link stays a
///        link, and what it names is written; what is no regular file is written to directly.
/// @param options see XlsxOptions.
/// @throws as above; std::system_error that names the file when it cannot be written.
LAKRESVOS_RENDER_EXPORT void RenderXlsx(OmOutputTree const& tree, std::filesystem::path const& file,
                                        XlsxOptions const& options = {});

}  // namespace lakresvos::render

#endif
