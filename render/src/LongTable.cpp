#include "LongTable.h"

#include <cmath>
#include <set>
#include <string>
#include <vector>

#include "CategoryColumns.h"
#include "NumberCell.h"
#include "NumberText.h"
#include "TableFootnotes.h"

namespace lakresvos::render {

namespace {

class LongTable {
 public:
  LongTable(CsvRecord& record, OmPivotTable const& table)
      : record_(record),
        table_(table),
        footnotes_(table),
        positions_(static_cast<std::size_t>(table.NDimensions()), 0) {
    for (int d = 0; d < table.NDimensions(); ++d) {
      dimensions_.emplace_back(table.Dimension(d));
      fields_.push_back(Encoded(dimensions_.back()));
    }
  }

  void WriteHeader() {
    std::set<std::string> taken;
    for (CategoryColumns const& dimension : dimensions_) {
      for (std::string const& name : dimension.Names()) {
        record_.Text(Unique(name, taken));
      }
    }
    record_.Text(Unique("value", taken));
    if (footnotes_.Count() != 0) {
      record_.Text(Unique("footnotes", taken));
    }
    record_.End();
  }

  void WriteStored() {
    for (auto at = table_.FirstCell(); at.Cell() != nullptr; ++at) {
      if (Find(at.Index())) {
        Write(at.Cell());
      }
    }
  }

  void WriteAll() {
    for (CategoryColumns const& dimension : dimensions_) {
      if (dimension.Count() == 0) {
        return;
      }
    }
    for (std::size_t d = 0; d < dimensions_.size();) {
      Write(CellAtPositions());
      for (d = 0; d < dimensions_.size() && ++positions_[d] == dimensions_[d].Count(); ++d) {
        positions_[d] = 0;
      }
    }
  }

 private:
  /// What each category writes into its columns: encoded once, not with every cell.
  std::vector<std::string> Encoded(CategoryColumns const& dimension) const {
    std::vector<std::string> fields(dimension.Count());
    for (std::size_t position = 0; position < dimension.Count(); ++position) {
      for (std::size_t level = 0; level < dimension.Levels(); ++level) {
        fields[position] += level != 0 ? "," : "";
        fields[position] += record_.Encoded(dimension.Text(position, level));
      }
    }
    return fields;
  }

  /// Names are told apart as they are shown.
  std::string Unique(std::string const& name, std::set<std::string>& taken) const {
    std::string const shown = record_.Shown(name);
    std::string unique = shown;
    for (int number = 2; !taken.insert(unique).second; ++number) {
      unique = shown + " " + std::to_string(number);
    }
    return unique;
  }

  /// Goes to the categories of a cell; whether there are any.
  bool Find(std::vector<int> const& index) {
    for (std::size_t d = 0; d < dimensions_.size(); ++d) {
      positions_[d] = dimensions_[d].Find(index[d]);
      if (positions_[d] == dimensions_[d].Count()) {
        return false;
      }
    }
    return true;
  }

  OmCellText* CellAtPositions() {
    index_.clear();
    for (std::size_t d = 0; d < dimensions_.size(); ++d) {
      index_.push_back(dimensions_[d].Subscript(positions_[d]));
      if (index_.back() < 0) {
        return nullptr;
      }
    }
    return table_.Cell(index_);
  }

  void Write(OmCellText* cell) {
    for (std::size_t d = 0; d < dimensions_.size(); ++d) {
      if (dimensions_[d].Levels() != 0) {
        record_.Add(fields_[d][positions_[d]]);
      }
    }
    WriteValue(cell);
    if (footnotes_.Count() != 0) {
      record_.Text(cell != nullptr ? MarksOf(*cell) : "");
    }
    record_.End();
  }

  void WriteValue(OmCellText* cell) {
    std::optional<ShownNumber> const number = cell != nullptr ? NumberOf(*cell) : std::nullopt;
    if (number.has_value()) {
      value_.clear();
      if (!std::isnan(number->value)) {
        AppendNumber(value_, number->value);
      }
      record_.Number(value_);
    } else if (cell != nullptr) {
      record_.Text(cell->GetText());
    } else {
      record_.Empty();
    }
  }

  std::string MarksOf(OmCellText const& cell) const {
    std::string marks;
    for (std::size_t const footnote : footnotes_.Of(cell)) {
      marks += (marks.empty() ? "" : " ") + footnotes_.Mark(footnote);
    }
    return marks;
  }

  CsvRecord& record_;
  OmPivotTable const& table_;
  TableFootnotes footnotes_;
  std::vector<CategoryColumns> dimensions_;
  std::vector<std::vector<std::string>> fields_;  // per dimension and category
  std::vector<std::size_t> positions_;            // of the present record's categories
  std::vector<int> index_;                        // kept to be filled again, like the next one
  std::string value_;
};

}  // namespace

void WriteLongTable(CsvRecord& record, OmPivotTable const& table, bool all) {
  LongTable writer(record, table);
  writer.WriteHeader();
  if (all) {
    writer.WriteAll();
  } else {
    writer.WriteStored();
  }
}

}  // namespace lakresvos::render
