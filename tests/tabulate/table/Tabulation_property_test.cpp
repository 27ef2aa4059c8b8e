#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <lakresvos/tabulate/WarningLog.h>

#include "data/ColumnWriter.h"
#include "support/Property.h"
#include "table/Tabulation.h"
#include "tabulate/ExactCell.h"
#include "tabulate/FewValues.h"

using namespace lakresvos::tabulate;

namespace {

constexpr char const* kColumns[] = {"a", "b", "c", "w", "x"};
constexpr std::size_t kWeight = 3;
constexpr std::size_t kNumber = 4;
using Row = std::array<std::string, std::size(kColumns)>;

bool IsMissing(std::string const& field) {
  return field.empty() || field == "NA";
}

std::optional<double> NumberIn(std::string const& field) {
  char* end = nullptr;
  double const number = std::strtod(field.c_str(), &end);
  return IsMissing(field) || *end != '\0' ? std::nullopt : std::optional(number);
}

/// Draws evenly, however small the case is meant to be.
template <class... Texts>
std::string OneOf(Texts... texts) {
  return *rc::gen::element<std::string>(texts...);
}

std::string DrawWeight() {
  return OneOf("1", "1", "2", "5", "0", "0.1", "0.7", "1e9", "NA");
}

std::string DrawNumber() {
  if (*rc::gen::arbitrary<bool>()) {
    return OneOf("0.1", "-0.07", "2", "1700000039", "1e15", "-1e15", "1e-9", "NA", "", "text");
  }
  return std::to_string(*rc::gen::inRange(-100000, 100000) / 100.0);
}

/// What a table should say, cell by cell and exact. A cell is known by the values of its categories,
/// dimension by dimension.
class Model {
 public:
  using Key = std::vector<std::string>;
  inline static std::string const kTotal = "(total)";

  /// @param dimensions the column and the axis of each.
  Model(std::vector<std::size_t> columns, std::vector<TableAxis> axes, bool weighted, bool totals)
      : columns_(std::move(columns)),
        axes_(std::move(axes)),
        weighted_(weighted),
        totals_(totals) {}

  void Add(Row const& row) {
    std::optional<double> const weight = weighted_ ? NumberIn(row[kWeight]) : std::optional(1.0);
    if (!weight) {
      return;
    }
    Key key;
    bool missing = false;
    for (std::size_t const column : columns_) {
      missing = missing || IsMissing(row[column]);
      key.push_back(row[column]);
    }
    if (missing) {
      ++excluded_;
      return;
    }
    AddToCells(key, 0, NumberIn(row[kNumber]), *weight);
  }

  std::size_t Excluded() const { return excluded_; }

  /// How many cells the table has.
  std::size_t Cells() const { return cells_.size(); }

  ExactCell const* Find(Key const& key) const {
    auto const found = cells_.find(key);
    return found != cells_.end() ? &found->second : nullptr;
  }

  /// The cell whose count is the whole, with a total for each dimension of these axes.
  ExactCell const& Whole(Key key, std::vector<TableAxis> const& axes) const {
    for (std::size_t d = 0; d < key.size(); ++d) {
      key[d] = std::count(axes.begin(), axes.end(), axes_[d]) != 0 ? kTotal : key[d];
    }
    return cells_.at(key);
  }

 private:
  /// Adds to the cell of the key, and to those where totals stand in from dimension `from` on.
  void AddToCells(Key const& key, std::size_t from, std::optional<double> number, double weight) {
    cells_[key].Add(number, weight);
    for (std::size_t d = from; d < key.size() && totals_; ++d) {
      if (axes_[d] != TableAxis::Layers) {
        Key total = key;
        total[d] = kTotal;
        AddToCells(total, d + 1, number, weight);
      }
    }
  }

  std::vector<std::size_t> columns_;
  std::vector<TableAxis> axes_;
  bool weighted_;
  bool totals_;
  std::size_t excluded_ = 0;
  std::map<Key, ExactCell> cells_;
};

/// Data that grow row by row, the tables of them, and what those should say.
class Pair {
 public:
  Pair()
      : weighted_(*rc::gen::arbitrary<bool>()),
        percentages_(*rc::gen::arbitrary<bool>()),
        totals_(*rc::gen::arbitrary<bool>()),
        formula_(ParseFormula(OneOf("a ~ b | c", "a * b ~ c", "~ b * a | c", "b ~ a", "a ~ c | b",
                                    "c * a * b ~", "~ | a * b * c", "~"))),
        statistics_(ParseStatistics(std::string("count,mean:x,sd:x,sum:x,min:x,max:x") +
                                    (percentages_ ? ",row%,column%,total%" : ""))) {
    for (char const* const name : kColumns) {
      data_.columns.emplace_back(name);
    }
    for (DataColumn& column : data_.columns) {
      writers_.emplace_back(column);
    }
    std::vector<std::size_t> columns;
    std::vector<TableAxis> axes;
    Tabulation const table = Tabulate();
    for (TableDimension const& dimension : table.Dimensions()) {
      columns.push_back(dimension.columns[0]);
      axes.push_back(dimension.axis);
    }
    model_.emplace(std::move(columns), std::move(axes), weighted_, totals_ || percentages_);
  }

