#ifndef LAKRESVOS_TABULATE_COUNT_ROWCOUNTER_H
#define LAKRESVOS_TABULATE_COUNT_ROWCOUNTER_H

#include <cstddef>
#include <deque>
#include <memory>
#include <optional>
#include <string>

#include <lakresvos/tabulate/CountedData.h>
#include <lakresvos/tabulate/WarningLog.h>

#include "count/RowPlan.h"
#include "count/RowTally.h"
#include "csv/CsvSink.h"

namespace lakresvos::tabulate {

/// Counts the records of CSV. All but the first, which is the header, may be divided: each part has
/// cells of its own until the end.
class RowCounter : public CsvSink {
 public:
  /// @param name     names the source in messages.
  /// @param format   of the values; null: the usual one.
  /// @param request  has to outlive the counter.
  /// @param warnings gets a warning of everything that is skipped; has to outlive the counter.
  RowCounter(std::string const& name, std::shared_ptr<ValueFormat const> format,
             CountRequest const& request, WarningLog& warnings);
  ~RowCounter() override;

  /// @throws InputError when the header has a name twice or lacks a required column, and for a
  ///         weight that is not a number or is below 0.
  void Add(CsvRecord const& record) override;

  std::unique_ptr<CsvPartSink> MakePart() override;

  /// Gives away what was counted.
  /// @throws InputError when there was no header.
  CountedData Result();

 private:
  struct PartRows;
  class Part;

  void ReadHeader(CsvRecord const& header);

  CountedData data_;
  std::shared_ptr<ValueFormat const> format_;
  CountRequest const& request_;
  WarningLog& warnings_;
  std::optional<RowPlan> plan_;   // none before the header
  std::optional<RowTally> rows_;  // of the calling thread
  std::deque<PartRows> parts_;    // of the others
};

}  // namespace lakresvos::tabulate

#endif
