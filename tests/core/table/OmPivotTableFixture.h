#ifndef TESTS_CORE_TABLE_OMPIVOTTABLEFIXTURE_H
#define TESTS_CORE_TABLE_OMPIVOTTABLEFIXTURE_H

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <cells/OmStringCell.h>
#include <lakresvos/OMSException.h>
#include <lakresvos/OmPivotTable.h>

#include "support/OmPivotTableTestAccess.h"

using Index = std::vector<int>;
using Walked = std::vector<std::pair<Index, std::string>>;

inline OmStringCell Text(std::string const& text) {
  return OmStringCell(text);
}

/// A table with dimensions "0", "1", ... that have no categories.
class TestTable : public OmPivotTable {
 public:
  explicit TestTable(int dimensions = 0) : TestTable(dimensions, Text("name")) {}

  TestTable(int dimensions, OmCellText const& templateName)
      : OmPivotTable(Text("label"), templateName, false) {
    for (int number = 0; number < dimensions; ++number) {
      AddDimension(Text(std::to_string(number)));
    }
  }

  /// Lets fixtures hold a table, for no item here throws when it goes.
  ~TestTable() noexcept override = default;

  Data& data() { return OmPivotTableTestAccess::GetData(*this); }

  bool Put(Index const& index, std::string const& text) { return Cell(index, Text(text)); }
  bool Clear(Index const& index) { return Cell(index, nullptr); }

  /// The text of the cell at `index`, "(none)" when there is none.
  std::string At(Index const& index) const { return TextOf(Cell(index)); }

  static std::string TextOf(OmCellText const* cell) {
    return cell != nullptr ? cell->GetText() : "(none)";
  }

  /// All cells that an iterator visits, in its order.
  Walked Walk() {
    Walked cells;
    for (Iterator at = FirstCell(); at.Cell() != nullptr; ++at) {
      cells.emplace_back(at.Index(), at.Cell()->GetText());
    }
    return cells;
  }

  /// Makes entries of one axis.
  static void Place(PuppetVector<short>& axis, std::vector<short> const& dimensions) {
    axis.elements = dimensions;
  }
};

/// Adds categories "0", "1", ... to the root of a dimension.
inline void AddCategories(OmDimension& dimension, int count) {
  for (int i = 0; i < count; ++i) {
    dimension.Child(dimension.Root(), Text(std::to_string(i)), static_cast<unsigned long>(i),
                    false);
  }
}

inline constexpr unsigned long kNoSubscript = static_cast<unsigned long>(-1);

/// A dimension on the default heap: a group "g" with categories "a" and "b", and a category "c".
inline std::unique_ptr<OmDimension> Nested(std::string const& label) {
  OmDimensionNode const root(Text(label), kNoSubscript, true, nullptr);
  auto dimension = std::make_unique<OmDimension>(root, nullptr);
  OmDimension::Node const group =
      dimension->Child(dimension->Root(), Text("g"), kNoSubscript, true);
  dimension->Child(group, Text("a"), 0, false);
  dimension->Child(group, Text("b"), 1, false);
  dimension->Child(dimension->Root(), Text("c"), 2, false);
  return dimension;
}

inline std::string LabelOf(OmDimension::ConstNode node) {
  return TestTable::TextOf(node.Value().label);
}

inline BackendSettings Settings(bool fast, bool unicode = true, std::string const& locale = "") {
  BackendSettings settings;
  settings.setFastTables(fast);
  settings.setUnicode(unicode);
  settings.setLocale(locale);
  return settings;
}

/// Whether `action` throws exactly this exception.
template <class Action>
testing::AssertionResult Throws(Action action, std::string const& message, double value1,
                                double value2) {
  try {
    action();
  } catch (OMSException const& error) {
    if (error.Message() == message && error.Value1() == value1 && error.Value2() == value2) {
      return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << "threw " << error.what();
  }
  return testing::AssertionFailure() << "threw nothing";
}

#endif
