#ifndef TESTS_TOOLS_TEXTDATA_H
#define TESTS_TOOLS_TEXTDATA_H

#include <string>
#include <vector>

#include "DataSet.h"
#include "WarningLog.h"
#include "support/TemporaryDirectory.h"

/// Reads a data set from the text of a CSV file, of which all named columns are kept.
inline lakresvos::report::DataSet DataOf(std::string const& bytes,
                                         std::vector<std::string> const& kept,
                                         lakresvos::report::WarningLog& warnings) {
  TemporaryDirectory const directory;
  std::vector<lakresvos::report::ColumnWish> wishes;
  for (std::string const& name : kept) {
    wishes.push_back({name, "the test"});
  }
  lakresvos::report::DataSet data =
      lakresvos::report::ReadDataSet(directory.Write("data.csv", bytes), wishes, warnings);
  data.file = "data.csv";
  return data;
}

inline lakresvos::report::DataSet DataOf(std::string const& bytes,
                                         std::vector<std::string> const& kept) {
  lakresvos::report::WarningLog warnings;
  return DataOf(bytes, kept, warnings);
}

#endif
