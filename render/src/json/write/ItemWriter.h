#ifndef LAKRESVOS_RENDER_JSON_WRITE_ITEMWRITER_H
#define LAKRESVOS_RENDER_JSON_WRITE_ITEMWRITER_H

#include <string>
#include <string_view>
#include <vector>

#include <lakresvos/OmOutputPart.h>

#include "json/write/Stream.h"

namespace lakresvos::render {

/// Writes each item that it visits as an object.
class ItemWriter : public OmOutputPart::Visitor {
 public:
  explicit ItemWriter(JsonStream& json) : json_(json) {}

  int depth = 0;  ///< of the item that is visited next

  void Visit(OmHeading& heading) override;
  void Visit(OmProcedure& procedure) override;
  void Visit(OmTextBlock& block) override;
  void Visit(OmPageTitle& title) override;
  void Visit(OmPivotTable& table) override;
  void Visit(OmChart& chart) override;
  void Visit(OmAnswerTree& tree) override;
  void Visit(OmModel& model) override;
  void Visit(OmInteractive& item) override;

 private:
  void Begin(std::string_view type, OmOutputPart const& part);
  void WriteRecords(OmHeading const& heading);
  /// The rest of a text block.
  void WriteTexts(OmTextBlock const& block);
  void WriteFiles(std::string_view name, std::vector<std::string> const& names,
                  std::vector<std::string> const& contents);
  void WriteMap(OmChart& chart);

  JsonStream& json_;
  std::vector<int> path_;  // depths in the tree of the item that was written last and those above
};

}  // namespace lakresvos::render

#endif
