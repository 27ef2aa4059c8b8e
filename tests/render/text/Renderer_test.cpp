#include <gtest/gtest.h>
#include <memory>
#include <sstream>
#include <string>

#include <lakresvos/OmHeading.h>
#include <lakresvos/OmOutputTree.h>
#include <lakresvos/OmTextBlock.h>
#include <lakresvos/render/TextRenderer.h>

#include "render/support/RenderTables.h"

using lakresvos::render::RenderText;
using lakresvos::render::TextOptions;
using namespace render_tables;

namespace {

/// A document after a line end so that expected texts may start on a new line.
std::string Rendered(OmOutputTree const& document, TextOptions const& options = {}) {
  std::ostringstream out;
  out << '\n';
  RenderText(document, out, options);
  return out.str();
}

std::string Rendered(OmPivotTable& table, TextOptions const& options = {}) {
  std::ostringstream out;
  out << '\n';
  RenderText(TableDocument(table).Tree(), out, options);
  return out.str();
}

/// Two layers of one number each, with title, footnotes and caption.
struct Layered : Table {
  Layered() {
    AddCategories(*this, "Age", {"Child", "Adult"});
    AddCategories(*this, "Sex", {"Male"});
    Place({1}, {}, {0});
    AddFootnote(*this, "Estimated.");
    OmNumber child(45);
    Cell({0, 0}, WithFootnotes(child, {0}));
    Cell({1, 0}, OmNumber(1667));
    SetTableTitle(Utf8("Survivors"));
    OmStringCellUTF8 const caption("Source: an inquiry.");
    Caption(&caption);
  }
};

}  // namespace

// Documents

TEST(TextRenderer, NewDocumentIsItsRootHeading) {
  OmOutputTree document;
  EXPECT_EQ(Rendered(document), R"(
Output
══════
)");
}

TEST(TextRenderer, HeadingsAreUnderlinedByDepthAndItemsSetApart) {
  OmOutputTree document;
  auto node = document.begin();
  for (char const* label : {"One", "Two", "Three", "Four"}) {
    node = node.AppendChild(new OmHeading(Utf8(label)));
  }
  EXPECT_EQ(Rendered(document), R"(
Output
══════

One
───

Two
╌╌╌

Three
┈┈┈┈┈

Four
┈┈┈┈
)");
  TextOptions options;
  options.ascii = true;
  EXPECT_EQ(Rendered(document, options), R"(
Output
======

One
---

Two
~~~

Three
.....

Four
....
)");
}

TEST(TextRenderer, HeadingIsUnderlinedAsWideAsItIs) {
  OmOutputTree document;
  AppendItem<OmHeading>(document.begin(), Utf8("見出し\nand more"));
  EXPECT_EQ(Rendered(document), R"(
Output
══════

見出し
and more
────────
)");
}

TEST(TextRenderer, ProcedureShowsItsOutlineText) {
  OmOutputTree document;
  auto& procedure = AppendItem<OmProcedure>(document.begin(), Utf8("before"), "a", "b", "c");
  procedure.setOutlineText(Utf8("after"));
  EXPECT_EQ(Rendered(document), R"(
Output
══════

after
─────
)");
}

TEST(TextRenderer, TextBlockIsIndentedBelowItsLabel) {
  OmOutputTree document;
  AppendItem<OmTextBlock>(document.begin(), Utf8("Log"), "first\n\n  second\n");
  AppendItem<OmTextBlock>(document.begin(), Utf8(""), "alone");
  EXPECT_EQ(Rendered(document), R"(
Output
══════

Log
  first

    second

alone
)");
}

TEST(TextRenderer, PageTitleIsBetweenLines) {
  OmOutputTree document;
  AppendItem<OmPageTitle>(document.begin(), "Page one");
  EXPECT_EQ(Rendered(document), R"(
Output
══════

━━━━━━━━
Page one
━━━━━━━━
)");
  TextOptions options;
  options.ascii = true;
  EXPECT_EQ(Rendered(document, options), R"(
Output
======

========
Page one
========
)");
}

