#ifndef LAKRESVOS_RENDER_CONTENT_FOOTNOTEUSE_H
#define LAKRESVOS_RENDER_CONTENT_FOOTNOTEUSE_H

#include <cstddef>
#include <vector>

#include <cells/OmCellText.h>

#include "content/TableFootnotes.h"

namespace lakresvos::render {

/// Tells which footnotes each part of a table, such as a layer, has to list: those that it refers
/// to. The last part also lists those that no part refers to, so that none is lost.
///
/// Takes time in proportion to the references, not to parts times footnotes.
class FootnoteUse {
 public:
  /// @param footnotes must outlive the object.
  explicit FootnoteUse(TableFootnotes const& footnotes)
      : footnotes_(footnotes), lastPart_(footnotes.Count(), 0) {}

  /// The current part shows `text`.
  void Show(OmCellText const& text);

  /// Ends a part and starts the next one.
  /// @return the part's footnotes in the order of the table's list.
  std::vector<std::size_t> EndPart(bool last);

 private:
  TableFootnotes const& footnotes_;
  std::vector<std::size_t> lastPart_;  // per footnote, the last part that refers to it; 0: none
  std::vector<std::size_t> used_;      // by the current part
  std::size_t part_ = 1;
};

}  // namespace lakresvos::render

#endif
