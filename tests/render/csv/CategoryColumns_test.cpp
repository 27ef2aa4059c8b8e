#include "csv/CategoryColumns.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include <cells/OmComposite.h>

#include "render/support/RenderTables.h"

using lakresvos::render::CategoryColumns;
using lakresvos::render::LabelTexts;
using namespace render_tables;

namespace {

using Names = std::vector<std::string>;

class CategoryColumnsTest : public testing::Test {
 protected:
  CategoryColumns Columns(OmDimension const& dimension) {
    return CategoryColumns(dimension, labels_);
  }

  /// Adds a dimension that is labelled by a composite of these parts.
  OmDimension& AddComposed(Names const& parts) {
    OmComposite label("composed");
    for (std::string const& part : parts) {
      label.AddPart(OmStringCell(part));
    }
    return table_.AddDimension(label);
  }

  /// A category below a group, and one beside it.
  static void AddTwoLevels(OmDimension& dimension) {
    auto const group = Group(dimension, dimension.Root(), "group");
    Category(dimension, group, "inner", 0);
    Category(dimension, dimension.Root(), "outer", 1);
  }

  Table table_;
  LabelTexts labels_;
};

/// The labels of a category by level, "-" for none.
Names Texts(CategoryColumns const& columns, std::size_t position) {
  Names texts;
  for (std::size_t level = 0; level < columns.Levels(); ++level) {
    OmCellText const* const label = columns.Label(position, level);
    texts.push_back(label != nullptr ? label->GetText() : "-");
  }
  return texts;
}

}  // namespace

TEST_F(CategoryColumnsTest, CategoryIsInTheLastColumn) {
  OmDimension& dimension = table_.Add("d");
  AddTwoLevels(dimension);
  CategoryColumns const columns = Columns(dimension);
  ASSERT_EQ(columns.Count(), 2U);
  EXPECT_EQ(Texts(columns, 0), (Names{"group", "inner"}));
  EXPECT_EQ(Texts(columns, 1), (Names{"-", "outer"}));
}

TEST_F(CategoryColumnsTest, LevelsAreNumberedUnlessThePartsOfACompositeNameThem) {
  OmDimension& plain = table_.Add("d");
  AddTwoLevels(plain);
  EXPECT_EQ(Columns(plain).Names(), (Names{"d 1", "d 2"}));
  OmDimension& named = AddComposed({"region", "city"});
  AddTwoLevels(named);
  EXPECT_EQ(Columns(named).Names(), (Names{"region", "city"}));
  OmDimension& misnamed = AddComposed({"region", "city", "street"});
  AddTwoLevels(misnamed);
  EXPECT_EQ(Columns(misnamed).Names(), (Names{"composed 1", "composed 2"}));
}

TEST_F(CategoryColumnsTest, WithoutCategoriesThePartsOfACompositeAreTheLevels) {
  EXPECT_EQ(Columns(table_.Add("d")).Names(), Names{"d"});
  EXPECT_EQ(Columns(AddComposed({})).Names(), Names{"composed"});
  EXPECT_EQ(Columns(AddComposed({"region", "city"})).Names(), (Names{"region", "city"}));
}

// A kind that is made of another one's is told apart as that one.
TEST_F(CategoryColumnsTest, KindDerivedFromACompositeIsOne) {
  class Derived : public OmComposite {
   public:
    using OmComposite::OmComposite;
    OmCellText* Clone(OmMemoryRegion* region) const override {
      auto* const copy = new (region) Derived("derived");
      for (std::size_t i = 0; i < Parts().Root().NChildren(); ++i) {
        copy->AddPart(*Parts().Root()[i].Value());
      }
      return copy;
    }
  };
  Derived label("derived");
  label.AddPart(OmStringCell("region"));
  label.AddPart(OmStringCell("city"));
  EXPECT_EQ(Columns(table_.AddDimension(label)).Names(), (Names{"region", "city"}));
}

TEST_F(CategoryColumnsTest, CategoriesAreFoundBySubscript) {
  OmDimension& dimension = table_.Add("d");
  Category(dimension, dimension.Root(), "first", 7);
  Category(dimension, dimension.Root(), "again", 7);
  Category(dimension, dimension.Root(), "other", 2);
  CategoryColumns const columns = Columns(dimension);
  EXPECT_EQ(columns.Find(7), 0U);
  EXPECT_EQ(columns.Find(2), 2U);
  EXPECT_EQ(columns.Find(3), columns.Count());
  EXPECT_EQ(columns.Subscript(2), 2);
}

TEST_F(CategoryColumnsTest, TotalsAreToldByTheirMark) {
  OmDimension& dimension = table_.Add("d");
  Category(dimension, dimension.Root(), "Total", 0);
  EXPECT_FALSE(Columns(dimension).HasTotal());
  OmStringCell label("sum");
  OmCellMetaData meta;
  meta.setTotal(true);
  label.setMeta(&meta);
  dimension.AddNewChild(dimension.Root(), label, 1, false);
  CategoryColumns const columns = Columns(dimension);
  EXPECT_TRUE(columns.HasTotal());
  EXPECT_FALSE(columns.IsTotal(0));
  EXPECT_TRUE(columns.IsTotal(1));
}
