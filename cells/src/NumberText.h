#ifndef CELLS_NUMBERTEXT_H
#define CELLS_NUMBERTEXT_H

#include <string>

/// Renders a number independently of the locale.
/// @param decimals as OmNumber takes them.
std::string NumberText(double value, int decimals);

#endif
