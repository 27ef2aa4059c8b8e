#ifndef LAKRESVOS_RENDER_CONTENT_LABELTEXTS_H
#define LAKRESVOS_RENDER_CONTENT_LABELTEXTS_H

#include <string>
#include <unordered_map>

#include <cells/OmCellText.h>

namespace lakresvos::render {

/// The texts of labels, each asked for once however often it is shown: what a label shows may be
/// costly to find out. Cells of a table's body are not labels; keeping their texts would take
/// memory for all of them.
///
/// The labels must outlive the object and must not change while it lives.
///
/// Several threads at once may ask for texts that were asked for before.
class LabelTexts {
 public:
  LabelTexts() = default;
  LabelTexts(LabelTexts const&) = delete;
  LabelTexts& operator=(LabelTexts const&) = delete;

  /// The text of a label; nothing for a null one. Valid as long as the object.
  std::string const& Text(OmCellText const* label) {
    auto at = texts_.find(label);
    if (at == texts_.end()) {
      at = texts_.emplace(label, label != nullptr ? label->GetText() : std::string()).first;
    }
    return at->second;
  }

 private:
  std::unordered_map<OmCellText const*, std::string> texts_;
};

}  // namespace lakresvos::render

#endif
