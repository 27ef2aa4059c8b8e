#ifndef LAKRESVOS_TABULATE_TABULATE_H
#define LAKRESVOS_TABULATE_TABULATE_H

/// @file
/// All of the tabulation library. From data to a pivot table:
///
/// 1. ParseFormula(): which columns make the rows, columns and layers of the table;
/// 2. ParseStatistics(): what each cell shows;
/// 3. ListColumns(): the data columns that these need;
/// 4. ReadDataSet(): reads them from a CSV file or a stream, in as many threads as it may use;
/// 5. RowWeights: how often each row counts, if not once;
/// 6. MakeCrossTable(): makes the pivot table, which a document takes and a renderer shows.
///
/// What the author of the input has to correct is thrown as an InputError. A WarningLog
/// records what was skipped in the data.

#include <lakresvos/tabulate/ColumnNumbers.h>
#include <lakresvos/tabulate/CrossTable.h>
#include <lakresvos/tabulate/DataSet.h>
#include <lakresvos/tabulate/Dictionary.h>
#include <lakresvos/tabulate/Formula.h>
#include <lakresvos/tabulate/Grouping.h>
#include <lakresvos/tabulate/InputError.h>
#include <lakresvos/tabulate/NameToken.h>
#include <lakresvos/tabulate/Quoting.h>
#include <lakresvos/tabulate/RequiredColumns.h>
#include <lakresvos/tabulate/RowWeights.h>
#include <lakresvos/tabulate/Statistic.h>
#include <lakresvos/tabulate/WarningLog.h>

#endif
