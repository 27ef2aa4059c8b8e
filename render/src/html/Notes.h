#ifndef LAKRESVOS_RENDER_HTML_NOTES_H
#define LAKRESVOS_RENDER_HTML_NOTES_H

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "content/TableFootnotes.h"

namespace lakresvos::render {

/// The footnotes of one layer of a table: marks that link to notes, notes that link back.
class HtmlNotes {
 public:
  /// @param footnotes must outlive the object.
  /// @param prefix    starts all ids, so that they are the layer's own.
  HtmlNotes(TableFootnotes const& footnotes, std::string const& prefix)
      : footnotes_(footnotes), prefix_(prefix) {}

  /// Whether what a label or a cell shows depends on those before: marks are numbered. Without any,
  /// several threads may append cells at once.
  bool NumbersMarks() const { return footnotes_.Count() != 0; }

  /// Appends a label with its marks; nothing for a null one.
  void AppendLabel(std::string& out, OmCellText const* label);

  /// Appends a cell of the body with its marks; nothing for a null one.
  void AppendCell(std::string& out, OmCellText const* cell);

  /// The text of a label, without its marks.
  std::string const& Text(OmCellText const* label) const { return footnotes_.Labels().Text(label); }

  /// Appends the list of the notes that were marked, each with a link back to its first mark, and
  /// sets their entries in `listed`; nothing without any.
  void AppendMarked(std::string& out, std::vector<bool>& listed) const;

  /// Appends the list of the notes that have no entry set in `listed`; nothing without any.
  void AppendOthers(std::string& out, std::vector<bool> const& listed) const;

 private:
  void AppendMarks(std::string& out, OmCellText const& label);

  /// @param firstMark the number of the mark to link back to; 0 for none.
  void AppendNote(std::string& out, std::size_t footnote, std::size_t firstMark) const;

  TableFootnotes const& footnotes_;
  std::string prefix_;
  std::size_t marks_ = 0;
  std::map<std::size_t, std::size_t>
      firstMarks_;  // per marked footnote, the number of its first mark
};

}  // namespace lakresvos::render

#endif
