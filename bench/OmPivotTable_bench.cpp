#include <algorithm>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <sys/resource.h>
#include <unistd.h>
#include <utility>
#include <vector>

#if LAKRESVOS_HAS_ABSEIL
#include <absl/container/flat_hash_map.h>
#endif
#if LAKRESVOS_HAS_BOOST_FLAT_MAP
#include <boost/unordered/unordered_flat_map.hpp>
#endif

#include "structures/BumpClone.h"
#include "structures/DenseArray.h"
#include "structures/FlatMap.h"
#include "structures/LakresvosTable.h"
#include "support/CellSet.h"
#include "support/CountedBytes.h"
#include "support/Workload.h"

// The life of a table of numbers: every cell is written, all are read in a random order, and as many
// positions without one, all are walked, with their subscripts in the caller's vector, and the table is
// destroyed. Further, all cells of a table are deleted, one by one.

namespace {

/// What is done with one table.
struct Life {
  Shape shape;
  CellSet written;
  CellSet read;
  CellSet absent;  ///< empty where all positions have cells
  double sum = 0;  ///< of all values
};

/// Whole numbers, so that sums do not depend on the order.
double ValueAt(std::vector<int> const& index) {
  return index.front() + 1;
}

double SumOf(CellSet const& cells) {
  double sum = 0;
  auto index = cells.Index();
  for (std::size_t i = 0; i < cells.Size(); ++i) {
    cells.Get(i, index);
    sum += ValueAt(index);
  }
  return sum;
}

void Expect(double expected, double found) {
  if (expected != found) {
    throw std::logic_error("a structure has other cells than those written");
  }
}

template <class Structure>
double WriteAll(Structure& structure, CellSet const& cells) {
  auto index = cells.Index();
  return NanosecondsEach(cells.Size(), [&] {
    for (std::size_t i = 0; i < cells.Size(); ++i) {
      cells.Get(i, index);
      structure.Write(index, ValueAt(index));
    }
  });
}

template <class Structure>
double ReadAll(Structure const& structure, CellSet const& cells, double expected) {
  auto index = cells.Index();
  double sum = 0;
  double const each = NanosecondsEach(cells.Size(), [&] {
    for (std::size_t i = 0; i < cells.Size(); ++i) {
      cells.Get(i, index);
      sum += structure.Read(index);
    }
  });
  Expect(expected, sum);
  return each;
}

template <class Structure>
double WalkAll(Structure const& structure, Life const& life) {
  auto index = life.written.Index();
  double sum = 0;
  double fromSubscripts = 0;
  double const each = NanosecondsEach(life.written.Size(), [&] {
    structure.Walk(index, [&](double value) {
      benchmark::ClobberMemory();  // the subscripts are in the vector, for whoever may look
      sum += value;
      fromSubscripts += ValueAt(index);
    });
  });
  Expect(life.sum, sum);
  Expect(life.sum, fromSubscripts);
  return each;
}

template <class Structure>
void Live(benchmark::State& state, Life const& life) {
  auto& counters = state.counters;
  auto const cells = static_cast<double>(life.written.Size());
  long const before = counted_bytes::Held();
  auto structure = std::make_unique<Structure>(life.shape);
  counters["write ns"] = WriteAll(*structure, life.written);
  double const bytes = static_cast<double>(counted_bytes::Held() - before) / cells;
  counters["bytes"] = bytes;
  counters["bytes beyond"] = bytes - sizeof(OmNumber);
  if constexpr (requires { structure->Read({}); }) {
    counters["read ns"] = ReadAll(*structure, life.read, life.sum);
    if (life.absent.Size() != 0) {
      counters["absent ns"] = ReadAll(*structure, life.absent, 0);
    }
    counters["iterate ns"] = WalkAll(*structure, life);
  }
  counters["destroy ns"] = NanosecondsEach(life.written.Size(), [&] { structure.reset(); });
}

template <class Structure>
void RegisterLife(std::string const& structure, std::shared_ptr<Life const> const& life) {
  Register(life->shape.name + "/" + structure, [life](benchmark::State& state) {
    try {
      Live<Structure>(state, *life);
    } catch (std::bad_alloc const&) {
      state.SkipWithError("out of memory");
    }
  });
}

#if LAKRESVOS_HAS_ABSEIL
template <class Key, class Value>
using AbseilMap = absl::flat_hash_map<Key, Value>;
#endif
#if LAKRESVOS_HAS_BOOST_FLAT_MAP
template <class Key, class Value>
using BoostMap = boost::unordered_flat_map<Key, Value>;
#endif

void RegisterMaps(std::shared_ptr<Life const> const& life) {
#if LAKRESVOS_HAS_ABSEIL
  RegisterLife<FlatMap<AbseilMap>>("Abseil flat map", life);
#else
  RegisterMissing(life->shape.name + "/Abseil flat map", "libabsl-dev");
#endif
#if LAKRESVOS_HAS_BOOST_FLAT_MAP
  RegisterLife<FlatMap<BoostMap>>("Boost flat map", life);
#else
  RegisterMissing(life->shape.name + "/Boost flat map", "libboost1.81-dev");
#endif
}

void RegisterStructures(Life life) {
  life.sum = SumOf(life.written);
  auto const shared = std::make_shared<Life const>(std::move(life));
  RegisterLife<LakresvosTable>("lakresvos", shared);
  RegisterLife<BumpClone>("bump clone", shared);
  RegisterMaps(shared);
  if (shared->shape.share == 1) {
    RegisterLife<DenseArray>("dense array", shared);
  }
}

/// Both lives of one shape: written in the order of the walk, and in a random order.
void RegisterShape(Shape shape) {
  CellSet const cells = CellSet::Of(shape);
  CellSet const read = cells.Shuffled(3);
  bool const full = shape.share == 1;
  CellSet const absent = full ? CellSet::None(cells) : CellSet::Absent(shape, cells);
  std::string const name = shape.name;
  shape.name = name + "/in order";
  RegisterStructures({shape, cells, read, absent});
  shape.name = name + "/shuffled";
  RegisterStructures({shape, cells.Shuffled(4), read, absent});
}

template <class Structure>
void RegisterDeletion(std::string const& name, Shape const& shape, CellSet const& order) {
  Register(name, [shape, order](benchmark::State& state) {
    Structure structure(shape);
    auto index = order.Index();
    WriteAll(structure, CellSet::Of(shape));
    state.counters["delete ns"] = NanosecondsEach(order.Size(), [&] {
      for (std::size_t i = 0; i < order.Size(); ++i) {
        order.Get(i, index);
        structure.Delete(index);
      }
    });
  });
}

void RegisterDeletions(Shape const& shape) {
  CellSet const cells = CellSet::Of(shape);
  for (auto const& [name, order] : {std::pair(shape.name + "/in order/", cells),
                                    std::pair(shape.name + "/shuffled/", cells.Shuffled(5))}) {
    RegisterDeletion<LakresvosTable>(name + "lakresvos", shape, order);
#if LAKRESVOS_HAS_ABSEIL
    RegisterDeletion<FlatMap<AbseilMap>>(name + "Abseil flat map", shape, order);
#endif
#if LAKRESVOS_HAS_BOOST_FLAT_MAP
    RegisterDeletion<FlatMap<BoostMap>>(name + "Boost flat map", shape, order);
#endif
  }
}

/// Far too few cells for what their subscripts span.
void RegisterDiagonal(int n) {
  Shape const shape{"diagonal/in order", {n, n}, n};
  CellSet const cells = CellSet::Diagonal(n);
  RegisterStructures({shape, cells, cells.Shuffled(3), CellSet::None(cells)});
}

/// What asks for too much memory shall fail, and not the machine.
void LimitMemory() {
  constexpr unsigned long kMost = 8UL << 30;
  auto const pages = static_cast<unsigned long>(sysconf(_SC_PHYS_PAGES));
  auto const installed = pages * static_cast<unsigned long>(sysconf(_SC_PAGESIZE));
  rlim_t const bytes = std::min(kMost, installed / 2);
  rlimit const limit{bytes, bytes};
  setrlimit(RLIMIT_AS, &limit);
}

}  // namespace

void RegisterWorkload(bool quick) {
  LimitMemory();
  int const part = quick ? 10 : 1;
  RegisterShape({"100x100x100 full", {100 / part, 100, 100}});
  RegisterShape({"1000x1000 full", {1000, 1000 / part}});
  RegisterShape({"200x200x50x20 at 1 %", {200 / part, 200, 50, 20}, 100});
  RegisterShape({"100000x100 at 1 %", {100000 / part, 100}, 100});
  RegisterDiagonal(quick ? 10'000 : 1'000'000);
  RegisterDeletions({"100000 deleted", {100000 / part}});
}
