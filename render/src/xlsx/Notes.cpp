#include "xlsx/Notes.h"

namespace lakresvos::render {

std::string XlsxNotes::FindMarks(OmCellText const* text) {
  if (text == nullptr) {
    return {};
  }
  use_.Show(*text);
  return marks_.Footnotes().Marks(*text);
}

std::string XlsxNotes::RaiseMarks(OmCellText const* text) {
  if (text == nullptr) {
    return {};
  }
  use_.Show(*text);
  return marks_.Find(*text);
}

std::vector<std::string> XlsxNotes::EndSheet(bool last) {
  std::vector<std::string> notes;
  for (std::size_t const footnote : use_.EndPart(last)) {
    notes.push_back(marks_.Note(footnote));
  }
  return notes;
}

}  // namespace lakresvos::render
