#ifndef LAKRESVOS_TABULATE_STATISTIC_LABEL_H
#define LAKRESVOS_TABULATE_STATISTIC_LABEL_H

#include <memory>

#include <cells/OmCellText.h>
#include <lakresvos/tabulate/Export.h>
#include <lakresvos/tabulate/Statistic.h>

namespace lakresvos::tabulate {

/// What a statistic is called where it is shown: "Count", "Mean of Ozone".
LAKRESVOS_TABULATE_EXPORT std::unique_ptr<OmCellText> StatisticLabel(Statistic const& statistic);

}  // namespace lakresvos::tabulate

#endif
