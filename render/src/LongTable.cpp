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
      : record_(record), table_(table), footnotes_(table) {
    for (int d = 0; d < table.NDimensions(); ++d) {
      dimensions_.emplace_back(table.Dimension(d));
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
      Write(at.Index(), at.Cell());
    }
  }

  void WriteAll() {
    std::vector<std::size_t> positions(dimensions_.size(), 0);
    std::vector<int> index(dimensions_.size());
    for (CategoryColumns const& dimension : dimensions_) {
      if (dimension.Count() == 0) {
        return;
      }
    }
    for (std::size_t d = 0; d < dimensions_.size();) {
      for (d = 0; d < dimensions_.size(); ++d) {
        index[d] = dimensions_[d].Subscript(positions[d]);
      }
      Write(index, table_.Cell(index));
      for (d = 0; d < dimensions_.size() && ++positions[d] == dimensions_[d].Count(); ++d) {
        positions[d] = 0;
      }
    }
  }

 private:
  static std::string Unique(std::string const& name, std::set<std::string>& taken) {
    std::string unique = name;
    for (int number = 2; !taken.insert(unique).second; ++number) {
      unique = name + " " + std::to_string(number);
    }
    return unique;
  }

  void Write(std::vector<int> const& index, OmCellText* cell) {
    std::vector<std::string const*>& texts = texts_;
    texts.clear();
    for (std::size_t d = 0; d < dimensions_.size(); ++d) {
      texts.push_back(dimensions_[d].Find(index[d]));
      if (texts.back() == nullptr) {
        return;
      }
    }
    for (std::size_t d = 0; d < dimensions_.size(); ++d) {
      for (std::size_t level = 0; level < dimensions_[d].Levels(); ++level) {
        record_.Text(texts[d][level]);
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
  std::vector<std::string const*> texts_;  // kept to be filled again
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
