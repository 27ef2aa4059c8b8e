#include "table/DimensionTree.h"

#include <cstdint>
#include <numeric>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include <cells/OmCellMetaData.h>
#include <cells/OmComposite.h>
#include <cells/OmDataValue.h>
#include <cells/OmStringCell.h>
#include <cells/OmVariable.h>

namespace lakresvos::tabulate {

namespace {

using Node = OmDimension::Node;

constexpr unsigned long kNoSubscript = static_cast<unsigned long>(-1);

/// The label of one category of a data column.
std::unique_ptr<OmCellText> MakeCategoryLabel(DataColumn const& column, CategoryOrder const& order,
                                              std::uint32_t category) {
  std::uint32_t const code = order.codeByCategory[category];
  std::string text(column.Values()[code]);
  if (order.numeric) {
    double const number = column.Numbers().byCode[code];
    text.erase(0, number == 0 && text.starts_with('-') ? 1 : 0);
    return std::make_unique<OmNumDataValue>(number, text);
  }
  return std::make_unique<OmStringDataValue>(text, "");
}

/// Adds the nodes of a dimension, all children of a node before any of their own: a handle goes
/// stale when its node gets a further sibling or is put under a group.
class DimensionBuilder {
 public:
  DimensionBuilder(OmDimension& target, TableDimension const& source, CategoryGroups const& groups,
                   std::vector<DataColumn> const& data)
      : target_(target), source_(source), groups_(groups), data_(data) {}

  void Build(bool withTotal) {
    AddChildren({target_.Root(), {0, source_.categories.size()}, 0}, withTotal);
    while (!pending_.empty()) {
      Pending const next = pending_.back();
      pending_.pop_back();
      AddChildren(next, false);
    }
  }

 private:
  /// Categories that have their values on some outer levels in common.
  struct Run {
    std::size_t start;
    std::size_t end;
  };

  /// A child as it is to be in the end: a category, or a group of several.
  struct Entry {
    Grouping const* group;             // null: there is one member
    std::vector<std::size_t> members;  // by their number among the categories of the parent
  };

  /// A node whose children are still to be added.
  struct Pending {
    Node node;
    Run run;
    std::size_t level;  // of the children
  };

  void AddChildren(Pending const& parent, bool withTotal) {
    std::vector<Run> const runs = SplitRun(parent.run, parent.level);
    for (Run const& run : runs) {
      AddCategory(parent.node, run, parent.level);
    }
    if (withTotal) {
      AddTotal();
    }
    std::vector<Entry> const entries = ArrangeCategories(runs, parent.level);
    GroupCategories(parent.node, entries, runs.size());
    for (std::size_t i = 0; i < entries.size(); ++i) {
      Node const child = parent.node[i];
      for (std::size_t j = 0; j < entries[i].members.size(); ++j) {
        RegisterPending(entries[i].group != nullptr ? child[j] : child, runs[entries[i].members[j]],
                        parent.level);
      }
    }
  }

  std::vector<Run> SplitRun(Run const& run, std::size_t level) const {
    std::vector<Run> runs;
    for (std::size_t start = run.start; start < run.end; start = runs.back().end) {
      runs.push_back({start, FindRunEnd(source_.categories, start, run.end, level + 1)});
    }
    return runs;
  }

  /// Each group is where the first of its members would be.
  std::vector<Entry> ArrangeCategories(std::vector<Run> const& runs, std::size_t level) const {
    std::vector<Entry> entries;
    std::unordered_map<Grouping const*, std::size_t> entryByGroup;
    for (std::size_t i = 0; i < runs.size(); ++i) {
      Grouping const* const group = groups_.Find(level, source_.categories[runs[i].start][level]);
      auto const known = entryByGroup.find(group);
      if (group != nullptr && known != entryByGroup.end()) {
        entries[known->second].members.push_back(i);
      } else {
        entryByGroup[group] = entries.size();
        entries.push_back({group, {i}});
      }
    }
    return entries;
  }

  void GroupCategories(Node const& parent, std::vector<Entry> const& entries, std::size_t count) {
    std::vector<std::size_t> positions(count);  // of the children, those under a group apart
    std::iota(positions.begin(), positions.end(), 0);
    for (Entry const& entry : entries) {
      if (entry.group == nullptr) {
        continue;
      }
      std::vector<Node> nodes;
      nodes.reserve(entry.members.size());
      for (std::size_t const member : entry.members) {
        nodes.push_back(parent[positions[member]]);
      }
      std::vector<Node*> handles;
      handles.reserve(nodes.size());
      for (Node& node : nodes) {
        handles.push_back(&node);
      }
      target_.insertChild(OmStringCell(entry.group->group.name), handles);
      // All members but the first leave a gap.
      std::size_t gaps = 0;
      for (std::size_t i = entry.members.front() + 1; i < count; ++i) {
        bool const isNext = gaps + 1 < entry.members.size() && entry.members[gaps + 1] == i;
        gaps += isNext ? 1 : 0;
        positions[i] -= gaps;
      }
    }
  }

  void AddCategory(Node const& parent, Run const& run, std::size_t level) {
    bool const isInnermost = level + 1 == source_.columns.size();
    auto const label = MakeCategoryLabel(data_[source_.columns[level]], source_.orders[level],
                                         source_.categories[run.start][level]);
    target_.AddNewChild(parent, *label, isInnermost ? run.start : kNoSubscript, !isInnermost);
  }

  void AddTotal() {
    OmStringCell label("Total", true);
    OmCellMetaData meta;
    meta.setTotal(true);
    label.setMeta(&meta);
    target_.AddNewChild(target_.Root(), label, source_.Total(), false);
  }

  void RegisterPending(Node const& node, Run const& run, std::size_t level) {
    if (level + 1 < source_.columns.size()) {
      pending_.push_back({node, run, level + 1});
    }
  }

  OmDimension& target_;
  TableDimension const& source_;
  CategoryGroups const& groups_;
  std::vector<DataColumn> const& data_;
  std::vector<Pending> pending_;
};

}  // namespace

std::unique_ptr<OmCellText> MakeDimensionLabel(TableDimension const& dimension,
                                               std::vector<DataColumn> const& data) {
  if (dimension.columns.size() == 1) {
    return std::make_unique<OmVariable>(data[dimension.columns[0]].Name(), "");
  }
  std::string pattern;
  for (std::size_t level = 0; level < dimension.columns.size(); ++level) {
    pattern += (level == 0 ? "{" : " / {") + std::to_string(level) + "}";
  }
  auto label = std::make_unique<OmComposite>(pattern);
  for (std::size_t const column : dimension.columns) {
    label->AddPart(OmVariable(data[column].Name(), ""));
  }
  return label;
}

void FillDimension(OmDimension& target, TableDimension const& source, CategoryGroups const& groups,
                   std::vector<DataColumn> const& data, bool withTotal) {
  DimensionBuilder(target, source, groups, data).Build(withTotal);
}

}  // namespace lakresvos::tabulate
