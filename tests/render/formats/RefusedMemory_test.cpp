#include <cstddef>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <ostream>
#include <sstream>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include <cells/cells.h>
#include <lakresvos/lakresvos.h>
#include <lakresvos/render/DisplayGrid.h>
#include <lakresvos/render/JsonReader.h>
#include <lakresvos/render/JsonRenderer.h>
#include <lakresvos/render/JsonSyntax.h>
#include <lakresvos/render/LayerGrids.h>
#include <lakresvos/render/OutputFile.h>
#include <lakresvos/render/XlsxRenderer.h>

#include "render/support/Collector.h"
#include "render/support/RenderTables.h"
#include "render/support/SmallBlocks.h"
#include "render/support/SpyTable.h"
#include "render/support/TextFormats.h"
#include "support/TemporaryDirectory.h"
#include "support/ZipParts.h"
#include "support/faults/FailingNew.h"

// What the renderers and the reader do when there is no memory, and when a cell throws: that is
// thrown on, nothing is left behind, and the next attempt gives what it gives otherwise.

using namespace lakresvos::render;
using namespace render_tables;

namespace {

std::string const kLong(60, 'x');

/// Whether a stream took a whole text, its size and its hash.
using Digest = std::tuple<bool, std::size_t, std::size_t>;

/// Has a document written in place of what there is.
Digest WriteTo(Collector& collector, TextFormat const& format, OmOutputTree const& document,
               TableOptions const& tables = {}) {
  collector.Clear();
  std::ostream out(&collector);
  format.write(document, out, tables);
  std::string const& text = collector.Text();
  return {out.good(), text.size(), std::hash<std::string_view>()(text)};
}

std::vector<TextFormat> Formats() {
  std::vector<TextFormat> formats = TextFormats();
  for (bool const layout : {false, true}) {
    formats.push_back({layout ? "json with layout" : "json",
                       [layout](auto const& tree, auto& out, auto const& tables) {
                         JsonOptions options;
                         static_cast<TableOptions&>(options) = tables;
                         options.layout = layout;
                         RenderJson(tree, out, options);
                       }});
  }
  return formats;
}

void FillTable(Table& table) {
  table.AddFlat("A long label of a dimension", 3);
  OmDimension& nested = table.Add("B");
  auto const group = Group(nested, nested.Root(), "a group");
  Category(nested, group, "a category with a long label", 0);
  Category(nested, group, "shown", 1);
  Category(nested, nested.Root(), "alone", 2);
  table.AddFlat("C", 2);
  table.AddFlat("D", 2);
  table.Place({0}, {1, 2}, {3});
  table.PutAll();
  AddFootnote(table, "a note");
  AddFootnote(table, "a note with a marker", "**");
  OmStringCellUTF8 marked("<marked> 日本語, \"quoted\" and long enough for the heap");
  table.Cell({0, 0, 0, 0}, WithFootnotes(marked, {1, 0}));
  OmComposite composite("{0} of {1}, {2}");
  composite.AddPart(OmNumber(1.5, 2));
  composite.AddPart(OmVariable("name", "a label of a variable"));
  composite.AddPart(OmStringDataValue("m", "male"));
  table.Cell({1, 0, 0, 0}, composite);
  OmNumDataValue value(3, "third");
  OmCellMetaData meta;
  meta.setStyle(1);
  value.setMeta(&meta);
  table.Cell({2, 0, 0, 0}, value);
  table.cellStyles().resize(2);
  table.cellStyles()[1].setFontName(kLong);
  table.cellStyles()[1].setTextColor("#102030");
  table.SetTableTitle(Utf8("A title that is long enough for the heap"));
  OmStringCellUTF8 const caption("A caption\nof two lines");
  table.Caption(&caption);
  table.CornerText(&caption);
  auto format = std::make_unique<FormatArea>(FormatArea::AreaData);
  format->setFontName(kLong);
  format->setBackgroundColor("#ffffff");
  table.setAreaFormat(format.release());
  table.setTableCustomWidths({10, 20});
  table.addMiscProperty(kLong);
  table.setBackendSettings(BackendSettings());
}

/// Items of all kinds, with something of everything.
void FillDocument(OmOutputTree& document) {
  auto const heading = document.begin().AppendChild(std::make_unique<OmHeading>(Utf8("Heading")));
  auto& procedure = AppendItem<OmProcedure>(heading, Utf8("a procedure"), kLong, kLong, kLong);
  procedure.Records().push_back({1, Utf8("cell").Clone(nullptr), nullptr, 2});
  FillTable(AppendItem<Table>(heading));
  AppendItem<OmTextBlock>(heading, Utf8("label"), kLong).TextList().push_back(kLong);
  AppendItem<OmPageTitle>(heading, "a title that is long enough for the heap");
  auto& chart = AppendItem<OmChart>(heading, Utf8("a chart with data"), "iso-8859-1", 1);
  std::string const data = R"({"categories":["a"],"series":[{"name":"s","values":[1]}]})";
  chart.SetViZJSON(data.data(), static_cast<unsigned int>(data.size()));
  chart.SetImageStream("<svg/>", 6);
  chart.addCSVFileName("file", 4);
  chart.addCSVFileContent(kLong.data(), static_cast<unsigned int>(kLong.size()));
  AppendItem<OmAnswerTree>(heading, Utf8("tree"), "").SetPath(kLong.data(), 60);
  AppendItem<OmModel>(heading, Utf8("model")).SetPMML(kLong.data(), 60);
  AppendItem<OmInteractive>(heading, Utf8("item"), "", 2).setOptions(kLong);
}

class RenderRefusedMemory : public testing::Test {
 protected:
  RenderRefusedMemory() { FillDocument(document); }

