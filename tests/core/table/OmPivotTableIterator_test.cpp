#include <gtest/gtest.h>
#include <type_traits>

#include <lakresvos/OmPivotTable.h>

#include "core/table/OmPivotTableFixture.h"

namespace {

static_assert(sizeof(OmPivotTable::Iterator) == sizeof(void*));
static_assert(sizeof(OmPivotTable::ConstIterator) == sizeof(void*));
static_assert(
    std::is_same_v<decltype(std::declval<OmPivotTable&>().FirstCell()), OmPivotTable::Iterator>);
static_assert(std::is_same_v<decltype(std::declval<OmPivotTable const&>().FirstCell()),
                             OmPivotTable::ConstIterator>);
static_assert(
    std::is_same_v<decltype(std::declval<OmPivotTable::Iterator const&>().Cell()), OmCellText*>);
static_assert(
    std::is_same_v<decltype(++std::declval<OmPivotTable::Iterator&>()), OmPivotTable::Iterator&>);
static_assert(std::is_same_v<decltype(++std::declval<OmPivotTable::ConstIterator&>()),
                             OmPivotTable::ConstIterator&>);

using State = OmPivotTable::Iterator::Data;

/// The two iterators are the same but for the table they are taken from.
template <class Iterator>
class OmPivotTableIterators : public testing::Test {
 public:
  using Table = std::conditional_t<std::is_same_v<Iterator, OmPivotTable::Iterator>, OmPivotTable,
                                   OmPivotTable const>;

  static Iterator First(Table& table) { return table.FirstCell(); }

