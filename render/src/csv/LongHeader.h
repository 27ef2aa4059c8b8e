#ifndef LAKRESVOS_RENDER_CSV_LONGHEADER_H
#define LAKRESVOS_RENDER_CSV_LONGHEADER_H

#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include <lakresvos/OmPivotTable.h>

#include "content/LabelTexts.h"
#include "csv/CategoryColumns.h"
#include "csv/Record.h"

namespace lakresvos::render {

/// The columns of tables in the long shape of CsvRenderer. Columns of different tables that have one
/// name are one column; those of one table are not.
class LongHeader {
 public:
  /// @param record knows how names are shown.
  LongHeader(CsvRecord const& record, std::vector<OmPivotTable*> const& tables, LabelTexts& labels);

  void Write(CsvRecord& record) const;

  /// Whether there is a column that tells the table.
  bool HasTables() const { return hasTables_; }

  /// How many columns there are for the levels of dimensions.
  std::size_t Levels() const { return levels_.size(); }

  /// Whether there is a column that says what a record is a total of.
  bool HasTotals() const { return hasTotals_; }

  bool HasFootnotes() const { return hasFootnotes_; }

  /// For each level of these dimensions of one table, the column that it has.
  std::vector<std::size_t> FindColumns(CsvRecord const& record,
                                       std::vector<CategoryColumns> const& dimensions) const;

  /// The name of a level's column.
  std::string const& Name(std::size_t column) const { return levels_[column]; }

 private:
  using Key = std::pair<std::string, std::size_t>;  // a name, and which of that name in its table

  static std::vector<Key> MakeKeys(CsvRecord const& record,
                                   std::vector<CategoryColumns> const& dimensions);

  std::map<Key, std::size_t> columns_;
  bool hasTables_;
  bool hasTotals_ = false;
  bool hasFootnotes_ = false;
  std::string table_;
  std::vector<std::string> levels_;
  std::string totals_;
  std::string value_;
  std::string footnotes_;
};

/// The categories of a table's dimensions.
std::vector<CategoryColumns> FindCategories(OmPivotTable const& table, LabelTexts& labels);

}  // namespace lakresvos::render

#endif
