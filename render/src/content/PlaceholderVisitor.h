#ifndef LAKRESVOS_RENDER_CONTENT_PLACEHOLDERVISITOR_H
#define LAKRESVOS_RENDER_CONTENT_PLACEHOLDERVISITOR_H

#include <string>

#include <lakresvos/OmOutputPart.h>

#include "content/Placeholder.h"

namespace lakresvos::render {

/// Has a placeholder written for every item that has no form as text, unless a renderer knows
/// better.
class PlaceholderVisitor : public OmOutputPart::Visitor {
 public:
  using OmOutputPart::Visitor::Visit;

  void Visit(OmChart& chart) override { WritePlaceholder(MakePlaceholder(chart)); }
  void Visit(OmAnswerTree& tree) override { WritePlaceholder(MakePlaceholder(tree)); }
  void Visit(OmModel& model) override { WritePlaceholder(MakePlaceholder(model)); }
  void Visit(OmInteractive& item) override { WritePlaceholder(MakePlaceholder(item)); }

 private:
  virtual void WritePlaceholder(std::string const& placeholder) = 0;
};

}  // namespace lakresvos::render

#endif
