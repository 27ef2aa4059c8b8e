#include <sstream>
#include <string>
#include <vector>

#include <lakresvos/tabulate/tabulate.h>

#include "harness/InputBytes.h"
#include "harness/Target.h"
#include "tabulate/FewValues.h"
#include "tabulate/csv/PlainCsvReading.h"

namespace {

using namespace lakresvos::tabulate;

DataSet Read(std::string const& bytes, RequiredColumns const& required) {
  WarningLog warnings;
  std::istringstream input(bytes);
  return ReadDataSet(input, "data.csv", required, warnings);
}

/// Reads the data again, in columns that have many values once they have two.
void CheckManyValues(std::string const& bytes) {
  RequiredColumns required;
  for (DataColumn const& column : Read(bytes, {}).columns) {
    required.push_back({column.Name(), "the input"});
  }
  DataSet const few = Read(bytes, required);
  FewValues const setting;
  DataSet const many = Read(bytes, required);
  for (std::size_t i = 0; i < few.columns.size(); ++i) {
    Dictionary const& values = few.columns[i].Values();
    bool same = many.columns[i].Codes() == few.columns[i].Codes() &&
                many.columns[i].MissingCount() == few.columns[i].MissingCount() &&
                many.columns[i].Values().size() == values.size();
    for (std::uint32_t code = 0; same && code < values.size(); ++code) {
      same = many.columns[i].Values()[code] == values[code];
    }
    if (!same) {
      Fail("a column with many values differs");
    }
  }
}

/// A name as formulas and lists of statistics have it, whatever is in it.
std::string InBackquotes(std::string const& name) {
  std::string quoted = "`";
  for (char const c : name) {
    quoted += c == '`' ? "``" : std::string(1, c);
  }
  return quoted + "`";
}

/// Tabulates the first columns of the data, the last of them as weights as well.
void Tabulate(std::string const& bytes) {
  std::vector<std::string> names;
  for (DataColumn const& column : Read(bytes, {}).columns) {
    names.push_back(InBackquotes(column.Name()));
  }
  std::string const last = names.back();
  names.resize(3);
  Formula const formula =
      ParseFormula(names[0] + "~" + names[1] + (names[2].empty() ? "" : "|" + names[2]));
  std::vector<Statistic> const statistics =
      ParseStatistics("count,row%,total%,mean:" + last + ",sd:" + last + ",max:" + last);
  DataSet const data = Read(bytes, ListColumns(formula, statistics));
  WarningLog warnings;
  WarnAboutTexts(data, statistics, warnings);
  MakeCrossTable(data, {}, {formula}, statistics, true);
  RowWeights const weights(data, data.columns.back().Name(), warnings);
  MakeCrossTable(data, weights, {formula}, statistics, false);
}

}  // namespace

// A file of comma-separated values, read and compared with a reading byte by byte, and tabulated.
// Two bytes before it say in how many threads and in blocks of which size.
void Exercise(std::string_view input) {
  InputBytes given(input);
  std::size_t const threads = 1 + given.Take<unsigned char>() % 3;
  std::size_t const block = 3 + given.Take<unsigned char>();
  std::string const bytes = given.TakeRest();
  csv_model::CheckReading(bytes, {threads, block});
  try {
    CheckManyValues(bytes);
    FewValues const few;
    Tabulate(bytes);
  } catch (InputError const&) {
  }
}
