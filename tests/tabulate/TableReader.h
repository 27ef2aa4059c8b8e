#ifndef TESTS_TABULATE_TABLEREADER_H
#define TESTS_TABULATE_TABLEREADER_H

#include <string>
#include <vector>

#include <lakresvos/OmPivotTable.h>

/// The labels from below the root to each category, joined by " / ", by subscript.
std::vector<std::string> CategoryPaths(OmDimension const& dimension);

/// The cell at the categories with these paths, one per dimension in the table's order; null when
/// there is none.
OmCellText* CellAt(OmPivotTable const& table, std::vector<std::string> const& paths);

/// Its text; "(none)" when there is none.
std::string TextAt(OmPivotTable const& table, std::vector<std::string> const& paths);

/// The texts of the footnotes that the cell or text refers to, joined by "; ".
std::string NotesAt(OmPivotTable const& table, OmCellText const* cell);

/// All that the table says, as a text: titles, categories, cells to their last digit, footnotes.
std::string DescribeTable(OmPivotTable const& table);

/// How many cells are stored.
std::size_t CellCount(OmPivotTable const& table);

#endif
