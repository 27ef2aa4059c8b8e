#include "content/AreaAlignment.h"

#include <gtest/gtest.h>
#include <memory>
#include <sstream>
#include <string>

#include <lakresvos/render/TextRenderer.h>

#include "render/support/RenderTables.h"

using namespace lakresvos::render;
using namespace render_tables;

namespace {

void Align(OmPivotTable& table, FormatArea::Area area, int alignment) {
  auto format = std::make_unique<FormatArea>(area);
  format->setHorizontalAlignment(alignment);
  table.setAreaFormat(format.release());
}

void Align(OmPivotTable& table, FormatArea::Area area, HorizontalAlignment alignment) {
  Align(table, area, static_cast<int>(alignment));
}

std::string Rendered(OmPivotTable& table) {
  std::ostringstream out;
  out << '\n';
  RenderText(TableDocument(table).Tree(), out);
  return out.str();
}

/// Two row dimensions by a column dimension, numbers beside a text, with a title and a caption.
struct Pets : Table {
  Pets() {
    AddCategories(*this, "Keeper", {"Ann", "Benjamin"});
    AddCategories(*this, "Animal", {"cat", "tortoise"});
    AddCategories(*this, "When", {"then", "now"});
    Place({1, 0}, {2});
    for (int keeper = 0; keeper < 2; ++keeper) {
      for (int animal = 0; animal < 2; ++animal) {
        Cell({keeper, animal, 0}, OmNumber(1 + 99 * keeper * animal, 0));
        Cell({keeper, animal, 1}, Utf8(keeper == animal ? "none" : "unknown"));
      }
    }
    SetTableTitle(Utf8("Pets"));
    OmStringCellUTF8 const caption("Asked at\ntwo doors.");
    Caption(&caption);
  }
};

}  // namespace

TEST(AreaAlignment, WithoutAFormatIsTheRenderersChoice) {
  Pets table;
  EXPECT_EQ(FindAlignment(table, FormatArea::AreaData), HorizontalAlignment::Any);
  EXPECT_EQ(Rendered(table), R"(
Pets
┌──────────┬──────────┬────────────────┐
│          │          │      When      │
│          │          ├──────┬─────────┤
│ Keeper   │ Animal   │ then │ now     │
╞══════════╪══════════╪══════╪═════════╡
│ Ann      │ cat      │    1 │ none    │
│          │ tortoise │    1 │ unknown │
├──────────┼──────────┼──────┼─────────┤
│ Benjamin │ cat      │    1 │ unknown │
│          │ tortoise │  100 │ none    │
└──────────┴──────────┴──────┴─────────┘
Asked at
two doors.
)");
}