  /// Writes in a format, and tells what.
  Digest Write(TextFormat const& format) { return WriteTo(collector, format, document); }

  OmOutputTree document;
  Collector collector;
};

}  // namespace

// Writing

TEST_F(RenderRefusedMemory, IsThrownByEveryFormat) {
  for (TextFormat const& format : Formats()) {
    SCOPED_TRACE(format.name);
    EXPECT_GT(FailEveryAllocationOf([&] { return Write(format); }), 20U);
    EXPECT_GT(collector.Text().size(), 300U);
  }
}

TEST_F(RenderRefusedMemory, IsThrownInWhateverThreadItIs) {
  OmOutputTree tree;
  auto& table = AppendItem<Table>(tree.begin());
  table.AddFlat("rows", 6);
  table.AddFlat("columns", 3);
  table.Place({0}, {1});
  table.PutAll();
  TableOptions tables;
  tables.threads = 3;
  SmallBlocks const small(1);
  for (TextFormat const& format : TextFormats()) {
    SCOPED_TRACE(format.name);
    auto const write = [&] { return WriteTo(collector, format, tree, tables); };
    EXPECT_GT(FailEveryAllocationOf(write, FailAfter::Threads::All), 20U);
  }
}

TEST_F(RenderRefusedMemory, IsThrownByTheGrids) {
  Table table;
  FillTable(table);
  EXPECT_GT(FailEveryAllocationOf([&] {
              LayerGrids grids(table);
              std::size_t shown = 0;
              while (DisplayGrid const* const grid = grids.Next()) {
                for (int row = grid->HeadingRows(); row < grid->Rows(); ++row) {
                  DisplayGrid::BodyRow body = grid->Body(row);
                  for (int column = grid->HeadingColumns(); column < grid->Columns(); ++column) {
                    shown += body.Cell(column) != nullptr ? 1 : 0;
                  }
                }
                shown += 100 * grid->Headings().size() + 10000 * grid->LayerLabels().size();
              }
              return shown;
            }),
            50U);
}

TEST_F(RenderRefusedMemory, IsThrownByAFileThatIsNotWrittenThen) {
  TemporaryDirectory const directory;
  std::string const old = directory.Write("old", "old");
  std::size_t const failures = FailEveryAllocation(
      [&] {
        OutputFile file(old);
        file.Stream() << "new";
        file.Commit();
      },
      [&] {
        EXPECT_EQ(ReadFile(old), "old");
        EXPECT_EQ(directory.Entries(), 1U);
      });
  EXPECT_GT(failures, 2U);
  EXPECT_EQ(ReadFile(old), "new");
}

TEST_F(RenderRefusedMemory, IsThrownByANewFileThatIsNotThereThen) {
  TemporaryDirectory const directory;
  std::string const path = directory.Path("new");
  std::size_t const failures = FailEveryAllocation(
      [&] {
        OutputFile file(path);
        file.Stream() << "new";
        file.Commit();
      },
      [&] { EXPECT_EQ(directory.Entries(), 0U); });
  EXPECT_GT(failures, 2U);
  EXPECT_EQ(ReadFile(path), "new");
}

TEST_F(RenderRefusedMemory, IsThrownByALinkToAFileThatIsNotWrittenThen) {
  TemporaryDirectory const directory;
  std::string const old = directory.Write("old", "old");
  std::string const link = directory.Path("link");
  std::filesystem::create_symlink(old, link);
  std::size_t const failures = FailEveryAllocation(
      [&] {
        OutputFile file(link);
        file.Stream() << "new";
        file.Commit();
      },
      [&] {
        EXPECT_EQ(ReadFile(old), "old");
        EXPECT_EQ(directory.Entries(), 2U);
      });
  EXPECT_GT(failures, 2U);
  EXPECT_EQ(ReadFile(old), "new");
  EXPECT_TRUE(std::filesystem::is_symlink(link));
}

