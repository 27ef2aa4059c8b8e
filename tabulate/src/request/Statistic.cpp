#include <algorithm>

#include <cells/OmComposite.h>
#include <cells/OmStringCell.h>
#include <cells/OmVariable.h>
#include <lakresvos/tabulate/Quoting.h>
#include <lakresvos/tabulate/Statistic.h>

#include "request/Scanner.h"
#include "table/StatisticKind.h"

namespace lakresvos::tabulate {

namespace {

Statistic ReadStatistic(Scanner& scanner) {
  NameToken const keyword = scanner.ReadName(",:", "a statistic");
  auto const kinds = ListStatisticKinds();
  auto const kind = std::find_if(kinds.begin(), kinds.end(), [&](StatisticKind const& one) {
    return one.keyword == keyword.name;
  });
  if (kind == kinds.end()) {
    scanner.Fail(keyword.position, "unknown statistic " + Quote(keyword.name));
  }
  Statistic statistic{&*kind, {"", keyword.position}, {}};
  if (kind->NeedsColumn()) {
    scanner.Expect(':', "':' and a column name");
    statistic.column = scanner.ReadName(",", "a column name");
  }
  return statistic;
}

std::string Describe(Statistic const& statistic) {
  std::string const keyword(statistic.kind->keyword);
  return NeedsColumn(statistic) ? keyword + ":" + statistic.column.name : keyword;
}

}  // namespace

std::vector<std::string> ListStatistics() {
  std::vector<std::string> list;
  for (StatisticKind const& kind : ListStatisticKinds()) {
    list.push_back(std::string(kind.keyword) + (kind.NeedsColumn() ? ":X" : ""));
  }
  return list;
}

bool NeedsColumn(Statistic const& statistic) {
  return statistic.kind->NeedsColumn();
}

std::unique_ptr<OmCellText> MakeStatisticLabel(Statistic const& statistic) {
  OmStringCell const kind(std::string(statistic.kind->label), true);
  if (!NeedsColumn(statistic)) {
    return std::unique_ptr<OmCellText>(kind.Clone(nullptr));
  }
  auto label = std::make_unique<OmComposite>("{0} of {1}");
  label->AddPart(kind);
  label->AddPart(OmVariable(statistic.column.name, ""));
  return label;
}

std::vector<Statistic> ParseStatistics(std::string const& text, std::string const& source) {
  Scanner scanner(source, text);
  std::vector<Statistic> statistics;
  do {
    std::size_t const position = scanner.Position();
    Statistic statistic = ReadStatistic(scanner);
    for (Statistic const& other : statistics) {
      if (other.kind == statistic.kind && other.column.name == statistic.column.name) {
        scanner.Fail(position, "duplicate statistic " + Quote(Describe(statistic)));
      }
    }
    statistic.source = source;
    statistics.push_back(std::move(statistic));
  } while (scanner.Accept(','));
  scanner.ExpectEnd("',' or the end");
  return statistics;
}

}  // namespace lakresvos::tabulate
