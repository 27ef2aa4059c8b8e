#include <gtest/gtest.h>
#include <sstream>
#include <string>

#include <lakresvos/OmChart.h>
#include <lakresvos/OmHeading.h>
#include <lakresvos/OmOutputTree.h>
#include <lakresvos/OmTextBlock.h>
#include <lakresvos/render/MarkdownRenderer.h>

#include "markdown/Text.h"
#include "render/support/RenderTables.h"

using namespace lakresvos::render;
using namespace render_tables;

namespace {

/// After a line end so that expected texts may start on a new line.
std::string Rendered(OmPivotTable& table, MarkdownOptions const& options = {}) {
  std::ostringstream out;
  out << '\n';
  RenderMarkdown(TableDocument(table).Tree(), out, options);
  return out.str();
}

std::string Rendered(OmOutputTree const& document) {
  std::ostringstream out;
  out << '\n';
  RenderMarkdown(document, out);
  return out.str();
}

}  // namespace

TEST(MarkdownText, MarkupIsEscaped) {
  EXPECT_EQ(MarkdownText("a*b_c`d[e]<f>|~$!\\"), R"(a\*b\_c\`d\[e\]\<f\>\|\~\$\!\\)");
  EXPECT_EQ(MarkdownText("&lt;"), "&amp;lt;");
  EXPECT_EQ(MarkdownText("1. 5.0 # + -"), "1. 5.0 # + -");
}

TEST(MarkdownText, LineEndsBecomeBreaks) {
  EXPECT_EQ(MarkdownText("a\r\nb\nc"), "a<br>b<br>c");
}

