#ifndef TESTS_TABULATE_FEWVALUES_H
#define TESTS_TABULATE_FEWVALUES_H

#include <cstddef>
#include <utility>

#include "data/ColumnWriter.h"

/// While it exists, columns have many distinct values once they have a few.
class FewValues {
 public:
  explicit FewValues(std::size_t many = 2)
      : before_(std::exchange(lakresvos::tabulate::manyValues, many)) {}
  ~FewValues() { lakresvos::tabulate::manyValues = before_; }
  FewValues(FewValues const&) = delete;
  FewValues& operator=(FewValues const&) = delete;

 private:
  std::size_t before_;
};

#endif
