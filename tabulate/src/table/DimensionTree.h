#ifndef LAKRESVOS_TABULATE_TABLE_DIMENSIONTREE_H
#define LAKRESVOS_TABULATE_TABLE_DIMENSIONTREE_H

#include <memory>

#include <cells/OmCellText.h>
#include <lakresvos/OmDimension.h>
#include <lakresvos/tabulate/DataSet.h>

#include "table/CategoryGroups.h"
#include "table/TableDimension.h"

namespace lakresvos::tabulate {

/// What names a dimension: its column, or its nested columns one after the other.
std::unique_ptr<OmCellText> MakeDimensionLabel(TableDimension const& dimension,
                                               std::vector<DataColumn> const& data);

/// Fills a dimension without categories: one category for each of `source`, with the same
/// subscript, in groups for the outer ones of nested columns; and a Total after them if asked for.
///
/// Categories that `groups` names are together under a group, where the first of them would be.
/// Those of an inner column are so within each category of the outer one.
void FillDimension(OmDimension& target, TableDimension const& source, CategoryGroups const& groups,
                   std::vector<DataColumn> const& data, bool withTotal);

}  // namespace lakresvos::tabulate

#endif
