#ifndef TESTS_TABULATE_TEXTDATA_H
#define TESTS_TABULATE_TEXTDATA_H

#include <sstream>
#include <string>
#include <vector>

#include <lakresvos/tabulate/DataSet.h>
#include <lakresvos/tabulate/WarningLog.h>

/// Reads a data set "data.csv" from the text of a CSV file, of which all named columns are kept.
inline lakresvos::tabulate::DataSet ReadData(std::string const& bytes,
                                             std::vector<std::string> const& kept,
                                             lakresvos::tabulate::WarningLog& warnings) {
  lakresvos::tabulate::RequiredColumns required;
  for (std::string const& name : kept) {
    required.push_back({name, "the test"});
  }
  std::istringstream input(bytes);
  return lakresvos::tabulate::ReadDataSet(input, "data.csv", required, warnings);
}

inline lakresvos::tabulate::DataSet ReadData(std::string const& bytes,
                                             std::vector<std::string> const& kept) {
  lakresvos::tabulate::WarningLog warnings;
  return ReadData(bytes, kept, warnings);
}

#endif
