#include "document/WarningsTable.h"

#include <string>
#include <vector>

#include <cells/OmDataValue.h>
#include <cells/OmNumber.h>
#include <cells/OmStringCell.h>

namespace lakresvos::report {

std::unique_ptr<OmPivotTable> MakeWarningsTable(tabulate::WarningLog const& warnings) {
  OmStringCell const name("Warnings", true);
  auto table = std::make_unique<OmPivotTable>(name, name, false);
  table->SetTableTitle(name);

  OmDimension& rows = table->AddDimension(OmStringCell("Warning", true));
  OmDimension& columns = table->AddDimension(OmStringCell("Place", true));
  columns.Root().Value().hide = true;
  int fields = 0;
  for (char const* label : {"Line", "Column", "Problem"}) {
    columns.AddNewChild(columns.Root(), OmStringCell(label, true),
                        static_cast<unsigned long>(fields++), false);
  }
  table->Rows().push_back(0);
  table->Columns().push_back(1);

  std::vector<tabulate::Warning> const first = warnings.First();
  for (std::size_t i = 0; i < first.size(); ++i) {
    rows.AddNewChild(rows.Root(), OmNumDataValue(static_cast<double>(i + 1), ""), i, false);
    int const row = static_cast<int>(i);
    table->Cell({row, 0}, OmNumber(static_cast<double>(first[i].line), 0));
    table->Cell({row, 1}, OmStringCell(first[i].column));
    table->Cell({row, 2}, OmStringCell(first[i].problem));
  }
  if (warnings.Total() > first.size()) {
    std::size_t const more = warnings.Total() - first.size();
    OmStringCell const caption(std::to_string(more) +
                               (more == 1 ? " more warning is" : " more warnings are") +
                               " not listed");
    table->Caption(&caption);
  }
  table->EndTable();
  return table;
}

}  // namespace lakresvos::report
