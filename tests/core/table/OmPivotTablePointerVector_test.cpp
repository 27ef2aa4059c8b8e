#include "table/OmPivotTablePointerVector.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <utility>
#include <vector>

#include <cells/OmMemoryRegion.h>

#include "core/table/PlainNode.h"
#include "support/Property.h"
#include "support/faults/FailingNew.h"

namespace {

using Node = OmPivotTable::PointerVector;
using Positions = std::vector<unsigned long>;

constexpr unsigned long kLast = std::numeric_limits<int>::max();

/// Something for an entry to lead to, different for each number and never null.
void* Mark(unsigned long number) {
  return reinterpret_cast<void*>((number + 1) * 16);
}

/// A node and the plain one beside it.
class NodePair {
 public:
  void Set(unsigned long position, void* entry, unsigned long expected = 0) {
    SetInNode(position, entry, expected);
    plain_.Set(position, entry);
  }

  void SetInNode(unsigned long position, void* entry, unsigned long expected = 0) {
    node_ = node_ == nullptr ? Node::Make(region, position, entry)
                             : node_->Set(position, entry, expected);
  }

  void Fill(Positions const& positions, unsigned long expected = 0) {
    for (unsigned long const position : positions) {
      Set(position, Mark(position), expected);
    }
  }

  /// Checks all that the node shows; reads at and beside each entry.
  void Check() const {
    ASSERT_EQ(node_->size(), plain_.size());
    ASSERT_EQ(node_->CountFilled(), plain_.Filled().size());
    unsigned long next = 0;
    for (auto const& [position, entry] : plain_.Filled()) {
      Node::Found const found = node_->FirstFrom(next);
      ASSERT_EQ(found.position, position);
      ASSERT_EQ(found.entry, entry);
      ASSERT_EQ(node_->Entry(position), entry);
      ASSERT_EQ(*node_->FindSlot(position), entry);
      ASSERT_EQ(node_->FirstFrom(position).entry, entry);
      ASSERT_EQ(node_->Entry(position + 1), plain_.Entry(position + 1));
      ASSERT_EQ(node_->Entry(position - 1), plain_.Entry(position - 1));
      ASSERT_TRUE(Node::MayHave(node_->AsEntry(), position));
      next = position + 1;
    }
    ASSERT_EQ(node_->FirstFrom(next).entry, nullptr);
    ASSERT_EQ(node_->Entry(node_->size()), nullptr);
    ASSERT_EQ(node_->FirstFrom(node_->size()).entry, nullptr);
    ASSERT_EQ(Node::FromEntry(node_->AsEntry()), node_);
  }

  unsigned long BytesPerEntry() const {
    return region.BytesInUse() / std::max(1UL, node_->CountFilled());
  }

  Node* get() const { return node_; }
  PlainNode const& plain() const { return plain_; }

  void Release() {
    Node::Release(node_);
    node_ = nullptr;
    plain_ = PlainNode();
  }

  OmMemoryRegion region{false};

