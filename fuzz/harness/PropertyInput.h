#ifndef FUZZ_HARNESS_PROPERTYINPUT_H
#define FUZZ_HARNESS_PROPERTYINPUT_H

#include <string_view>
#include <vector>

/// Runs a property with draws that the input decides: two bytes for each draw, whatever its type,
/// so that a change of two bytes changes one draw and no other. After the end of the input they
/// count as 0.
///
/// @param names properties that PROPERTY() defines, "Suite.Name"; when there are several, the first
///              byte of the input chooses. Inputs that are kept rely on the order.
void RunProperty(std::vector<std::string_view> const& names, std::string_view input);

#endif
