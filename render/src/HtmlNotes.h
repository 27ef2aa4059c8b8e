#ifndef LAKRESVOS_RENDER_HTMLNOTES_H
#define LAKRESVOS_RENDER_HTMLNOTES_H

#include <cstddef>
#include <string>
#include <vector>

#include "TableFootnotes.h"

namespace lakresvos::render {

/// The footnotes of one layer of a table: marks that link to notes, notes that link back.
class HtmlNotes {
 public:
  /// @param footnotes must outlive the object.
  /// @param prefix    starts all ids, so that they are the layer's own.
  HtmlNotes(TableFootnotes const& footnotes, std::string const& prefix);

  /// Appends a label or cell with its marks; nothing for a null one.
  void Append(std::string& out, OmCellText const* label);

  /// Appends the list of notes, with a link back to each of the first marks; nothing without notes.
  void AppendNotes(std::string& out) const;

 private:
  TableFootnotes const& footnotes_;
  std::string prefix_;
  std::size_t marks_ = 0;
  std::vector<std::vector<std::size_t>> markedBy_;  // per footnote, the numbers of its first marks
};

}  // namespace lakresvos::render

#endif
