#include "support/HardCases.h"

#include <gtest/gtest.h>
#include <set>
#include <sstream>
#include <string>

#include <lakresvos/OmPivotTable.h>
#include <lakresvos/render/TextRenderer.h>

TEST(HardCases, TablesHaveTitlesOfTheirOwn) {
  OmOutputTree document;
  AppendHardCases(document);
  std::set<std::string> titles;
  std::size_t tables = 0;
  for (auto node = document.begin(); !node.AtEnd(); ++node) {
    if (auto* const table = dynamic_cast<OmPivotTable*>(*node)) {
      ++tables;
      titles.insert(table->TableTitle()->GetText());
    }
  }
  EXPECT_GT(tables, 30u);
  EXPECT_EQ(titles.size(), tables);
}

TEST(HardCases, CanBeShownWithAndWithoutEmptyRows) {
  for (bool const skipEmpty : {true, false}) {
    OmOutputTree document;
    AppendHardCases(document);
    std::ostringstream out;
    lakresvos::render::TextOptions options;
    options.skipEmpty = skipEmpty;
    lakresvos::render::TextRenderer(out, options).Render(document);
    EXPECT_NE(out.str().find("Numbers as texts"), std::string::npos);
    EXPECT_EQ(out.str().find("Hidden table"), std::string::npos);
  }
}
