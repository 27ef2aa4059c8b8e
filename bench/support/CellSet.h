#ifndef BENCH_SUPPORT_CELLSET_H
#define BENCH_SUPPORT_CELLSET_H

#include <string>
#include <vector>

/// A table's outline: the sizes of its dimensions, and how many of its positions have a cell.
struct Shape {
  std::string name;
  std::vector<int> sizes;
  long share = 1;  ///< one position in so many has a cell

  /// The number of positions.
  long Positions() const;

  /// The subscripts of a position; dimension 0 varies fastest.
  void Unpack(long position, std::vector<int>& index) const;
};

/// The subscripts of cells, in the order in which something is done with them.
class CellSet {
 public:
  /// The cells of a shape, in the order of a walk: the same ones for each shape, every time.
  static CellSet Of(Shape const& shape);

  /// As many positions of the shape without a cell as `cells` has cells, in random order.
  static CellSet Absent(Shape const& shape, CellSet const& cells);

  /// No cells, with as many dimensions as `cells`.
  static CellSet None(CellSet const& cells) { return CellSet(cells.width_); }

  /// The cells (i, i) of a square table with n rows.
  static CellSet Diagonal(int n);

  /// The same cells in a random order, which depends on `seed` alone.
  CellSet Shuffled(unsigned int seed) const;

  /// The number of cells.
  std::size_t Size() const { return subscripts_.size() / width_; }

  /// Puts the subscripts of one cell into `index`, which has one place for each dimension.
  void Get(std::size_t cell, std::vector<int>& index) const {
    int const* const from = subscripts_.data() + cell * width_;
    for (std::size_t d = 0; d < width_; ++d) {
      index[d] = from[d];
    }
  }

  /// An index to fill.
  std::vector<int> Index() const { return std::vector<int>(width_); }

 private:
  explicit CellSet(std::size_t width) : width_(width) {}
  static CellSet At(Shape const& shape, std::vector<long> const& positions);

  std::size_t width_;
  std::vector<int> subscripts_;
};

#endif