 private:
  Node* node_ = nullptr;
  PlainNode plain_;
};

/// Each `step`th position below `end`.
Positions Every(unsigned long step, unsigned long end) {
  Positions positions;
  for (unsigned long position = 0; position < end; position += step) {
    positions.push_back(position);
  }
  return positions;
}

Positions Shuffled(Positions positions) {
  std::shuffle(positions.begin(), positions.end(), std::mt19937(1));
  return positions;
}

// One form after another

TEST(OmPivotTablePointerVector, MayEndWithANullEntry) {
  NodePair pair;
  pair.Set(1000, nullptr);
  pair.Check();
  EXPECT_FALSE(Node::MayHave(pair.get()->AsEntry(), 1000));
}

TEST(OmPivotTablePointerVector, KeepsWhatItHasWhenItBecomesLonger) {
  for (unsigned long const last : {3UL, 4UL, 31UL, 32UL, 33UL, 1000UL, kLast}) {
    NodePair pair;
    pair.Fill({0, 1, last});
    pair.Check();
    pair.Set(std::min(2 * last, kLast), nullptr);
    pair.Check();
  }
}

TEST(OmPivotTablePointerVector, HoldsAllPositionsInOrderOrNot) {
  for (Positions const& order : {Every(1, 2000), Shuffled(Every(1, 2000))}) {
    for (unsigned long const expected : {0UL, 2000UL, 1UL}) {
      NodePair pair;
      for (unsigned long const position : order) {
        pair.Set(position, Mark(position), expected);
      }
      pair.Check();
    }
  }
}

TEST(OmPivotTablePointerVector, ShowsTheSameAtEveryCountOfAList) {
  NodePair pair;
  for (unsigned long const position : Shuffled(Every(1000, 60000))) {
    pair.Set(position, Mark(position));
    pair.Check();
  }
}

TEST(OmPivotTablePointerVector, ReplacesEntriesInEveryForm) {
  for (unsigned long const step : {1UL, 10UL, 100UL, 10000UL}) {
    NodePair pair;
    pair.Fill(Every(step, 10000));
    for (unsigned long const position : Every(step, 10000)) {
      pair.Set(position, Mark(position + 1));
    }
    pair.Check();
  }
}

TEST(OmPivotTablePointerVector, EmptiesInAnyOrder) {
  for (unsigned long const step : {1UL, 10UL, 100UL, 10000UL}) {
    for (Positions const& order : {Every(step, 10000), Shuffled(Every(step, 10000))}) {
      NodePair pair;
      pair.Fill(Every(step, 10000));
      for (unsigned long const position : order) {
        pair.Set(position, nullptr);
      }
      pair.Check();
      EXPECT_EQ(pair.get()->CountFilled(), 0U);
      EXPECT_LT(pair.region.BytesInUse(), 512U) << "more than a short list";
    }
  }
}

TEST(OmPivotTablePointerVector, FillsAgainAfterItWasEmptied) {
  NodePair pair;
  for (int round = 0; round < 3; ++round) {
    pair.Fill(Shuffled(Every(3, 3000)));
    pair.Check();
    for (unsigned long const position : Every(3, 3000)) {
      pair.Set(position, nullptr);
    }
    pair.Check();
  }
}

/// How often the node moves while these positions are set.
template <class Expected>
int CountMoves(NodePair& pair, Positions const& positions, Expected expected) {
  int moves = 0;
  for (unsigned long const position : positions) {
    Node const* const before = pair.get();
    pair.Set(position, Mark(position), expected(position));
    moves += pair.get() != before ? 1 : 0;
  }
  return moves;
}

TEST(OmPivotTablePointerVector, GrowsSeldomWhereWhatIsExpectedGrowsWithIt) {
  for (unsigned long const step : {1UL, 8UL, 64UL}) {
    NodePair pair;
    auto const one_more = [](unsigned long position) { return position + 1; };
    EXPECT_LT(CountMoves(pair, Every(step, step * 10'000), one_more), 100);
    pair.Check();
  }
}

TEST(OmPivotTablePointerVector, ChangesItsFormSeldomWhereItIsAboutAsFullAsAFormNeeds) {
  auto const nothing = [](unsigned long) { return 0UL; };
  for (unsigned long const stride : {4UL, 7UL, 8UL, 9UL, 12UL, 16UL, 24UL, 32UL}) {
    for (unsigned long const together : {1UL, 2UL, 3UL}) {
      Positions positions;
      for (unsigned long at = 10; at < 10'000 * stride; at += stride * together) {
        for (unsigned long i = 0; i < together; ++i) {
          positions.push_back(at + i);
        }
      }
      NodePair pair;
      EXPECT_LT(CountMoves(pair, positions, nothing), 100) << stride << ", " << together;
      pair.Check();
    }
  }
}

// Memory

TEST(OmPivotTablePointerVector, GivesMemoryBackWhereFewEntriesAreLeft) {
  for (unsigned long const step : {1UL, 3UL, 64UL, 5000UL}) {
    NodePair pair;
    Positions const positions = Every(step, step * 2000);
    pair.Fill(positions);
    for (std::size_t i = 0; i < positions.size(); ++i) {
      if (i % 100 != 0) {
        pair.Set(positions[i], nullptr);
      }
    }
    pair.Check();
    EXPECT_LE(pair.BytesPerEntry(), 160U) << "every " << step;
  }
}

TEST(OmPivotTablePointerVector, TakesMemoryForWhatItHoldsAlone) {
  for (unsigned long const step : {1UL, 2UL, 7UL, 20UL, 64UL, 100UL, 1000UL, 65536UL, 1000000UL}) {
    NodePair pair;
    unsigned long const end = step * 2000;
    pair.Fill(Shuffled(Every(step, end)));
    pair.Check();
    EXPECT_LE(pair.BytesPerEntry(), 80U) << "every " << step;
  }
}

TEST(OmPivotTablePointerVector, TakesTheSmallestBlockForAList) {
  unsigned long count = 1;
  for (auto const& [room, bytes] : std::vector<std::pair<unsigned long, unsigned long>>{
           {2, 48}, {4, 64}, {8, 112}, {16, 208}, {36, 448}}) {
    for (; count <= room; ++count) {
      NodePair pair;
      for (unsigned long k = 1; k <= count; ++k) {
        pair.Set(1000 * k, Mark(k));
      }
      EXPECT_LE(pair.region.BytesInUse(), bytes) << count;
    }
  }
}

TEST(OmPivotTablePointerVector, TakesLittleMemoryAheadOfEntriesThatAreExpected) {
  for (unsigned long const step : {1UL, 2UL, 4UL, 7UL}) {
    NodePair pair;
    for (unsigned long k = 0; k < 200; ++k) {
      unsigned long const position = 100 + step * k;
      pair.Set(position, Mark(position), 1'000'000);
      ASSERT_LE(pair.region.BytesInUse(), 64 * position + 200) << k << " of every " << step;
    }
    pair.Check();
  }
}

TEST(OmPivotTablePointerVector, IsHardlyLongerThanItsEntriesWhenFull) {
  NodePair pair;
  pair.Fill(Every(1, 10000), 10000);
  EXPECT_LE(pair.region.BytesInUse(), 8 * 10000 + 64U);
}

TEST(OmPivotTablePointerVector, GivesEverythingBack) {
  for (unsigned long const step : {1UL, 10UL, 1000UL, 1000000UL}) {
    NodePair pair;
    pair.Fill(Shuffled(Every(step, step * 500)));
    pair.Release();
    EXPECT_EQ(pair.region.BytesInUse(), 0U);
  }
  Node::Release(nullptr);
}

TEST(OmPivotTablePointerVector, BecomesPagedFromEveryFormWhenAnEntryIsFarAway) {
  Positions dense;
  Positions paged;
  for (unsigned long i = 0; i < 100; ++i) {
    dense.push_back(i);
    paged.push_back(25 * i);
  }
  for (Positions const& positions : {dense, paged}) {
    NodePair pair;
    pair.Fill(positions);
    pair.Fill({kLast});
    pair.Check();
    EXPECT_LT(pair.BytesPerEntry(), 200U);
  }
}

TEST(OmPivotTablePointerVector, LooksAheadToNodesWithoutEntries) {
  NodePair above;
  NodePair empty;
  empty.SetInNode(1, nullptr);
  for (unsigned long i = 0; i < 20; ++i) {
    above.SetInNode(i, empty.get()->AsEntry());
  }
  above.get()->PrefetchAfter(0, false);
  EXPECT_EQ(above.get()->FirstFrom(5).entry, empty.get()->AsEntry());
}

TEST(OmPivotTablePointerVector, ASubscriptOfMinusOneFindsNothingInAnyForm) {
  constexpr unsigned long kMinusOne = std::numeric_limits<std::uint32_t>::max();
  for (unsigned long const step : {1UL, 5UL, 4096UL}) {
    for (unsigned long const count : {1UL, 3UL, 30UL, 300UL}) {
      NodePair pair;
      pair.Fill(Every(step, step * count));
      for (unsigned long left = count; left != 0; --left) {
        ASSERT_EQ(pair.get()->Entry(kMinusOne), nullptr);
        ASSERT_EQ(pair.get()->FindSlot(kMinusOne), nullptr);
        ASSERT_EQ(pair.get()->FirstFrom(kMinusOne).entry, nullptr);
        pair.Set((left - 1) * step, nullptr);
      }
      ASSERT_EQ(pair.get()->Entry(kMinusOne), nullptr) << "of an empty node";
    }
  }
}

// Hints

TEST(OmPivotTablePointerVector, OfNoNodeMayHaveNothing) {
  EXPECT_FALSE(Node::MayHave(nullptr, 0));
  EXPECT_EQ(Node::FromEntry(nullptr), nullptr);
}

TEST(OmPivotTablePointerVector, AListSaysWhichPositionsItHasNot) {
  NodePair pair;
  pair.Fill({100, 250});
  void* const entry = pair.get()->AsEntry();
  unsigned long maybe = 0;
  for (unsigned long position = 0; position < 1600; ++position) {
    maybe += Node::MayHave(entry, position) ? 1 : 0;
  }
  EXPECT_EQ(maybe, 200U);
}

TEST(OmPivotTablePointerVector, TheEntryOfANodeThatStaysIsToldOfAPosition) {
  for (unsigned long const step : {1UL, 5UL, 64UL, 4096UL}) {
    NodePair pair;
    pair.Set(0, Mark(0));
    for (unsigned long const position : Shuffled(Every(step, step * 300))) {
      Node* const before = pair.get();
      void* const entry = before->AsEntry();
      pair.Set(position, Mark(position));
      if (pair.get() == before) {
        ASSERT_EQ(Node::WithPosition(entry, position), before->AsEntry());
      }
    }
  }
}

TEST(OmPivotTablePointerVector, ALookFromAboveFindsWhatTheNodeHas) {
  for (unsigned long const step : {1UL, 5UL, 64UL, 4096UL}) {
    for (unsigned long const count : {1UL, 3UL, 30UL, 300UL, 80'000UL}) {
      NodePair pair;
      pair.Fill(Every(step, step * count));
      void* const entry = pair.get()->AsEntry();
      for (unsigned long position = 0; position < step * count + 2; position += 1 + step / 3) {
        ASSERT_EQ(Node::Look(entry, position), pair.plain().Entry(position));
      }
      ASSERT_EQ(Node::Look(entry, kLast), nullptr);
      ASSERT_EQ(Node::Look(entry, std::numeric_limits<std::uint32_t>::max()), nullptr);
    }
  }
  EXPECT_EQ(Node::Look(nullptr, 0), nullptr);
}

// Failure

TEST(OmPivotTablePointerVector, AnyAllocationMayFail) {
  for (unsigned long const step : {1UL, 5UL, 64UL, 4096UL}) {
    NodePair pair;
    for (unsigned long const position : Shuffled(Every(step, step * 300))) {
      unsigned long const bytes = pair.region.BytesInUse();
      FailEveryAllocation([&] { pair.SetInNode(position, Mark(position)); },
                          [&] { ASSERT_EQ(pair.region.BytesInUse(), bytes); });
      pair.Set(position, Mark(position));
    }
    pair.Check();
  }
}

TEST(OmPivotTablePointerVector, TakingOutNeedsNoMemory) {
  for (unsigned long const step : {1UL, 5UL, 64UL, 4096UL}) {
    NodePair pair;
    pair.Fill(Every(step, step * 300));
    for (unsigned long const position : Shuffled(Every(step, step * 300))) {
      {
        FailAfter const failing(1);
        pair.SetInNode(position, nullptr);
      }
      pair.Set(position, nullptr);
    }
    pair.Check();
    pair.Fill(Every(step, step * 300));
    pair.Check();
  }
}

// Anything

PROPERTY(OmPivotTablePointerVectorProperty, ShowsWhatAPlainVectorShows) {
  // Positions near one another, anywhere, or in clusters far apart.
  auto const bits = *rc::gen::inRange(1, 32);
  auto const cluster = *rc::gen::inRange(0, 12);
  auto const count = *rc::gen::inRange(1, 600);
  auto const seed = *rc::gen::arbitrary<unsigned int>();
  std::mt19937_64 random(seed);
  NodePair pair;
  Positions written;
  for (int i = 0; i < count; ++i) {
    unsigned long position = (random() & ((1UL << bits) - 1)) & kLast;
    if (!written.empty() && cluster != 0 && random() % 4 != 0) {
      position = std::min(kLast, written.back() + random() % (1UL << cluster));
    }
    bool const again = !written.empty() && random() % 3 == 0;
    position = again ? written[random() % written.size()] : position;
    bool const erase = random() % (again ? 2 : 20) == 0;
    pair.Set(position, erase ? nullptr : Mark(static_cast<unsigned long>(i)),
             random() % 3 == 0 ? random() % (1UL << bits) : 0);
    written.push_back(position);
  }
  pair.Check();
  for (unsigned long const position : written) {
    RC_ASSERT((pair.get()->Entry(position) == pair.plain().Entry(position)));
    auto const at = pair.plain().Filled().lower_bound(position + 1);
    Node::Found const found = pair.get()->FirstFrom(position + 1);
    RC_ASSERT((found.entry == (at != pair.plain().Filled().end() ? at->second : nullptr)));
  }
  pair.Release();
  RC_ASSERT(pair.region.BytesInUse() == 0U);
}

}  // namespace
