#ifndef BENCH_CROSSTAB_BARECROSSTAB_H
#define BENCH_CROSSTAB_BARECROSSTAB_H

#include <string>

/// Counts the rows of a CSV file in a table of its first four columns, or sums the fifth as well, and
/// writes the table as HTML: what one would write for just that.
void WriteBareCrosstab(std::string const& data, bool sums, std::string const& html);

#endif
