#ifndef TESTS_SUPPORT_RANDOMLAYOUTTABLE_H
#define TESTS_SUPPORT_RANDOMLAYOUTTABLE_H

#include "support/LayoutTables.h"

namespace layout_tables {

/// Fills an empty table with up to four dimensions of any shape (groups in groups, hidden nodes,
/// gaps, subscripts that occur twice or lie far out, categories below categories, deleted nodes),
/// puts them anywhere on the axes (also twice, or not at all, among entries that name no
/// dimension), and stores anything from no cell to all, some of them cleared again.
///
/// Draws from RapidCheck, so it can only be called inside a property.
///
/// When the property fails, the table is printed: its trees with subscripts and flags, its axes,
/// and the subscripts of its cells.
void MakeRandomTable(Table& table);

/// Adds one or two dimensions to the table and to its rows or columns, as after a layer heading was
/// made.
void AddLateDimensions(Table& table);

}  // namespace layout_tables

#endif
