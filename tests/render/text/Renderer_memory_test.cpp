#include <gtest/gtest.h>
#include <ostream>

#include <lakresvos/OmHeading.h>
#include <lakresvos/OmOutputTree.h>
#include <lakresvos/OmTextBlock.h>
#include <lakresvos/render/TextRenderer.h>

#include "render/support/RenderTables.h"
#include "render/support/Sink.h"
#include "support/FailingNew.h"

using lakresvos::render::RenderText;
using lakresvos::render::TextOptions;
using namespace render_tables;

namespace {

/// A number that counts how often it and its copies are rendered.
class CountedNumber : public OmNumber {
 public:
  using OmNumber::OmNumber;

  OmCellText* Clone(OmMemoryRegion* region) const override {
    return new (region) CountedNumber(*this);
  }
  std::string GetText() const override {
    ++rendered;
    return OmNumber::GetText();
  }

  static int rendered;
};

int CountedNumber::rendered = 0;

}  // namespace

TEST(TextRendererMemory, EveryFailedAllocationLeavesNothingBehind) {
  OmOutputTree document;
  auto const root = document.begin();
  auto& table = AppendItem<Table>(root);
  AppendItem<OmTextBlock>(root, Utf8("label"), "text that is long enough for the heap");
  AppendItem<OmPageTitle>(root, "a title that is long enough for the heap");
  table.AddFlat("A", 2);
  table.AddFlat("B", 2);
  table.AddFlat("C", 2);
  table.AddFlat("D", 1);
  table.Place({1, 0}, {2}, {3});
  table.PutAll();
  AddFootnote(table, "note");
  OmStringCellUTF8 marked("日本語");
  table.Cell({0, 0, 0, 0}, WithFootnotes(marked, {0}));

  Sink sink;
  std::ostream out(&sink);
  std::size_t const failures = FailEveryAllocation(
      [&] {
        TextOptions options;
        options.maxColumnWidth = 4;
        RenderText(document, out, options);
      },
      [] {});
  EXPECT_GT(failures, 100U);
  EXPECT_TRUE(out.good());
}

TEST(TextRendererMemory, CellsAreRenderedOnceEachHoweverManyThereAre) {
  for (int const rows : {10, 1000}) {
    Table table;
    table.AddFlat("A", static_cast<unsigned int>(rows));
    table.AddFlat("B", 100);
    table.Place({0}, {1});
    for (int r = 0; r < rows; ++r) {
      for (int c = 0; c < 100; ++c) {
        table.Cell({r, c}, CountedNumber(r * c));
      }
    }
    Sink sink;
    std::ostream out(&sink);
    CountedNumber::rendered = 0;
    RenderText(TableDocument(table).Tree(), out);
    EXPECT_EQ(CountedNumber::rendered, rows * 100);
  }
}
