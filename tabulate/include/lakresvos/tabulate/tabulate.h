#ifndef LAKRESVOS_TABULATE_TABULATE_H
#define LAKRESVOS_TABULATE_TABULATE_H

/// @file
/// All of the tabulation library. From data to a pivot table:
///
/// 1. ParseFormula(): which columns make the rows, columns and layers of the table;
/// 2. ParseStatistics(): what each cell shows;
/// 3. DataSource: where the data are, such as a TextFile, which DataSource::Count() counts;
/// 4. MakeCrossTable(): makes the pivot table, which a document takes and a renderer shows.
///
/// Data can also be kept in memory, row by row: ReadDataSet() reads the columns that ListColumns()
/// gives, RowWeights says how often each row counts, and MakeCrossTable() takes both.
///
/// What the author of the input has to correct is thrown as an InputError. A WarningLog
/// records what was skipped in the data.

#include <lakresvos/tabulate/ColumnNumbers.h>
#include <lakresvos/tabulate/CountedData.h>
#include <lakresvos/tabulate/CrossTable.h>
#include <lakresvos/tabulate/DataSet.h>
#include <lakresvos/tabulate/DataSource.h>
#include <lakresvos/tabulate/Dictionary.h>
#include <lakresvos/tabulate/Formula.h>
#include <lakresvos/tabulate/Grouping.h>
#include <lakresvos/tabulate/InputError.h>
#include <lakresvos/tabulate/NameToken.h>
#include <lakresvos/tabulate/Quoting.h>
#include <lakresvos/tabulate/RequiredColumns.h>
#include <lakresvos/tabulate/RowWeights.h>
#include <lakresvos/tabulate/Statistic.h>
#include <lakresvos/tabulate/TextFile.h>
#include <lakresvos/tabulate/TextFormat.h>
#include <lakresvos/tabulate/WarningLog.h>

#endif
