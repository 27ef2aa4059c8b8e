#ifndef CELLS_NUMBERTEXT_H
#define CELLS_NUMBERTEXT_H

#include <string>

/// Renders a number independently of the locale.
/// @param decimals negative: the shortest digits that read back to the same value, plainly from 1e-5
///        up to 1e15 and with an exponent outside.
std::string NumberText(double value, int decimals);

#endif
