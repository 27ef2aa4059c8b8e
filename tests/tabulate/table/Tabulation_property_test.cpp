#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <lakresvos/tabulate/CrossTable.h>
#include <lakresvos/tabulate/InputError.h>
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

/// The value as the category that it falls into: a number however it is written.
std::string CategoryOf(std::string const& field) {
  return field == "10.0" ? "10" : field;
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

  /// @param columns of each dimension, nested ones outermost first.
  /// @param axes    of each dimension.
  Model(std::vector<std::vector<std::size_t>> columns, std::vector<TableAxis> axes, bool weighted,
        bool totals)
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
    for (std::vector<std::size_t> const& nested : columns_) {
      std::string& category = key.emplace_back();
      for (std::size_t const column : nested) {
        missing = missing || IsMissing(row[column]);
        category += "/" + CategoryOf(row[column]);
      }
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

  std::vector<std::vector<std::size_t>> columns_;
  std::vector<TableAxis> axes_;
  bool weighted_;
  bool totals_;
  std::size_t excluded_ = 0;
  std::map<Key, ExactCell> cells_;
};

/// Categories as they are to stand in the tree: the groups and values on the way to each.
struct PlainLeaf {
  std::vector<std::string> path;
  std::size_t subscript;
};

/// Children in the order of their first leaf, each with its subscript or its own children.
std::string Outline(std::vector<PlainLeaf> const& leaves, std::size_t level = 0) {
  std::vector<std::vector<PlainLeaf>> children;
  for (PlainLeaf const& leaf : leaves) {
    auto const known = std::find_if(children.begin(), children.end(), [&](auto const& child) {
      return child.front().path[level] == leaf.path[level];
    });
    (known != children.end() ? *known : children.emplace_back()).push_back(leaf);
  }
  std::string text;
  for (std::vector<PlainLeaf> const& child : children) {
    PlainLeaf const& first = child.front();
    text += first.path[level];
    text += first.path.size() == level + 1 ? "#" + std::to_string(first.subscript)
                                           : "(" + Outline(child, level + 1) + ")";
    text += " ";
  }
  return text;
}

std::string Outline(OmDimension::ConstNode node) {
  std::string text;
  for (std::size_t i = 0; i < node.NChildren(); ++i) {
    OmDimensionNode const& child = node[i].Value();
    text += child.label->GetText();
    text += child.group ? "(" + Outline(node[i]) + ")" : "#" + std::to_string(child.subscript);
    text += " ";
  }
  return text;
}

/// The cells of a table, by their subscripts.
std::map<std::vector<int>, std::string> CellsOf(OmPivotTable const& table) {
  std::map<std::vector<int>, std::string> cells;
  for (auto at = table.FirstCell(); at.Cell() != nullptr; ++at) {
    cells[at.Index()] = at.Cell()->GetText();
  }
  return cells;
}

/// Data that grow row by row, the tables of them, and what those should say.
class Pair {
 public:
  Pair() { AskForAnother(); }

  /// Draws another table of the same rows.
  void AskForAnother() {
    weighted_ = *rc::gen::arbitrary<bool>();
    percentages_ = *rc::gen::arbitrary<bool>();
    totals_ = *rc::gen::arbitrary<bool>();
    formula_ = ParseFormula(OneOf("a ~ b | c", "a * b ~ c", "~ b * a | c", "b ~ a", "a ~ c | b",
                                  "c * a * b ~", "~ | a * b * c", "~", "a / b ~ c", "~ b / a",
                                  "a ~ | b / c", "a / b / c ~", "c / a ~ | b"));
    statistics_ = ParseStatistics(std::string("count,mean:x,sd:x,sum:x,min:x,max:x") +
                                  (percentages_ ? ",row%,column%,total%" : ""));
    RC_LOG() << formula_.text << (weighted_ ? " weighted" : "") << (totals_ ? " totals" : "")
             << (percentages_ ? " percentages" : "") << "\n";
    if (data_.columns.empty()) {
      for (char const* const name : kColumns) {
        data_.columns.emplace_back(name);
      }
      for (DataColumn& column : data_.columns) {
        writers_.emplace_back(column);
      }
    }
    std::vector<std::vector<std::size_t>> columns;
    std::vector<TableAxis> axes;
    Tabulation const table = Tabulate();
    for (TableDimension const& dimension : table.Dimensions()) {
      columns.push_back(dimension.columns);
      axes.push_back(dimension.axis);
    }
    model_.emplace(std::move(columns), std::move(axes), weighted_, totals_ || percentages_);
    for (Row const& row : rows_) {
      model_->Add(row);
    }
  }

  void AddRow() {
    Row const row{OneOf("p", "q", "r", "NA"), OneOf("10", "9", "10.0", ""), OneOf("u", "v"),
                  DrawWeight(), DrawNumber()};
    for (std::size_t column = 0; column < row.size(); ++column) {
      writers_[column].Append(row[column]);
      writers_[column].Flush();
      RC_LOG() << row[column] << (column + 1 < row.size() ? "," : "\n");
    }
    data_.lines.push_back(data_.lines.size() + 2);
    ++data_.records;
    rows_.push_back(row);
    model_->Add(row);
  }

  /// Puts values of a column in groups, which has to show in the trees alone.
  void CheckGroups() const {
    std::size_t const column = static_cast<std::size_t>(*rc::gen::inRange(0, 3));
    std::map<std::string, std::string> groups = DrawGroups(column);
    std::vector<Grouping> groupings;
    for (char const* const group : {"g", "h"}) {
      std::string members;
      for (auto const& [value, of] : groups) {
        members += of == group ? (members.empty() ? "" : ", ") + value : "";
      }
      if (!members.empty()) {
        groupings.push_back(
            ParseGrouping(std::string(kColumns[column]) + ": " + group + " = " + members));
        RC_LOG() << groupings.back().text << "\n";
      }
    }
    Tabulation const table = Tabulate();
    bool const strangers =
        std::any_of(table.Dimensions().begin(), table.Dimensions().end(),
                    [&](TableDimension const& one) { return HasStrangers(one, column, groups); });
    try {
      auto const grouped = MakeTable(groupings);
      RC_ASSERT(!strangers);
      RC_ASSERT(CellsOf(*grouped) == CellsOf(*MakeTable({})));
      for (std::size_t d = 0; d < table.Dimensions().size(); ++d) {
        OmDimension const& dimension = std::as_const(*grouped).Dimension(static_cast<int>(d));
        RC_ASSERT(Outline(dimension.Root()) ==
                  Outline(Leaves(table.Dimensions()[d], column, groups)));
      }
    } catch (InputError const& error) {
      RC_ASSERT(strangers);
      RC_ASSERT(std::string(error.what()).find("never occurs next to") != std::string::npos);
    }
  }

  void Check() const {
    Tabulation const table = Tabulate();
    for (TableDimension const& dimension : table.Dimensions()) {
      CheckOrder(dimension);
    }
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
        std::string& category = key.emplace_back();
        for (std::string const& value : ValuesOf(dimension, subscripts[d])) {
          category += "/" + CategoryOf(value);
        }
      }
    }
    return key;
  }

  /// The values of a category, one for each column of the dimension, as they are written first.
  std::vector<std::string> ValuesOf(TableDimension const& dimension, std::size_t subscript) const {
    std::vector<std::string> values;
    for (std::size_t level = 0; level < dimension.columns.size(); ++level) {
      std::uint32_t const category = dimension.categories[subscript][level];
      std::uint32_t const code = dimension.orders[level].codeByCategory[category];
      values.emplace_back(data_.columns[dimension.columns[level]].Values()[code]);
    }
    return values;
  }

  /// The place of a value among those of its column: numbers ascend, texts stand as they came.
  std::size_t Rank(std::size_t column, std::string const& value) const {
    if (column == 1) {
      return value == "9" ? 0 : 1;
    }
    auto const first = std::find_if(rows_.begin(), rows_.end(),
                                    [&](Row const& row) { return row[column] == value; });
    return static_cast<std::size_t>(first - rows_.begin());
  }

  void CheckOrder(TableDimension const& dimension) const {
    std::vector<std::size_t> former;
    for (std::size_t subscript = 0; subscript < dimension.Total(); ++subscript) {
      std::vector<std::string> const values = ValuesOf(dimension, subscript);
      std::vector<std::size_t> ranks;
      for (std::size_t level = 0; level < values.size(); ++level) {
        ranks.push_back(Rank(dimension.columns[level], values[level]));
      }
      RC_ASSERT(former < ranks);
      former = ranks;
    }
  }

  /// Which group each of some values of the column is to be in.
  std::map<std::string, std::string> DrawGroups(std::size_t column) const {
    std::map<std::string, std::string> groups;
    for (Row const& row : rows_) {
      std::string const value = CategoryOf(row[column]);
      if (!IsMissing(value) && groups.count(value) == 0) {
        groups[value] = OneOf("g", "g", "h", "");
      }
    }
    return groups;
  }

  std::unique_ptr<OmPivotTable> MakeTable(std::vector<Grouping> const& groupings) const {
    WarningLog warnings;
    return MakeCrossTable(data_, weighted_ ? RowWeights(data_, "w", warnings) : RowWeights(),
                          {formula_}, ParseStatistics("count"), totals_, groupings);
  }

  /// The tree that the dimension should have.
  std::vector<PlainLeaf> Leaves(TableDimension const& dimension, std::size_t column,
                                std::map<std::string, std::string> const& groups) const {
    std::vector<PlainLeaf> leaves;
    for (std::size_t subscript = 0; subscript < dimension.Total(); ++subscript) {
      std::vector<std::string> const values = ValuesOf(dimension, subscript);
      PlainLeaf& leaf = leaves.emplace_back(PlainLeaf{{}, subscript});
      for (std::size_t level = 0; level < values.size(); ++level) {
        std::string const group =
            dimension.columns[level] == column ? groups.at(CategoryOf(values[level])) : "";
        if (!group.empty()) {
          leaf.path.push_back(group);
        }
        leaf.path.push_back(values[level]);
      }
    }
    if (totals_ && dimension.axis != TableAxis::Layers) {
      leaves.push_back({{"Total"}, dimension.Total()});
    }
    return leaves;
  }

  /// Whether a group has a member that no outer category has together with the group's first one.
  bool HasStrangers(TableDimension const& dimension, std::size_t column,
                    std::map<std::string, std::string> const& groups) const {
    auto const at = std::find(dimension.columns.begin(), dimension.columns.end(), column);
    auto const level = static_cast<std::size_t>(at - dimension.columns.begin());
    if (level == 0 || at == dimension.columns.end()) {
      return false;
    }
    std::map<std::vector<std::string>, std::set<std::string>> inner;  // by the outer values
    for (std::size_t subscript = 0; subscript < dimension.Total(); ++subscript) {
      std::vector<std::string> values = ValuesOf(dimension, subscript);
      std::string const value = CategoryOf(values[level]);
      values.resize(level);
      inner[values].insert(value);
    }
    for (auto const& member : groups) {
      auto const& first = *std::find_if(groups.begin(), groups.end(), [&](auto const& one) {
        return one.second == member.second;
      });
      bool const together = std::any_of(inner.begin(), inner.end(), [&](auto const& one) {
        return one.second.count(member.first) != 0 && one.second.count(first.first) != 0;
      });
      if (!member.second.empty() && member.first != first.first && !together) {
        return true;
      }
    }
    return false;
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

  bool weighted_ = false;
  bool percentages_ = false;
  bool totals_ = false;
  Formula formula_;
  std::vector<Statistic> statistics_;
  std::vector<Row> rows_;
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
    int const step = *rc::gen::resize(rc::kNominalSize, rc::gen::inRange(0, 40));
    if (step == 0) {
      pair.AskForAnother();
    } else if (step < 4) {
      pair.CheckGroups();
    } else {
      pair.AddRow();
    }
    pair.Check();
  }
}
