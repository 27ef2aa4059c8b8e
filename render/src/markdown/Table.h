#ifndef LAKRESVOS_RENDER_MARKDOWN_TABLE_H
#define LAKRESVOS_RENDER_MARKDOWN_TABLE_H

#include <atomic>
#include <cstddef>
#include <string>
#include <vector>

#include <lakresvos/render/DisplayGrid.h>

#include "content/TableFootnotes.h"
#include "io/OutputBuffer.h"

namespace lakresvos::render {

/// The footnotes of one table as Markdown has them.
class MarkdownNotes {
 public:
  /// @param table  must outlive the object and keep its footnotes.
  /// @param labels must outlive the object.
  /// @param number the table's number in the document.
  MarkdownNotes(OmPivotTable const& table, LabelTexts& labels, std::size_t number)
      : footnotes_(table, labels), number_(number), used_(footnotes_.Count()) {}

  /// A label with the marks of its footnotes; nothing for a null one.
  std::string MarkLabel(OmCellText const* label);

  /// A cell of the body with the marks of its footnotes; nothing for a null one. Several threads may
  /// call this at once.
  std::string MarkCell(OmCellText const* cell);

  /// The notes that have been referred to, one per line.
  std::string Definitions() const;

  /// The others, one paragraph each.
  std::string Rest() const;

 private:
  std::string Mark(std::size_t footnote) const;
  std::string AddMarks(OmCellText const& label, std::string const& text);

  TableFootnotes footnotes_;
  std::size_t number_;
  std::vector<std::atomic<bool>> used_;  // per footnote, whether it has been referred to
};

/// Writes a grid as a pipe table.
/// Requires: the grid has columns.
/// @param threads how many may write rows.
void WriteMarkdownTable(OutputBuffer& out, DisplayGrid const& grid, MarkdownNotes& notes,
                        unsigned int threads);

}  // namespace lakresvos::render

#endif
