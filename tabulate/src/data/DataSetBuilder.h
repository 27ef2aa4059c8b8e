#ifndef LAKRESVOS_TABULATE_DATA_DATASETBUILDER_H
#define LAKRESVOS_TABULATE_DATA_DATASETBUILDER_H

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include <lakresvos/tabulate/DataSet.h>
#include <lakresvos/tabulate/RequiredColumns.h>
#include <lakresvos/tabulate/WarningLog.h>

#include "csv/CsvSink.h"
#include "data/ColumnWriter.h"

namespace lakresvos::tabulate {

/// Makes a data set of the records of CSV. All but the first, which is the header, may be divided.
class DataSetBuilder : public CsvSink {
 public:
  /// @param name     names the source in messages.
  /// @param required the columns to keep; has to outlive the builder.
  /// @param warnings gets a warning of each skipped record; has to outlive the builder.
  DataSetBuilder(std::string const& name, RequiredColumns const& required, WarningLog& warnings);

  /// @throws InputError when the header has a name twice or lacks a required column.
  void Add(CsvRecord const& record) override;

  std::unique_ptr<CsvPartSink> MakePart() override;

  /// Gives the data set away.
  /// @throws InputError when there was no header.
  DataSet Result();

 private:
  class Part;

  void AddColumns(CsvRecord const& header);
  void AddRow(CsvRecord const& record);
  void Skip(std::size_t line, std::size_t fields);
  void FlushColumns();

  DataSet data_;
  std::vector<ColumnWriter> writers_;
  RequiredColumns const& required_;
  WarningLog& warnings_;
};

}  // namespace lakresvos::tabulate

#endif
