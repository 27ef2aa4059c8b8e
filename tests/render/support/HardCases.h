#ifndef TESTS_RENDER_SUPPORT_HARDCASES_H
#define TESTS_RENDER_SUPPORT_HARDCASES_H

#include <lakresvos/OmOutputTree.h>

/// Appends a heading with one item per case that a renderer may stumble over, mostly tables; each
/// table has a title of its own. One table has 100,000 cells, the others a few.
void AppendHardCases(OmOutputTree& document);

#endif
