#ifndef LAKRESVOS_RENDER_CELLTEXT_H
#define LAKRESVOS_RENDER_CELLTEXT_H

#include <string>

#include <cells/OmCellText.h>

#include "FootnoteMarks.h"

namespace lakresvos::render {

/// What a text renderer shows of a cell or label, not yet made printable.
struct CellText {
  std::string text;
  std::string marks;  ///< to be put right behind the text
};

/// The text of a label; nothing for a null one.
inline std::string TextOf(OmCellText const* label) {
  return label != nullptr ? label->GetText() : std::string();
}

/// Nothing for a null label.
inline CellText ShownText(OmCellText const* label, FootnoteMarks const& marks) {
  return label != nullptr ? CellText{label->GetText(), marks.Of(*label)} : CellText{};
}

}  // namespace lakresvos::render

#endif
