#include <algorithm>
#include <gtest/gtest.h>
#include <ostream>
#include <streambuf>
#include <string>

#include <lakresvos/OmChart.h>
#include <lakresvos/OmHeading.h>
#include <lakresvos/OmOutputTree.h>
#include <lakresvos/OmTextBlock.h>
#include <lakresvos/render/HtmlRenderer.h>

#include "render/support/RenderTables.h"
#include "support/FailingNew.h"

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

TEST(HtmlRendererMemory, EveryFailedAllocationLeavesNothingBehind) {
  OmOutputTree document;
  auto const root = document.begin();
  AppendItem<OmTextBlock>(root, Utf8("label"), "text that is long enough for the heap");
  auto& chart = AppendItem<OmChart>(root, Utf8("a chart with data"), "", 1);
  std::string const data = R"({"categories":["a"],"series":[{"name":"s","values":[1]}]})";
  chart.SetViZJSON(data.data(), static_cast<unsigned int>(data.size()));
  chart.SetImageStream("<svg/>", 6);
  auto& table = AppendItem<Table>(root);
  table.AddFlat("A", 2);
  table.AddFlat("B", 2);
  table.AddFlat("C", 2);
  table.AddFlat("D", 1);
  table.Place({1, 0}, {2}, {3});
  table.PutAll();
  AddFootnote(table, "note");
  OmStringCellUTF8 marked("<marked>");
  table.Cell({0, 0, 0, 0}, WithFootnotes(marked, {0}));
  auto* const format = new FormatArea(FormatArea::AreaData);
  format->setFontName("a font");
  table.setAreaFormat(format);

  Sink sink;
  std::ostream out(&sink);
  std::size_t const failures = FailEveryAllocation([&] { RenderHtml(document, out); }, [] {});
  EXPECT_GT(failures, 100U);
  EXPECT_TRUE(out.good());
}

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
