#include <gtest/gtest.h>
#include <numeric>
#include <sstream>

#include "document/Document.h"
#include "tabulate/PlainTable.h"
#include "tabulate/TableReader.h"
#include "tools/report/cli/ReportRun.h"

using namespace lakresvos::report;
using namespace lakresvos::tabulate;

namespace {

using Texts = std::vector<std::string>;
using Where = PlainTable::Where;

/// The first table that the report makes of a shipped data set.
class Report {
 public:
  Report(std::string const& file, std::string const& formula, std::string const& statistics,
         std::string const& weight, bool totals) {
    Options options;
    options.dataFile = DataPath(file);
    options.tables = {{ParseFormula(formula), "", ""}};
    options.statistics = ParseStatistics(statistics);
    options.weight = weight;
    options.totals = totals;
    AppendReport(document_, options);
    auto node = document_.begin();
    for (int i = 0; i < 4; ++i) {
      ++node;
    }
    table_ = &dynamic_cast<OmPivotTable&>(*node.Value());
  }

  OmPivotTable const& Table() const { return *table_; }

 private:
  OmOutputTree document_;
  OmPivotTable const* table_;
};

/// A category's condition; none for the Total.
Where And(Where where, std::string const& column, std::string const& category) {
  if (category != "Total") {
    where[column] = category;
  }
  return where;
}

Texts WithTotal(Texts values) {
  values.emplace_back("Total");
  return values;
}

std::string Trimmed(std::string const& text) {
  std::size_t const first = text.find_first_not_of(' ');
  return first == std::string::npos ? ""
                                    : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// The lines of the body of the printed table that follows the line `start`, cell by cell.
std::vector<Texts> PrintedBody(std::string const& printed, std::string const& start) {
  std::vector<Texts> body;
  std::istringstream lines(printed.substr(std::min(printed.find(start), printed.size())));
  bool inside = false;
  for (std::string line;
       std::getline(lines, line) && !(inside && line[0] != '|' && line[0] != '+');) {
    if (line.starts_with("+=")) {
      inside = true;
    } else if (inside && line.starts_with("+") && line.find('|') == std::string::npos) {
      continue;
    } else if (inside) {
      body.emplace_back();
      std::istringstream cells(line.substr(1));
      for (std::string cell; std::getline(cells, cell, '|');) {
        body.back().push_back(Trimmed(cell));
      }
    }
  }
  return body;
}

PlainTable Plain(std::string const& file) {
  return PlainTable(ReadFile(DataPath(file)));
}

double Sum(std::vector<double> const& numbers) {
  return std::accumulate(numbers.begin(), numbers.end(), 0.0);
}

}  // namespace

TEST(Titanic, PlainLoopsFindTheKnownNumbers) {
  PlainTable const plain = Plain("titanic.csv");
  EXPECT_EQ(Sum(plain.Numbers({}, "Freq", "")), 2201);
  EXPECT_EQ(plain.Count({{"Sex", "Male"}}, "Freq"), 1731);
  EXPECT_EQ(plain.Count({{"Survived", "Yes"}}, "Freq"), 711);
}

TEST(Titanic, TableHasTheKnownNumbers) {
  Report const sexes("titanic.csv", "Sex ~ Survived", "count", "Freq", true);
  EXPECT_EQ(TextAt(sexes.Table(), {"Total", "Total"}), "2201");
  EXPECT_EQ(TextAt(sexes.Table(), {"Male", "Total"}), "1731");
  EXPECT_EQ(TextAt(sexes.Table(), {"Female", "Total"}), "470");
  EXPECT_EQ(TextAt(sexes.Table(), {"Total", "Yes"}), "711");
  EXPECT_EQ(TextAt(sexes.Table(), {"Male", "Yes"}), "367");
  EXPECT_EQ(TextAt(sexes.Table(), {"Female", "Yes"}), "344");
}

TEST(Titanic, TableAgreesWithPlainLoops) {
  PlainTable const plain = Plain("titanic.csv");
  Report const report("titanic.csv", "Class * Sex ~ Survived | Age", "count,row%", "Freq", true);
  std::size_t cells = 0;
  for (std::string const& age : plain.Values("Age")) {
    for (std::string const& klass : WithTotal(plain.Values("Class"))) {
      for (std::string const& sex : WithTotal(plain.Values("Sex"))) {
        Where const row = And(And({{"Age", age}}, "Class", klass), "Sex", sex);
        for (std::string const& survived : WithTotal(plain.Values("Survived"))) {
          double const count = plain.Count(And(row, "Survived", survived), "Freq");
          EXPECT_EQ(TextAt(report.Table(), {klass, sex, survived, age, "Count"}), Fixed(count, 0));
          EXPECT_EQ(TextAt(report.Table(), {klass, sex, survived, age, "Row %"}),
                    Fixed(100 * count / plain.Count(row, "Freq"), 1));
          cells += 2;
        }
      }
    }
  }
  EXPECT_EQ(CellCount(report.Table()), cells);
}

TEST(Titanic, PrintedTableAgreesWithPlainLoops) {
  PlainTable const plain = Plain("titanic.csv");
  std::string const printed =
      RunReport({DataPath("titanic.csv"), "--weight", "Freq", "--totals", "--statistics",
                 "count,row%", "--table", "Class * Sex ~ Survived | Age", "--ascii"})
          .out;
  for (std::string const& age : plain.Values("Age")) {
    std::vector<Texts> expected;
    for (std::string const& klass : WithTotal(plain.Values("Class"))) {
      for (std::string const& sex : WithTotal(plain.Values("Sex"))) {
        expected.push_back({sex == "Male" ? klass : "", sex});
        Where const row = And(And({{"Age", age}}, "Class", klass), "Sex", sex);
        for (std::string const& survived : WithTotal(plain.Values("Survived"))) {
          double const count = plain.Count(And(row, "Survived", survived), "Freq");
          expected.back().push_back(Fixed(count, 0));
          expected.back().push_back(Fixed(100 * count / plain.Count(row, "Freq"), 1));
        }
      }
    }
    EXPECT_EQ(PrintedBody(printed, "Age: " + age + "\n"), expected) << age;
  }
}

TEST(Admissions, PlainLoopsFindTheKnownNumbers) {
  PlainTable const plain = Plain("ucb_admissions.csv");
  EXPECT_EQ(plain.Count({}, "Freq"), 4526);
  EXPECT_EQ(plain.Count({{"Admit", "Admitted"}}, "Freq"), 1755);
  EXPECT_EQ(plain.Count({{"Admit", "Admitted"}, {"Gender", "Male"}}, "Freq"), 1198);
}

TEST(Admissions, TableAgreesWithPlainLoops) {
  PlainTable const plain = Plain("ucb_admissions.csv");
  Report const report("ucb_admissions.csv", "Dept ~ Admit * Gender", "count", "Freq", true);
  EXPECT_EQ(TextAt(report.Table(), {"Total", "Total", "Total"}), "4526");
  for (std::string const& dept : WithTotal(plain.Values("Dept"))) {
    for (std::string const& admit : WithTotal(plain.Values("Admit"))) {
      for (std::string const& gender : WithTotal(plain.Values("Gender"))) {
        Where const where = And(And(And({}, "Dept", dept), "Admit", admit), "Gender", gender);
        EXPECT_EQ(TextAt(report.Table(), {dept, admit, gender}),
                  Fixed(plain.Count(where, "Freq"), 0));
      }
    }
  }
}

TEST(Admissions, PrintedTableAgreesWithPlainLoops) {
  PlainTable const plain = Plain("ucb_admissions.csv");
  std::string const printed = RunReport({DataPath("ucb_admissions.csv"), "--weight", "Freq",
                                         "--table", "Dept ~ Admit * Gender", "--ascii"})
                                  .out;
  std::vector<Texts> expected;
  for (std::string const& dept : plain.Values("Dept")) {
    expected.push_back({dept});
    for (std::string const& admit : plain.Values("Admit")) {
      for (std::string const& gender : plain.Values("Gender")) {
        double const count =
            plain.Count({{"Dept", dept}, {"Admit", admit}, {"Gender", gender}}, "Freq");
        expected.back().push_back(Fixed(count, 0));
      }
    }
  }
  EXPECT_EQ(PrintedBody(printed, "Count: Dept by Admit, Gender"), expected);
}

TEST(AirQuality, PlainLoopsFindTheKnownNumbers) {
  PlainTable const plain = Plain("airquality.csv");
  EXPECT_EQ(plain.Count({}, ""), 153);
  EXPECT_EQ(plain.Missing({}, "Ozone"), 37u);
  EXPECT_EQ(Fixed(ComputeMean(plain.Numbers({}, "Ozone", "")), 5), "42.12931");
}

TEST(AirQuality, TableAgreesWithPlainLoops) {
  PlainTable const plain = Plain("airquality.csv");
  Report const report("airquality.csv", "Month ~", "mean:Ozone,sd:Ozone", "", true);
  EXPECT_EQ(TextAt(report.Table(), {"Total", "Mean of Ozone"}), "42.13");
  EXPECT_EQ(TextAt(report.Table(), {"Total", "Std. deviation of Ozone"}), "32.99");
  for (std::string const& month : WithTotal(plain.Values("Month"))) {
    Where const where = And({}, "Month", month);
    std::vector<double> const ozone = plain.Numbers(where, "Ozone", "");
    EXPECT_EQ(TextAt(report.Table(), {month, "Mean of Ozone"}), Fixed(ComputeMean(ozone), 2));
    EXPECT_EQ(TextAt(report.Table(), {month, "Std. deviation of Ozone"}),
              Fixed(ComputeDeviation(ozone), 2));
    std::size_t const missing = plain.Missing(where, "Ozone");
    EXPECT_GT(missing, 0u);
    EXPECT_EQ(NotesAt(report.Table(), CellAt(report.Table(), {month, "Mean of Ozone"})),
              "Ozone missing in " + std::to_string(missing) + (missing == 1 ? " row" : " rows"));
  }
}

TEST(AirQuality, PrintedTableAgreesWithPlainLoops) {
  PlainTable const plain = Plain("airquality.csv");
  std::string const printed = RunReport({DataPath("airquality.csv"), "--table", "Month ~",
                                         "--statistics", "mean:Ozone,sd:Ozone", "--ascii"})
                                  .out;
  std::vector<Texts> expected;
  Texts notes;
  for (std::string const& month : plain.Values("Month")) {
    Where const where{{"Month", month}};
    std::vector<double> const ozone = plain.Numbers(where, "Ozone", "");
    std::size_t const missing = plain.Missing(where, "Ozone");
    std::string const note =
        "Ozone missing in " + std::to_string(missing) + (missing == 1 ? " row" : " rows");
    auto const known = std::find(notes.begin(), notes.end(), note);
    std::string const mark{'[', static_cast<char>('a' + (known - notes.begin())), ']'};
    if (known == notes.end()) {
      notes.push_back(note);
      std::string line = "\n";
      line.append(mark).append(" ").append(note).append("\n");
      EXPECT_NE(printed.find(line), std::string::npos) << note;
    }
    expected.push_back(
        {month, Fixed(ComputeMean(ozone), 2) + mark, Fixed(ComputeDeviation(ozone), 2) + mark});
  }
  EXPECT_EQ(PrintedBody(printed, "Mean of Ozone, Std. deviation of Ozone: Month"), expected);
}
