#include "render/support/HardCases.h"

#include <gtest/gtest.h>
#include <ostream>
#include <set>
#include <sstream>
#include <string>

#include <lakresvos/OmPivotTable.h>
#include <lakresvos/render/HtmlRenderer.h>
#include <lakresvos/render/TextRenderer.h>

#include "render/support/RenderTables.h"

namespace {

/// What a table shows with so many groups within one another, each with a category beside the next.
template <class Render>
std::size_t SizeOfChain(int levels, Render const& render) {
  using namespace render_tables;
  OmOutputTree document;
  auto& table = AppendItem<Table>(document.begin());
  OmDimension& chain = table.Add("chain");
  auto at = chain.Root();
  for (int i = 0; i < levels; ++i) {
    Category(chain, at, "leaf", static_cast<unsigned long>(i));
    at = Group(chain, at, "g");
  }
  table.Place({0}, {});
  table.PutAll();
  std::ostringstream out;
  render(document, out);
  EXPECT_NE(out.str().find("leaf"), std::string::npos);
  return out.str().size();
}

}  // namespace

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
    lakresvos::render::RenderText(document, out, options);
    EXPECT_NE(out.str().find("Numbers as texts"), std::string::npos);
    EXPECT_EQ(out.str().find("Hidden table"), std::string::npos);
  }
}

// A page names all headings of each cell, and a text has a column for each level: both grow as the
// square of the levels. Laying the levels out in cubic time would take far longer than a test may.
TEST(HardCases, LongChainsOfGroupsGrowAsTheSquareOfTheirLevels) {
  auto const html = [](OmOutputTree& document, std::ostream& out) {
    lakresvos::render::RenderHtml(document, out);
  };
  auto const text = [](OmOutputTree& document, std::ostream& out) {
    lakresvos::render::RenderText(document, out);
  };
  EXPECT_LT(SizeOfChain(1600, html), SizeOfChain(800, html) * 9 / 2);
  EXPECT_LT(SizeOfChain(1600, text), SizeOfChain(800, text) * 9 / 2);
}
