#include "document/Document.h"

#include <gtest/gtest.h>

#include <lakresvos/OmChart.h>
#include <lakresvos/OmHeading.h>
#include <lakresvos/OmTextBlock.h>

#include "document/NotesTable.h"
#include "document/WarningsTable.h"
#include "support/ErrorOf.h"
#include "support/TemporaryDirectory.h"
#include "tabulate/TableReader.h"

using namespace lakresvos::report;
using namespace lakresvos::tabulate;

namespace {

using Texts = std::vector<std::string>;

/// The label and depth of each item, in order.
Texts Outline(OmOutputTree& document) {
  Texts outline;
  for (auto node = document.begin(); node != document.end(); ++node) {
    outline.push_back(std::to_string(node.depth) + " " + (*node)->Label()->GetText());
  }
  return outline;
}

template <class Part>
Part* ItemAt(OmOutputTree& document, std::size_t position) {
  auto node = document.begin();
  for (std::size_t i = 0; i < position; ++i) {
    ++node;
  }
  return dynamic_cast<Part*>(*node);
}

Options OptionsFor(std::string const& file, Texts const& formulas) {
  Options options;
  options.command = "lakresvos-report " + file;
  options.dataFile = file;
  options.statistics = ParseStatistics("count");
  for (std::string const& formula : formulas) {
    options.tables.push_back({ParseFormula(formula), "", ""});
  }
  return options;
}

}  // namespace

TEST(NotesTable, TellsWhatWasRead) {
  CountedData data;
  data.source = "data.csv";
  data.notes = {{"Separator", "Tab"}};
  data.records = 4;
  data.rows = 3;
  for (char const* const name : {"a", "Solar R"}) {
    data.columns.emplace_back(name);
    data.columns.back().Append("");
  }
  data.columns.back().Append("NA");
  auto const table = MakeNotesTable(data, "");
  EXPECT_TRUE(table->IsNotes());
  EXPECT_EQ(CategoryPaths(table->Dimension(0)),
            (Texts{"Data file", "Separator", "Rows read", "Rows used", "Weight",
                   "Missing values / a", "Missing values / Solar R"}));
  EXPECT_EQ(TextAt(*table, {"Data file"}), "data.csv");
  EXPECT_EQ(TextAt(*table, {"Separator"}), "Tab");
  EXPECT_EQ(TextAt(*table, {"Rows read"}), "4");
  EXPECT_EQ(TextAt(*table, {"Rows used"}), "3");
  EXPECT_EQ(TextAt(*table, {"Weight"}), "None");
  EXPECT_EQ(TextAt(*table, {"Missing values / a"}), "1");
  EXPECT_EQ(TextAt(*table, {"Missing values / Solar R"}), "2");
}

TEST(NotesTable, NamesTheWeight) {
  CountedData data;
  data.rows = 1;
  auto const table = MakeNotesTable(data, "w");
  EXPECT_EQ(TextAt(*table, {"Rows used"}), "1");
  EXPECT_EQ(TextAt(*table, {"Weight"}), "w");
}

TEST(WarningsTable, ListsLineColumnAndProblem) {
  WarningLog log;
  log.Add({Skipped::Texts, 7, "b", "strange"});
  log.Add({Skipped::Texts, 3, "a", "odd"});
  auto const table = MakeWarningsTable(log);
  EXPECT_TRUE(table->IsWarnings());
  EXPECT_EQ(TextAt(*table, {"1", "Line"}), "3");
  EXPECT_EQ(TextAt(*table, {"1", "Column"}), "a");
  EXPECT_EQ(TextAt(*table, {"1", "Problem"}), "odd");
  EXPECT_EQ(TextAt(*table, {"2", "Line"}), "7");
  EXPECT_EQ(table->Caption(), nullptr);
}

