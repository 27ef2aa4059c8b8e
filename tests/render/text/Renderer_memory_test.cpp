#include <gtest/gtest.h>
#include <ostream>

#include <lakresvos/OmOutputTree.h>
#include <lakresvos/render/TextRenderer.h>

#include "render/support/RenderTables.h"
#include "render/support/Sink.h"

using lakresvos::render::RenderText;
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
