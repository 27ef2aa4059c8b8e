#ifndef CELLS_CELLORDER_H
#define CELLS_CELLORDER_H

#include <string_view>

/// The three-way comparisons that all kinds are built from; each gives -1, 0 or 1.
namespace cell_order {

/// By bytes; with `ignoreCase` by the bytes of the texts after simple case folding.
short CompareTexts(std::string_view a, std::string_view b, bool ignoreCase);

/// NaN is below every number and equal to NaN.
short CompareValues(double a, double b);

}  // namespace cell_order

#endif
