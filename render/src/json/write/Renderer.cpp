#include <cstddef>

#include <lakresvos/lakresvos.h>
#include <lakresvos/render/JsonRenderer.h>

#include "grid/DocumentWalk.h"
#include "json/Names.h"
#include "json/write/ItemWriter.h"
#include "json/write/Layout.h"

namespace lakresvos::render {

namespace {

/// Writes the layouts of the tables that are to be shown, each with the table's place in the
/// document.
class LayoutWriter : public OmOutputPart::Visitor {
 public:
  LayoutWriter(JsonStream& json, TableOptions const& options) : json_(json), options_(options) {}

  void Visit(OmPivotTable& table) override {
    if (table.Show()) {
      json_.BeginObject();
      json_.Name("part").Number(part_);
      json_.Name("layers");
      WriteLayout(json_, table, options_);
      json_.End();
    }
    ++part_;
  }
  void Visit(OmHeading& /*heading*/) override { ++part_; }
  void Visit(OmTextBlock& /*block*/) override { ++part_; }
  void Visit(OmChart& /*chart*/) override { ++part_; }
  void Visit(OmAnswerTree& /*tree*/) override { ++part_; }
  void Visit(OmModel& /*model*/) override { ++part_; }
  void Visit(OmInteractive& /*item*/) override { ++part_; }

 private:
  JsonStream& json_;
  TableOptions options_;
  std::size_t part_ = 0;
};

}  // namespace

void RenderJson(OmOutputTree const& tree, std::ostream& out, JsonOptions const& options) {
  JsonStream json(out);
  json.BeginObject();
  json.Name("format").Text(kDocumentFormat);
  json.Name("version").Number(kDocumentVersion);
  json.Name("parts").BeginLines();
  ItemWriter items(json);
  VisitAll(tree, items, items.depth);
  json.End();
  if (options.layout) {
    json.Name("layout").BeginLines();
    LayoutWriter layouts(json, options);
    int depth = 0;
    VisitAll(tree, layouts, depth);
    json.End();
  }
  json.End();
  json.Flush();
  out << '\n';
}

}  // namespace lakresvos::render
