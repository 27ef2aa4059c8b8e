#include "count/RowTally.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <lakresvos/tabulate/InputError.h>
#include <lakresvos/tabulate/Quoting.h>

namespace lakresvos::tabulate {

RowTally::RowTally(RowPlan const& plan, std::string const& file, ValueFormat const* format,
                   std::vector<DataColumn*> columns, WarningLog& warnings)
    : plan_(plan),
      file_(file),
      columns_(std::move(columns)),
      warnings_(warnings),
      weightReader_(format),
      numberReaders_(plan.numbers.size(), NumberReader(format)),
      codes_(columns_.size()),
      numbers_(plan.numbers.size()) {
  for (std::vector<std::size_t> const& table : plan.tables) {
    cells_.emplace_back(table.size(), plan.measures.measures, plan.weight.has_value());
  }
}

void RowTally::Add(CsvRecord const& row) {
  for (std::size_t i = 0; i < row.size(); ++i) {
    codes_[i] = columns_[i]->Take(row[i]);
  }
  double const weight = plan_.weight.has_value() ? ReadWeight(row) : 1;
  ReadNumbers(row);
  if (!std::isnan(weight)) {
    ++rows_;
    CountMissing(row);
  }
  for (std::size_t i = 0; i < cells_.size(); ++i) {
    std::vector<std::size_t> const& columns = plan_.tables[i];
    tuple_.resize(columns.size());
    std::ranges::transform(columns, tuple_.begin(), [&](std::size_t c) { return codes_[c]; });
    cells_[i].Add(tuple_, weight, numbers_);
  }
}

/// The weight of a row, NaN when it has none.
double RowTally::ReadWeight(CsvRecord const& row) {
  std::string_view const field = row[*plan_.weight];
  std::string const& column = columns_[*plan_.weight]->Name();
  if (columns_[*plan_.weight]->IsMissing(field)) {
    warnings_.Add(
        {Skipped::Weights, row.Line(), column, "the weight is missing; the line was skipped"});
    return kNoNumber;
  }
  double const weight = weightReader_.Read(field);
  if (!(weight >= 0)) {
    throw InputError(
        file_, row.Line(),
        "column " + Quote(column) + ": expected a weight of 0 or more, not " + Quote(field));
  }
  return weight;
}

void RowTally::ReadNumbers(CsvRecord const& row) {
  for (std::size_t i = 0; i < numbers_.size(); ++i) {
    std::string_view const field = row[plan_.numbers[i]];
    if (columns_[plan_.numbers[i]]->IsMissing(field)) {
      numbers_[i] = kNoNumber;
      continue;
    }
    numbers_[i] = numberReaders_[i].Read(field);
    if (std::isnan(numbers_[i])) {
      warnings_.Add({Skipped::Texts, row.Line(), columns_[plan_.numbers[i]]->Name(),
                     Quote(field) + " is not a number; treated as missing"});
    }
  }
}

/// Counts a row that a table or a statistic leaves out.
void RowTally::CountMissing(CsvRecord const& row) {
  if (plan_.tables.empty()) {
    return;
  }
  auto const count = [&](Skipped kind, std::vector<std::size_t> const& columns, auto isMissing) {
    auto const missing = std::ranges::find_if(columns, isMissing);
    if (missing != columns.end()) {
      warnings_.Count(kind, row.Line(), columns_[*missing]->Name());
    }
  };
  count(Skipped::Rows, plan_.categories,
        [&](std::size_t column) { return codes_[column] == kMissingCode; });
  count(Skipped::Values, plan_.numbers,
        [&](std::size_t column) { return columns_[column]->IsMissing(row[column]); });
}

void RowTally::Merge(RowTally const& other,
                     std::vector<std::vector<std::uint32_t> const*> const& codes) {
  rows_ += other.rows_;
  weightReader_.Merge(other.weightReader_);
  for (std::size_t i = 0; i < numberReaders_.size(); ++i) {
    numberReaders_[i].Merge(other.numberReaders_[i]);
  }
  for (std::size_t i = 0; i < cells_.size(); ++i) {
    std::vector<std::size_t> const& columns = plan_.tables[i];
    tuple_.resize(columns.size());
    cells_[i].Merge(other.cells_[i], [&](TupleIndex::Tuple theirs) {
      for (std::size_t c = 0; c < columns.size(); ++c) {
        tuple_[c] = theirs[c] == kMissingCode ? kMissingCode : (*codes[columns[c]])[theirs[c]];
      }
      return TupleIndex::Tuple(tuple_);
    });
  }
}

std::vector<TableCounts> RowTally::Result() {
  std::vector<int> decimals;
  for (NumberReader const& reader : numberReaders_) {
    decimals.push_back(reader.Decimals());
  }
  int const weightDecimals = weightReader_.AreIntegers() ? 0 : weightReader_.Decimals();
  std::vector<TableCounts> tables;
  for (CellCounts& cells : cells_) {
    tables.push_back({std::move(cells), decimals, weightDecimals});
  }
  return tables;
}

}  // namespace lakresvos::tabulate