// Reading

TEST_F(RenderRefusedMemory, IsThrownByTheReader) {
  TextFormat const json = Formats().rbegin()[1];
  Digest const digest = Write(json);
  std::string const text = collector.Text();
  std::unique_ptr<OmOutputTree> read;
  HeldMemory const before = HeldMemory::Now();
  EXPECT_GT(FailEveryAllocation(
                [&] {
                  read.reset();
                  std::istringstream in(text);
                  read = ReadJson(in);
                },
                [&] { EXPECT_EQ(HeldMemory::Now(), before); }),
            300U);
  EXPECT_EQ(WriteTo(collector, json, *read), digest);
}

TEST_F(RenderRefusedMemory, IsThrownWhileAnErrorIsMade) {
  auto const error = [](std::string const& text) {
    return [text]() -> std::string {
      std::istringstream in(text);
      try {
        ReadJson(in);
      } catch (JsonError const& refusal) {
        return refusal.what();
      }
      return "none";
    };
  };
  std::string const start = R"({"format":"lakresvos-document","version":1,"parts":)";
  for (std::string const& text :
       {std::string("{\"a\" 1}"), std::string("[1e999]"), start + "7}",
        start + R"([{"kind":"?"}]})",
        start + R"([{"kind":"table","dimensions":[{"label":{"text":"a"},"group":7}]}]})"}) {
    EXPECT_GT(FailEveryAllocationOf(error(text)), 3U) << text;
  }
  EXPECT_GT(FailEveryAllocationOf([] {
              return std::string(MakeSyntaxError("{\n a long text}", 5, "a message").what());
            }),
            3U);
}

// Cells that throw

TEST(RenderThrowingCells, AreThrownOnByEveryFormat) {
  SpyBalance const balance;
  OmOutputTree document;
  FillWithSpies(AppendItem<Table>(document.begin()));
  Collector collector;
  std::size_t failures = 0;
  for (TextFormat const& format : Formats()) {
    Digest const expected = WriteTo(collector, format, document);
    for (SpyCell::Operation const operation : SpyCell::kThrowing) {
      Digest last;
      HeldMemory const before = HeldMemory::Now();
      failures += FailEveryCall(
          operation, [&] { last = WriteTo(collector, format, document); },
          [&] { EXPECT_EQ(HeldMemory::Now(), before) << format.name; });
      EXPECT_EQ(last, expected) << format.name;
    }
  }
  EXPECT_GT(failures, 200U);
}

TEST(RenderThrowingCells, AreThrownOnFromWhateverThreadReadsThem) {
  SpyBalance const balance;
  OmOutputTree document;
  FillWithSpies(AppendItem<Table>(document.begin()));
  Collector collector;
  TableOptions tables;
  tables.threads = 3;
  SmallBlocks const small(1);
  for (TextFormat const& format : Formats()) {
    SCOPED_TRACE(format.name);
    Digest const expected = WriteTo(collector, format, document);
    std::size_t failures = 0;
    for (SpyCell::Operation const operation : SpyCell::kThrowing) {
      Digest last;
      HeldMemory const before = HeldMemory::Now();
      failures += FailEveryCall(
          operation, [&] { last = WriteTo(collector, format, document, tables); },
          [&] { EXPECT_EQ(HeldMemory::Now(), before); });
      EXPECT_EQ(last, expected);
    }
    EXPECT_GT(failures, 6U);
  }
}

TEST(RenderThrowingCells, AreThrownOnByWorkbooks) {
  SpyBalance const balance;
  OmOutputTree document;
  FillWithSpies(AppendItem<Table>(document.begin()));
  Collector collector;
  std::ostream out(&collector);
  RenderXlsx(document, out);
  std::string const whole = ZipParts(collector.Text(), kTimePart);
  std::size_t failures = 0;
  for (SpyCell::Operation const operation : SpyCell::kThrowing) {
    HeldMemory const before = HeldMemory::Now();
    failures += FailEveryCall(
        operation,
        [&] {
          collector.Clear();
          RenderXlsx(document, out);
        },
        [&] {
          EXPECT_EQ(HeldMemory::Now(), before);
          EXPECT_EQ(collector.Text(), "");
        });
    EXPECT_EQ(ZipParts(collector.Text(), kTimePart) == whole, true);
  }
  EXPECT_GT(failures, 6U);
}
