#include "CellSet.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <random>
#include <unordered_set>

namespace {

/// The positions of a shape that have cells, ascending.
std::vector<long> ChoosePositions(Shape const& shape) {
  std::mt19937_64 random(1);
  long const positions = shape.Positions();
  std::vector<long> chosen;
  auto wanted = static_cast<unsigned long>(positions / shape.share);
  for (long position = 0; position < positions; ++position) {
    if (random() % static_cast<unsigned long>(positions - position) < wanted) {
      chosen.push_back(position);
      --wanted;
    }
  }
  return chosen;
}

}  // namespace

long Shape::Positions() const {
  return std::accumulate(sizes.begin(), sizes.end(), 1L, std::multiplies<>());
}

void Shape::Unpack(long position, std::vector<int>& index) const {
  for (std::size_t d = 0; d < sizes.size(); ++d) {
    index[d] = static_cast<int>(position % sizes[d]);
    position /= sizes[d];
  }
}

CellSet CellSet::At(Shape const& shape, std::vector<long> const& positions) {
  CellSet cells(shape.sizes.size());
  std::vector<int> index = cells.Index();
  for (long const position : positions) {
    shape.Unpack(position, index);
    cells.subscripts_.insert(cells.subscripts_.end(), index.begin(), index.end());
  }
  return cells;
}

CellSet CellSet::Of(Shape const& shape) {
  return At(shape, ChoosePositions(shape));
}

CellSet CellSet::Absent(Shape const& shape, CellSet const& cells) {
  std::vector<long> const present = ChoosePositions(shape);
  std::unordered_set<long> const taken(present.begin(), present.end());
  std::mt19937_64 random(2);
  auto const positions = static_cast<unsigned long>(shape.Positions());
  std::vector<long> absent;
  while (absent.size() < cells.Size()) {
    auto const position = static_cast<long>(random() % positions);
    if (taken.count(position) == 0) {
      absent.push_back(position);
    }
  }
  return At(shape, absent);
}

CellSet CellSet::Diagonal(int n) {
  CellSet cells(2);
  for (int i = 0; i < n; ++i) {
    cells.subscripts_.insert(cells.subscripts_.end(), {i, i});
  }
  return cells;
}

CellSet CellSet::Shuffled(unsigned int seed) const {
  std::vector<std::size_t> order(Size());
  std::iota(order.begin(), order.end(), 0);
  std::mt19937 random(seed);
  for (std::size_t i = order.size(); i > 1; --i) {
    std::swap(order[i - 1], order[random() % i]);
  }
  CellSet cells(width_);
  std::vector<int> index = Index();
  for (std::size_t const cell : order) {
    Get(cell, index);
    cells.subscripts_.insert(cells.subscripts_.end(), index.begin(), index.end());
  }
  return cells;
}
