#ifndef TESTS_TABULATE_TEXTDATA_H
#define TESTS_TABULATE_TEXTDATA_H

#include <string>
#include <vector>

#include <lakresvos/tabulate/DataSet.h>
#include <lakresvos/tabulate/WarningLog.h>

#include "support/TemporaryDirectory.h"

/// Reads a data set from the text of a CSV file, of which all named columns are kept.
inline lakresvos::tabulate::DataSet DataOf(std::string const& bytes,
                                           std::vector<std::string> const& kept,
                                           lakresvos::tabulate::WarningLog& warnings) {
  TemporaryDirectory const directory;
  std::vector<lakresvos::tabulate::ColumnWish> wishes;
  for (std::string const& name : kept) {
    wishes.push_back({name, "the test"});
  }
  lakresvos::tabulate::DataSet data =
      lakresvos::tabulate::ReadDataSet(directory.Write("data.csv", bytes), wishes, warnings);
  data.file = "data.csv";
  return data;
}

inline lakresvos::tabulate::DataSet DataOf(std::string const& bytes,
                                           std::vector<std::string> const& kept) {
  lakresvos::tabulate::WarningLog warnings;
  return DataOf(bytes, kept, warnings);
}

#endif
