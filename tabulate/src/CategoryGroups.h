#ifndef LAKRESVOS_TABULATE_CATEGORYGROUPS_H
#define LAKRESVOS_TABULATE_CATEGORYGROUPS_H

#include <vector>

#include <lakresvos/OmDimension.h>
#include <lakresvos/tabulate/DataSet.h>
#include <lakresvos/tabulate/Grouping.h>

#include "TableDimension.h"

namespace lakresvos::tabulate {

/// Puts categories of a dimension that FillDimension() made under groups of their own, each group
/// where the first of its categories stood. Inside nested columns that is done in every group of the
/// outer column that has one of the categories.
///
/// @throws InputError for a category that its column does not have or that comes twice, and, inside
///         nested columns, for one that is in no group together with the first.
void GroupCategories(OmDimension& target, TableDimension const& source, DataSet const& data,
                     std::vector<Grouping> const& groupings);

}  // namespace lakresvos::tabulate

#endif
