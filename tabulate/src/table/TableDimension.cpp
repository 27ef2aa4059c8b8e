#include "table/TableDimension.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace lakresvos::tabulate {

namespace {

/// Numbers the combinations that occur as they appear, cell by cell.
TupleIndex CollectCombinations(CellCounts const& cells, std::size_t first,
                               TableDimension& dimension) {
  std::size_t const width = dimension.columns.size();
  TupleIndex combinations(width);
  std::vector<std::uint32_t> combination(width);
  for (std::size_t cell = 0; cell < cells.size(); ++cell) {
    TupleIndex::Tuple const codes = cells.Codes(cell).subspan(first, width);
    bool const missing = std::ranges::find(codes, kMissingCode) != codes.end();
    for (std::size_t level = 0; level < width && !missing; ++level) {
      combination[level] = dimension.orders[level].categoryByCode[codes[level]];
    }
    dimension.categoryByCell.push_back(missing ? TableDimension::kMissing
                                               : combinations.Intern(combination));
  }
  return combinations;
}

/// The categories of one column, all of which occur.
void TakeCategories(CellCounts const& cells, std::size_t first, TableDimension& dimension) {
  CategoryOrder const& order = dimension.orders.front();
  for (std::uint32_t category = 0; category < order.codeByCategory.size(); ++category) {
    dimension.categories.Intern({&category, 1});
  }
  for (std::size_t cell = 0; cell < cells.size(); ++cell) {
    std::uint32_t const code = cells.Codes(cell)[first];
    dimension.categoryByCell.push_back(code == kMissingCode ? TableDimension::kMissing
                                                            : order.categoryByCode[code]);
  }
}

/// The combinations that occur of the categories of several columns.
void CombineCategories(CellCounts const& cells, std::size_t first, TableDimension& dimension) {
  TupleIndex const found = CollectCombinations(cells, first, dimension);
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
  for (std::uint32_t& category : dimension.categoryByCell) {
    if (category != TableDimension::kMissing) {
      category = place[category];
    }
  }
}

}  // namespace

TableDimension MakeDimension(std::vector<DataColumn> const& data, CellCounts const& cells,
                             std::size_t first, TableAxis axis, std::vector<std::size_t> columns) {
  TableDimension dimension{axis, std::move(columns), {}, TupleIndex(0), {}};
  for (std::size_t const column : dimension.columns) {
    dimension.orders.push_back(OrderCategories(data[column]));
  }
  dimension.categories = TupleIndex(dimension.columns.size());
  dimension.categoryByCell.reserve(cells.size());
  if (dimension.columns.size() == 1) {
    TakeCategories(cells, first, dimension);
  } else {
    CombineCategories(cells, first, dimension);
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
