#include <gtest/gtest.h>

#include <cells/OmComposite.h>
#include <cells/OmDataValue.h>
#include <cells/OmNumber.h>
#include <cells/OmVariable.h>
#include <lakresvos/tabulate/CrossTable.h>

#include "tabulate/TableReader.h"
#include "tabulate/TextData.h"

using namespace lakresvos::tabulate;

namespace {

using Texts = std::vector<std::string>;

struct Request {
  std::string formula;
  std::string statistics = "count";
  bool totals = false;
  std::string weight = {};
  std::string title = {};
  std::string caption = {};
};

std::unique_ptr<OmPivotTable> Table(DataSet const& data, Request const& request) {
  WarningLog warnings;
  RowWeights const weights =
      request.weight.empty() ? RowWeights() : RowWeights(data, request.weight, warnings);
  return MakeCrossTable(data, weights,
                        {ParseFormula(request.formula), request.title, request.caption},
                        ParseStatistics(request.statistics), request.totals);
}

std::vector<short> Axis(PuppetVector<short> const& axis) {
  return axis.elements;
}

std::string Title(OmPivotTable const& table) {
  return table.GetTableTitle()->GetText();
}

DataSet Passengers() {
  return ReadData(
      "class,sex,age,fare,n\n"
      "1st,m,30,10.5,2\n"
      "2nd,f,4,8,1\n"
      "1st,f,30,7.25,0\n"
      "1st,m,4,,3\n",
      {"class", "sex", "age", "fare", "n"});
}

}  // namespace

TEST(CrossTable, NamesItsDimensionsAndCategories) {
  auto const table = Table(Passengers(), {"class ~ sex | age"});
  ASSERT_EQ(table->NDimensions(), 3);
  EXPECT_EQ(table->Dimension(0).Root().Value().label->GetText(), "class");
  EXPECT_EQ(CategoryPaths(table->Dimension(0)), (Texts{"1st", "2nd"}));
  EXPECT_EQ(CategoryPaths(table->Dimension(1)), (Texts{"m", "f"}));
  EXPECT_EQ(CategoryPaths(table->Dimension(2)), (Texts{"4", "30"}));
  EXPECT_EQ(table->TemplateName()->GetText(), "Tabulation");
}

TEST(CrossTable, GivesLabelsTheKindOfWhatTheyAre) {
  auto const table = Table(Passengers(), {"class ~ age"});
  OmDimension const& classes = table->Dimension(0);
  OmDimension const& ages = table->Dimension(1);
  EXPECT_NE(dynamic_cast<OmVariable*>(classes.Root().Value().label), nullptr);
  EXPECT_NE(dynamic_cast<OmStringDataValue*>(classes.Root().Child(0).Value().label), nullptr);
  auto* const age = dynamic_cast<OmNumDataValue*>(ages.Root().Child(1).Value().label);
  ASSERT_NE(age, nullptr);
  EXPECT_EQ(age->Value(), 30);
}

TEST(CrossTable, ShowsNumbersAsTheDataHaveThem) {
  auto const table = Table(ReadData("a\n1.50\n1.5\n2\n", {"a"}), {"a ~"});
  EXPECT_EQ(CategoryPaths(table->Dimension(0)), (Texts{"1.50", "2"}));
  EXPECT_EQ(TextAt(*table, {"1.50"}), "2");
}

TEST(CrossTable, ShowsEveryZeroAsZero) {
  EXPECT_EQ(CategoryPaths(Table(ReadData("a\n-0\n0\n5\n", {"a"}), {"a ~"})->Dimension(0)),
            (Texts{"0", "5"}));
  EXPECT_EQ(CategoryPaths(Table(ReadData("a\n-0.0\n", {"a"}), {"a ~"})->Dimension(0)),
            (Texts{"0.0"}));
}

