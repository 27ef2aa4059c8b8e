#include <cells/OmComposite.h>
#include <cells/OmStringCell.h>
#include <cells/OmVariable.h>
#include <lakresvos/tabulate/StatisticLabel.h>

namespace lakresvos::tabulate {

std::unique_ptr<OmCellText> StatisticLabel(Statistic const& statistic) {
  OmStringCell const measure(LabelOf(statistic.measure), true);
  if (!NeedsColumn(statistic.measure)) {
    return std::unique_ptr<OmCellText>(measure.Clone(nullptr));
  }
  auto label = std::make_unique<OmComposite>("{0} of {1}");
  label->AddPart(measure);
  label->AddPart(OmVariable(statistic.column.name, ""));
  return label;
}

}  // namespace lakresvos::tabulate
