#include "xlsx/Notes.h"

#include "content/CellText.h"

namespace lakresvos::render {

MarkedText XlsxNotes::Raised(OmCellText const* label) {
  return {GetText(label), RaisedMarks(label)};
}

MarkedText XlsxNotes::RaisedLabel(OmCellText const* label) {
  return {labels_.Text(label), RaisedMarks(label)};
}

MarkedText XlsxNotes::PlainLabel(OmCellText const* label) {
  if (label != nullptr) {
    use_.Show(*label);
  }
  return ShowLabel(label, marks_);
}

std::string XlsxNotes::RaisedMarks(OmCellText const* label) {
  if (label == nullptr) {
    return {};
  }
  use_.Show(*label);
  return marks_.Footnotes().Marks(*label);
}

MarkedText XlsxNotes::Plain(OmCellText const* label) {
  if (label != nullptr) {
    use_.Show(*label);
  }
  return ShowCell(label, marks_);
}

std::vector<std::string> XlsxNotes::EndSheet(bool last) {
  std::vector<std::string> notes;
  for (std::size_t const footnote : use_.EndPart(last)) {
    notes.push_back(marks_.Note(footnote));
  }
  return notes;
}

}  // namespace lakresvos::render
