#ifndef LAKRESVOS_TABULATE_DIMENSIONTREE_H
#define LAKRESVOS_TABULATE_DIMENSIONTREE_H

#include <memory>

#include <cells/OmCellText.h>
#include <lakresvos/OmDimension.h>
#include <lakresvos/tabulate/DataSet.h>

#include "TableDimension.h"

namespace lakresvos::tabulate {

/// What names a dimension: its column, or its nested columns one behind the other.
std::unique_ptr<OmCellText> LabelOf(TableDimension const& dimension, DataSet const& data);

/// Fills a dimension without categories: one category for each of `source`, with the same
/// subscript, in groups for the outer ones of nested columns; and a Total behind them if asked for.
void FillDimension(OmDimension& target, TableDimension const& source, DataSet const& data,
                   bool withTotal);

/// Whether a node stands for a value of a data column, and not for a Total or a group made later.
bool IsOfData(OmDimensionNode const& node);

}  // namespace lakresvos::tabulate

#endif