TEST(CrossTable, HasACellForEachOfTwoNumbersThatAreOneDouble) {
  DataSet const data = ReadData("a\n9007199254740993\n9007199254740992\n9007199254740993\n", {"a"});
  auto const table = Table(data, {"a ~"});
  EXPECT_EQ(TextAt(*table, {"9007199254740992"}), "1");
  EXPECT_EQ(TextAt(*table, {"9007199254740993"}), "2");
}

TEST(CrossTable, PutsTheFirstColumnOfTheFormulaOutermost) {
  auto const table = Table(Passengers(), {"class * sex ~ age * fare | n"});
  EXPECT_EQ(Axis(table->Rows()), (std::vector<short>{1, 0}));
  EXPECT_EQ(Axis(table->Columns()), (std::vector<short>{3, 2}));
  EXPECT_EQ(Axis(table->Layers()), (std::vector<short>{4}));
}

TEST(CrossTable, PutsStatisticsInnermostOnTheColumns) {
  auto const table = Table(Passengers(), {"class ~ sex * age", "count,mean:fare"});
  EXPECT_EQ(Axis(table->Columns()), (std::vector<short>{3, 2, 1}));
  EXPECT_EQ(table->Dimension(3).Root().Value().label->GetText(), "Statistics");
  EXPECT_EQ(CategoryPaths(table->Dimension(3)), (Texts{"Count", "Mean of fare"}));
}

TEST(CrossTable, HasNoStatisticsDimensionForOneStatistic) {
  EXPECT_EQ(Table(Passengers(), {"class ~", "mean:fare"})->NDimensions(), 1);
}

TEST(CrossTable, HasAStatisticsDimensionWhenItHasNoOther) {
  auto const table = Table(Passengers(), {"~"});
  ASSERT_EQ(table->NDimensions(), 1);
  EXPECT_EQ(TextAt(*table, {"Count"}), "4");
}

TEST(CrossTable, HasNoCellWhereNothingOccursAndZeroWhereTheWeightIs) {
  auto const table = Table(Passengers(), {"class ~ sex", "count", false, "n"});
  EXPECT_EQ(TextAt(*table, {"1st", "m"}), "5");
  EXPECT_EQ(TextAt(*table, {"1st", "f"}), "0");
  EXPECT_EQ(TextAt(*table, {"2nd", "m"}), "(none)");
  EXPECT_EQ(TextAt(*table, {"2nd", "f"}), "1");
  EXPECT_EQ(CellCount(*table), 3u);
}

TEST(CrossTable, HasNoTotalsUnlessAskedFor) {
  auto const table = Table(Passengers(), {"class ~ sex", "row%"});
  EXPECT_EQ(CategoryPaths(table->Dimension(0)), (Texts{"1st", "2nd"}));
  EXPECT_EQ(CellCount(*table), 3u);
}

TEST(CrossTable, HasTotalsOnRowsAndColumnsButNotOnLayers) {
  auto const table = Table(Passengers(), {"class ~ sex | age", "count", true});
  EXPECT_EQ(CategoryPaths(table->Dimension(0)), (Texts{"1st", "2nd", "Total"}));
  EXPECT_EQ(CategoryPaths(table->Dimension(1)), (Texts{"m", "f", "Total"}));
  EXPECT_EQ(CategoryPaths(table->Dimension(2)), (Texts{"4", "30"}));
  EXPECT_EQ(TextAt(*table, {"Total", "Total", "4"}), "2");
  EXPECT_EQ(TextAt(*table, {"Total", "Total", "30"}), "2");
}

TEST(CrossTable, TellsATotalFromAValueOfThatName) {
  auto const table = Table(ReadData("a\nTotal\nx\n", {"a"}), {"a ~", "count", true});
  EXPECT_EQ(table->Size(0), 3);
  EXPECT_EQ(table->Cell({0})->GetText(), "1");
  EXPECT_EQ(table->Cell({2})->GetText(), "2");
}

