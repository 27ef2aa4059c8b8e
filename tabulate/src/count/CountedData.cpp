#include <lakresvos/tabulate/CountedData.h>

#include "count/TableCounts.h"
#include "data/FindColumn.h"

namespace lakresvos::tabulate {

CountedData::CountedData() = default;
CountedData::CountedData(CountedData&& other) noexcept = default;
CountedData& CountedData::operator=(CountedData&& other) noexcept = default;
CountedData::~CountedData() = default;

std::size_t CountedData::FindColumn(std::string const& name) const {
  return tabulate::FindColumn(columns, name);
}

}  // namespace lakresvos::tabulate