TEST(MarkdownText, BrokenTextIsReplaced) {
  EXPECT_EQ(MarkdownText("\xFF\x01"), "\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(MarkdownText, SpacesAroundAreLeftOut) {
  EXPECT_EQ(MarkdownText(" \t\u00A0a  b\u3000\n "), "a  b");
  EXPECT_EQ(MarkdownText("\u3000\u65E5\u672C"), "\u65E5\u672C");
  EXPECT_EQ(MarkdownText(" \n\u3000"), "");
}

TEST(MarkdownText, EndOfAHeadingIsNotTakenForItsMarks) {
  EXPECT_EQ(InHeading("C #"), "C \\#");
  EXPECT_EQ(InHeading("##"), "#\\#");
  EXPECT_EQ(InHeading("# a"), "# a");
  EXPECT_EQ(InHeading(""), "");
}

TEST(MarkdownText, StartOfALineIsNeitherHeadingNorList) {
  EXPECT_EQ(AtLineStart("# a"), "\\# a");
  EXPECT_EQ(AtLineStart("- a"), "\\- a");
  EXPECT_EQ(AtLineStart("+ a"), "\\+ a");
  EXPECT_EQ(AtLineStart("12. a"), "12\\. a");
  EXPECT_EQ(AtLineStart("1) a"), "1\\) a");
  EXPECT_EQ(AtLineStart("12 a. b"), "12 a. b");
  EXPECT_EQ(AtLineStart(""), "");
}

TEST(MarkdownText, CodeComesAfterALongerFence) {
  EXPECT_EQ(MarkdownCode("a"), "```\na\n```");
  EXPECT_EQ(MarkdownCode("a\n"), "```\na\n```");
  EXPECT_EQ(MarkdownCode("a ```` b"), "`````\na ```` b\n`````");
  EXPECT_EQ(MarkdownCode(""), "```\n\n```");
}

TEST(MarkdownRenderer, DocumentHasHeadingsTextsAndAnnouncements) {
  OmOutputTree document;
  auto const heading = document.begin().AppendChild(new OmHeading(Utf8("A # B*")));
  heading.AppendChild(new OmTextBlock(Utf8("Log"), "x <y>"));
  heading.AppendChild(new OmPageTitle("Page"));
  heading.AppendChild(new OmChart(Utf8("Bars"), "", 1));
  EXPECT_EQ(Rendered(document), R"(
# Output

## A # B\*

**Log**

```
x <y>
```

**Page**

\[Chart: Bars\]
)");
}

TEST(MarkdownRenderer, HeadingsStopAtLevelSix) {
  OmOutputTree document;
  auto node = document.begin();
  for (int depth = 1; depth < 8; ++depth) {
    node = node.AppendChild(new OmHeading(Utf8(std::to_string(depth))));
  }
  EXPECT_NE(Rendered(document).find("\n###### 5\n\n###### 6\n\n###### 7\n"), std::string::npos);
}

TEST(MarkdownRenderer, TableRepeatsLabelsAndAlignsNumbers) {
  Table table;
  OmDimension& rows = table.Add("Group");
  for (char const* name : {"a", "b"}) {
    auto const group = Group(rows, rows.Root(), name);
    for (int i = 0; i < 2; ++i) {
      Category(rows, group, std::string(name) + "|" + std::to_string(i), rows.CategoryCount());
    }
  }
  AddCategories(table, "Kind", {"number", "text"});
  table.Place({0}, {1});
  for (int i = 0; i < 4; ++i) {
    table.Cell({i, 0}, OmNumber(i, 1));
    table.Cell({i, 1}, Utf8("t" + std::to_string(i)));
  }
  EXPECT_EQ(Rendered(table), R"(
**table**

| Group |  | Kind / number | Kind / text |
| --- | --- | ---: | --- |
| a | a\|0 | 0.0 | t0 |
| a | a\|1 | 1.0 | t1 |
| b | b\|0 | 2.0 | t2 |
| b | b\|1 | 3.0 | t3 |
)");
}

TEST(MarkdownRenderer, LabelOverTwoHeadingColumnsIsShownOnce) {
  Table table;
  OmDimension& rows = table.Add("Place");
  Category(rows, Group(rows, rows.Root(), "house"), "cat", 0);
  Category(rows, rows.Root(), "emu", 1);
  table.Place({0}, {});
  table.PutAll();
  EXPECT_EQ(Rendered(table), R"(
**table**

| Place |  |  |
| --- | --- | ---: |
| house | cat | 1 |
| emu |  | 1 |
)");
}

TEST(MarkdownRenderer, LayersFollowEachOtherAndFootnotesAreBelow) {
  Table table;
  AddCategories(table, "Age", {"Child", "Adult"});
  AddCategories(table, "Sex", {"Male"});
  table.Place({1}, {}, {0});
  AddFootnote(table, "Estimated.");
  AddFootnote(table, "- Nowhere.");
  OmNumber child(45);
  table.Cell({0, 0}, WithFootnotes(child, {0}));
  table.Cell({1, 0}, OmNumber(1667));
  OmStringCellUTF8 const caption("# Source");
  table.Caption(&caption);
  EXPECT_EQ(Rendered(table), R"(
**table**

*Age: Child*

| Sex |  |
| --- | ---: |
| Male | 45[^t1n1] |

*Age: Adult*

| Sex |  |
| --- | ---: |
| Male | 1667 |

\# Source

\- Nowhere.

[^t1n1]: Estimated.
)");
  MarkdownOptions options;
  options.allLayers = false;
  EXPECT_EQ(Rendered(table, options).find("1667"), std::string::npos);
}

TEST(MarkdownRenderer, HiddenTableIsLeftOut) {
  Table table;
  table.Show(false);
  EXPECT_EQ(Rendered(table), "\n");
}

TEST(MarkdownRenderer, EmptyTableIsItsTitle) {
  Table table;
  EXPECT_EQ(Rendered(table), "\n**table**\n");
}

TEST(MarkdownRenderer, TableWithoutColumnsIsItsTitleAndCaption) {
  Table table;
  table.Add("A");
  table.Place({}, {0});
  MarkdownOptions options;
  options.skipEmpty = false;
  OmStringCellUTF8 const caption("below");
  table.Caption(&caption);
  EXPECT_EQ(Rendered(table, options), "\n**table**\n\nbelow\n");
}

TEST(MarkdownRenderer, FootnoteThatLooksLikeAHeadingIsText) {
  Table table;
  AddCategories(table, "Sex", {"Male"});
  table.Place({0}, {});
  AddFootnote(table, "  # not a heading");
  OmNumber number(1);
  table.Cell({0}, WithFootnotes(number, {0}));
  EXPECT_NE(Rendered(table).find("\n[^t1n1]: \\# not a heading\n"), std::string::npos);
}

TEST(MarkdownRenderer, BoldTitleHasNoSpacesAtItsEnds) {
  Table table;
  table.SetTableTitle(Utf8("  Survival "));
  EXPECT_EQ(Rendered(table), "\n**Survival**\n");
}

TEST(MarkdownRenderer, AreaFormatAlignsTheBody) {
  Table table;
  AddCategories(table, "Sex", {"Male"});
  table.Place({0}, {});
  table.Cell({0}, OmNumber(1));
  auto* const format = new FormatArea(FormatArea::AreaData);
  format->setHorizontalAlignment(1);
  table.setAreaFormat(format);
  EXPECT_NE(Rendered(table).find("| --- | :---: |\n"), std::string::npos);
}
