#include <gtest/gtest.h>
#include <ostream>

#include "render/support/RenderTables.h"
#include "render/support/Sink.h"
#include "render/support/SmallBlocks.h"
#include "render/support/TextFormats.h"
#include "support/FailingNew.h"

using namespace lakresvos::render;
using namespace render_tables;

TEST(ThreadsMemory, EveryFailedAllocationOfTheCallingThreadLeavesNothingBehind) {
  OmOutputTree document;
  auto& table = AppendItem<Table>(document.begin());
  table.AddFlat("rows", 6);
  table.AddFlat("columns", 3);
  table.Place({0}, {1});
  table.PutAll();
  TableOptions tables;
  tables.threads = 3;
  Sink sink;
  std::ostream out(&sink);
  SmallBlocks const small(1);
  for (TextFormat const& format : TextFormats()) {
    std::size_t const failures =
        FailEveryAllocation([&] { format.write(document, out, tables); }, [] {});
    EXPECT_GT(failures, 20U) << format.name;
    EXPECT_TRUE(out.good());
  }
}
