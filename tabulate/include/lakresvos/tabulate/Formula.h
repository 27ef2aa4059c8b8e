#ifndef LAKRESVOS_TABULATE_FORMULA_H
#define LAKRESVOS_TABULATE_FORMULA_H

#include <string>
#include <vector>

#include <lakresvos/tabulate/Export.h>
#include <lakresvos/tabulate/NameToken.h>

namespace lakresvos::tabulate {

/// One dimension of a table: a data column, or several nested in one another, outermost first.
using FormulaTerm = std::vector<NameToken>;

/// Which data columns are on which axis of a table. On each axis the first term is the outermost.
///
/// Thread safety: const operations may run in several threads at once; others need exclusive
/// access.
struct Formula {
  std::string text;                  ///< what was parsed, for messages
  std::vector<FormulaTerm> rows;     ///< the terms before `~`
  std::vector<FormulaTerm> columns;  ///< the terms after `~`
  std::vector<FormulaTerm> layers;   ///< the terms after `|`
  std::string source = "formula";    ///< what messages call it
};

/// Parses `ROWS ~ COLUMNS` or `ROWS ~ COLUMNS | LAYERS`.
///
/// Each axis is empty or a list of terms joined by `*`. A term is a column, or columns joined by
/// `/`, each nested in the one before. A column name ends at a space or at one of `~|*/`; in
/// backquotes it may hold anything, and two backquotes there make one.
///
/// @param source what messages call the text: the option that has it, say.
/// @throws InputError that names the position, also for a duplicate column.
LAKRESVOS_TABULATE_EXPORT Formula ParseFormula(std::string const& text,
                                               std::string const& source = "formula");

}  // namespace lakresvos::tabulate

#endif
