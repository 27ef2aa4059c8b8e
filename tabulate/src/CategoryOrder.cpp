#include "CategoryOrder.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include <lakresvos/tabulate/ColumnNumbers.h>

namespace lakresvos::tabulate {

namespace {

bool AreNumbers(DataColumn const& column, ColumnNumbers const& numbers) {
  if (column.text || !numbers.complete) {
    return false;
  }
  for (std::uint32_t code = 0; code < column.values.size(); ++code) {
    if (HasNeedlessZero(column.values[code])) {
      return false;
    }
  }
  return true;
}

}  // namespace

CategoryOrder OrderCategories(DataColumn const& column) {
  ColumnNumbers const numbers = NumbersOf(column);
  std::vector<double> const& value = numbers.byCode;
  CategoryOrder order{std::vector<std::uint32_t>(value.size()), {}, AreNumbers(column, numbers)};
  std::vector<std::uint32_t> codes(value.size());
  std::iota(codes.begin(), codes.end(), 0);
  // Doubles decide quickly; the few that are equal may still differ in digits that a double lacks.
  auto const less = [&](std::uint32_t a, std::uint32_t b) {
    return value[a] != value[b] ? value[a] < value[b]
                                : CompareNumbers(column.values[a], column.values[b]) < 0;
  };
  if (order.numeric) {
    std::stable_sort(codes.begin(), codes.end(), less);
  }
  for (std::uint32_t const code : codes) {
    if (!order.numeric || order.codeOf.empty() || less(order.codeOf.back(), code)) {
      order.codeOf.push_back(code);
    }
    order.categoryOf[code] = static_cast<std::uint32_t>(order.codeOf.size() - 1);
  }
  return order;
}

std::optional<std::uint32_t> FindCategory(DataColumn const& column, CategoryOrder const& order,
                                          std::string_view value) {
  if (!order.numeric) {
    std::uint32_t const code = column.values.Find(value);
    return code == IdTable::kNone ? std::nullopt : std::optional(order.categoryOf[code]);
  }
  if (std::isnan(ParseNumber(value)) || HasNeedlessZero(value)) {
    return std::nullopt;
  }
  auto const found = std::lower_bound(order.codeOf.begin(), order.codeOf.end(), value,
                                      [&](std::uint32_t code, std::string_view number) {
                                        return CompareNumbers(column.values[code], number) < 0;
                                      });
  if (found == order.codeOf.end() || CompareNumbers(column.values[*found], value) != 0) {
    return std::nullopt;
  }
  return static_cast<std::uint32_t>(found - order.codeOf.begin());
}

}  // namespace lakresvos::tabulate
