#ifndef LAKRESVOS_TABULATE_FORMULA_H
#define LAKRESVOS_TABULATE_FORMULA_H

#include <string>
#include <vector>

#include <lakresvos/tabulate/Export.h>
#include <lakresvos/tabulate/Scanner.h>

namespace lakresvos::tabulate {

/// One dimension of a table: a data column, or several nested in one another, outermost first.
using FormulaTerm = std::vector<NamedColumn>;

/// Which data columns stand on which axis of a table.
struct Formula {
  std::string text;
  std::vector<FormulaTerm> rows;  ///< outermost first, as on the other axes
  std::vector<FormulaTerm> columns;
  std::vector<FormulaTerm> layers;
};

/// Reads `ROWS ~ COLUMNS` or `ROWS ~ COLUMNS | LAYERS`. Each axis may be empty, else is a list of
/// terms joined by `*`; a term is a column, or columns joined by `/`, each nested in the one
/// before.
/// @throws InputError that names the position, also for a column that comes twice.
LAKRESVOS_TABULATE_EXPORT Formula ParseFormula(std::string const& text);

}  // namespace lakresvos::tabulate

#endif
