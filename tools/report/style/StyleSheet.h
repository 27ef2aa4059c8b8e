#ifndef LAKRESVOS_REPORT_STYLE_STYLESHEET_H
#define LAKRESVOS_REPORT_STYLE_STYLESHEET_H

#include <string>
#include <vector>

#include <lakresvos/FormatArea.h>
#include <lakresvos/OmPivotTable.h>

namespace lakresvos::report {

/// How areas of tables are drawn, at most one format for each area.
using StyleSheet = std::vector<FormatArea>;

/// Reads a style file: a JSON object that has for an area's name or number an object of its
/// properties, as docs/report.md lists them. A property that is left out stays as in a new format.
///
/// Numbers of alignments and font styles are those of lakresvos/render/AreaStyle.h.
///
/// @throws InputError for a file that cannot be read; for what is not JSON, with line and column;
///         for an unknown or repeated area or property and for a value that it cannot have, with
///         the path to it as a JSON Pointer.
StyleSheet ReadStyleSheet(std::string const& file);

/// Gives a table the formats of `style`, one record of each shared by all tables.
void Attach(StyleSheet const& style, OmPivotTable& table);

}  // namespace lakresvos::report

#endif
