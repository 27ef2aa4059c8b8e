#include "content/FootnoteUse.h"

#include <algorithm>
#include <utility>

namespace lakresvos::render {

void FootnoteUse::Show(OmCellText const& text) {
  for (std::size_t const footnote : footnotes_.Find(text)) {
    if (std::exchange(lastPart_[footnote], part_) != part_) {
      used_.push_back(footnote);
    }
  }
}

std::vector<std::size_t> FootnoteUse::EndPart(bool last) {
  for (std::size_t footnote = 0; last && footnote < lastPart_.size(); ++footnote) {
    if (lastPart_[footnote] == 0) {
      used_.push_back(footnote);
    }
  }
  ++part_;
  std::sort(used_.begin(), used_.end());
  return std::exchange(used_, {});
}

}  // namespace lakresvos::render
