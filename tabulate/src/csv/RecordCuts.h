#ifndef LAKRESVOS_TABULATE_CSV_RECORDCUTS_H
#define LAKRESVOS_TABULATE_CSV_RECORDCUTS_H

#include <cstddef>
#include <string_view>
#include <vector>

namespace lakresvos::tabulate {

/// Whether there is an odd number of quotes among these bytes of CSV. If so, one end of them is
/// inside a quoted field and the other is not, unless a quote is where none may be.
bool HasOddQuotes(std::string_view bytes);

/// Cuts bytes of CSV into at most `count` parts of about the same size, each of which ends with a
/// record. Takes linear time.
///
/// After a quote where none may be the parts may end anywhere; that quote is in one of them, or in
/// what is left.
///
/// @param quoted whether the bytes start inside a quoted field.
/// @return where the parts end; the last one as near to the end of the bytes as can be told. Empty
///         when no record ends for certain.
std::vector<std::size_t> CutAfterRecords(std::string_view bytes, bool quoted, std::size_t count);

}  // namespace lakresvos::tabulate

#endif
