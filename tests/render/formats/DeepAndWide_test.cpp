#include <algorithm>
#include <gtest/gtest.h>
#include <iterator>
#include <memory>
#include <ostream>
#include <stdexcept>
#include <string>
#include <tuple>
#include <vector>

#include <cells/OmComposite.h>
#include <lakresvos/OmDisplayLayerHeading.h>
#include <lakresvos/OmHeading.h>
#include <lakresvos/render/JsonRenderer.h>
#include <lakresvos/render/XlsxRenderer.h>

#include "render/json/Documents.h"
#include "render/support/RenderTables.h"
#include "render/support/Sink.h"
#include "render/support/TextFormats.h"
#include "support/SmallStack.h"
#include "support/faults/FailingNew.h"

using namespace lakresvos::render;
using namespace render_tables;

// Documents as deep and as wide as can be are built, copied, edited, rendered in every format, read
// again and destroyed on a small stack and in memory for what they hold.

namespace {

constexpr int kLevels = 100'000;
constexpr unsigned int kMillion = 1'000'000;

// Shapes of documents

struct Shape {
  std::string name;
  void (*build)(OmOutputTree& tree);
  std::size_t size;       ///< how many nodes, categories and cells there are
  bool fitsSheet = true;  ///< whether a workbook has room for it
  bool readAgain = true;  ///< false for what another shape has on another axis

