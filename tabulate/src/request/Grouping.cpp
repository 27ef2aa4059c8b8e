#include <algorithm>
#include <set>
#include <utility>

#include <lakresvos/tabulate/Grouping.h>
#include <lakresvos/tabulate/Quoting.h>

#include "request/GroupingError.h"
#include "request/Scanner.h"

namespace lakresvos::tabulate {

namespace {

constexpr char kStops[] = ":=,";

}  // namespace

Grouping ParseGrouping(std::string const& text, std::string const& source) {
  Scanner scanner(source, text);
  Grouping grouping;
  grouping.text = text;
  grouping.source = source;
  grouping.column = scanner.ReadName(kStops, "a column name");
  scanner.Expect(':', "':'");
  grouping.group = scanner.ReadName(kStops, "a group name");
  scanner.Expect('=', "'='");
  do {
    grouping.categories.push_back(scanner.ReadName(kStops, "a category"));
  } while (scanner.Accept(','));
  scanner.ExpectEnd("',' or the end");
  return grouping;
}

void Fail(Grouping const& grouping, NameToken const& token, std::string const& what) {
  Scanner(grouping.source, grouping.text).Fail(token.position, what);
}

void CheckGroupings(std::vector<Grouping> const& groupings, RequiredColumns const& tableColumns) {
  std::set<std::pair<std::string, std::string>> groups;
  for (Grouping const& grouping : groupings) {
    std::string const& column = grouping.column.name;
    if (std::none_of(tableColumns.begin(), tableColumns.end(),
                     [&](RequiredColumn const& one) { return one.name == column; })) {
      Fail(grouping, grouping.column, "column " + Quote(column) + " is in no table");
    }
    if (!groups.emplace(column, grouping.group.name).second) {
      Fail(grouping, grouping.group, "duplicate group " + Quote(grouping.group.name));
    }
  }
}

}  // namespace lakresvos::tabulate
