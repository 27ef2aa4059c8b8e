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
#include "io/InBlocks.h"

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

/// What the records of a table are made of. Nothing of it changes while they are written, for
/// several threads write some at once.
class LongTable {
 public:
  /// All arguments must outlive the object.
  LongTable(CsvRecord const& record, LongHeader const& header, OmPivotTable const& table,
            LabelTexts& labels)
      : record_(record),
        header_(header),
        table_(table),
        footnotes_(table, labels),
        dimensions_(FindCategories(table, labels)) {
    Fill(header.FindColumns(record, dimensions_));
    for (int d = 0; d < table.NDimensions(); ++d) {
      AddFootnotes(table.Dimension(d).value.label, tableFootnotes_);
    }
    AddFootnotes(table.GetTableTitle(), tableFootnotes_);
    for (std::size_t footnote = 0; footnote < footnotes_.Count(); ++footnote) {
      footnoteTexts_.push_back(&footnotes_.Text(footnote));
    }
  }

  void WriteStored(OutputBuffer& out, unsigned int threads) const;
  void WriteCombinations(OutputBuffer& out, unsigned int threads) const;

 private:
  class Writer;

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

  /// How many combinations of categories there are.
  std::size_t CountCombinations() const {
    std::size_t count = dimensions_.empty() ? 0 : 1;
    for (CategoryColumns const& dimension : dimensions_) {
      count *= dimension.Count();
    }
    return count;
  }

  std::size_t CountRecordsInBlock() const {
    return std::max<std::size_t>(blockSizes.cells / (sources_.size() + 1), 1);
  }

  CsvRecord const& record_;
  LongHeader const& header_;
  OmPivotTable const& table_;
  TableFootnotes footnotes_;
  std::vector<std::string const*> footnoteTexts_;
  std::vector<CategoryColumns> dimensions_;
  std::vector<Source> sources_;                      // per column of the header's levels
  std::vector<std::string> names_;                   // per dimension, those of its columns
  std::vector<std::vector<CategoryFields>> fields_;  // per dimension and category
  std::vector<std::size_t> tableFootnotes_;          // of the title and the dimensions' labels
};

/// Writes some of a table's records.
class LongTable::Writer {
 public:
  Writer(LongTable const& table, std::string& out)
      : table_(table), record_(out, table.record_), positions_(table.dimensions_.size(), 0) {}

  /// Writes the record of a stored cell, unless it lacks a category.
  void WriteStored(OmCellText* cell, std::vector<int> const& index) {
    if (FindPositions(index)) {
      Write(cell);
    }
  }

  /// Writes the records of some combinations of categories: those from number `first` up to but not
  /// including `last`, the first dimension changing fastest.
  void WriteCombinations(std::size_t first, std::size_t last) {
    std::size_t rest = first;
    for (std::size_t d = 0; d < positions_.size(); ++d) {
      positions_[d] = rest % Dimension(d).Count();
      rest /= Dimension(d).Count();
    }
    for (std::size_t number = first; number < last; ++number) {
      Write(CellAtPositions());
      for (std::size_t d = 0; d < positions_.size() && ++positions_[d] == Dimension(d).Count();
           ++d) {
        positions_[d] = 0;
      }
    }
  }

 private:
  CategoryColumns const& Dimension(std::size_t d) const { return table_.dimensions_[d]; }
  CategoryFields const& Fields(std::size_t d) const { return table_.fields_[d][positions_[d]]; }

  /// Goes to the categories of a cell; whether there are any.
  bool FindPositions(std::vector<int> const& index) {
    for (std::size_t d = 0; d < positions_.size(); ++d) {
      positions_[d] = Dimension(d).Find(index[d]);
      if (positions_[d] == Dimension(d).Count()) {
        return false;
      }
    }
    return true;
  }

  OmCellText* CellAtPositions() {
    index_.clear();
    for (std::size_t d = 0; d < positions_.size(); ++d) {
      index_.push_back(Dimension(d).Subscript(positions_[d]));
      if (index_.back() < 0) {
        return nullptr;
      }
    }
    return table_.table_.Cell(index_);
  }