TEST(CrossTable, MarksTheLabelOfATotalAsSuch) {
  auto const table = Table(ReadData("a\nTotal\nx\n", {"a"}), {"a ~", "count", true});
  OmDimension const& dimension = table->Dimension(0);
  EXPECT_FALSE(dimension.Root().Child(0).Value().label->hasMeta());
  ASSERT_TRUE(dimension.Root().Child(2).Value().label->hasMeta());
  EXPECT_TRUE(dimension.Root().Child(2).Value().label->getMeta()->isTotal());
}

TEST(CrossTable, NestsCategoriesInGroups) {
  auto const table = Table(Passengers(), {"class / sex ~", "count", true});
  OmDimension const& dimension = table->Dimension(0);
  EXPECT_EQ(dimension.Root().Value().label->GetText(), "class / sex");
  EXPECT_EQ(CategoryPaths(dimension), (Texts{"1st / m", "1st / f", "2nd / f", "Total"}));
  ASSERT_EQ(dimension.Root().NChildren(), 3u);
  EXPECT_TRUE(dimension.Root().Child(0).Value().group);
  EXPECT_FALSE(dimension.Root().Child(2).Value().group);
  EXPECT_EQ(TextAt(*table, {"1st / m"}), "2");
  EXPECT_EQ(TextAt(*table, {"Total"}), "4");
}

TEST(CrossTable, NestsThreeLevels) {
  auto const table = Table(Passengers(), {"age / class / sex ~"});
  EXPECT_EQ(CategoryPaths(table->Dimension(0)),
            (Texts{"4 / 1st / m", "4 / 2nd / f", "30 / 1st / m", "30 / 1st / f"}));
}

TEST(CrossTable, NestsManyGroupsWithLiveParents) {
  std::string bytes = "a,b\n";
  Texts expected;
  for (int a = 0; a < 40; ++a) {
    for (int b = 0; b < 40; ++b) {
      bytes += std::to_string(a) + "," + std::to_string(b) + "\n";
      expected.push_back(std::to_string(a) + " / " + std::to_string(b));
    }
  }
  auto const table = Table(ReadData(bytes, {"a", "b"}), {"a/b ~"});
  EXPECT_EQ(CategoryPaths(table->Dimension(0)), expected);
  for (std::size_t group = 0; group < 40; ++group) {
    OmDimension::ConstNode const node = table->Dimension(0).Root().Child(group);
    EXPECT_EQ(node.Child(39).Parent().element, node.element);
  }
}

TEST(CrossTable, ShowsEachStatisticWithItsDecimals) {
  auto const table = Table(
      Passengers(), {"~ sex", "count,row%,mean:fare,sd:age,sum:fare,min:fare,max:age", true, "n"});
  EXPECT_EQ(TextAt(*table, {"m", "Count"}), "5");
  EXPECT_EQ(TextAt(*table, {"m", "Row %"}), "83.3");
  EXPECT_EQ(TextAt(*table, {"m", "Mean of fare"}), "10.50");
  EXPECT_EQ(TextAt(*table, {"m", "Std. deviation of age"}), "14.24");
  EXPECT_EQ(TextAt(*table, {"m", "Sum of fare"}), "21.00");
  EXPECT_EQ(TextAt(*table, {"Total", "Minimum of fare"}), "8.00");
  EXPECT_EQ(TextAt(*table, {"m", "Maximum of age"}), "30");
}

TEST(CrossTable, ShowsCountsWithTheDecimalsOfTheWeights) {
  auto const table =
      Table(ReadData("a,w\nx,0.5\nx,1.25\n", {"a", "w"}), {"a ~", "count", false, "w"});
  EXPECT_EQ(TextAt(*table, {"x"}), "1.75");
}

TEST(CrossTable, ShowsWhatCannotBeComputedAsMissing) {
  auto const table = Table(Passengers(), {"~ sex", "mean:fare,sd:fare,row%", false, "n"});
  EXPECT_EQ(TextAt(*table, {"f", "Mean of fare"}), "8.00");
  EXPECT_EQ(TextAt(*table, {"f", "Std. deviation of fare"}), ".");
}

