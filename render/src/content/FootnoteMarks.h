#ifndef LAKRESVOS_RENDER_CONTENT_FOOTNOTEMARKS_H
#define LAKRESVOS_RENDER_CONTENT_FOOTNOTEMARKS_H

#include <cstddef>
#include <string>
#include <vector>

#include <lakresvos/OmPivotTable.h>

#include "content/TableFootnotes.h"

namespace lakresvos::render {

/// The footnotes of a table as text. A mark is shown raised where every character has a raised form
/// or is a symbol already and no more than one is a letter, and else as it is, in brackets: in the
/// same form at its note and wherever it refers to that.
class FootnoteMarks {
 public:
  /// @param table  must outlive the object.
  /// @param labels must outlive the object.
  /// @param ascii  shows all marks in brackets.
  FootnoteMarks(OmPivotTable const& table, LabelTexts& labels, bool ascii);

  /// What to put after a text: the marks of its footnotes, joined by commas, several in brackets in
  /// one pair of them; empty when it has none. Numbers that are no footnote of the table are left
  /// out.
  std::string Find(OmCellText const& text) const;

  /// A footnote after its mark, by its position in the table's list.
  std::string Note(std::size_t footnote) const;

  /// The notes to print under the table, in the order of the table's list.
  std::vector<std::string> Notes() const;

  /// The footnotes themselves, with the marks as they are.
  TableFootnotes const& Footnotes() const { return footnotes_; }

 private:
  /// The raised form of a mark; empty for one in brackets.
  std::string FindRaisedForm(std::string const& mark) const;

  TableFootnotes footnotes_;
  bool ascii_;
};

/// What a text renderer shows of a cell or label, not yet made printable.
struct MarkedText {
  std::string text;
  std::string marks;  ///< to be put right after the text
};

/// Nothing for a null cell.
inline MarkedText ShowCell(OmCellText const* cell, FootnoteMarks const& marks) {
  return cell != nullptr ? MarkedText{cell->GetText(), marks.Find(*cell)} : MarkedText{};
}

/// Nothing for a null label.
inline MarkedText ShowLabel(OmCellText const* label, FootnoteMarks const& marks) {
  return label != nullptr ? MarkedText{marks.Footnotes().Labels().Text(label), marks.Find(*label)}
                          : MarkedText{};
}

}  // namespace lakresvos::render

#endif
