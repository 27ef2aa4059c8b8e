#include "table/CategoryGroups.h"

#include <algorithm>
#include <optional>
#include <set>
#include <utility>

#include <lakresvos/tabulate/Quoting.h>

#include "data/CategoryOrder.h"
#include "request/GroupingError.h"

namespace lakresvos::tabulate {

namespace {

/// The categories of a grouping, in its order.
std::vector<std::uint32_t> FindMembers(Grouping const& grouping, DataColumn const& column,
                                       CategoryOrder const& order) {
  std::vector<std::uint32_t> members;
  for (NameToken const& token : grouping.categories) {
    std::optional<std::uint32_t> const category = FindCategory(column, order, token.name);
    if (!category.has_value()) {
      Fail(grouping, token,
           "unknown category " + Quote(token.name) + " of column " + Quote(column.Name()));
    }
    members.push_back(*category);
  }
  return members;
}

}  // namespace

CategoryGroups::CategoryGroups(TableDimension const& dimension, std::vector<DataColumn> const& data,
                               std::vector<Grouping> const& groupings)
    : groupsByLevel_(dimension.columns.size()) {
  for (std::size_t level = dimension.columns.size(); level-- > 0;) {
    AddLevel(level, dimension, data[dimension.columns[level]], groupings);
  }
}

Grouping const* CategoryGroups::Find(std::size_t level, std::uint32_t category) const {
  auto const found = groupsByLevel_[level].find(category);
  return found != groupsByLevel_[level].end() ? found->second : nullptr;
}

void CategoryGroups::AddLevel(std::size_t level, TableDimension const& dimension,
                              DataColumn const& column, std::vector<Grouping> const& groupings) {
  std::vector<std::pair<Grouping const*, std::vector<std::uint32_t>>> ofColumn;
  for (Grouping const& grouping : groupings) {
    if (grouping.column.name != column.Name()) {
      continue;
    }
    if (std::any_of(ofColumn.begin(), ofColumn.end(), [&](auto const& other) {
          return other.first->group.name == grouping.group.name;
        })) {
      Fail(grouping, grouping.group, "duplicate group " + Quote(grouping.group.name));
    }
    ofColumn.emplace_back(&grouping, FindMembers(grouping, column, dimension.orders[level]));
    for (std::size_t i = 0; i < grouping.categories.size(); ++i) {
      auto const [known, added] =
          groupsByLevel_[level].emplace(ofColumn.back().second[i], &grouping);
      if (!added) {
        NameToken const& token = grouping.categories[i];
        Fail(grouping, token,
             "duplicate category " + Quote(token.name) +
                 (known->second == &grouping
                      ? ""
                      : " (already in group " + Quote(known->second->group.name) + ")"));
      }
    }
  }
  for (auto const& [grouping, members] : ofColumn) {
    CheckSiblings(level, dimension.categories, *grouping, members);
  }
}

void CategoryGroups::CheckSiblings(std::size_t level, TupleIndex const& categories,
                                   Grouping const& grouping,
                                   std::vector<std::uint32_t> const& members) const {
  if (level == 0) {
    return;
  }
  std::set<std::uint32_t> besideFirst{members.front()};
  for (std::size_t start = 0; start < categories.size();) {
    std::set<std::uint32_t> siblings;
    std::size_t const end = FindRunEnd(categories, start, categories.size(), level);
    for (; start < end; ++start) {
      if (Find(level, categories[start][level]) == &grouping) {
        siblings.insert(categories[start][level]);
      }
    }
    if (siblings.count(members.front()) != 0) {
      besideFirst.merge(siblings);
    }
  }
  for (std::size_t i = 0; i < members.size(); ++i) {
    if (besideFirst.count(members[i]) == 0) {
      Fail(grouping, grouping.categories[i],
           "category " + Quote(grouping.categories[i].name) + " never occurs next to " +
               Quote(grouping.categories.front().name));
    }
  }
}

}  // namespace lakresvos::tabulate
