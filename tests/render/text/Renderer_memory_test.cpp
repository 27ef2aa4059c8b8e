#include <gtest/gtest.h>
#include <ostream>
#include <vector>

#include <lakresvos/OmOutputTree.h>
#include <lakresvos/render/TextRenderer.h>

#include "render/support/RenderTables.h"
#include "render/support/Sink.h"
#include "support/faults/FailingNew.h"

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

/// Counts what is written.
class CountingSink : public Sink {
 public:
  std::size_t Count() const { return count_; }

 protected:
  std::streamsize xsputn(char const* /*text*/, std::streamsize count) override {
    count_ += static_cast<std::size_t>(count);
    return count;
  }

 private:
  std::size_t count_ = 0;
};

/// What a table takes to be written, and how much text that is.
struct Written {
  std::size_t memory = 0;
  std::size_t text = 0;
};

Written Write(OmPivotTable& table) {
  TableDocument const document(table);
  CountingSink sink;
  std::ostream out(&sink);
  MemoryMeter const meter;
  RenderText(document.Tree(), out);
  return {meter.Peak(), sink.Count()};
}

/// A category below as many groups, one in the other.
void AddDeepCategory(OmDimension& dimension, int groups, unsigned long subscript) {
  OmDimension::Node parent = dimension.Root();
  for (int i = 0; i < groups; ++i) {
    parent = Group(dimension, parent, "");
  }
  Category(dimension, parent, "", subscript);
}

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

TEST(TextRendererMemory, HeadingsAreNotHeldAsText) {
  Table table;
  constexpr int kColumns = 2000;
  constexpr short kOuter = 60;
  table.AddFlat("many", kColumns);
  table.Columns().elements.push_back(0);
  for (short d = 1; d <= kOuter; ++d) {
    table.AddFlat("one", 1);
    table.Columns().elements.push_back(d);
  }
  std::vector<int> index(kOuter + 1, 0);
  for (index.front() = 0; index.front() < kColumns; ++index.front()) {
    table.Cell(index, Utf8("a cell of some width"));
  }
  Written const written = Write(table);
  EXPECT_GT(written.text, 12U << 20U);
  EXPECT_LT(written.memory, written.text / 4);
}

TEST(TextRendererMemory, AHeadingThatReachesOverManyRowsTakesNothingForEach) {
  auto const write = [](int groups) {
    Table table;
    OmDimension& columns = table.Add("columns");
    table.Place({}, {0});
    AddDeepCategory(columns, groups, 0);
    for (unsigned long subscript = 1; subscript < 1000; ++subscript) {
      Category(columns, columns.Root(), "", subscript);
    }
    for (int column = 0; column < 1000; ++column) {
      table.Cell({column}, Utf8(""));
    }
    return Write(table).memory;
  };
  constexpr std::size_t kLevel = 1024;
  EXPECT_LT(write(200), write(0) + 200 * kLevel);
}
