#ifndef LAKRESVOS_TABULATE_TABLE_CATEGORYGROUPS_H
#define LAKRESVOS_TABULATE_TABLE_CATEGORYGROUPS_H

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include <lakresvos/tabulate/DataSet.h>
#include <lakresvos/tabulate/Grouping.h>

#include "table/TableDimension.h"

namespace lakresvos::tabulate {

/// Which categories of the columns of one dimension are shown under a group.
class CategoryGroups {
 public:
  /// Picks the groupings of the dimension's columns.
  /// @param groupings have to outlive the object.
  /// @throws InputError for a category that its column does not have, for a duplicate one, and,
  ///         inside nested columns, for one that has no outer category in common with the first.
  CategoryGroups(TableDimension const& dimension, std::vector<DataColumn> const& data,
                 std::vector<Grouping> const& groupings);

  /// The group of a category of a column, by the column's level in the dimension; null for none.
  Grouping const* Find(std::size_t level, std::uint32_t category) const;

 private:
  using Groups = std::unordered_map<std::uint32_t, Grouping const*>;  // by category

  void AddLevel(std::size_t level, TableDimension const& dimension, DataColumn const& column,
                std::vector<Grouping> const& groupings);
  void CheckSiblings(std::size_t level, TupleIndex const& categories, Grouping const& grouping,
                     std::vector<std::uint32_t> const& members) const;

  std::vector<Groups> groupsByLevel_;
};

}  // namespace lakresvos::tabulate

#endif
