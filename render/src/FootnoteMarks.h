#ifndef LAKRESVOS_RENDER_FOOTNOTEMARKS_H
#define LAKRESVOS_RENDER_FOOTNOTEMARKS_H

#include <string>
#include <vector>

#include <lakresvos/OmPivotTable.h>

namespace lakresvos::render {

/// The footnotes of a table as text.
///
/// A footnote is marked by its own marker or, without one, by a letter: a, b, ... z, aa, ab, ... in
/// the order of the table's list, without the letters that are markers of other footnotes. Marks
/// are shown raised where every character has a raised form or is a sign already, and else in
/// brackets.
class FootnoteMarks {
 public:
  /// @param table must outlive the object.
  /// @param ascii shows all marks in brackets.
  FootnoteMarks(OmPivotTable const& table, bool ascii);

  /// What to put behind a text: the marks of its footnotes, joined by commas; empty when it has
  /// none. Numbers that are no footnote of the table are left out.
  std::string Of(OmCellText const& text) const;

  /// The notes to print under the table, each behind its mark, in the order of the table's list.
  std::vector<std::string> Notes() const;

 private:
  std::string Shown(std::string const& mark) const;

  OmPivotTable const& table_;
  bool ascii_;
  std::vector<std::string> marks_;  // one per footnote, as they are before they are raised
};

}  // namespace lakresvos::render

#endif