TEST(TextRenderer, ControlCharactersDoNotReachTheTerminal) {
  OmOutputTree document;
  AppendItem<OmTextBlock>(document.begin(), Utf8("\x1b[1m"), "\x07");
  EXPECT_EQ(Rendered(document), R"(
Output
══════

�[1m
  �
)");
}

TEST(TextRenderer, PlacesWithoutAnItemAreLeftOut) {
  OmOutputTree document;
  document.begin().AppendChild(nullptr);
  AppendItem<OmTextBlock>(document.begin(), Utf8(""), "after");
  EXPECT_EQ(Rendered(document), R"(
Output
══════

after
)");
}

TEST(TextRenderer, EmptyDocumentIsNothing) {
  OmOutputTree document;
  auto root = document.begin();
  document.Prune(root);
  EXPECT_EQ(Rendered(document), "\n");
}

TEST(TextRenderer, DeepDocumentNeedsNoDeepStack) {
  OmOutputTree document;
  auto node = document.begin();
  for (int depth = 1; depth <= 100'000; ++depth) {
    node = node.AppendChild(new OmHeading(Utf8("h")));
  }
  EXPECT_EQ(Rendered(document).size(),
            Rendered(*std::make_unique<OmOutputTree>()).size() + 100'000UL * (1 + 2 + 4));
}

TEST(TextRenderer, TextsWrapAtTheWidth) {
  OmOutputTree document;
  auto const root = document.begin();
  AppendItem<OmTextBlock>(root, Utf8("Log"), "program --option one --other two\n\nend");
  AppendItem<OmHeading>(root, Utf8("A heading of several words"));
  AppendItem<OmPageTitle>(root, "A title of several words too");
  TextOptions options;
  options.width = 20;
  EXPECT_EQ(Rendered(document, options), R"(
Output
══════

Log
  program --option
  one --other two

  end

A heading of several
words
────────────────────

━━━━━━━━━━━━━━━━━━
A title of several
words too
━━━━━━━━━━━━━━━━━━
)");
}

// Tables

TEST(TextRenderer, TextsOfATableWrapAtTheWidth) {
  Layered table;
  TextOptions options;
  options.width = 12;
  options.allLayers = false;
  EXPECT_EQ(Rendered(table, options), R"(
Survivors
Age: Child
┌──────┬─────┐
│ Sex  │     │
╞══════╪═════╡
│ Male │ 45ᵃ │
└──────┴─────┘
ᵃ Estimated.
Source: an
inquiry.
)");
}

TEST(TextRenderer, TableShowsTitleLayersNotesAndCaption) {
  Layered table;
  EXPECT_EQ(Rendered(table), R"(
Survivors
Age: Child
┌──────┬─────┐
│ Sex  │     │
╞══════╪═════╡
│ Male │ 45ᵃ │
└──────┴─────┘

Age: Adult
┌──────┬──────┐
│ Sex  │      │
╞══════╪══════╡
│ Male │ 1667 │
└──────┴──────┘
ᵃ Estimated.
Source: an inquiry.
)");
}

TEST(TextRenderer, FirstLayerAloneOnRequest) {
  Layered table;
  TextOptions options;
  options.allLayers = false;
  options.ascii = true;
  EXPECT_EQ(Rendered(table, options), R"(
Survivors
Age: Child
+------+-------+
| Sex  |       |
+======+=======+
| Male | 45[a] |
+------+-------+
[a] Estimated.
Source: an inquiry.
)");
}

TEST(TextRenderer, EmptyLayersAreShownOnRequest) {
  Table table;
  AddCategories(table, "A", {"x", "y"});
  AddCategories(table, "B", {"u"});
  table.Place({1}, {}, {0});
  table.Cell({1, 0}, OmNumber(1));
  TextOptions options;
  options.skipEmpty = false;
  EXPECT_EQ(Rendered(table, options), R"(
table
A: x
┌───┬───┐
│ B │   │
╞═══╪═══╡
│ u │   │
└───┴───┘

A: y
┌───┬───┐
│ B │   │
╞═══╪═══╡
│ u │ 1 │
└───┴───┘
)");
}

TEST(TextRenderer, LayerLineNamesEveryDimensionWithItsGroups) {
  Table table;
  AddCategories(table, "A", {"x"});
  OmDimension& dimension = table.Add("B");
  Category(dimension, Group(dimension, dimension.Root(), "G"), "y", 0);
  OmDimension& unnamed = AddCategories(table, "C", {"z"});
  unnamed.Root().Value().hide = true;
  table.Place({}, {}, {2, 1, 0});
  table.PutAll();
  EXPECT_EQ(Rendered(table), R"(
table
A: x, B: G / y, z
┌───┐
│ 1 │
└───┘
)");
}

TEST(TextRenderer, LayerThatShowsNoTextHasNoLine) {
  Table table;
  AddCategories(table, "A", {"x"}).Root().Value().hideLabels = true;
  table.Place({}, {}, {0});
  table.PutAll();
  EXPECT_EQ(Rendered(table), R"(
table
┌───┐
│ 1 │
└───┘
)");
}

TEST(TextRenderer, TableWithoutCellsShowsItsTexts) {
  Table table;
  AddCategories(table, "A", {"x"});
  table.Place({0}, {});
  table.SetTableTitle(Utf8("Nothing"));
  AddFootnote(table, "No cases.");
  EXPECT_EQ(Rendered(table), R"(
Nothing
ᵃ No cases.
)");
}

TEST(TextRenderer, TableWithoutTitleIsNamedByItsLabel) {
  Table table;
  EXPECT_EQ(Rendered(table), "\ntable\n");
}

TEST(TextRenderer, NotesAreShownOnceHoweverManyCellsShareThem) {
  Table table;
  AddCategories(table, "A", {"x", "y"});
  table.Place({0}, {});
  AddFootnote(table, "shared");
  OmNumber one(1);
  table.Cell({0}, WithFootnotes(one, {0}));
  table.Cell({1}, one);
  EXPECT_EQ(Rendered(table), R"(
table
┌───┬────┐
│ A │    │
╞═══╪════╡
│ x │ 1ᵃ │
│ y │ 1ᵃ │
└───┴────┘
ᵃ shared
)");
}

TEST(TextRenderer, TitleAndCaptionCarryMarks) {
  Table table;
  AddFootnote(table, "note");
  OmStringCellUTF8 title("Title");
  table.SetTableTitle(WithFootnotes(title, {0}));
  OmStringCellUTF8 caption("Caption");
  table.Caption(&WithFootnotes(caption, {0}));
  EXPECT_EQ(Rendered(table), R"(
Titleᵃ
ᵃ note
Captionᵃ
)");
}

TEST(TextRenderer, CaptionThatIsNotToBeShownIsLeftOut) {
  Layered table;
  table.showCaption(false);
  EXPECT_EQ(Rendered(table).find("inquiry"), std::string::npos);
}

TEST(TextRenderer, TableThatIsNotToBeShownIsLeftOut) {
  OmOutputTree document;
  auto& table = AppendItem<Layered>(document.begin());
  AppendItem<OmTextBlock>(document.begin(), Utf8(""), "after");
  table.Show(false);
  EXPECT_EQ(Rendered(document), R"(
Output
══════

after
)");
}

TEST(TextRenderer, TextsAreTheSameWithATracker) {
  Layered plain;
  Layered tracked;
  tracked.setBackendSettings({});
  EXPECT_EQ(Rendered(tracked), Rendered(plain));
}

TEST(TextRenderer, RenderingLeavesTheTableAsItWas) {
  Layered table;
  std::string const first = Rendered(table);
  EXPECT_EQ(Rendered(table), first);
  EXPECT_EQ(table.Layers().size(), 1U);
}

TEST(TextRenderer, StreamThatFailsIsReportedByItsState) {
  Layered table;
  std::ostream out(nullptr);
  RenderText(TableDocument(table).Tree(), out);
  EXPECT_FALSE(out.good());
}
