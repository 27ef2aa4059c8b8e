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
    for (std::size_t d = 0; d < shape.sizes.size(); ++d) {
      table_.AddDimension(OmStringCell(""));
    }
  }

  void Write(std::vector<int> const& index, double value) {
    table_.Cell(index, OmNumber(value, 2));
  }

  double Read(std::vector<int> const& index) const {
    OmCellText const* const cell = table_.Cell(index);
    return cell != nullptr ? static_cast<OmNumber const*>(cell)->Value() : 0;
  }

  template <class Visit>
  void Walk(std::vector<int>& index, Visit const& visit) const {
    for (auto at = table_.FirstCell(); at.Cell() != nullptr; ++at) {
      GetIndex(at, index);
      visit(static_cast<OmNumber const*>(at.Cell())->Value());
    }
  }

  OmPivotTable& Table() { return table_; }

  /// The subscripts of the cell that an iterator stands on.
  template <class Iterator>
  static void GetIndex(Iterator const& at, std::vector<int>& index) {
    if constexpr (requires { at.Index(index); }) {
      at.Index(index);
    } else {
      index = at.Index();
    }
  }

 private:
  OmPivotTable table_;
};

#endif
