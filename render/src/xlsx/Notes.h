#ifndef LAKRESVOS_RENDER_XLSX_NOTES_H
#define LAKRESVOS_RENDER_XLSX_NOTES_H

#include <string>
#include <vector>

#include "content/FootnoteMarks.h"
#include "content/FootnoteUse.h"

namespace lakresvos::render {

/// The footnotes of a table, sheet by sheet: what is shown with them counts as used by the sheet.
class XlsxNotes {
 public:
  /// @param table must outlive the object.
  explicit XlsxNotes(OmPivotTable const& table)
      : marks_(table, labels_, false), use_(marks_.Footnotes()) {}
  XlsxNotes(XlsxNotes const&) = delete;
  XlsxNotes& operator=(XlsxNotes const&) = delete;

  /// A label or cell with its marks as they are, to be raised; nothing for a null one.
  MarkedText Raised(OmCellText const* label);

  /// Likewise a label that may be shown in several layers; its text is asked for once.
  MarkedText RaisedLabel(OmCellText const* label);

  /// Likewise as a text that needs no raising.
  MarkedText PlainLabel(OmCellText const* label);

  /// The marks of a label or cell as they are, to be raised; none for a null one.
  std::string RaisedMarks(OmCellText const* label);

  /// A label or cell with its marks as a text that needs no raising; nothing for a null one.
  MarkedText Plain(OmCellText const* label);

  /// The notes that the sheet lists, each after its mark. Ends the sheet.
  /// @param last whether it is the table's last one, which lists the notes that no sheet uses.
  std::vector<std::string> EndSheet(bool last);

 private:
  LabelTexts labels_;
  FootnoteMarks marks_;
  FootnoteUse use_;
};

}  // namespace lakresvos::render

#endif
