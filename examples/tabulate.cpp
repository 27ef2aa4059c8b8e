#include <iostream>
#include <sstream>

#include <lakresvos/lakresvos.h>
#include <lakresvos/render/TextRenderer.h>
#include <lakresvos/tabulate/tabulate.h>

int main() {
  using namespace lakresvos::tabulate;
  Formula const formula = ParseFormula("host ~ season");
  std::vector<Statistic> const statistics = ParseStatistics("count,mean:ticks");

  std::istringstream csv(
      "host,season,ticks\n"
      "Roe deer,Spring,12\n"
      "Roe deer,Spring,15\n"
      "Roe deer,Autumn,7\n"
      "Hedgehog,Spring,3\n"
      "Hedgehog,Autumn,NA\n");
  WarningLog warnings;  // stays empty here
  DataSet const data = ReadDataSet(csv, "ticks.csv", ListColumns(formula, statistics), warnings);

  bool const totals = true;
  auto table =
      MakeCrossTable(data, RowWeights(), {formula, "Ticks per animal"}, statistics, totals);
  OmOutputTree document;
  document.begin().AppendChild(table.release());  // the document owns the table from here on
  lakresvos::render::RenderText(document, std::cout);
}
