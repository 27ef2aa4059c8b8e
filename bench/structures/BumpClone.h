#ifndef BENCH_STRUCTURES_BUMPCLONE_H
#define BENCH_STRUCTURES_BUMPCLONE_H

#include <benchmark/benchmark.h>
#include <vector>

#include "PlainCell.h"
#include "support/CellSet.h"

/// Copies of cells, one after the other and found by nobody: the least that storing them can cost.
class BumpClone {
 public:
  explicit BumpClone(Shape const& /*shape*/) {}

  void Write(std::vector<int> const& /*index*/, double value) {
    benchmark::DoNotOptimize(PlainCell(value).Clone(arena_));
  }

 private:
  Arena arena_;
};

#endif
