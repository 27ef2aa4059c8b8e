#ifndef BENCH_CROSSTAB_SQLITECROSSTAB_H
#define BENCH_CROSSTAB_SQLITECROSSTAB_H

#include <string>

/// As WriteBareCrosstab, with SQLite: the rows go into a database in memory, GROUP BY counts them, and
/// each group becomes a row of the HTML table. Returns the seconds since all rows were there.
/// @throws std::runtime_error when SQLite fails or is not there.
double WriteSqliteCrosstab(std::string const& data, bool sums, std::string const& html);

#endif
