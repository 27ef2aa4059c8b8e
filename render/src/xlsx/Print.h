#ifndef LAKRESVOS_RENDER_XLSX_PRINT_H
#define LAKRESVOS_RENDER_XLSX_PRINT_H

#include <string>

#include "xlsx/Book.h"

namespace lakresvos::render {

/// The rows and the columns, from the first one on, that every printed page repeats.
struct XlsxHeadings {
  int firstRow = 0;
  int rows = 0;
  int columns = 0;
};

/// Sets up how a sheet is printed: scaled to the width of one page, down to half its size; a sheet
/// that is too wide for that in portrait is printed in landscape, and one that is too wide
/// even so goes over several pages at half its size.
///
/// Headings are repeated as far as the XLSX library can: on the first 32,768 sheets, and where a
/// long name leaves no room for both kinds, only the rows, or only the columns when the sheet goes
/// over several pages side by side.
///
/// @param number the sheet's position in the workbook, from 0.
/// @param pixels the width of all columns, at 96 pixels an inch.
void SetUpPrinting(XlsxBook& book, lxw_worksheet* sheet, std::string const& name, int number,
                   XlsxHeadings const& headings, int pixels);

}  // namespace lakresvos::render

#endif
