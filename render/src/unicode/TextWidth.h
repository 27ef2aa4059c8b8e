#ifndef LAKRESVOS_RENDER_UNICODE_TEXTWIDTH_H
#define LAKRESVOS_RENDER_UNICODE_TEXTWIDTH_H

#include <string>
#include <string_view>
#include <vector>

namespace lakresvos::render {

// Widths are counted in terminal columns: two for the wide and fullwidth characters of UAX #11 and
// for emoji, none for what combines, else one. "Printable" text is valid UTF-8 without control
// characters and line ends.

/// The lines of any text, made printable: control characters, characters that would change the
/// direction of what follows them, and bytes that are not UTF-8 become U+FFFD, tabs become spaces.
/// Always at least one line; a line end at the very end starts none.
std::vector<std::string> PrintableLines(std::string_view text);

/// One character as readers see it, with everything that combines with it: an extended grapheme
/// cluster of UAX #29.
struct Grapheme {
  std::string_view bytes;
  int width;  ///< 0, 1 or 2
};

/// Splits the first grapheme off printable text. Requires: `text` is not empty.
Grapheme SplitGrapheme(std::string_view& text);

/// The width of printable text.
int TextWidth(std::string_view text);

}  // namespace lakresvos::render

#endif