TEST(WarningsTable, TellsHowManyAreNotListed) {
  WarningLog log;
  for (std::size_t line = 2; line < 125; ++line) {
    log.Add({Skipped::Texts, line, "a", "odd"});
  }
  auto const table = MakeWarningsTable(log);
  EXPECT_EQ(table->Size(0), 100);
  EXPECT_EQ(table->Caption()->GetText(), "23 more warnings are not listed");
}

TEST(WarningsTable, TellsOfOneInTheSingular) {
  WarningLog log;
  for (std::size_t line = 2; line < 103; ++line) {
    log.Add({Skipped::Texts, line, "a", "odd"});
  }
  EXPECT_EQ(MakeWarningsTable(log)->Caption()->GetText(), "1 more warning is not listed");
}

TEST(Document, HoldsEverythingBelowAProcedure) {
  TemporaryDirectory const directory;
  OmOutputTree document;
  AppendReport(document, OptionsFor(directory.Write("a.csv", "a,b\n1,x\n"), {"a ~", "~ b"}));
  EXPECT_EQ(Outline(document), (Texts{"0 Output", "1 lakresvos-report", "2 Log", "2 Notes",
                                      "2 Count: a", "2 Count: b"}));
  auto* const procedure = ItemAt<OmProcedure>(document, 1);
  ASSERT_NE(procedure, nullptr);
  EXPECT_EQ(procedure->OutlineText(), "lakresvos-report");
  auto* const log = ItemAt<OmTextBlock>(document, 2);
  ASSERT_NE(log, nullptr);
  EXPECT_TRUE(log->IsLog());
  EXPECT_EQ(log->Text(), "lakresvos-report " + directory.Path("a.csv"));
}

TEST(Document, NeedsNoTable) {
  TemporaryDirectory const directory;
  OmOutputTree document;
  AppendReport(document, OptionsFor(directory.Write("a.csv", "a\n1\n"), {}));
  EXPECT_EQ(document.size(), 4u);
}

TEST(Document, EndsWithWarningsWhenDataWereSkipped) {
  TemporaryDirectory const directory;
  Options options = OptionsFor(directory.Write("a.csv", "a,x,w\n1,2,1\n1,y,1\n1\n2,3,\n"), {"a ~"});
  options.weight = "w";
  options.statistics = ParseStatistics("mean:x,sd:x");
  OmOutputTree document;
  AppendReport(document, options);
  auto* const warnings = ItemAt<OmPivotTable>(document, 5);
  ASSERT_NE(warnings, nullptr);
  EXPECT_TRUE(warnings->IsWarnings());
  EXPECT_EQ(warnings->Size(0), 3);
  EXPECT_EQ(TextAt(*warnings, {"1", "Line"}), "3");
  EXPECT_EQ(TextAt(*warnings, {"1", "Column"}), "x");
  EXPECT_EQ(TextAt(*warnings, {"1", "Problem"}), "'y' is not a number; treated as missing");
  EXPECT_EQ(TextAt(*warnings, {"2", "Line"}), "4");
  EXPECT_EQ(TextAt(*warnings, {"2", "Column"}), "x");
  EXPECT_EQ(TextAt(*warnings, {"3", "Line"}), "5");
  EXPECT_EQ(TextAt(*warnings, {"3", "Column"}), "w");
}

TEST(Document, IsLeftAloneWhenTheDataAreBad) {
  TemporaryDirectory const directory;
  std::string const file = directory.Write("a.csv", "a,w\n1,many\n");
  Options options = OptionsFor(file, {"a ~"});
  options.weight = "w";
  OmOutputTree document;
  EXPECT_EQ(ErrorOf([&] { AppendReport(document, options); }),
            file + ":2: column 'w': expected a weight of 0 or more, not 'many'");
  EXPECT_EQ(document.size(), 1u);
}

