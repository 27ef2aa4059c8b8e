#include <algorithm>
#include <set>
#include <utility>

#include <lakresvos/tabulate/Grouping.h>
#include <lakresvos/tabulate/Quoting.h>

namespace lakresvos::tabulate {

namespace {

constexpr char kOption[] = "--group";
constexpr char kStops[] = ":=,";

void Expect(Scanner& scanner, char c, char const* what) {
  if (!scanner.Take(c)) {
    scanner.Fail(scanner.Position(), std::string("there should be ") + what);
  }
}

}  // namespace

Grouping ParseGrouping(std::string const& text) {
  Scanner scanner(kOption, text);
  Grouping grouping;
  grouping.text = text;
  grouping.column = scanner.Name(kStops, "the name of a column");
  Expect(scanner, ':', "':'");
  grouping.group = scanner.Name(kStops, "the name of the group");
  Expect(scanner, '=', "'='");
  do {
    grouping.categories.push_back(scanner.Name(kStops, "a category"));
  } while (scanner.Take(','));
  if (!scanner.AtEnd()) {
    scanner.Fail(scanner.Position(), "there should be ',' or the end");
  }
  return grouping;
}

void Fail(Grouping const& grouping, NamedColumn const& place, std::string const& what) {
  Scanner(kOption, grouping.text).Fail(place.position, what);
}

void CheckGroupings(std::vector<Grouping> const& groupings,
                    std::vector<ColumnWish> const& formulaColumns) {
  std::set<std::pair<std::string, std::string>> groups;
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
  }
}

}  // namespace lakresvos::tabulate
