#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <rapidcheck/gtest.h>
#include <string>
#include <utility>
#include <vector>

#include "EveryKind.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

int Sign(int value) {
  return (value > 0) - (value < 0);
}

TEST(Compare, TextsCompareByUnsignedBytes) {
  EXPECT_LT(OmStringCell("a").Compare(OmStringCell("b"), false), 0);
  EXPECT_GT(OmStringCell("\xC3\xA9").Compare(OmStringCell("z"), false), 0);
  EXPECT_LT(OmStringCell("a").Compare(OmStringCell("ab"), false), 0);
  EXPECT_GT(OmStringCell(std::string("a\0b", 3)).Compare(OmStringCell("a"), false), 0);
  EXPECT_EQ(OmStringCell("").Compare(OmStringCell(""), false), 0);
}

TEST(Compare, TheTwoStringKindsCompareWithEachOther) {
  EXPECT_EQ(OmStringCell("a").Compare(OmStringCellUTF8("a"), false), 0);
  EXPECT_GT(OmStringCellUTF8("b").Compare(OmStringCell("a"), false), 0);
}

TEST(Compare, CaseCountsUnlessIgnored) {
  EXPECT_LT(OmStringCell("AB").Compare(OmStringCell("ab"), false), 0);
  EXPECT_EQ(OmStringCell("AB").Compare(OmStringCell("ab"), true), 0);
}

TEST(Compare, NumbersCompareByValueNotByText) {
  EXPECT_LT(OmNumber(9).Compare(OmNumber(10), false), 0);
  EXPECT_GT(OmNumber(kInfinity).Compare(OmNumber(1e300), false), 0);
}

TEST(Compare, EqualNumbersCompareByText) {
  EXPECT_EQ(OmNumber(1).Compare(OmNumber(1), false), 0);
  EXPECT_LT(OmNumber(1).Compare(OmNumber(1, 2), false), 0);
}

TEST(Compare, MissingIsEqualToItselfAndBelowEveryNumber) {
  EXPECT_EQ(OmNumber(kNaN).Compare(OmNumber(-kNaN), false), 0);
  EXPECT_LT(OmNumber(kNaN).Compare(OmNumber(-kInfinity), false), 0);
  EXPECT_GT(OmNumber(-kInfinity).Compare(OmNumber(kNaN), false), 0);
}

TEST(Compare, VariablesCompareByNameThenByText) {
  EXPECT_LT(OmVariable("a", "z").Compare(OmVariable("b", "y"), false), 0);
  EXPECT_GT(OmVariable("a", "z").Compare(OmVariable("a", "y"), false), 0);
  EXPECT_EQ(OmVariable("a", "Y").Compare(OmVariable("A", "y"), true), 0);
}

TEST(Compare, NumericDataValuesCompareByValueThenByText) {
  EXPECT_LT(OmNumDataValue(9, "z").Compare(OmNumDataValue(10, "a"), false), 0);
  EXPECT_LT(OmNumDataValue(9, "a").Compare(OmNumDataValue(9, "b"), false), 0);
}

TEST(Compare, TextDataValuesCompareByValueThenByText) {
  EXPECT_LT(OmStringDataValue("f", "z").Compare(OmStringDataValue("m", "a"), false), 0);
  EXPECT_LT(OmStringDataValue("f", "a").Compare(OmStringDataValue("f", "b"), false), 0);
}

TEST(Compare, CompositesCompareByText) {
  OmComposite first("{0}");
  first.AddPart(OmStringCell("a"));
  EXPECT_EQ(first.Compare(OmComposite("a"), false), 0);
  EXPECT_LT(first.Compare(OmComposite("b"), false), 0);
}

TEST(Compare, DifferentKindsCompareByText) {
  EXPECT_EQ(OmNumber(5).Compare(OmStringCell("5"), false), 0);
  EXPECT_EQ(OmStringCell("5").Compare(OmNumber(5), false), 0);
  EXPECT_LT(OmNumber(10).Compare(OmNumDataValue(9, ""), false), 0);
  EXPECT_LT(OmNumDataValue(10, "").Compare(OmNumber(9), false), 0);
  EXPECT_LT(OmVariable("b", "x").Compare(OmStringDataValue("a", "y"), false), 0);
  EXPECT_GT(OmComposite("y").Compare(OmVariable("b", "x"), false), 0);
}

/// A random cell of the kind with number `kind` among those of EveryKind().
CellPointer RandomCell(int kind) {
  auto const text = [] {
    return *rc::gen::container<std::string>(
        rc::gen::element('a', 'A', 'b', '\xC3', '\xA9', '\x89'));
  };
  auto const value = [] { return *rc::gen::element(kNaN, -1.0, -0.0, 0.0, 9.0, 10.0, kInfinity); };
  switch (kind) {
    case 0:
      return CellPointer(new OmStringCell(text()));
    case 1:
      return CellPointer(new OmStringCellUTF8(text()));
    case 2:
      return CellPointer(new OmNumber(value(), *rc::gen::inRange(-1, 2)));
    case 3:
      return CellPointer(new OmVariable(text(), text()));
    case 4:
      return CellPointer(new OmNumDataValue(value(), text()));
    case 5:
      return CellPointer(new OmStringDataValue(text(), text()));
    default: {
      auto* composite = new OmComposite(text() + "{0}");
      CellPointer result(composite);
      composite->AddPart(OmStringCell(text()));
      return result;
    }
  }
}

void CheckOrder(CellPointer const (&cells)[3], bool ignoreCase) {
  auto const compare = [&](int a, int b) { return Sign(cells[a]->Compare(*cells[b], ignoreCase)); };
  for (int a = 0; a < 3; ++a) {
    RC_ASSERT(compare(a, a) == 0);
    for (int b = 0; b < 3; ++b) {
      RC_ASSERT(compare(a, b) == -compare(b, a));
      for (int c = 0; c < 3; ++c) {
        RC_ASSERT(!(compare(a, b) <= 0 && compare(b, c) <= 0) || compare(a, c) <= 0);
      }
    }
  }
}

RC_GTEST_PROP(CompareOrder, IsAWeakOrderWithinEveryKind, (bool ignoreCase)) {
  int const kind = *rc::gen::inRange(0, 7);
  CellPointer const cells[3] = {RandomCell(kind), RandomCell(kind), RandomCell(kind)};
  CheckOrder(cells, ignoreCase);
}

RC_GTEST_PROP(CompareOrder, IsAWeakOrderOverBothStringKinds, (bool ignoreCase)) {
  auto const kind = [] { return *rc::gen::inRange(0, 2); };
  CellPointer const cells[3] = {RandomCell(kind()), RandomCell(kind()), RandomCell(kind())};
  CheckOrder(cells, ignoreCase);
}

RC_GTEST_PROP(CompareOrder, IsAntisymmetricOverAllKinds, (bool ignoreCase)) {
  CellPointer const a = RandomCell(*rc::gen::inRange(0, 7));
  CellPointer const b = RandomCell(*rc::gen::inRange(0, 7));
  RC_ASSERT(Sign(a->Compare(*b, ignoreCase)) == -Sign(b->Compare(*a, ignoreCase)));
}

}  // namespace
