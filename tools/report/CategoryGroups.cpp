#include "CategoryGroups.h"

#include <algorithm>
#include <set>
#include <string>
#include <utility>

#include <cells/OmStringCell.h>

#include "DimensionTree.h"
#include "Quoting.h"

namespace lakresvos::report {

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

void CheckCategories(Grouping const& grouping, DataColumn const& column,
                     CategoryOrder const& order) {
  std::set<std::string, std::less<>> known;
  for (std::uint32_t const code : order.codeOf) {
    known.emplace(column.values[code]);
  }
  for (NamedColumn const& category : grouping.categories) {
    if (known.count(category.name) == 0) {
      Fail(grouping, category,
           "the column " + Quoted(column.name) + " has no category " + Quoted(category.name));
    }
  }
}

bool Has(Grouping const& grouping, std::string const& category) {
  return std::any_of(grouping.categories.begin(), grouping.categories.end(),
                     [&](NamedColumn const& named) { return named.name == category; });
}

/// The categories of the grouping that are children of `parent`.
std::vector<Node> Members(Node const& parent, Grouping const& grouping) {
  std::vector<Node> members;
  for (std::size_t i = 0; i < parent.NChildren(); ++i) {
    OmDimensionNode const& child = parent[i].Value();
    if (IsOfData(child) && Has(grouping, child.label->GetText())) {
      members.push_back(parent[i]);
    }
  }
  return members;
}

void CheckSiblings(std::vector<Node> const& parents, Grouping const& grouping) {
  std::string const& first = grouping.categories.front().name;
  std::set<std::string> besideFirst{first};
  for (Node const& parent : parents) {
    std::set<std::string> labels;
    for (Node const& member : Members(parent, grouping)) {
      labels.insert(member.Value().label->GetText());
    }
    if (labels.count(first) != 0) {
      besideFirst.merge(labels);
    }
  }
  for (NamedColumn const& category : grouping.categories) {
    if (besideFirst.count(category.name) == 0) {
      Fail(grouping, category,
           "the category " + Quoted(category.name) + " is nowhere in one group with " +
               Quoted(first));
    }
  }
}

void GroupChildren(OmDimension& dimension, Node const& parent, Grouping const& grouping) {
  std::vector<Node> members = Members(parent, grouping);
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
    DataColumn const& column = data.columns[source.columns[level]];
    for (Grouping const& grouping : groupings) {
      if (grouping.column.name != column.name) {
        continue;
      }
      CheckCategories(grouping, column, source.orders[level]);
      std::vector<Node> const parents = NodesAt(target, level);
      if (level > 0) {
        CheckSiblings(parents, grouping);
      }
      for (Node const& parent : parents) {
        GroupChildren(target, parent, grouping);
      }
    }
  }
}

void CheckGroupings(std::vector<Grouping> const& groupings,
                    std::vector<ColumnWish> const& formulaColumns) {
  std::set<std::pair<std::string, std::string>> groups;
  std::set<std::pair<std::string, std::string>> grouped;
  for (Grouping const& grouping : groupings) {
    std::string const& column = grouping.column.name;
    if (std::none_of(formulaColumns.begin(), formulaColumns.end(),
                     [&](ColumnWish const& wish) { return wish.name == column; })) {
      Fail(grouping, grouping.column, "the column " + Quoted(column) + " is in no table");
    }
    if (!groups.emplace(column, grouping.group.name).second) {
      Fail(grouping, grouping.group,
           "the column " + Quoted(column) + " has another group " + Quoted(grouping.group.name));
    }
    for (NamedColumn const& category : grouping.categories) {
      if (!grouped.emplace(column, category.name).second) {
        Fail(grouping, category,
             "the category " + Quoted(category.name) + " is in another group already");
      }
    }
  }
}

}  // namespace lakresvos::report
