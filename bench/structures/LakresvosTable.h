#ifndef BENCH_STRUCTURES_LAKRESVOSTABLE_H
#define BENCH_STRUCTURES_LAKRESVOSTABLE_H

#include <vector>

#include <cells/OmNumber.h>
#include <cells/OmStringCell.h>
#include <lakresvos/OmPivotTable.h>

#include "support/CellSet.h"

/// The pivot table that all others are compared with.
class LakresvosTable {
 public:
  explicit LakresvosTable(Shape const& shape) : table_(OmStringCell(""), OmStringCell(""), false) {
    for (int const size : shape.sizes) {
      table_.AddDimension(OmStringCell("")).setCategoryCount(static_cast<unsigned int>(size));
    }
  }

  void Write(std::vector<int> const& index, double value) {
    table_.Cell(index, OmNumber(value, 2));
  }

  double Read(std::vector<int> const& index) const {
    OmCellText const* const cell = table_.Cell(index);
    return cell != nullptr ? static_cast<OmNumber const*>(cell)->Value() : 0;
  }

  void Delete(std::vector<int> const& index) { table_.deleteCell(index); }

  template <class Visit>
  void Walk(std::vector<int>& index, Visit const& visit) const {
    for (auto at = table_.FirstCell(); at.Cell() != nullptr; ++at) {
      at.Index(index);
      visit(static_cast<OmNumber const*>(at.Cell())->Value());
    }
  }

  OmPivotTable& Table() { return table_; }

 private:
  OmPivotTable table_;
};

#endif
