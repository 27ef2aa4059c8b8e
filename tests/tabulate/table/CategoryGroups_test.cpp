#include "table/CategoryGroups.h"

#include <gtest/gtest.h>

#include <lakresvos/tabulate/CrossTable.h>

#include "support/ErrorOf.h"
#include "tabulate/TableReader.h"
#include "tabulate/TextData.h"

using namespace lakresvos::tabulate;

namespace {

using Texts = std::vector<std::string>;

DataSet Pets() {
  return ReadData(
      "kind,home,n\n"
      "cat,house,1\n"
      "dog,house,2\n"
      "emu,farm,3\n"
      "dog,farm,4\n"
      "cow,farm,5\n"
      "Total,farm,6\n",
      {"kind", "home", "n"});
}

std::unique_ptr<OmPivotTable> Table(std::string const& formula, Texts const& groups,
                                    bool totals = false) {
  std::vector<Grouping> groupings;
  for (std::string const& group : groups) {
    groupings.push_back(ParseGrouping(group));
  }
  WarningLog warnings;
  return MakeCrossTable(Pets(), RowWeights(Pets(), "n", warnings), {ParseFormula(formula), "", ""},
                        ParseStatistics("count"), totals, groupings);
}

/// The labels of the children of a dimension's root.
Texts Top(OmPivotTable const& table) {
  Texts labels;
  OmDimension const& dimension = table.Dimension(0);
  for (std::size_t i = 0; i < dimension.Root().NChildren(); ++i) {
    labels.push_back(dimension.Root()[i].Value().label->GetText());
  }
  return labels;
}

}  // namespace

TEST(CategoryGroups, GroupIsWhereItsFirstCategoryWas) {
  auto const table = Table("kind ~", {"kind: small = dog, emu"});
  EXPECT_EQ(Top(*table), (Texts{"cat", "small", "cow", "Total"}));
  EXPECT_EQ(CategoryPaths(table->Dimension(0)),
            (Texts{"cat", "small / dog", "small / emu", "cow", "Total"}));
}

TEST(CategoryGroups, CellsStayWithTheirCategories) {
  auto const table = Table("kind ~ home", {"kind: small = emu, dog"});
  EXPECT_EQ(TextAt(*table, {"small / dog", "house"}), "2");
  EXPECT_EQ(TextAt(*table, {"small / dog", "farm"}), "4");
  EXPECT_EQ(TextAt(*table, {"small / emu", "farm"}), "3");
  EXPECT_EQ(TextAt(*table, {"small / emu", "house"}), "(none)");
}

TEST(CategoryGroups, CategoriesApartFromEachOtherAreTogether) {
  auto const table = Table("kind ~", {"kind: `fed twice` = cow, cat"});
  EXPECT_EQ(Top(*table), (Texts{"fed twice", "dog", "emu", "Total"}));
}

TEST(CategoryGroups, SeveralGroupsAreSideBySide) {
  auto const table = Table("kind ~", {"kind: one = cat, dog", "kind: two = emu, cow"});
  EXPECT_EQ(Top(*table), (Texts{"one", "two", "Total"}));
}

TEST(CategoryGroups, OverallTotalIsNoCategory) {
  auto const table = Table("kind ~", {"kind: rest = Total, cow"}, true);
  EXPECT_EQ(Top(*table), (Texts{"cat", "dog", "emu", "rest", "Total"}));
  EXPECT_EQ(TextAt(*table, {"rest / Total"}), "6");
  EXPECT_EQ(TextAt(*table, {"Total"}), "21");
}

TEST(CategoryGroups, InnerColumnIsGroupedWithinEachOuterCategory) {
  auto const table = Table("home/kind ~", {"kind: common = cat, dog"});
  EXPECT_EQ(CategoryPaths(table->Dimension(0)),
            (Texts{"house / common / cat", "house / common / dog", "farm / common / dog",
                   "farm / emu", "farm / cow", "farm / Total"}));
}

TEST(CategoryGroups, OuterColumnIsGroupedWithAllBelow) {
  auto const table = Table("home/kind ~", {"home: all = house, farm", "kind: common = cat, dog"});
  EXPECT_EQ(Top(*table), (Texts{"all"}));
  EXPECT_EQ(CategoryPaths(table->Dimension(0))[0], "all / house / common / cat");
  EXPECT_EQ(TextAt(*table, {"all / farm / common / dog"}), "4");
}

