#ifndef LAKRESVOS_TABULATE_REQUEST_GROUPINGERROR_H
#define LAKRESVOS_TABULATE_REQUEST_GROUPINGERROR_H

#include <string>

#include <lakresvos/tabulate/Grouping.h>

namespace lakresvos::tabulate {

/// @throws InputError always: "SOURCE 'TEXT': what at position N", with the position of `token`.
[[noreturn]] void Fail(Grouping const& grouping, NameToken const& token, std::string const& what);

}  // namespace lakresvos::tabulate

#endif