  void AddRow() {
    Row const row{OneOf("p", "q", "r", "NA"), OneOf("10", "9", ""), OneOf("u", "v"), DrawWeight(),
                  DrawNumber()};
    for (std::size_t column = 0; column < row.size(); ++column) {
      writers_[column].Append(row[column]);
      writers_[column].Flush();
      RC_LOG() << row[column] << (column + 1 < row.size() ? "," : "\n");
    }
    data_.lines.push_back(data_.lines.size() + 2);
    ++data_.records;
    model_->Add(row);
  }

  void Check() const {
    Tabulation const table = Tabulate();
    RC_ASSERT(table.ExcludedRows() == model_->Excluded());
    RC_ASSERT(table.Cells() == model_->Cells());
    for (std::size_t cell = 0; cell < table.Cells(); ++cell) {
      Model::Key const key = KeyOf(table, cell);
      ExactCell const* const exact = model_->Find(key);
      RC_ASSERT(exact != nullptr);
      CheckCell(table, cell, *exact);
      CheckPercentages(table, cell, *exact, key);
    }
  }

 private:
  Tabulation Tabulate() const {
    WarningLog warnings;
    return Tabulation(data_, weighted_ ? RowWeights(data_, "w", warnings) : RowWeights(), formula_,
                      statistics_, totals_);
  }

  Model::Key KeyOf(Tabulation const& table, std::size_t cell) const {
    Model::Key key;
    auto const subscripts = table.Subscripts(cell);
    for (std::size_t d = 0; d < subscripts.size(); ++d) {
      TableDimension const& dimension = table.Dimensions()[d];
      if (subscripts[d] == dimension.Total()) {
        key.push_back(Model::kTotal);
      } else {
        std::uint32_t const category = dimension.categories[subscripts[d]][0];
        std::uint32_t const code = dimension.orders[0].codeByCategory[category];
        key.emplace_back(data_.columns[dimension.columns[0]].Values()[code]);
      }
    }
    return key;
  }

  static bool Same(double number, double expected) {
    return std::isnan(expected) ? std::isnan(number) : number == expected;
  }

  static void CheckCell(Tabulation const& table, std::size_t cell, ExactCell const& exact) {
    RC_ASSERT(table.Value(cell, 0) == exact.RoundedCount());
    RC_ASSERT(Same(table.Value(cell, 1), exact.RoundedMean()));
    RC_ASSERT(exact.HasDeviation(table.Value(cell, 2)));
    RC_ASSERT(table.Value(cell, 3) == exact.RoundedSum());
    RC_ASSERT(Same(table.Value(cell, 4), exact.Minimum().value_or(std::nan(""))));
    RC_ASSERT(Same(table.Value(cell, 5), exact.Maximum().value_or(std::nan(""))));
    RC_ASSERT(table.Missing(cell, 1) == exact.Missing());
  }

  void CheckPercentages(Tabulation const& table, std::size_t cell, ExactCell const& exact,
                        Model::Key const& key) const {
    using enum TableAxis;
    std::vector<TableAxis> const summedUp[] = {{Columns}, {Rows}, {Rows, Columns}};
    for (std::size_t i = 0; i < std::size(summedUp) && percentages_; ++i) {
      Exact const& whole = model_->Whole(key, summedUp[i]).Count();
      std::optional<Exact> const share =
          whole > 0 ? std::optional(Exact(100 * exact.Count() / whole)) : std::nullopt;
      RC_ASSERT(Same(table.Value(cell, 6 + i), Rounded(share)));
    }
  }

  bool weighted_;
  bool percentages_;
  bool totals_;
  Formula formula_;
  std::vector<Statistic> statistics_;
  FewValues few_;
  DataSet data_;
  std::vector<ColumnWriter> writers_;
  std::optional<Model> model_;
};

}  // namespace

RANDOM_PROGRAM(TabulationProperty, SaysWhatExactArithmeticDoesOfDataThatGrow) {
  Pair pair;
  pair.Check();
  for (int steps = DrawStepCount(); steps > 0; --steps) {
    pair.AddRow();
    pair.Check();
  }
}
