#ifndef LAKRESVOS_RENDER_CONTENT_TABLEFOOTNOTES_H
#define LAKRESVOS_RENDER_CONTENT_TABLEFOOTNOTES_H

#include <cstddef>
#include <string>
#include <vector>

#include <lakresvos/OmPivotTable.h>

#include "content/LabelTexts.h"

namespace lakresvos::render {

/// The footnotes of a table and the marks that refer to them.
///
/// A footnote is marked by its own marker or, without one, by a letter: a, b, ... z, aa, ab, ... in
/// the order of the table's list, without the letters that are markers of other footnotes.
class TableFootnotes {
 public:
  /// @param table  must outlive the object and keep its footnotes.
  /// @param labels must outlive the object.
  TableFootnotes(OmPivotTable const& table, LabelTexts& labels);

  std::size_t Count() const { return marks_.size(); }

  /// The mark of a footnote, by its position in the table's list.
  std::string const& Mark(std::size_t footnote) const { return marks_[footnote]; }

  /// The text of a footnote.
  std::string const& Text(std::size_t footnote) const;

  /// Whose texts the footnotes are shown with.
  LabelTexts& Labels() const { return labels_; }

  /// The footnotes of a text, in the order in which it has them. Numbers that are no footnote of
  /// the table are left out.
  std::vector<std::size_t> Find(OmCellText const& text) const;

  /// The marks of these footnotes, joined by commas; empty when there are none.
  std::string Marks(OmCellText const& text) const;

 private:
  OmPivotTable const& table_;
  LabelTexts& labels_;
  std::vector<std::string> marks_;
};

}  // namespace lakresvos::render

#endif
