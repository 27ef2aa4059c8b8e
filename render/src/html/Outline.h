#ifndef LAKRESVOS_RENDER_HTML_OUTLINE_H
#define LAKRESVOS_RENDER_HTML_OUTLINE_H

#include <cstddef>
#include <string>
#include <vector>

#include "io/OutputBuffer.h"

namespace lakresvos::render {

/// Writes links to the items of a document as nested lists that can be folded, entry by entry.
/// Below the sixth level all entries are on one.
class HtmlOutline {
 public:
  explicit HtmlOutline(OutputBuffer& out) : out_(out) {}

  /// Adds an entry; one without a text is left out.
  void Add(std::string const& text, std::size_t part, int depth);

  /// Ends the lists.
  void Finish();

 private:
  void WritePending(bool withChildren);

  OutputBuffer& out_;
  std::vector<int> open_;  // the depths of the entries whose children are being listed
  std::string text_;       // of the entry that is still to be written, escaped; empty for none
  std::size_t part_ = 0;
  int depth_ = 0;
};

}  // namespace lakresvos::render

#endif
