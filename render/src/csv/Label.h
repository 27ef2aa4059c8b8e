#ifndef LAKRESVOS_RENDER_CSV_LABEL_H
#define LAKRESVOS_RENDER_CSV_LABEL_H

#include <string>

#include <cells/OmCellText.h>

#include "csv/Record.h"

namespace lakresvos::render {

/// The field of a category or another text, as it is written; a null one is empty. A numeric value
/// that shows as a plain number is a number, whatever its label calls it.
///
/// @param text what the label shows.
std::string EncodeLabel(CsvRecord const& record, OmCellText const* label, std::string const& text);

}  // namespace lakresvos::render

#endif