  friend std::ostream& operator<<(std::ostream& out, Shape const& shape) {
    return out << shape.name;
  }
};

Table& AppendTable(OmOutputTree& tree) {
  return AppendItem<Table>(tree.begin());
}

void DeepDocument(OmOutputTree& tree) {
  OmOutputTree::Node node = tree.begin();
  for (int level = 0; level < kLevels; ++level) {
    node = node.AppendChild(new OmHeading(Utf8("h")));
  }
}

/// A table with a dimension of groups one in the other around two categories, both with a cell.
Table& DeepTable(OmOutputTree& tree, bool hidden) {
  Table& table = AppendTable(tree);
  OmDimension& dimension = table.Add("deep");
  layout_tables::Node node = dimension.Root();
  for (int level = 0; level < kLevels; ++level) {
    node = Group(dimension, node, "g");
    node.Value().hide = hidden;
  }
  Category(dimension, node, "a", 0);
  Category(dimension, node, "b", 1);
  table.PutAll();
  return table;
}

void DeepRows(OmOutputTree& tree) {
  DeepTable(tree, false).Place({0}, {});
}

void DeepColumns(OmOutputTree& tree) {
  DeepTable(tree, false).Place({}, {0});
}

void DeepLayers(OmOutputTree& tree) {
  DeepTable(tree, false).Place({}, {}, {0});
}

void DeepHiddenRows(OmOutputTree& tree) {
  DeepTable(tree, true).Place({0}, {});
}

std::unique_ptr<OmCellText> DeepComposite() {
  auto outer = std::make_unique<OmComposite>("x{0}");
  for (int level = 0; level < kLevels; ++level) {
    auto around = std::make_unique<OmComposite>("{0}");
    OmVectorTree<OmCellText*>::AppendChild(around->Parts().Root(), outer.get());
    (void)outer.release();
    outer = std::move(around);
  }
  return outer;
}

void DeepCells(OmOutputTree& tree) {
  std::unique_ptr<OmCellText> const deep = DeepComposite();
  Table& table = AppendTable(tree);
  OmDimension& dimension = table.AddDimension(*deep);
  dimension.AddNewChild(dimension.Root(), *deep, 0, false);
  table.Place({0}, {});
  table.Cell({0}, *deep);
  table.SetTableTitle(*deep);
  table.Caption(deep.get());
  OmFootnote footnote;
  footnote.text = deep->Clone(nullptr);
  table.Footnote(footnote, true);
}

Table& WideTable(OmOutputTree& tree, unsigned int cells) {
  Table& table = AppendTable(tree);
  OmDimension& dimension = table.Add("wide");
  for (unsigned int i = 0; i < kMillion; ++i) {
    Category(dimension, dimension.Root(), "c", i);
  }
  for (unsigned int i = 0; i < cells; ++i) {
    table.Put({static_cast<int>(kMillion / cells * i)});
  }
  return table;
}

void WideRows(OmOutputTree& tree) {
  WideTable(tree, 100'000).Place({0}, {});
}

void WideColumnsWithFewCells(OmOutputTree& tree) {
  WideTable(tree, 10).Place({}, {0});
}

void WideLayersWithFewCells(OmOutputTree& tree) {
  WideTable(tree, 10).Place({}, {}, {0});
}

/// 20 dimensions of 10 categories: more combinations than 64 bits count.
void ManyDimensions(OmOutputTree& tree) {
  Table& table = AppendTable(tree);
  for (int d = 0; d < 20; ++d) {
    table.AddFlat(std::string(1, static_cast<char>('A' + d)), 10);
    auto const number = static_cast<short>(d);
    (d % 3 == 0 ? table.Rows() : d % 3 == 1 ? table.Columns() : table.Layers()).push_back(number);
  }
  for (int cell = 0; cell < 10; ++cell) {
    table.Put(std::vector<int>(20, cell));
  }
}

void ManyDimensionsOnOneAxis(OmOutputTree& tree) {
  Table& table = AppendTable(tree);
  for (int d = 0; d < 20; ++d) {
    table.AddFlat(std::string(1, static_cast<char>('A' + d)), 10);
    table.Rows().push_back(static_cast<short>(d));
  }
  for (int cell = 0; cell < 10; ++cell) {
    table.Put(std::vector<int>(20, cell));
  }
}

/// Categories with subscripts up to the last one, in two dimensions: 2^62 combinations.
void FarSubscripts(OmOutputTree& tree) {
  Table& table = AppendTable(tree);
  for (char const* const label : {"R", "C"}) {
    OmDimension& dimension = table.Add(label);
    for (unsigned long const subscript : {0UL, 0x7FFFFFFEUL, 0x7FFFFFFFUL}) {
      Category(dimension, dimension.Root(), std::to_string(subscript), subscript);
    }
    dimension.setCategoryCount(0x7FFFFFFF);
  }
  table.Place({0}, {1});
  table.Put({0, 0x7FFFFFFF});
  table.Put({0x7FFFFFFE, 0});
  table.Put({0x7FFFFFFF, 0x7FFFFFFE});
}

Shape const kShapes[] = {
    {"DeepDocument", DeepDocument, kLevels},
    {"DeepRows", DeepRows, kLevels, false},
    {"DeepColumns", DeepColumns, kLevels},
    {"DeepLayers", DeepLayers, kLevels},
    {"DeepHiddenRows", DeepHiddenRows, kLevels},
    {"DeepCells", DeepCells, 6 * kLevels},
    {"WideRows", WideRows, kMillion + 100'000},
    {"WideColumnsWithFewCells", WideColumnsWithFewCells, kMillion, true, false},
    {"WideLayersWithFewCells", WideLayersWithFewCells, kMillion, true, false},
    {"ManyDimensions", ManyDimensions, 200},
    {"ManyDimensionsOnOneAxis", ManyDimensionsOnOneAxis, 200},
    {"FarSubscripts", FarSubscripts, 9},
};

std::vector<TextFormat> Formats() {
  std::vector<TextFormat> formats = TextFormats();
  formats.push_back({"json", [](auto const& tree, auto& out, auto const& /*tables*/) {
                       JsonOptions options;
                       options.layout = true;
                       RenderJson(tree, out, options);
                     }});
  formats.push_back(
      {"xlsx", [](auto const& tree, auto& out, auto const& /*tables*/) { RenderXlsx(tree, out); }});
  return formats;
}

/// The first table of a document; null for none.
OmPivotTable* FindTable(OmOutputTree& tree) {
  for (OmOutputTree::Node node = tree.begin(); !node.AtEnd(); ++node) {
    if (auto* const table = dynamic_cast<OmPivotTable*>(*node)) {
      return table;
    }
  }
  return nullptr;
}

/// What may be held at one time for so many nodes, categories and cells. A group with one group in it
/// takes 760 bytes, for a vector starts with room for four.
constexpr std::size_t MostMemory(std::size_t size) {
  return (std::size_t{1} << 20) + 1024 * size;
}

class DeepAndWide : public testing::TestWithParam<Shape> {};

/// Of the shapes that are read again.
class DeepAndWideReading : public DeepAndWide {};

/// Of those with a table.
class DeepAndWideTable : public DeepAndWide {};

class DeepAndWideFormat : public testing::TestWithParam<std::tuple<Shape, TextFormat>> {};

}  // namespace

TEST_P(DeepAndWideFormat, IsWritten) {
  auto const& [shape, format] = GetParam();
  OnASmallStack([&shape = shape, &format = format] {
    OmOutputTree tree;
    shape.build(tree);
    Sink sink;
    std::ostream out(&sink);
    MemoryMeter const meter;
    if (format.name == "xlsx" && !shape.fitsSheet) {
      EXPECT_THROW(format.write(tree, out, {}), std::length_error);
    } else {
      format.write(tree, out, {});
    }
    EXPECT_LT(meter.Peak(), MostMemory(shape.size));
  });
}

TEST_P(DeepAndWide, IsBuiltAndDestroyed) {
  OnASmallStack([] {
    MemoryMeter const meter;
    {
      OmOutputTree tree;
      GetParam().build(tree);
    }
    EXPECT_LT(meter.Peak(), MostMemory(GetParam().size));
  });
}

TEST_P(DeepAndWideReading, IsReadAsItWasWritten) {
  OnASmallStack([] {
    OmOutputTree tree;
    GetParam().build(tree);
    std::string const text = json_documents::Written(tree);
    MemoryMeter const meter;
    std::unique_ptr<OmOutputTree> const read = json_documents::Read(text);
    EXPECT_LT(meter.Peak(), MostMemory(GetParam().size) + 8 * text.size());
    EXPECT_EQ(json_documents::Written(*read), text);
  });
}

TEST_P(DeepAndWideTable, IsCopied) {
  OnASmallStack([] {
    OmOutputTree tree;
    GetParam().build(tree);
    OmPivotTable const* const table = FindTable(tree);
    MemoryMeter const meter;
    Table copy;
    copy.CopyDimensions(*table);
    for (auto at = table->FirstCell(); at.Cell() != nullptr; ++at) {
      copy.Cell(at.Index(), at.Cell());
    }
    EXPECT_EQ(copy.SizeVector(), table->SizeVector());
    EXPECT_EQ(StoredCells(copy), StoredCells(*table));
    EXPECT_LT(meter.Peak(), MostMemory(GetParam().size));
  });
}

TEST_P(DeepAndWideTable, IsEdited) {
  OnASmallStack([] {
    OmOutputTree tree;
    GetParam().build(tree);
    OmPivotTable* const table = FindTable(tree);
    OmDimension& dimension = table->Dimension(0);
    auto const deepest = [&] {
      layout_tables::Node node = dimension.Root();
      while (node.NChildren() != 0) {
        node = node[node.NChildren() - 1];
      }
      return node;
    };
    MemoryMeter const meter;
    unsigned int const count = dimension.CategoryCount();
    layout_tables::Node last = deepest();
    layout_tables::Node parent = last.Parent();
    dimension.insertCategory(Utf8("new"), last, parent, true);
    EXPECT_EQ(dimension.CategoryCount(), count + 1);
    last = deepest();
    parent = last.Parent();
    layout_tables::Node first = parent[0];
    dimension.moveChild(last, &first, false);
    first = deepest().Parent()[0];
    last = deepest();
    dimension.moveChild(first, &last, true);
    last = deepest();
    dimension.insertChild(Utf8("around"), {&last});
    layout_tables::Node around = deepest().Parent();
    EXPECT_EQ(around.Value().label->GetText(), "around");
    dimension.removeChild(around);
    last = deepest();
    dimension.Delete(last);
    OmDisplayLayerHeading layers(*table, true);
    EXPECT_TRUE(layers.NextLayer());
    EXPECT_LT(meter.Peak(), MostMemory(GetParam().size));
  });
}

TEST(DeepDocument, IsEdited) {
  OnASmallStack([] {
    OmOutputTree tree;
    DeepDocument(tree);
    auto const find = [&](int depth) {
      OmOutputTree::Node node = tree.begin();
      while (node.depth != depth) {
        ++node;
      }
      return node;
    };
    MemoryMeter const meter;
    OmOutputTree::Node erased = find(1);
    tree.Erase(erased);
    EXPECT_EQ(tree.size(), kLevels);
    OmOutputTree::Node pruned = find(3 * kLevels / 4);
    tree.Prune(pruned);
    EXPECT_EQ(tree.size(), 3 * kLevels / 4);
    Amputate(find(kLevels / 4), nullptr, "cut");
    EXPECT_EQ(tree.size(), 3 * kLevels / 4);
    Amputate(find(1), nullptr, "cut");
    EXPECT_EQ(tree.size(), 3U);
    EXPECT_LT(meter.Peak(), MostMemory(kLevels));
  });
}

/// Those shapes that are wanted.
std::vector<Shape> ShapesWith(bool (*isWanted)(Shape const&)) {
  std::vector<Shape> shapes;
  std::copy_if(std::begin(kShapes), std::end(kShapes), std::back_inserter(shapes), isWanted);
  return shapes;
}

std::string NameOfShape(testing::TestParamInfo<Shape> const& shape) {
  return shape.param.name;
}

INSTANTIATE_TEST_SUITE_P(Shapes, DeepAndWide, testing::ValuesIn(kShapes), NameOfShape);

INSTANTIATE_TEST_SUITE_P(Shapes, DeepAndWideReading,
                         testing::ValuesIn(ShapesWith([](auto& shape) { return shape.readAgain; })),
                         NameOfShape);

INSTANTIATE_TEST_SUITE_P(Shapes, DeepAndWideTable, testing::ValuesIn(ShapesWith([](auto& shape) {
                           return shape.build != DeepDocument;
                         })),
                         NameOfShape);

INSTANTIATE_TEST_SUITE_P(Shapes, DeepAndWideFormat,
                         testing::Combine(testing::ValuesIn(kShapes), testing::ValuesIn(Formats())),
                         [](auto const& both) {
                           std::string name =
                               std::get<0>(both.param).name + "_" + std::get<1>(both.param).name;
                           std::replace(name.begin(), name.end(), ' ', '_');
                           return name;
                         });