  static Walked Walk(Table& table) {
    Walked cells;
    for (Iterator at = First(table); at.Cell() != nullptr; ++at) {
      cells.emplace_back(at.Index(), at.Cell()->GetText());
    }
    return cells;
  }
};

using Kinds = testing::Types<OmPivotTable::Iterator, OmPivotTable::ConstIterator>;
TYPED_TEST_SUITE(OmPivotTableIterators, Kinds);

TYPED_TEST(OmPivotTableIterators, StartsAtTheEndWithoutCells) {
  TestTable table(2);
  auto at = this->First(table);
  EXPECT_EQ(at.Cell(), nullptr);
}

TYPED_TEST(OmPivotTableIterators, HasNoLevelsWithoutDimensions) {
  TestTable table;
  auto at = this->First(table);
  EXPECT_EQ(at.Cell(), nullptr);
  EXPECT_TRUE(at.Index().empty());
}

TYPED_TEST(OmPivotTableIterators, ADefaultOneIsAtTheEnd) {
  TypeParam const at;
  EXPECT_EQ(at.Cell(), nullptr);
  EXPECT_TRUE(at.Index().empty());
}

TYPED_TEST(OmPivotTableIterators, DimensionZeroVariesFastest) {
  TestTable table(2);
  table.Put({1, 1}, "c");
  table.Put({2, 0}, "b");
  table.Put({0, 0}, "a");
  EXPECT_EQ(this->Walk(table), (Walked{{{0, 0}, "a"}, {{2, 0}, "b"}, {{1, 1}, "c"}}));
}

TYPED_TEST(OmPivotTableIterators, AnIndexHasRoomForItsSubscriptsAndNoMore) {
  TestTable table(5);
  table.Put({0, 1, 2, 3, 4}, "cell");
  Index const index = this->First(table).Index();
  EXPECT_EQ(index, (Index{0, 1, 2, 3, 4}));
  EXPECT_EQ(index.capacity(), 5U);
}

TYPED_TEST(OmPivotTableIterators, AnIndexFillsTheVectorThatItIsGiven) {
  TestTable table(3);
  table.Put({1, 2, 3}, "cell");
  auto const at = this->First(table);
  for (Index index : {Index{}, Index{7, 8, 9}, Index(20, 4)}) {
    index.reserve(3);
    int const* const memory = index.data();
    at.Index(index);
    EXPECT_EQ(index, (Index{1, 2, 3}));
    EXPECT_EQ(index.data(), memory);
  }
}

TYPED_TEST(OmPivotTableIterators, ALoneCellIsTheFirstAndTheLast) {
  TestTable table(2);
  table.Put({3, 0}, "cell");
  auto at = this->First(table);
  EXPECT_EQ(at.Index(), (Index{3, 0}));
  EXPECT_EQ(at.Cell(), table.Cell({3, 0}));
  ++at;
  EXPECT_EQ(at.Cell(), nullptr);
}

TYPED_TEST(OmPivotTableIterators, EndsAtOnceWhenTheFirstBranchWasCleared) {
  TestTable table(2);
  table.Put({0, 0}, "a");
  table.Put({0, 1}, "b");
  table.Clear({0, 0});
  EXPECT_EQ(this->First(table).Cell(), nullptr);
}

TYPED_TEST(OmPivotTableIterators, StandsOnTheNextCellWhenTheFirstWasDeleted) {
  TestTable table(2);
  table.Put({0, 0}, "a");
  table.Put({0, 1}, "b");
  table.deleteCell({0, 0});
  EXPECT_EQ(this->Walk(table), (Walked{{{0, 1}, "b"}}));
}

TYPED_TEST(OmPivotTableIterators, EndsAtOnceWhenABranchFurtherDownWasCleared) {
  TestTable table(3);
  table.Put({0, 0, 1}, "a");
  table.Put({0, 1, 1}, "b");
  table.Clear({0, 0, 1});
  EXPECT_EQ(this->First(table).Cell(), nullptr);
}

TYPED_TEST(OmPivotTableIterators, PassesOverAClearedSlotOfTheFirstBranch) {
  TestTable table(2);
  table.Put({0, 0}, "a");
  table.Put({1, 0}, "b");
  table.Clear({0, 0});
  EXPECT_EQ(this->Walk(table), (Walked{{{1, 0}, "b"}}));
}

TYPED_TEST(OmPivotTableIterators, PassesOverALaterBranchThatWasCleared) {
  TestTable table(3);
  table.Put({0, 0, 0}, "a");
  table.Put({2, 1, 0}, "b");
  table.Put({0, 3, 1}, "c");
  table.Put({1, 0, 2}, "d");
  table.Clear({2, 1, 0});
  table.Clear({0, 3, 1});
  EXPECT_EQ(this->Walk(table), (Walked{{{0, 0, 0}, "a"}, {{1, 0, 2}, "d"}}));
}

TYPED_TEST(OmPivotTableIterators, EndsWhenAllLaterBranchesWereCleared) {
  TestTable table(2);
  table.Put({0, 0}, "a");
  table.Put({0, 1}, "b");
  table.Put({0, 2}, "c");
  table.Clear({0, 1});
  table.Clear({0, 2});
  EXPECT_EQ(this->Walk(table), (Walked{{{0, 0}, "a"}}));
}

TYPED_TEST(OmPivotTableIterators, VisitsCellsBeyondADimensionsSize) {
  TestTable table(2);
  AddCategories(table.Dimension(0), 1);
  table.Put({7, 9}, "cell");
  EXPECT_EQ(this->Walk(table), (Walked{{{7, 9}, "cell"}}));
}

TYPED_TEST(OmPivotTableIterators, VisitsEveryCellOfAFullTable) {
  TestTable table(3);
  Walked expected;
  for (int k = 0; k < 3; ++k) {
    for (int j = 0; j < 4; ++j) {
      for (int i = 0; i < 5; ++i) {
        std::string const text = std::to_string(100 * k + 10 * j + i);
        table.Put({i, j, k}, text);
        expected.emplace_back(Index{i, j, k}, text);
      }
    }
  }
  EXPECT_EQ(this->Walk(table), expected);
}

TYPED_TEST(OmPivotTableIterators, VisitsOneDimension) {
  TestTable table(1);
  table.Put({4}, "b");
  table.Put({1}, "a");
  EXPECT_EQ(this->Walk(table), (Walked{{{1}, "a"}, {{4}, "b"}}));
}

TYPED_TEST(OmPivotTableIterators, VisitsTwentyDimensions) {
  TestTable table(20);
  Index first(20, 0);
  Index second(20, 0);
  second[19] = 1;
  Index third(20, 1);
  for (Index const& index : {third, first, second}) {
    table.Put(index, std::to_string(index[0] + index[19]));
  }
  EXPECT_EQ(this->Walk(table), (Walked{{first, "0"}, {second, "1"}, {third, "2"}}));
}

TYPED_TEST(OmPivotTableIterators, VisitsCellsAlongADimensionThatCameLater) {
  TestTable table(1);
  table.Put({2}, "a");
  table.AddDimension(Text("second"));
  table.Put({0, 1}, "b");
  EXPECT_EQ(this->Walk(table), (Walked{{{2, 0}, "a"}, {{0, 1}, "b"}}));
}

TYPED_TEST(OmPivotTableIterators, ACopyIsIndependent) {
  TestTable table(1);
  table.Put({0}, "a");
  table.Put({1}, "b");
  auto first = this->First(table);
  auto copy(first);
  ++copy;
  EXPECT_EQ(first.Index(), Index{0});
  EXPECT_EQ(first.Cell(), table.Cell({0}));
  EXPECT_EQ(copy.Index(), Index{1});
  EXPECT_EQ(copy.Cell(), table.Cell({1}));
}

TYPED_TEST(OmPivotTableIterators, ACopyOutlivesItsSource) {
  TestTable table(1);
  table.Put({0}, "a");
  auto source = std::make_unique<TypeParam>(this->First(table));
  TypeParam const copy(*source);
  source.reset();
  EXPECT_EQ(copy.Cell(), table.Cell({0}));
}

TYPED_TEST(OmPivotTableIterators, ACopyOfAnEndIsAnEnd) {
  TypeParam const end;
  TypeParam const copy(end);
  EXPECT_EQ(copy.Cell(), nullptr);
}

TYPED_TEST(OmPivotTableIterators, AssignmentMakesBothMoveTogether) {
  TestTable table(1);
  table.Put({0}, "a");
  table.Put({1}, "b");
  table.Put({2}, "c");
  TypeParam second;
  auto first = this->First(table);
  second = first;
  ++first;
  EXPECT_EQ(second.Index(), Index{1});
  ++second;
  EXPECT_EQ(first.Index(), Index{2});
  EXPECT_EQ(first.Cell(), second.Cell());
}

TYPED_TEST(OmPivotTableIterators, AnAssignedIteratorOutlivesItsSource) {
  TestTable table(1);
  table.Put({0}, "a");
  table.Put({1}, "b");
  auto source = std::make_unique<TypeParam>(this->First(table));
  TypeParam target;
  target = *source;
  source.reset();
  ++target;
  EXPECT_EQ(target.Index(), Index{1});
}

TYPED_TEST(OmPivotTableIterators, TheSourceOutlivesAnAssignedIterator) {
  TestTable table(1);
  table.Put({0}, "a");
  auto source = this->First(table);
  {
    TypeParam target;
    target = source;
  }
  EXPECT_EQ(source.Cell(), table.Cell({0}));
}

TYPED_TEST(OmPivotTableIterators, SelfAssignmentKeepsThePosition) {
  TestTable table(1);
  table.Put({0}, "a");
  auto at = this->First(table);
  auto const& same = at;
  at = same;
  EXPECT_EQ(at.Cell(), table.Cell({0}));
}

TYPED_TEST(OmPivotTableIterators, AssignmentBetweenSharersKeepsThePosition) {
  TestTable table(1);
  table.Put({0}, "a");
  auto first = this->First(table);
  TypeParam second;
  second = first;
  first = second;
  EXPECT_EQ(first.Cell(), table.Cell({0}));
}

TYPED_TEST(OmPivotTableIterators, AssignmentLeavesFormerSharersAlone) {
  TestTable table(1);
  table.Put({0}, "a");
  auto first = this->First(table);
  TypeParam second;
  second = first;
  first = TypeParam();
  EXPECT_EQ(first.Cell(), nullptr);
  EXPECT_EQ(second.Cell(), table.Cell({0}));
}

TYPED_TEST(OmPivotTableIterators, ACopyOfASharerStandsAlone) {
  TestTable table(1);
  table.Put({0}, "a");
  table.Put({1}, "b");
  auto first = this->First(table);
  TypeParam second;
  second = first;
  TypeParam copy(second);
  ++copy;
  EXPECT_EQ(first.Index(), Index{0});
  EXPECT_EQ(second.Index(), Index{0});
}

TYPED_TEST(OmPivotTableIterators, SteppingAtTheEndDoesNothing) {
  TestTable table(2);
  auto unstored = this->First(table);
  ++unstored;
  EXPECT_EQ(unstored.Cell(), nullptr);
  TypeParam unmade;
  ++unmade;
  EXPECT_EQ(unmade.Cell(), nullptr);
  table.Put({0, 0}, "a");
  auto past = this->First(table);
  ++past;
  ++past;
  EXPECT_EQ(past.Cell(), nullptr);
}

// A table that changes during a walk: callers are not to go on, but those that do are safe.

TYPED_TEST(OmPivotTableIterators, GoesOnWhereNodesHaveGrown) {
  TestTable table(2);
  table.Put({0, 0}, "first");
  table.Put({2000, 5000}, "last");
  auto at = this->First(table);
  for (int i = 0; i < 300; ++i) {
    table.Put({i, 0}, "more");
    table.Put({0, 7 * i}, "more");
  }
  int count = 0;
  for (; at.Cell() != nullptr; ++at) {
    ++count;
  }
  EXPECT_EQ(count, 600);
}

TYPED_TEST(OmPivotTableIterators, GoesOnAfterACellThatWasDeleted) {
  TestTable table(2);
  for (int i = 0; i < 100; ++i) {
    table.Put({i % 3, 50 * i}, std::to_string(i));
  }
  int count = 0;
  for (auto at = this->First(table); at.Cell() != nullptr; ++at) {
    table.deleteCell(at.Index());
    ++count;
  }
  EXPECT_EQ(count, 100);
  EXPECT_TRUE(table.Walk().empty());
}

TYPED_TEST(OmPivotTableIterators, EndsWhereAllThatIsLeftWasDeleted) {
  TestTable table(2);
  table.Put({0, 1000}, "first");
  table.Put({0, 2000}, "second");
  table.Put({5, 2000}, "third");
  auto at = this->First(table);
  table.deleteCell({0, 2000});
  table.deleteCell({5, 2000});
  table.deleteCell({0, 1000});
  ++at;
  EXPECT_EQ(at.Cell(), nullptr);
}

TYPED_TEST(OmPivotTableIterators, GoesOnAlongItsDimensionsWhenOneWasAdded) {
  TestTable table(1);
  table.Put({0}, "first");
  table.Put({1000}, "second");
  auto at = this->First(table);
  table.AddDimension(Text("new"));
  table.Put({500, 0}, "between");
  table.Put({500, 1}, "elsewhere");
  ++at;
  EXPECT_EQ(TestTable::TextOf(at.Cell()), "between");
  EXPECT_EQ(at.Index(), Index{500});
  ++at;
  EXPECT_EQ(TestTable::TextOf(at.Cell()), "second");
  ++at;
  EXPECT_EQ(at.Cell(), nullptr);
}

TYPED_TEST(OmPivotTableIterators, SeesTheValuesThatReplacedOthers) {
  TestTable table(1);
  for (int i = 0; i < 50; ++i) {
    table.Put({i}, "old");
  }
  for (auto at = this->First(table); at.Cell() != nullptr; ++at) {
    table.Put({at.Index()[0]}, "new");
  }
  for (auto const& [index, text] : table.Walk()) {
    EXPECT_EQ(text, "new");
  }
}

TYPED_TEST(OmPivotTableIterators, SteppingGivesTheIterator) {
  TestTable table(1);
  table.Put({0}, "a");
  auto at = this->First(table);
  EXPECT_EQ(&++at, &at);
}

TYPED_TEST(OmPivotTableIterators, AnIteratorWithoutAStateIsAtTheEnd) {
  TypeParam none(nullptr);
  EXPECT_EQ(none.Cell(), nullptr);
  EXPECT_TRUE(none.Index().empty());
  ++none;
  TypeParam const copy(none);
  EXPECT_EQ(copy.Cell(), nullptr);
  TypeParam target;
  target = none;
  EXPECT_EQ(target.Cell(), nullptr);
}

TYPED_TEST(OmPivotTableIterators, TakesOverTheStateThatItIsGiven) {
  TestTable table(1);
  table.Put({3}, "cell");
  TypeParam const at(new State(table.data()));
  EXPECT_EQ(at.Index(), Index{3});
}

// The state

TYPED_TEST(OmPivotTableIterators, EndsInATableThatGotDimensionsAndLostItsCells) {
  TestTable table(1);
  table.Put({0}, "a");
  table.Put({1}, "b");
  auto at = this->First(table);
  table.AddDimension(Text("new"));
  table.AddDimension(Text("newer"));
  table.deleteCell({0, 0, 0});
  table.deleteCell({1, 0, 0});
  ++at;
  EXPECT_EQ(at.Cell(), nullptr);
}

TEST(OmPivotTableIteratorState, HasOneLevelPerDimension) {
  TestTable table(2);
  AddCategories(table.Dimension(0), 3);
  AddCategories(table.Dimension(1), 5);
  table.Put({2, 1}, "cell");
  State const state(table.data());
  ASSERT_EQ(state.levels.size(), 2U);
  EXPECT_EQ(state.levels[0].index, 2U);
  EXPECT_EQ(state.levels[1].index, 1U);
  EXPECT_EQ(state.levels[0].size, 3);
  EXPECT_EQ(state.levels[1].size, 5);
  EXPECT_EQ(state.levels[1].node, table.data().cells);
  EXPECT_EQ(state.levels[0].node,
            OmPivotTable::PointerVector::FromEntry(table.data().cells->Entry(1)));
  EXPECT_EQ(state.current, table.Cell({2, 1}));
}

TEST(OmPivotTableIteratorState, HasZeroedLevelsWithoutAStore) {
  TestTable table(2);
  AddCategories(table.Dimension(0), 3);
  State const state(table.data());
  ASSERT_EQ(state.levels.size(), 2U);
  for (State::Level const& level : state.levels) {
    EXPECT_EQ(level.index, 0U);
    EXPECT_EQ(level.size, 0);
    EXPECT_EQ(level.node, nullptr);
  }
  EXPECT_EQ(state.current, nullptr);
}

TEST(OmPivotTableIteratorState, OfADefaultIteratorHasNoLevels) {
  State state;
  EXPECT_TRUE(state.levels.empty());
  EXPECT_EQ(state.current, nullptr);
  EXPECT_EQ(state.Increment(0), nullptr);
}

TEST(OmPivotTableIteratorState, IncrementingAHigherLevelGivesItsNextNode) {
  TestTable table(2);
  table.Put({0, 0}, "a");
  table.Put({5, 0}, "b");
  table.Put({1, 3}, "c");
  State state(table.data());
  void* const next = OmPivotTable::PointerVector::FromEntry(table.data().cells->Entry(3));
  EXPECT_EQ(state.Increment(1), next);
  EXPECT_EQ(state.levels[1].index, 3U);
  EXPECT_EQ(state.Increment(1), nullptr);
}

TEST(OmPivotTableIteratorState, IncrementingTheBottomGivesTheNextCell) {
  TestTable table(2);
  table.Put({0, 0}, "a");
  table.Put({1, 3}, "b");
  State state(table.data());
  EXPECT_EQ(state.Increment(0), static_cast<void*>(table.Cell({1, 3})));
  EXPECT_EQ(state.levels[0].index, 1U);
  EXPECT_EQ(state.levels[1].index, 3U);
  EXPECT_EQ(state.Increment(0), nullptr);
}

}  // namespace