TEST(Document, SaysWhoAskedForAColumnThatIsNotThere) {
  TemporaryDirectory const directory;
  std::string const file = directory.Write("a.csv", "a\n1\n");
  OmOutputTree document;
  EXPECT_EQ(ErrorOf([&] { AppendReport(document, OptionsFor(file, {"a ~ b"})); }),
            file + ":1: unknown column 'b' in formula 'a ~ b' at position 5");
  Options options = OptionsFor(file, {});
  options.statistics = ParseStatistics("count,mean:c");
  EXPECT_EQ(ErrorOf([&] { AppendReport(document, options); }),
            file + ":1: unknown column 'c' in statistics at position 12");
  options = OptionsFor(file, {});
  options.weight = "w";
  EXPECT_EQ(ErrorOf([&] { AppendReport(document, options); }),
            file + ":1: unknown column 'w' in --weight");
}

TEST(Document, ChartFollowsItsTable) {
  TemporaryDirectory const directory;
  Options options = OptionsFor(directory.Write("a.csv", "a,b,c\n1,2,3\n1,1,3\n"),
                               {"a ~", "a ~ b", "a ~ b | c", "a * b ~ c", "~"});
  options.charts = true;
  OmOutputTree document;
  AppendReport(document, options);
  EXPECT_EQ(Outline(document),
            (Texts{"0 Output", "1 lakresvos-report", "2 Log", "2 Notes", "2 Count: a", "2 Count: a",
                   "2 Count: a by b", "2 Count: a by b", "2 Count: a by b for each c",
                   "2 Count: a, b by c", "2 Count: All rows"}));
  auto* const first = ItemAt<OmChart>(document, 5);
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(first->GetChartSubType(), ChartXMLBar);
  EXPECT_NE(first->GetImageData().find("<svg "), std::string::npos);
  EXPECT_EQ(first->GetViZJSONData(), R"({"categories":["1"],"series":[{"name":"","values":[2.0]}],)"
                                     R"("categoryTitle":"a","valueTitle":"Count"})");
  auto* const second = ItemAt<OmChart>(document, 7);
  ASSERT_NE(second, nullptr);
  EXPECT_EQ(second->GetViZJSONData(),
            R"({"categories":["1"],"series":[)"
            R"({"name":"1","values":[1.0]},{"name":"2","values":[1.0]}],)"
            R"("categoryTitle":"a","seriesTitle":"b","valueTitle":"Count"})");
  EXPECT_NE(first->getChartId(), second->getChartId());
}

TEST(Document, EveryTableHasTheStyleOfTheFile) {
  TemporaryDirectory const directory;
  Options options = OptionsFor(directory.Write("a.csv", "a\n1\n1,2\n"), {"a ~"});
  options.styleFile = directory.Write("style.json", R"({"data": {"horizontal": "left"}})");
  OmOutputTree document;
  AppendReport(document, options);
  for (std::size_t const position : {3u, 4u, 5u}) {
    auto* const table = ItemAt<OmPivotTable>(document, position);
    ASSERT_NE(table, nullptr) << position;
    EXPECT_EQ(table->getAreaFormat(FormatArea::AreaData)->getHorizontalAlignment(), 0) << position;
  }
}

TEST(Document, IsLeftAloneWhenTheStyleIsBad) {
  TemporaryDirectory const directory;
  Options options = OptionsFor(directory.Write("a.csv", "a\n1\n"), {"a ~"});
  options.styleFile = directory.Path("none.json");
  OmOutputTree document;
  EXPECT_EQ(ErrorOf([&] { AppendReport(document, options); }),
            options.styleFile + ": No such file or directory");
  EXPECT_EQ(document.size(), 1u);
}

TEST(Document, GroupingOfAColumnInNoTableIsAnError) {
  TemporaryDirectory const directory;
  Options options = OptionsFor(directory.Write("a.csv", "a,b\n1,2\n"), {"a ~"});
  options.groupings = {ParseGrouping("b: x = 2")};
  OmOutputTree document;
  EXPECT_EQ(ErrorOf([&] { AppendReport(document, options); }),
            "group 'b: x = 2': column 'b' is in no table at position 1");
  EXPECT_EQ(document.size(), 1u);
}