TEST(AreaAlignment, NumbersThatMeanNothingAreTheRenderersChoice) {
  Pets plain;
  for (int const alignment : {-1, -2, 3, 2'147'483'647}) {
    Pets table;
    Align(table, FormatArea::AreaData, alignment);
    EXPECT_EQ(FindAlignment(table, FormatArea::AreaData), HorizontalAlignment::Any);
    EXPECT_EQ(Rendered(table), Rendered(plain));
  }
}

TEST(AreaAlignment, EveryAreaIsAlignedOnItsOwn) {
  Pets table;
  Align(table, FormatArea::AreaData, HorizontalAlignment::Left);
  Align(table, FormatArea::AreaColumnLabels, HorizontalAlignment::Right);
  Align(table, FormatArea::AreaRowLabels, HorizontalAlignment::Right);
  Align(table, FormatArea::AreaCorner, HorizontalAlignment::Center);
  Align(table, FormatArea::AreaTitle, HorizontalAlignment::Center);
  Align(table, FormatArea::AreaCaption, HorizontalAlignment::Right);
  EXPECT_EQ(Rendered(table), R"(
                  Pets
┌──────────┬──────────┬────────────────┐
│          │          │           When │
│          │          ├──────┬─────────┤
│  Keeper  │  Animal  │ then │     now │
╞══════════╪══════════╪══════╪═════════╡
│      Ann │      cat │ 1    │ none    │
│          │ tortoise │ 1    │ unknown │
├──────────┼──────────┼──────┼─────────┤
│ Benjamin │      cat │ 1    │ unknown │
│          │ tortoise │ 100  │ none    │
└──────────┴──────────┴──────┴─────────┘
                                Asked at
                              two doors.
)");
}

TEST(AreaAlignment, OddSpaceComesAfterACenteredText) {
  Pets table;
  Align(table, FormatArea::AreaData, HorizontalAlignment::Center);
  Align(table, FormatArea::AreaColumnLabels, HorizontalAlignment::Left);
  EXPECT_EQ(Rendered(table), R"(
Pets
┌──────────┬──────────┬────────────────┐
│          │          │ When           │
│          │          ├──────┬─────────┤
│ Keeper   │ Animal   │ then │ now     │
╞══════════╪══════════╪══════╪═════════╡
│ Ann      │ cat      │  1   │  none   │
│          │ tortoise │  1   │ unknown │
├──────────┼──────────┼──────┼─────────┤
│ Benjamin │ cat      │  1   │ unknown │
│          │ tortoise │ 100  │  none   │
└──────────┴──────────┴──────┴─────────┘
Asked at
two doors.
)");
}

TEST(AreaAlignment, MarksHangAfterNumbersHoweverTheseAreAligned) {
  Table table;
  AddCategories(table, "A", {"x", "y"});
  AddCategories(table, "B", {"heading"});
  table.Place({0}, {1});
  AddFootnote(table, "note");
  OmNumber marked(12);
  table.Cell({0, 0}, WithFootnotes(marked, {0}));
  table.Cell({1, 0}, OmNumber(34));
  Align(table, FormatArea::AreaData, HorizontalAlignment::Center);
  EXPECT_EQ(Rendered(table), R"(
table
┌───┬─────────┐
│   │       B │
│   ├─────────┤
│ A │ heading │
╞═══╪═════════╡
│ x │   12ᵃ   │
│ y │   34    │
└───┴─────────┘
ᵃ note
)");
}

TEST(AreaAlignment, TitleIsAboveTheFirstFrameAndCaptionBelowTheLast) {
  Table table;
  AddCategories(table, "A", {"x", "y"});
  AddCategories(table, "B", {"u", "a long name"});
  table.Place({1}, {}, {0});
  table.Cell({0, 0}, OmNumber(1));
  table.Cell({1, 1}, OmNumber(2));
  table.SetTableTitle(Utf8("T"));
  OmStringCellUTF8 const caption("C");
  table.Caption(&caption);
  Align(table, FormatArea::AreaTitle, HorizontalAlignment::Right);
  Align(table, FormatArea::AreaCaption, HorizontalAlignment::Right);
  EXPECT_EQ(Rendered(table), R"(
        T
A: x
┌───┬───┐
│ B │   │
╞═══╪═══╡
│ u │ 1 │
└───┴───┘

A: y
┌─────────────┬───┐
│ B           │   │
╞═════════════╪═══╡
│ a long name │ 2 │
└─────────────┴───┘
                  C
)");
}

TEST(AreaAlignment, TitleWiderThanTheFrameIsAlignedInItself) {
  Table table;
  AddCategories(table, "A", {"x"});
  table.Place({0}, {});
  table.PutAll();
  table.SetTableTitle(Utf8("A title of\n\nmany words"));
  Align(table, FormatArea::AreaTitle, HorizontalAlignment::Right);
  EXPECT_TRUE(Rendered(table).starts_with("\nA title of\n\nmany words\n┌───┬───┐\n"));
}

TEST(AreaAlignment, TitleWithoutAFrameIsAlignedInItself) {
  Table table;
  table.SetTableTitle(Utf8("Wide line\n見出"));
  Align(table, FormatArea::AreaTitle, HorizontalAlignment::Center);
  EXPECT_EQ(Rendered(table), "\nWide line\n  見出\n");
}

TEST(AreaAlignment, RestOfAFormatHasNoMeaningInText) {
  Pets plain;
  Pets table;
  for (int area = FormatArea::AreaTitle; area <= FormatArea::AreaFrame; ++area) {
    auto format = std::make_unique<FormatArea>(static_cast<FormatArea::Area>(area));
    format->setFontName("Serif");
    format->setFontStyle(static_cast<int>(FontStyle::BoldItalic));
    format->setVerticalAlignment(static_cast<int>(VerticalAlignment::Bottom));
    format->setTextColor("#ff0000");
    format->setMarginLeft(40);
    table.setAreaFormat(format.release());
  }
  EXPECT_EQ(Rendered(table), Rendered(plain));
}

TEST(CountSpacesBefore, DependOnTheAlignment) {
  EXPECT_EQ(CountSpacesBefore(HorizontalAlignment::Any, 5), 0);
  EXPECT_EQ(CountSpacesBefore(HorizontalAlignment::Left, 5), 0);
  EXPECT_EQ(CountSpacesBefore(HorizontalAlignment::Center, 5), 2);
  EXPECT_EQ(CountSpacesBefore(HorizontalAlignment::Right, 5), 5);
  EXPECT_EQ(CountSpacesBefore(HorizontalAlignment::Center, 0), 0);
}
