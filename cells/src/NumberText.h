#ifndef CELLS_NUMBERTEXT_H
#define CELLS_NUMBERTEXT_H

#include <string>

/// Renders a number independently of the locale.
/// @param decimals negative: the shortest text that reads back to the same value.
std::string NumberText(double value, int decimals);

#endif