  void Write(OmCellText* cell) {
    for (Source const& source : table_.sources_) {
      if (source.dimension == kNone) {
        record_.AddEmpty();
      } else {
        record_.Add(Fields(source.dimension).levels[source.level]);
      }
    }
    if (table_.header_.HasTotals()) {
      record_.AddText(Totals());
    }
    WriteValue(cell);
    if (table_.header_.HasFootnotes()) {
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
    for (std::size_t d = 0; d < positions_.size(); ++d) {
      if (Dimension(d).IsTotal(positions_[d])) {
        AppendItem(totals, table_.names_[d]);
      }
    }
    return totals;
  }

  /// The texts that the cell refers to, then those that its labels do, each once.
  std::string ListFootnotes(OmCellText const* cell) {
    shownFootnotes_.clear();
    table_.AddFootnotes(cell, shownFootnotes_);
    auto const add = [this](std::vector<std::size_t> const& more) {
      shownFootnotes_.insert(shownFootnotes_.end(), more.begin(), more.end());
    };
    for (std::size_t d = 0; d < positions_.size(); ++d) {
      add(Fields(d).footnotes);
    }
    add(table_.tableFootnotes_);
    std::string texts;
    for (auto at = shownFootnotes_.begin(); at != shownFootnotes_.end(); ++at) {
      if (std::find(shownFootnotes_.begin(), at, *at) == at) {
        AppendItem(texts, *table_.footnoteTexts_[*at]);
      }
    }
    return texts;
  }

  LongTable const& table_;
  CsvRecord record_;
  std::vector<std::size_t> positions_;  // of the present record's categories
  std::vector<int> index_;              // kept to be filled again, like the next ones
  std::vector<std::size_t> shownFootnotes_;
  std::string value_;
};

void LongTable::WriteStored(OutputBuffer& out, unsigned int threads) const {
  struct Block {
    std::vector<OmCellText*> cells;
    std::vector<std::vector<int>> indexes;  // at least one for each cell
  };
  std::size_t const records = CountRecordsInBlock();
  auto at = table_.FirstCell();
  WriteInBlocks<Block>(
      out, threads,
      [&](Block& block) {
        block.indexes.resize(records);
        block.cells.clear();
        for (; at.Cell() != nullptr && block.cells.size() < records; ++at) {
          at.Index(block.indexes[block.cells.size()]);
          block.cells.push_back(at.Cell());
        }
        return !block.cells.empty();
      },
      [this](Block& block, std::string& text) {
        Writer writer(*this, text);
        for (std::size_t i = 0; i < block.cells.size(); ++i) {
          writer.WriteStored(block.cells[i], block.indexes[i]);
        }
      });
}

void LongTable::WriteCombinations(OutputBuffer& out, unsigned int threads) const {
  struct Block {
    std::size_t first = 0;
    std::size_t last = 0;
  };
  std::size_t const records = CountRecordsInBlock();
  std::size_t const count = CountCombinations();
  std::size_t next = 0;
  WriteInBlocks<Block>(
      out, threads,
      [&](Block& block) {
        block = {next, std::min(count, next + records)};
        next = block.last;
        return block.first != block.last;
      },
      [this](Block& block, std::string& text) {
        Writer(*this, text).WriteCombinations(block.first, block.last);
      });
}

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

void WriteLongTables(OutputBuffer& out, CsvRecord& record, std::vector<OmPivotTable*> const& tables,
                     std::vector<std::string> const& names, LabelTexts& labels,
                     CsvOptions const& options) {
  for (OmPivotTable const* const table : tables) {
    if (!options.skipEmpty) {
      CheckCombinations(*table, labels);
    }
  }
  LongHeader const header(record, tables, labels);
  header.Write(record);
  for (std::size_t i = 0; i < tables.size(); ++i) {
    if (header.HasTables()) {
      record.SetLead(names[i]);
    }
    LongTable const table(record, header, *tables[i], labels);
    if (options.skipEmpty) {
      table.WriteStored(out, options.threads);
    } else {
      table.WriteCombinations(out, options.threads);
    }
  }
}

}  // namespace lakresvos::render
