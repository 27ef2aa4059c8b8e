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

  /// Adds all numbers of one cell to another, which is a total.
  virtual void Merge(std::size_t total, std::size_t part) = 0;
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
  void Merge(std::size_t total, std::size_t part) override { cells_[total].Merge(cells_[part]); }

  Summary const& operator[](std::size_t cell) const { return cells_[cell]; }

 private:
  std::vector<Summary> cells_;
};

}  // namespace lakresvos::tabulate

#endif
