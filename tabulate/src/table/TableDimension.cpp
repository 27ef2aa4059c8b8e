#include "table/TableDimension.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace lakresvos::tabulate {

namespace {

/// Numbers the combinations that occur as they appear, row by row.
TupleIndex CollectCombinations(DataSet const& data, std::vector<std::size_t> const& columns,
                               std::vector<CategoryOrder> const& orders,
                               std::vector<std::uint32_t>& combinationByRow) {
  TupleIndex combinations(columns.size());
  std::vector<std::uint32_t> combination(columns.size());
  combinationByRow.reserve(data.Rows());
  for (std::size_t row = 0; row < data.Rows(); ++row) {
    bool missing = false;
    for (std::size_t level = 0; level < columns.size() && !missing; ++level) {
      std::uint32_t const code = data.columns[columns[level]].Codes()[row];
      missing = code == kMissingCode;
      combination[level] = missing ? 0 : orders[level].categoryByCode[code];
    }
    combinationByRow.push_back(missing ? TableDimension::kMissing
                                       : combinations.Intern(combination));
  }
  return combinations;
}

/// The categories of one column, all of which occur.
void TakeCategories(DataSet const& data, TableDimension& dimension) {
  CategoryOrder const& order = dimension.orders.front();
  for (std::uint32_t category = 0; category < order.codeByCategory.size(); ++category) {
    dimension.categories.Intern({&category, 1});
  }
  std::vector<std::uint32_t> const& codes = data.columns[dimension.columns.front()].Codes();
  dimension.categoryByRow.reserve(codes.size());
  for (std::uint32_t const code : codes) {
    dimension.categoryByRow.push_back(code == kMissingCode ? TableDimension::kMissing
                                                           : order.categoryByCode[code]);
  }
}

/// The combinations that occur of the categories of several columns.
void CombineCategories(DataSet const& data, TableDimension& dimension) {
  TupleIndex const found =
      CollectCombinations(data, dimension.columns, dimension.orders, dimension.categoryByRow);
  std::vector<std::uint32_t> sorted(found.size());
  std::iota(sorted.begin(), sorted.end(), 0);
  std::sort(sorted.begin(), sorted.end(), [&](std::uint32_t a, std::uint32_t b) {
    return std::lexicographical_compare(found[a].begin(), found[a].end(), found[b].begin(),
                                        found[b].end());
  });
  std::vector<std::uint32_t> place(found.size());
  for (std::uint32_t const combination : sorted) {
    place[combination] = dimension.categories.Intern(found[combination]);
  }
  for (std::uint32_t& category : dimension.categoryByRow) {
    if (category != TableDimension::kMissing) {
      category = place[category];
    }
  }
}

}  // namespace

TableDimension MakeDimension(DataSet const& data, TableAxis axis,
                             std::vector<std::size_t> columns) {
  TableDimension dimension{axis, std::move(columns), {}, TupleIndex(0), {}};
  for (std::size_t const column : dimension.columns) {
    dimension.orders.push_back(OrderCategories(data.columns[column]));
  }
  dimension.categories = TupleIndex(dimension.columns.size());
  if (dimension.columns.size() == 1) {
    TakeCategories(data, dimension);
  } else {
    CombineCategories(data, dimension);
  }
  return dimension;
}

std::size_t FindRunEnd(TupleIndex const& categories, std::size_t start, std::size_t end,
                       std::size_t width) {
  TupleIndex::Tuple const shared = categories[start].first(width);
  std::size_t at = start + 1;
  while (at < end && std::equal(shared.begin(), shared.end(), categories[at].begin())) {
    ++at;
  }
  return at;
}

}  // namespace lakresvos::tabulate
