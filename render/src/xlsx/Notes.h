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

  /// The text of a label that may be shown in several layers, asked for once; nothing for a null
  /// one.
  std::string const& FindText(OmCellText const* label) { return labels_.Text(label); }

  /// The marks of a label or cell as they are, to be raised; none for a null one.
  std::string FindMarks(OmCellText const* text);

  /// The marks of a label or cell as text that needs no raising; none for a null one.
  std::string RaiseMarks(OmCellText const* text);

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
