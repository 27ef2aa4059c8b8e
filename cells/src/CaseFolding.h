#ifndef CELLS_CASEFOLDING_H
#define CELLS_CASEFOLDING_H

#include <string>
#include <string_view>

/// The UTF-8 text with every character replaced by its simple case folding, which is one character
/// again and does not depend on the locale. Bytes that are not part of well-formed UTF-8 stay.
std::string FoldCase(std::string_view text);

#endif
