#include <algorithm>
#include <ranges>

#include <lakresvos/tabulate/CountedData.h>

#include "count/TableCounts.h"

namespace lakresvos::tabulate {

CountedData::CountedData() = default;
CountedData::CountedData(CountedData&& other) noexcept = default;
CountedData& CountedData::operator=(CountedData&& other) noexcept = default;
CountedData::~CountedData() = default;

std::size_t CountedData::FindColumn(std::string const& name) const {
  auto const found = std::ranges::find(columns, name, &DataColumn::Name);
  return static_cast<std::size_t>(found - columns.begin());
}

}  // namespace lakresvos::tabulate
