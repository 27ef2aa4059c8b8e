#ifndef TOOLS_REPORT_CATEGORYGROUPS_H
#define TOOLS_REPORT_CATEGORYGROUPS_H

#include <vector>

#include <lakresvos/OmDimension.h>

#include "DataSet.h"
#include "Grouping.h"
#include "TableDimension.h"

namespace lakresvos::report {

/// Puts categories of a dimension that FillDimension() made under groups of their own, each group
/// where the first of its categories stood. Inside nested columns that is done in every group of the
/// outer column that has one of the categories.
///
/// @throws ReportError for a category that its column does not have or that comes twice, and, inside
///         nested columns, for one that is in no group together with the first.
void GroupCategories(OmDimension& target, TableDimension const& source, DataSet const& data,
                     std::vector<Grouping> const& groupings);

}  // namespace lakresvos::report

#endif
