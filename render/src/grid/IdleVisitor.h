#ifndef LAKRESVOS_RENDER_GRID_IDLEVISITOR_H
#define LAKRESVOS_RENDER_GRID_IDLEVISITOR_H

#include <lakresvos/OmOutputPart.h>

namespace lakresvos::render {

/// Does nothing for any item; for visitors that look for some of them.
class IdleVisitor : public OmOutputPart::Visitor {
 public:
  using OmOutputPart::Visitor::Visit;

  void Visit(OmPivotTable& /*table*/) override {}
  void Visit(OmHeading& /*heading*/) override {}
  void Visit(OmTextBlock& /*block*/) override {}
  void Visit(OmPageTitle& /*title*/) override {}
  void Visit(OmChart& /*chart*/) override {}
  void Visit(OmAnswerTree& /*tree*/) override {}
  void Visit(OmModel& /*model*/) override {}
  void Visit(OmInteractive& /*item*/) override {}
};

}  // namespace lakresvos::render

#endif
