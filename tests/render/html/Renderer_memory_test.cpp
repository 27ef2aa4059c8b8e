#include <algorithm>
#include <gtest/gtest.h>
#include <ostream>
#include <streambuf>
#include <string>

#include <lakresvos/OmOutputTree.h>
#include <lakresvos/render/HtmlRenderer.h>

#include "render/support/RenderTables.h"

using lakresvos::render::RenderHtml;
using namespace render_tables;

namespace {

/// Takes everything and keeps no more than the length of the largest piece.
class Sink : public std::streambuf {
 public:
  std::streamsize Largest() const { return largest_; }

 protected:
  int_type overflow(int_type c) override { return traits_type::not_eof(c); }
  std::streamsize xsputn(char const* /*text*/, std::streamsize count) override {
    largest_ = std::max(largest_, count);
    return count;
  }

 private:
  std::streamsize largest_ = 0;
};

}  // namespace

TEST(HtmlRendererMemory, WhatIsHeldBackDoesNotGrowWithTheTable) {
  OmOutputTree document;
  auto& table = AppendItem<Table>(document.begin());
  table.AddFlat("A", 5000);
  table.AddFlat("B", 20);
  table.Place({0}, {1});
  table.PutAll();
  Sink sink;
  std::ostream out(&sink);
  RenderHtml(document, out);
  EXPECT_LT(sink.Largest(), 100'000);
}
