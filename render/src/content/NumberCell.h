#ifndef LAKRESVOS_RENDER_CONTENT_NUMBERCELL_H
#define LAKRESVOS_RENDER_CONTENT_NUMBERCELL_H

#include <optional>

#include <cells/OmCellText.h>

namespace lakresvos::render {

/// A number as a cell shows it.
struct ShownNumber {
  double value;  ///< NaN is the system-missing value
  int decimals;  ///< -1: as many as the value needs
};

/// The number that a cell shows; nothing when it shows something else. Numbers are shown by an
/// OmNumber and by a numeric data value that is not shown by its label.
std::optional<ShownNumber> FindNumber(OmCellText& cell);

/// Whether a cell holds a number, whatever it shows.
bool IsNumeric(OmCellText const& cell);

}  // namespace lakresvos::render

#endif
