#include "csv/LongTable.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>

#include "content/CellText.h"
#include "content/NumberCell.h"
#include "content/NumberText.h"
#include "content/TableFootnotes.h"
#include "csv/Label.h"
#include "csv/LongHeader.h"

namespace lakresvos::render {

namespace {

/// Adds to a list in a field.
void AppendItem(std::string& list, std::string const& item) {
  list += (list.empty() ? "" : "; ") + item;
}

/// What a category writes into records, encoded once, not with every cell.
struct CategoryFields {
  std::vector<std::string> levels;
  std::vector<std::size_t> footnotes;  // of the labels
};

class LongTable {
 public:
  LongTable(CsvRecord& record, LongHeader const& header, OmPivotTable const& table,
            LabelTexts& labels)
      : record_(record),
        header_(header),
        table_(table),
        footnotes_(table, labels),
        dimensions_(FindCategories(table, labels)),
        positions_(dimensions_.size(), 0) {
    Fill(header.FindColumns(record, dimensions_));
    for (int d = 0; d < table.NDimensions(); ++d) {
      AddFootnotes(table.Dimension(d).value.label, tableFootnotes_);
    }
    AddFootnotes(table.GetTableTitle(), tableFootnotes_);
  }

  void WriteStored() {
    for (auto at = table_.FirstCell(); at.Cell() != nullptr; ++at) {
      at.Index(index_);
      if (Find(index_)) {
        Write(at.Cell());
      }
    }
  }

  void WriteCombinations() {
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
  /// What is in a column: a level of a dimension, or nothing.
  struct Source {
    std::size_t dimension = kNone;
    std::size_t level = 0;
  };

  static constexpr std::size_t kNone = std::numeric_limits<std::size_t>::max();

  /// @param columns that the levels of the dimensions have.
  void Fill(std::vector<std::size_t> const& columns) {
    sources_.resize(header_.Levels());
    std::size_t next = 0;
    for (std::size_t d = 0; d < dimensions_.size(); ++d) {
      std::string names;
      for (std::size_t level = 0; level < dimensions_[d].Levels(); ++level) {
        std::size_t const column = columns[next++];
        sources_[column] = {d, level};
        AppendItem(names, header_.Name(column));
      }
      names_.push_back(std::move(names));
      fields_.push_back(MakeFields(dimensions_[d]));
    }
  }

  std::vector<CategoryFields> MakeFields(CategoryColumns const& dimension) const {
    std::vector<CategoryFields> fields(dimension.Count());
    for (std::size_t position = 0; position < dimension.Count(); ++position) {
      for (std::size_t level = 0; level < dimension.Levels(); ++level) {
        OmCellText const* const label = dimension.Label(position, level);
        fields[position].levels.push_back(
            EncodeLabel(record_, label, footnotes_.Labels().Text(label)));
        AddFootnotes(label, fields[position].footnotes);
      }
    }
    return fields;
  }

  void AddFootnotes(OmCellText const* text, std::vector<std::size_t>& footnotes) const {
    if (text != nullptr) {
      for (std::size_t const footnote : footnotes_.Find(*text)) {
        footnotes.push_back(footnote);
      }
    }
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
    for (Source const& source : sources_) {
      if (source.dimension == kNone) {
        record_.AddEmpty();
      } else {
        record_.Add(fields_[source.dimension][positions_[source.dimension]].levels[source.level]);
      }
    }
    if (header_.HasTotals()) {
      record_.AddText(Totals());
    }
    WriteValue(cell);
    if (header_.HasFootnotes()) {
      record_.AddText(ListFootnotes(cell));
    }
    record_.End();
  }

  void WriteValue(OmCellText* cell) {
    std::optional<ShownNumber> const number = cell != nullptr ? FindNumber(*cell) : std::nullopt;
    if (number.has_value()) {
      value_.clear();
      if (!std::isnan(number->value)) {
        AppendNumber(value_, number->value);
      }
      record_.AddNumber(value_);
    } else if (cell != nullptr) {
      record_.Add(EncodeLabel(record_, cell, cell->GetText()));
    } else {
      record_.AddEmpty();
    }
  }

  /// The columns that the record is a total of.
  std::string Totals() const {
    std::string totals;
    for (std::size_t d = 0; d < dimensions_.size(); ++d) {
      if (dimensions_[d].IsTotal(positions_[d])) {
        AppendItem(totals, names_[d]);
      }
    }
    return totals;
  }

  /// The texts that the cell refers to, then those that its labels do, each once.
  std::string ListFootnotes(OmCellText const* cell) {
    shownFootnotes_.clear();
    AddFootnotes(cell, shownFootnotes_);
    auto const add = [this](std::vector<std::size_t> const& more) {
      shownFootnotes_.insert(shownFootnotes_.end(), more.begin(), more.end());
    };
    for (std::size_t d = 0; d < dimensions_.size(); ++d) {
      add(fields_[d][positions_[d]].footnotes);
    }
    add(tableFootnotes_);
    std::string texts;
    for (auto at = shownFootnotes_.begin(); at != shownFootnotes_.end(); ++at) {
      if (std::find(shownFootnotes_.begin(), at, *at) == at) {
        AppendItem(texts, footnotes_.Text(*at));
      }
    }
    return texts;
  }

  CsvRecord& record_;
  LongHeader const& header_;
  OmPivotTable const& table_;
  TableFootnotes footnotes_;
  std::vector<CategoryColumns> dimensions_;
  std::vector<Source> sources_;                      // per column of the header's levels
  std::vector<std::string> names_;                   // per dimension, those of its columns
  std::vector<std::vector<CategoryFields>> fields_;  // per dimension and category
  std::vector<std::size_t> tableFootnotes_;          // of the title and the dimensions' labels
  std::vector<std::size_t> positions_;               // of the present record's categories
  std::vector<int> index_;                           // kept to be filled again, like the next ones
  std::vector<std::size_t> shownFootnotes_;
  std::string value_;
};

/// @throws std::length_error for more combinations of categories than an int can count.
void CheckCombinations(OmPivotTable const& table, LabelTexts& labels) {
  constexpr std::size_t kMax = std::numeric_limits<int>::max();
  std::size_t combinations = 1;
  bool tooMany = false;
  for (CategoryColumns const& dimension : FindCategories(table, labels)) {
    if (dimension.Count() == 0) {
      return;
    }
    tooMany = tooMany || dimension.Count() > kMax / combinations;
    combinations *= tooMany ? 1 : dimension.Count();
  }
  if (tooMany) {
    throw std::length_error("table '" + labels.Text(FindHeadline(table)) +
                            "' has more combinations of categories than can be written");
  }
}

}  // namespace

void WriteLongTables(CsvRecord& record, std::vector<OmPivotTable*> const& tables,
                     std::vector<std::string> const& names, LabelTexts& labels, bool all) {
  for (OmPivotTable const* const table : tables) {
    if (all) {
      CheckCombinations(*table, labels);
    }
  }
  LongHeader const header(record, tables, labels);
  header.Write(record);
  for (std::size_t i = 0; i < tables.size(); ++i) {
    if (header.HasTables()) {
      record.SetLead(names[i]);
    }
    LongTable writer(record, header, *tables[i], labels);
    if (all) {
      writer.WriteCombinations();
    } else {
      writer.WriteStored();
    }
  }
}

}  // namespace lakresvos::render
