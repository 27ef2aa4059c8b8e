#ifndef LAKRESVOS_RENDER_UNICODE_WRAP_H
#define LAKRESVOS_RENDER_UNICODE_WRAP_H

#include <string>
#include <string_view>
#include <vector>

namespace lakresvos::render {

/// One line of a wrapped text.
struct TextLine {
  std::string text;  ///< printable, see TextWidth.h
  int width;         ///< in terminal columns
};

/// Breaks any text into lines that are at most `limit` columns wide: at its own line ends, then at
/// spaces, which the break swallows, and where there is none inside a word, never inside a grapheme
/// (one that is wider than the limit has a line of its own). Always at least one line. The text is
/// made printable on the way. Linear in its length.
///
/// Wrapping at the widest of the resulting lines gives the same lines again.
std::vector<TextLine> Wrap(std::string_view text, int limit);

/// Replaces `lines` by those of a text; as above. Takes no memory for a short line that there was
/// room for before.
void Wrap(std::string_view text, int limit, std::vector<TextLine>& lines);

/// The widest line's width.
int MeasureWidestLine(std::vector<TextLine> const& lines);

}  // namespace lakresvos::render

#endif
