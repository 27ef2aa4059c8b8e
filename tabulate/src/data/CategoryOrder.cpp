#include "data/CategoryOrder.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <string>

#include "data/Number.h"

namespace lakresvos::tabulate {

namespace {

bool AreNumbers(DataColumn const& column) {
  if (column.IsText() || !column.Numbers().complete) {
    return false;
  }
  for (std::uint32_t code = 0; code < column.Values().size(); ++code) {
    if (HasNeedlessZero(column.ToPlainNumber(column.Values()[code]))) {
      return false;
    }
  }
  return true;
}

}  // namespace

CategoryOrder OrderCategories(DataColumn const& column) {
  Dictionary const& values = column.Values();
  std::vector<double> const& number = column.Numbers().byCode;
  CategoryOrder order{std::vector<std::uint32_t>(values.size()), {}, AreNumbers(column)};
  std::vector<std::uint32_t> codes(values.size());
  std::iota(codes.begin(), codes.end(), 0);
  // Doubles decide quickly; the few that are equal may still differ in digits that a double lacks.
  auto const less = [&](std::uint32_t a, std::uint32_t b) {
    return number[a] != number[b] ? number[a] < number[b]
                                  : CompareNumbers(column.ToPlainNumber(values[a]),
                                                   column.ToPlainNumber(values[b])) < 0;
  };
  if (order.numeric) {
    std::stable_sort(codes.begin(), codes.end(), less);
  }
  for (std::uint32_t const code : codes) {
    if (!order.numeric || order.codeByCategory.empty() || less(order.codeByCategory.back(), code)) {
      order.codeByCategory.push_back(code);
    }
    order.categoryByCode[code] = static_cast<std::uint32_t>(order.codeByCategory.size() - 1);
  }
  return order;
}

std::optional<std::uint32_t> FindCategory(DataColumn const& column, CategoryOrder const& order,
                                          std::string_view value) {
  if (!order.numeric) {
    std::uint32_t const code = column.Values().Find(value);
    return code == Dictionary::kNone ? std::nullopt : std::optional(order.categoryByCode[code]);
  }
  std::string const number = column.ToPlainNumber(value);
  if (std::isnan(ParseNumber(number)) || HasNeedlessZero(number)) {
    return std::nullopt;
  }
  auto const compare = [&](std::uint32_t code) {
    return CompareNumbers(column.ToPlainNumber(column.Values()[code]), number);
  };
  auto const found = std::lower_bound(order.codeByCategory.begin(), order.codeByCategory.end(), 0,
                                      [&](std::uint32_t code, int) { return compare(code) < 0; });
  if (found == order.codeByCategory.end() || compare(*found) != 0) {
    return std::nullopt;
  }
  return static_cast<std::uint32_t>(found - order.codeByCategory.begin());
}

}  // namespace lakresvos::tabulate