TEST(CrossTable, NotesMissingValuesAtTheCellsConcerned) {
  auto const table = Table(Passengers(), {"class ~ sex", "count,mean:fare,sd:fare"});
  EXPECT_EQ(NotesAt(*table, CellAt(*table, {"1st", "m", "Mean of fare"})), "fare missing in 1 row");
  EXPECT_EQ(NotesAt(*table, CellAt(*table, {"1st", "m", "Std. deviation of fare"})),
            "fare missing in 1 row");
  EXPECT_EQ(NotesAt(*table, CellAt(*table, {"1st", "m", "Count"})), "");
  EXPECT_EQ(NotesAt(*table, CellAt(*table, {"2nd", "f", "Mean of fare"})), "");
  EXPECT_EQ(table->Footnotes().size(), 1u);
  EXPECT_EQ(NotesAt(*table, table->GetTableTitle()), "");
}

TEST(CrossTable, NotesRowsLeftOutAtTheTitle) {
  auto const table = Table(ReadData("a,b\nx,\nNA,1\nNA,NA\nx,1\n", {"a", "b"}), {"a ~ b"});
  EXPECT_EQ(NotesAt(*table, table->GetTableTitle()),
            "3 rows with missing values are left out (a: 2, b: 2)");
}

TEST(CrossTable, NotesOneRowLeftOutInTheSingular) {
  auto const table = Table(ReadData("a,b\nx,\nx,1\n", {"a", "b"}), {"a ~ b"});
  EXPECT_EQ(NotesAt(*table, table->GetTableTitle()),
            "1 row with missing values is left out (b: 1)");
}

TEST(CrossTable, NumbersFootnotesInReadingOrder) {
  auto const table = Table(ReadData("a,b,c,x\n2,2,2,\n2,2,2,\n2,2,2,\n2,2,2,\n"
                                    "2,1,1,\n2,1,1,\n2,1,1,\n1,2,1,\n1,2,1,\n1,1,1,\n",
                                    {"a", "b", "c", "x"}),
                           {"a ~ b | c", "mean:x"});
  ASSERT_EQ(table->Footnotes().size(), 4u);
  for (unsigned int i = 0; i < 4; ++i) {
    EXPECT_EQ(table->Footnotes()[i].text->GetText(),
              "x missing in " + std::to_string(i + 1) + (i == 0 ? " row" : " rows"));
  }
}

TEST(CrossTableTitle, SaysWhatIsTabulated) {
  EXPECT_EQ(Title(*Table(Passengers(), {"class * sex ~ fare | age * n", "count,mean:fare"})),
            "Count, Mean of fare: class, sex by fare for each age, n");
}

TEST(CrossTableTitle, NamesNestedColumns) {
  EXPECT_EQ(Title(*Table(Passengers(), {"class / sex * age ~"})), "Count: class / sex, age");
}

TEST(CrossTableTitle, WithoutRows) {
  EXPECT_EQ(Title(*Table(Passengers(), {"~ sex"})), "Count: sex");
}

TEST(CrossTableTitle, WithoutRowsAndColumns) {
  EXPECT_EQ(Title(*Table(Passengers(), {"~"})), "Count: All rows");
  EXPECT_EQ(Title(*Table(Passengers(), {"~ | sex"})), "Count: All rows for each sex");
}

TEST(CrossTableTitle, IsTheGivenOne) {
  auto const table = Table(Passengers(), {"class ~", "count", false, "", "Who sailed"});
  EXPECT_EQ(Title(*table), "Who sailed");
  EXPECT_EQ(table->Label()->GetText(), "Who sailed");
}

TEST(CrossTableCaption, IsThereWhenGiven) {
  EXPECT_EQ(Table(Passengers(), {"class ~"})->Caption(), nullptr);
  EXPECT_EQ(
      Table(Passengers(), {"class ~", "count", false, "", "", "Made up"})->Caption()->GetText(),
      "Made up");
}
