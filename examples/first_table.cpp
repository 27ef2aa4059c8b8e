#include <iostream>

#include <cells/cells.h>
#include <lakresvos/lakresvos.h>
#include <lakresvos/render/TextRenderer.h>

int main() {
  auto* table = new OmPivotTable(OmStringCell("Ticks"), OmStringCell("Example"), false);
  OmDimension& species = table->AddDimension(OmVariable("host", "Host"));
  OmDimension& season = table->AddDimension(OmVariable("season", "Season"));
  for (int i = 0; i < 2; ++i) {
    species.AddNewChild(species.Root(), OmStringCell(i == 0 ? "Roe deer" : "Hedgehog"), i, false);
    season.AddNewChild(season.Root(), OmStringCell(i == 0 ? "Spring" : "Autumn"), i, false);
  }
  table->Rows().push_back(0);
  table->Columns().push_back(1);
  table->Cell({0, 0}, OmNumber(12.25, 2));
  table->Cell({0, 1}, OmNumber(7.5, 2));
  table->Cell({1, 0}, OmNumber(3, 2));
  table->SetTableTitle(OmStringCell("Ticks per animal"));
  table->EndTable();

  OmOutputTree document;  // from here on the document owns the table
  document.begin().AppendChild(table);
  lakresvos::render::RenderText(document, std::cout);
}
