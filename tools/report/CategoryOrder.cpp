#include "CategoryOrder.h"

#include <algorithm>
#include <numeric>

#include "ColumnNumbers.h"

namespace lakresvos::report {

CategoryOrder OrderCategories(DataColumn const& column) {
  ColumnNumbers const numbers = NumbersOf(column);
  std::vector<double> const& value = numbers.byCode;
  CategoryOrder order{std::vector<std::uint32_t>(value.size()), {}, numbers.complete};
  std::vector<std::uint32_t> codes(value.size());
  std::iota(codes.begin(), codes.end(), 0);
  if (order.numeric) {
    std::stable_sort(codes.begin(), codes.end(),
                     [&](std::uint32_t a, std::uint32_t b) { return value[a] < value[b]; });
  }
  for (std::uint32_t const code : codes) {
    if (!order.numeric || order.codeOf.empty() || value[order.codeOf.back()] != value[code]) {
      order.codeOf.push_back(code);
    }
    order.categoryOf[code] = static_cast<std::uint32_t>(order.codeOf.size() - 1);
  }
  return order;
}

}  // namespace lakresvos::report
