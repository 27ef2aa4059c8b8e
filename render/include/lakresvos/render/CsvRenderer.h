#ifndef LAKRESVOS_RENDER_CSVRENDERER_H
#define LAKRESVOS_RENDER_CSVRENDERER_H

#include <ostream>

#include <lakresvos/render/Export.h>
#include <lakresvos/render/TableOptions.h>

class OmOutputTree;

namespace lakresvos::render {

/// How tables are written as comma-separated values.
///
/// Thread safety: a plain value; several threads may read it while none writes it.
struct CsvOptions : TableOptions {
  /// What the records of a table are.
  enum class Shape {
    Long,    ///< a record for each cell, for programs that go on with the data
    Display  ///< a record for each row of the table as it is shown
  };

  Shape shape = Shape::Long;  ///< see RenderCsv() for both

  /// Put an apostrophe before texts that spreadsheets would run as a formula, also within a text
  /// after a comma, semicolon, bar, tab or line end, where they may see a field start; never before
  /// numbers.
  bool safe = false;
};

/// Writes the tables of a document as comma-separated values (RFC 4180) in UTF-8.
///
/// Left out are the tables "Notes" and "Warnings", tables that are not to be shown, and all other
/// items of the document. When there are several tables, every record starts with the name of its
/// table, which is the title or else the label.
///
/// - Long shape: a header record, then a record for each stored cell that OmPivotTable::Iterator
///   walks over, with the categories of the first dimension changing fastest; with
///   TableOptions::skipEmpty off, for each combination of categories. There is a column for each
///   dimension, whichever axis it is on and whatever it hides; for each level of it where
///   categories are grouped, the outermost first. Where a category is higher up than others, the
///   columns of the groups that it lacks are empty. A category that shares its subscript with an
///   earlier one has no records of its own, unless all combinations are written. Cells of deleted
///   categories are left out, and TableOptions::allLayers does not matter.
///
///   Several tables share one header, which begins with a column "table"; dimensions of one
///   name share a column, which is empty in tables that lack it. Further columns are
///   - "totals", when there is a total: the names of the columns that the record is a total of,
///     "; " between; empty in records of categories alone, whatever they are called. A total is a
///     category whose label is marked as one, see OmCellMetaData::isTotal();
///   - "value": numbers are exact, the shortest text that reads back to the same value, nothing for
///     the system-missing value;
///   - "footnotes", when a table has any: the texts, "; " between, that the cell refers to, then
///     those that the labels of its categories and of the dimensions and the title do.
/// - Display shape: what the table's grid shows, row by row, each heading repeated wherever it
///   reaches, a corner label too; but one that reaches over several columns of row headings is
///   in the first of them alone. Before each layer of a table with layers comes a record that names
///   the layer. Numbers are as they are shown. Footnotes are left out. A table without cells is a
///   record of the names of its dimensions. Between tables is an empty line.
///
/// Columns and tables of one name are told apart by a number. Bytes that are not UTF-8 and control
/// characters become U+FFFD, line ends within a text '\n'.
///
/// Every cell and label is asked for its text once. Writing takes time linear in the displayed and
/// stored cells; memory grows with the categories only.
///
/// Thread safety: none; one thread at a time uses a document and the stream, but for those that
/// TableOptions::threads allows.
///
/// @param tree the document; neither it nor its items are changed.
/// @param out where to write; its state tells whether writing failed.
/// @param options see CsvOptions.
/// @throws std::length_error that names a table with more rows or columns, or in the long shape
///         more combinations of categories to write, than an int can count. For the latter nothing
///         has been written then. std::bad_alloc.
LAKRESVOS_RENDER_EXPORT void RenderCsv(OmOutputTree const& tree, std::ostream& out,
                                       CsvOptions const& options = {});

}  // namespace lakresvos::render

#endif
