#include "csv/LongHeader.h"

#include <algorithm>

#include "csv/UniqueNames.h"

namespace lakresvos::render {

LongHeader::LongHeader(CsvRecord const& record, std::vector<OmPivotTable*> const& tables,
                       LabelTexts& labels)
    : hasTables_(tables.size() > 1) {
  UniqueNames names;
  if (hasTables_) {
    table_ = names.Next("table");
  }
  for (OmPivotTable const* const table : tables) {
    std::vector<CategoryColumns> const dimensions = FindCategories(*table, labels);
    for (Key const& key : MakeKeys(record, dimensions)) {
      if (columns_.emplace(key, levels_.size()).second) {
        levels_.push_back(names.Next(key.first));
      }
    }
    hasTotals_ = hasTotals_ || std::any_of(dimensions.begin(), dimensions.end(),
                                           [](auto const& d) { return d.HasTotal(); });
    hasFootnotes_ = hasFootnotes_ || table->Footnotes().size() != 0;
  }
  if (hasTotals_) {
    totals_ = names.Next("totals");
  }
  value_ = names.Next("value");
  if (hasFootnotes_) {
    footnotes_ = names.Next("footnotes");
  }
}

void LongHeader::Write(CsvRecord& record) const {
  if (hasTables_) {
    record.AddText(table_);
  }
  for (std::string const& name : levels_) {
    record.AddText(name);
  }
  if (hasTotals_) {
    record.AddText(totals_);
  }
  record.AddText(value_);
  if (hasFootnotes_) {
    record.AddText(footnotes_);
  }
  record.End();
}

std::vector<std::size_t> LongHeader::FindColumns(
    CsvRecord const& record, std::vector<CategoryColumns> const& dimensions) const {
  std::vector<std::size_t> columns;
  for (Key const& key : MakeKeys(record, dimensions)) {
    columns.push_back(columns_.at(key));
  }
  return columns;
}

std::vector<LongHeader::Key> LongHeader::MakeKeys(CsvRecord const& record,
                                                  std::vector<CategoryColumns> const& dimensions) {
  std::vector<Key> keys;
  std::map<std::string, std::size_t> counts;
  for (CategoryColumns const& dimension : dimensions) {
    for (std::string const& name : dimension.Names()) {
      std::string shown = record.CleanField(name);
      std::size_t const number = counts[shown]++;
      keys.emplace_back(std::move(shown), number);
    }
  }
  return keys;
}

std::vector<CategoryColumns> FindCategories(OmPivotTable const& table, LabelTexts& labels) {
  std::vector<CategoryColumns> dimensions;
  dimensions.reserve(static_cast<std::size_t>(table.NDimensions()));
  for (int d = 0; d < table.NDimensions(); ++d) {
    dimensions.emplace_back(table.Dimension(d), labels);
  }
  return dimensions;
}

}  // namespace lakresvos::render
