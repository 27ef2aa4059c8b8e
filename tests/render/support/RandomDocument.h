#ifndef TESTS_RENDER_SUPPORT_RANDOMDOCUMENT_H
#define TESTS_RENDER_SUPPORT_RANDOMDOCUMENT_H

#include <lakresvos/OmOutputTree.h>

/// Appends items of all kinds to a document, in any structure, with anything set that can be set.
/// Tables have the shapes of layout_tables::MakeRandomTable() and cells that OmPivotTable's own walk
/// reaches.
///
/// Draws from RapidCheck, so it can only be called inside a property.
void MakeRandomDocument(OmOutputTree& tree);

#endif