TEST(CategoryGroups, OtherColumnsStayAsTheyAre) {
  auto const table = Table("kind ~ home", {"home: both = house, farm"});
  EXPECT_EQ(Top(*table), (Texts{"cat", "dog", "emu", "cow", "Total"}));
}

TEST(CategoryGroups, GroupNamedLikeACategoryIsNotTakenForIt) {
  auto const table = Table("kind ~", {"kind: cow = cat, dog", "kind: big = emu, cow"});
  EXPECT_EQ(CategoryPaths(table->Dimension(0)),
            (Texts{"cow / cat", "cow / dog", "big / emu", "big / cow", "Total"}));
}

TEST(CategoryGroups, NumbersAreGroupedHoweverTheyAreWritten) {
  EXPECT_EQ(Top(*Table("n ~", {"n: few = 3, 1.0, 2e0"})), (Texts{"few", "4", "5", "6"}));
}

TEST(CategoryGroups, SiblingsInOneOuterCategoryAreGroupedWhereverTheyAre) {
  EXPECT_EQ(Top(*Table("kind/home ~", {"home: all = farm, house"})),
            (Texts{"cat", "dog", "emu", "cow", "Total"}));
  EXPECT_EQ(CategoryPaths(Table("kind/home ~", {"home: all = farm, house"})->Dimension(0)),
            (Texts{"cat / all / house", "dog / all / house", "dog / all / farm", "emu / all / farm",
                   "cow / all / farm", "Total / all / farm"}));
}

TEST(CategoryGroups, CategoriesInDifferentOuterOnesAreAnError) {
  EXPECT_EQ(ErrorOf([] { Table("home/kind ~", {"kind: x = cat, dog, emu"}); }),
            "group 'kind: x = cat, dog, emu': category 'emu' never occurs next to 'cat' "
            "at position 21");
}

TEST(CategoryGroups, CategoriesOfTheOutermostColumnAreSiblings) {
  EXPECT_EQ(Top(*Table("kind/home ~", {"kind: x = cat, emu"})),
            (Texts{"x", "dog", "cow", "Total"}));
}

TEST(CategoryGroups, UnknownCategoryIsNamed) {
  EXPECT_EQ(ErrorOf([] { Table("kind ~", {"kind: x = cat, yak"}); }),
            "group 'kind: x = cat, yak': unknown category 'yak' of column 'kind' at position 16");
}

TEST(CategoryGroups, CategoryBelongsToOneGroup) {
  EXPECT_EQ(ErrorOf([] {
              Table("kind ~", {"kind: x = cat", "kind: y = dog, cat"});
            }),
            "group 'kind: y = dog, cat': duplicate category 'cat' (already in group 'x') "
            "at position 16");
}

TEST(CategoryGroups, CategoryIsOnceInAGroup) {
  EXPECT_EQ(ErrorOf([] { Table("kind ~", {"kind: x = cat, dog, cat"}); }),
            "group 'kind: x = cat, dog, cat': duplicate category 'cat' at position 21");
  EXPECT_EQ(ErrorOf([] { Table("n ~", {"n: x = 1, 1.0"}); }),
            "group 'n: x = 1, 1.0': duplicate category '1.0' at position 11");
}

TEST(CategoryGroups, NumberBelongsToOneGroupHoweverItIsWritten) {
  EXPECT_EQ(
      ErrorOf([] {
        Table("n ~", {"n: x = 1", "n: y = 2, 1e0"});
      }),
      "group 'n: y = 2, 1e0': duplicate category '1e0' (already in group 'x') at position 11");
}

TEST(CategoryGroups, GroupsOfOneColumnHaveDifferentNames) {
  EXPECT_EQ(ErrorOf([] {
              Table("kind ~", {"kind: x = cat", "kind: x = dog"});
            }),
            "group 'kind: x = dog': duplicate group 'x' at position 7");
}

TEST(CategoryGroups, MembersOfSeveralGroupsMayTakeTurns) {
  auto const table = Table("kind ~", {"kind: b = emu, dog", "kind: a = cow, cat, Total"}, true);
  EXPECT_EQ(Top(*table), (Texts{"a", "b", "Total"}));
  EXPECT_EQ(CategoryPaths(table->Dimension(0)),
            (Texts{"a / cat", "b / dog", "b / emu", "a / cow", "a / Total", "Total"}));
}
