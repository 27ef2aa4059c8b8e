#include <algorithm>
#include <gtest/gtest.h>
#include <streambuf>
#include <string>

#include <lakresvos/render/CsvRenderer.h>
#include <lakresvos/render/MarkdownRenderer.h>

#include "render/support/RenderTables.h"

using namespace lakresvos::render;
using namespace render_tables;

namespace {

/// Takes everything and keeps its sizes.
class Sink : public std::streambuf {
 public:
  std::streamsize total = 0;
  std::streamsize largestPiece = 0;

 protected:
  int_type overflow(int_type c) override { return traits_type::not_eof(c); }
  std::streamsize xsputn(char const* /*text*/, std::streamsize count) override {
    total += count;
    largestPiece = std::max(largestPiece, count);
    return count;
  }
};

CsvOptions WithShape(CsvOptions::Shape shape) {
  CsvOptions options;
  options.shape = shape;
  return options;
}

/// Writes a table in all shapes.
void WriteAll(OmPivotTable& table, std::ostream& out) {
  RenderCsv(TableDocument(table).Tree(), out, WithShape(CsvOptions::Shape::Long));
  RenderCsv(TableDocument(table).Tree(), out, WithShape(CsvOptions::Shape::Display));
  RenderMarkdown(TableDocument(table).Tree(), out);
}

}  // namespace

TEST(CsvRendererMemory, OutputIsHandedOverInPiecesHoweverMuchThereIs) {
  Table table;
  table.AddFlat("A", 3000);
  table.AddFlat("B", 20);
  table.Place({0}, {1});
  table.PutAll();
  Sink sink;
  std::ostream out(&sink);
  WriteAll(table, out);
  EXPECT_GT(sink.total, 1000000);
  EXPECT_LT(sink.largestPiece, 70000);
}

TEST(CsvRendererMemory, DimensionOfAnyDepthCanBeWritten) {
  constexpr int kDepth = 100000;
  Table table;
  OmDimension& dimension = table.Add("d");
  layout_tables::Node parent = dimension.Root();
  for (int i = 0; i < kDepth; ++i) {
    parent = Group(dimension, parent, "");
  }
  Category(dimension, parent, "deep", 0);
  table.Place({0}, {});
  table.Put({0});
  Sink sink;
  std::ostream out(&sink);
  RenderCsv(TableDocument(table).Tree(), out);
  EXPECT_GT(sink.total, kDepth);
}
