#ifndef TOOLS_REPORT_STATISTICLABEL_H
#define TOOLS_REPORT_STATISTICLABEL_H

#include <memory>

#include <cells/OmCellText.h>

#include "Statistic.h"

namespace lakresvos::report {

/// What a statistic is called where it is shown: "Count", "Mean of Ozone".
std::unique_ptr<OmCellText> StatisticLabel(Statistic const& statistic);

}  // namespace lakresvos::report

#endif
