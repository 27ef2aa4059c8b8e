#ifndef LAKRESVOS_TABULATE_TABLE_CELLSUMMARIES_H
#define LAKRESVOS_TABULATE_TABLE_CELLSUMMARIES_H

#include <cstddef>
#include <memory>
#include <vector>

namespace lakresvos::tabulate {

/// The numbers of one data column, summed up for each cell of a table.
class CellSummaries {
 public:
  virtual ~CellSummaries() = default;

  /// Adds a cell without numbers.
  virtual void AddCell() = 0;

  /// Adds a number to a cell as often as its weight says, which is 0 or more.
  virtual void Add(std::size_t cell, double number, double weight) = 0;

  /// Adds all numbers of another object's cell, which may be this object, to a cell.
  /// Requires: the other one is of the same type.
  virtual void Merge(std::size_t cell, CellSummaries const& other, std::size_t otherCell) = 0;
};

/// Sums numbers up in objects of one type, which has `Add(number, weight)` and `Merge(other)`.
template <class Summary>
class CellSummariesIn : public CellSummaries {
 public:
  static std::unique_ptr<CellSummaries> Make() { return std::make_unique<CellSummariesIn>(); }

  void AddCell() override { cells_.emplace_back(); }
  void Add(std::size_t cell, double number, double weight) override {
    cells_[cell].Add(number, weight);
  }
  void Merge(std::size_t cell, CellSummaries const& other, std::size_t otherCell) override {
    cells_[cell].Merge(static_cast<CellSummariesIn const&>(other)[otherCell]);
  }

  Summary const& operator[](std::size_t cell) const { return cells_[cell]; }

 private:
  std::vector<Summary> cells_;
};

}  // namespace lakresvos::tabulate

#endif
