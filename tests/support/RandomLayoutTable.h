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
///
/// @param mostPlaces how many combinations of categories the axes have at most.
void MakeRandomTable(Table& table, double mostPlaces = 8000);

/// Changes one thing in a table, which is printed then: a cell, the flags of a node, a category or
/// its place in the tree, an entry of an axis, or the number of dimensions.
void ChangeTable(Table& table, double mostPlaces);

/// Adds one or two dimensions to the table and to its rows or columns, as after a layer heading was
/// made.
void AddLateDimensions(Table& table);

}  // namespace layout_tables

#endif
