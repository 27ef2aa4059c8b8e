#include "CategoryGroups.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>

#include <cells/OmStringCell.h>
#include <lakresvos/tabulate/Quoting.h>

#include "DimensionTree.h"

namespace lakresvos::tabulate {

namespace {

using Node = OmDimension::Node;

/// The nodes that are as far below the root as `level` says.
std::vector<Node> NodesAt(OmDimension& dimension, std::size_t level) {
  std::vector<Node> nodes{dimension.Root()};
  for (; level > 0; --level) {
    std::vector<Node> below;
    for (Node const& node : nodes) {
      for (std::size_t i = 0; i < node.NChildren(); ++i) {
        below.push_back(node[i]);
      }
    }
    nodes = std::move(below);
  }
  return nodes;
}

/// The groupings of one column, as far as they concern one dimension.
class ColumnGroups {
 public:
  ColumnGroups(DataColumn const& column, CategoryOrder const& order,
               std::vector<Grouping> const& groupings)
      : column_(column), order_(order) {
    for (Grouping const& grouping : groupings) {
      if (grouping.column.name == column.name) {
        groupings_.push_back(&grouping);
        TakeCategories(grouping);
      }
    }
  }

  std::vector<Grouping const*> const& Groupings() const { return groupings_; }

  /// The categories of the grouping that are children of `parent`.
  std::vector<Node> Members(Node const& parent, Grouping const& grouping) const {
    std::vector<Node> members;
    for (std::size_t i = 0; i < parent.NChildren(); ++i) {
      if (IsOfData(parent[i].Value())) {
        auto const group = groupOf_.find(CategoryOf(parent[i]));
        if (group != groupOf_.end() && group->second == &grouping) {
          members.push_back(parent[i]);
        }
      }
    }
    return members;
  }

  /// @throws InputError for a category that stands under none of `parents` beside the first.
  void CheckSiblings(std::vector<Node> const& parents, Grouping const& grouping) const {
    NamedColumn const& first = grouping.categories.front();
    std::set<std::uint32_t> besideFirst{*Find(first.name)};
    for (Node const& parent : parents) {
      std::set<std::uint32_t> siblings;
      for (Node const& member : Members(parent, grouping)) {
        siblings.insert(CategoryOf(member));
      }
      if (siblings.count(*Find(first.name)) != 0) {
        besideFirst.merge(siblings);
      }
    }
    for (NamedColumn const& category : grouping.categories) {
      if (besideFirst.count(*Find(category.name)) == 0) {
        Fail(grouping, category,
             "the category " + Quoted(category.name) + " is nowhere in one group with " +
                 Quoted(first.name));
      }
    }
  }

 private:
  void TakeCategories(Grouping const& grouping) {
    for (NamedColumn const& named : grouping.categories) {
      std::optional<std::uint32_t> const category = Find(named.name);
      if (!category.has_value()) {
        Fail(grouping, named,
             "the column " + Quoted(column_.name) + " has no category " + Quoted(named.name));
      }
      auto const [known, added] = groupOf_.emplace(*category, &grouping);
      if (!added) {
        Fail(grouping, named,
             "the category " + Quoted(named.name) +
                 (known->second == &grouping ? " comes twice" : " is in another group already"));
      }
    }
  }

  std::optional<std::uint32_t> Find(std::string const& value) const {
    return FindCategory(column_, order_, value);
  }

  std::uint32_t CategoryOf(Node const& node) const { return *Find(node.Value().label->GetText()); }

  DataColumn const& column_;
  CategoryOrder const& order_;
  std::vector<Grouping const*> groupings_;
  std::unordered_map<std::uint32_t, Grouping const*> groupOf_;  // by category
};

void GroupChildren(OmDimension& dimension, std::vector<Node> members, Grouping const& grouping) {
  std::vector<Node*> handles;
  handles.reserve(members.size());
  for (Node& member : members) {
    handles.push_back(&member);
  }
  dimension.insertChild(OmStringCell(grouping.group.name), handles);
}

}  // namespace

void GroupCategories(OmDimension& target, TableDimension const& source, DataSet const& data,
                     std::vector<Grouping> const& groupings) {
  // From the innermost column outwards: a group moves what is below it one level down.
  for (std::size_t level = source.columns.size(); level-- > 0;) {
    ColumnGroups const groups(data.columns[source.columns[level]], source.orders[level], groupings);
    for (Grouping const* const grouping : groups.Groupings()) {
      std::vector<Node> const parents = NodesAt(target, level);
      if (level > 0) {
        groups.CheckSiblings(parents, *grouping);
      }
      for (Node const& parent : parents) {
        GroupChildren(target, groups.Members(parent, *grouping), *grouping);
      }
    }
  }
}

}  // namespace lakresvos::tabulate
