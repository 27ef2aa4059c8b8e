#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <rapidcheck/gtest.h>
#include <string>
#include <utility>
#include <vector>

#include "EveryKind.h"
#include "PlainOrder.h"
#include "support/faults/FailingNew.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

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

TEST(Compare, EqualNumbersCompareByDecimals) {
  EXPECT_EQ(OmNumber(1).Compare(OmNumber(1), false), 0);
  EXPECT_LT(OmNumber(1).Compare(OmNumber(1, 2), false), 0);
  EXPECT_LT(OmNumber(1, 9).Compare(OmNumber(1, 10), false), 0);
  EXPECT_EQ(OmNumber(-0.0).Compare(OmNumber(0.0), false), 0);
}

TEST(Compare, MissingIsEqualToItselfAndBelowEveryNumber) {
  EXPECT_EQ(OmNumber(kNaN).Compare(OmNumber(-kNaN), false), 0);
  EXPECT_LT(OmNumber(kNaN).Compare(OmNumber(-kInfinity), false), 0);
  EXPECT_GT(OmNumber(-kInfinity).Compare(OmNumber(kNaN), false), 0);
}

TEST(Compare, VariablesCompareByNameThenByLabel) {
  EXPECT_LT(OmVariable("a", "z").Compare(OmVariable("b", "y"), false), 0);
  EXPECT_GT(OmVariable("a", "z").Compare(OmVariable("a", "y"), false), 0);
  EXPECT_LT(OmVariable("a", "").Compare(OmVariable("a", "A"), false), 0);
  EXPECT_EQ(OmVariable("a", "Y").Compare(OmVariable("A", "y"), true), 0);
}

TEST(Compare, NumericDataValuesCompareByValueThenByLabel) {
  EXPECT_LT(OmNumDataValue(9, "z").Compare(OmNumDataValue(10, "a"), false), 0);
  EXPECT_LT(OmNumDataValue(9, "a").Compare(OmNumDataValue(9, "b"), false), 0);
}

TEST(Compare, TextDataValuesCompareByValueThenByLabel) {
  EXPECT_LT(OmStringDataValue("f", "z").Compare(OmStringDataValue("m", "a"), false), 0);
  EXPECT_LT(OmStringDataValue("f", "a").Compare(OmStringDataValue("f", "b"), false), 0);
}

TEST(Compare, CompositesCompareByText) {
  OmComposite first("{0}");
  first.AddPart(OmStringCell("a"));
  EXPECT_EQ(first.Compare(OmComposite("a"), false), 0);
  EXPECT_LT(first.Compare(OmComposite("b"), false), 0);
}

/// A kind made elsewhere of one of this library's.
template <class Base>
class Derived : public Base {
 public:
  template <class... Arguments>
  explicit Derived(long kind, Arguments const&... arguments) : Base(arguments...), kind_(kind) {}
  long GetKind() const override { return kind_; }

 private:
  long kind_;
};

TEST(Compare, DifferentKindsCompareByRankWhateverTheirTexts) {
  std::vector<CellPointer> cells;
  cells.emplace_back(new OmStringCell("z"));
  cells.emplace_back(new Derived<OmStringCell>(-1, "y"));
  cells.emplace_back(new OmNumber(9));
  cells.emplace_back(new OmVariable("x", ""));
  cells.emplace_back(new OmNumDataValue(8, ""));
  cells.emplace_back(new OmStringDataValue("w", ""));
  cells.emplace_back(new OmComposite("v"));
  cells.emplace_back(new Derived<OmNumber>(100, 7));
  cells.emplace_back(new Derived<OmVariable>(101, "u", ""));
  for (std::size_t a = 0; a < cells.size(); ++a) {
    for (std::size_t b = 0; b < cells.size(); ++b) {
      EXPECT_EQ(Sign(cells[a]->Compare(*cells[b], false)), (a > b) - (a < b)) << a << " " << b;
    }
  }
}

// Number 9 stood before number 10, 10 before the text "1a", and that before number 9.
TEST(Compare, ATextAmongNumbersMakesNoCircle) {
  OmNumber const nine(9);
  OmNumber const ten(10);
  OmStringCell const text("1a");
  EXPECT_LT(nine.Compare(ten, false), 0);
  EXPECT_GT(ten.Compare(text, false), 0);
  EXPECT_LT(text.Compare(nine, false), 0);
}

TEST(Compare, KindsMadeElsewhereCompareByText) {
  using Number = Derived<OmNumber>;
  EXPECT_GT(Number(100, 9).Compare(Number(100, 10), false), 0);
  EXPECT_EQ(Number(100, 5).Compare(Derived<OmStringCell>(100, "5"), false), 0);
  EXPECT_EQ(Derived<OmStringCell>(100, "AB").Compare(Derived<OmComposite>(100, "ab"), true), 0);
}

TEST(Compare, AClassDerivedFromOneOfTheLibraryComparesAsThatUnlessItsKindDiffers) {
  using Number = Derived<OmNumber>;
  EXPECT_LT(Number(OmCellText::NumberKind, 9).Compare(OmNumber(10), false), 0);
  EXPECT_LT(OmNumber(9).Compare(Number(OmCellText::NumberKind, 10), false), 0);
  EXPECT_LT(
      Derived<OmVariable>(OmCellText::VariableKind, "a", "z").Compare(OmVariable("b", "y"), false),
      0);
  EXPECT_GT(Number(100, 9).Compare(OmNumber(10), false), 0);
}

TEST(Compare, AClassThatOnlyClaimsAKindOfTheLibraryComparesByText) {
  Derived<OmStringCell> const text(OmCellText::NumberKind, "10");
  EXPECT_GT(OmNumber(9).Compare(text, false), 0);
  EXPECT_LT(text.Compare(OmNumber(9), false), 0);
}

TEST(Compare, CopiesNoText) {
  std::string const upper = std::string(1000, 'X') + "A\u00C9\u212A";
  std::string const lower = std::string(1000, 'x') + "a\u00E9k";
  auto const make = [](std::string const& text) {
    std::vector<CellPointer> cells;
    cells.emplace_back(new OmStringCell(text));
    cells.emplace_back(new OmStringCellUTF8(text));
    cells.emplace_back(new OmVariable(text, text));
    cells.emplace_back(new OmNumDataValue(1, text));
    cells.emplace_back(new OmStringDataValue(text, text));
    return cells;
  };
  std::vector<CellPointer> const a = make(upper);
  std::vector<CellPointer> const b = make(lower);
  for (std::size_t i = 0; i < a.size(); ++i) {
    int exact = 0;
    int folded = 1;
    int mixed = 1;
    EXPECT_NO_THROW({
      FailAfter const failing(1);
      exact = a[i]->Compare(*b[i], false);
      folded = a[i]->Compare(*b[i], true);
      mixed = a[0]->Compare(*b[1], true);
    });
    EXPECT_LT(exact, 0);
    EXPECT_EQ(folded, 0);
    EXPECT_EQ(mixed, 0);
  }
}

/// Checks that a composite of a variable compares as before once the variable shows its name.
void ExpectDisplayDoesNotCount(void (*showName)(OmVariable& variable)) {
  OmVariable variable("a", "z");
  OmComposite labels("{0}");
  labels.AddPart(variable);
  showName(variable);
  OmComposite names("{0}");
  names.AddPart(variable);
  ASSERT_NE(labels.GetText(), names.GetText());
  EXPECT_EQ(labels.Compare(names, false), 0);
  EXPECT_GT(names.Compare(OmComposite("b"), false), 0);
  EXPECT_EQ(names.GetText(), "a") << "the mode itself is as before";
}

TEST(Compare, TheDisplayModeOfAPartDoesNotCount) {
  ExpectDisplayDoesNotCount([](OmVariable& part) { part.Display(OmLabelDisplay::Value); });
}

TEST(Compare, TheDisplayModeOfAContextDoesNotCount) {
  ExpectDisplayDoesNotCount([](OmVariable& part) { part.ContextDisplay(OmLabelDisplay::Value); });
}

constexpr int kKinds = 11;

/// A random cell of the kind with this number: those of EveryKind(), then kinds made elsewhere. Two
/// of these have one kind number.
CellPointer RandomCell(int kind) {
  auto const text = [] {
    return *rc::gen::container<std::string>(
        rc::gen::element('1', '9', 'a', 'A', 'b', '\xC3', '\xA9', '\x89'));
  };
  auto const value = [] {
    return *rc::gen::element(kNaN, -1.0, -0.0, 0.0, 1.0, 9.0, 10.0, 19.0, 1e300, kInfinity);
  };
  auto const decimals = [] { return *rc::gen::inRange(-1, 12); };
  switch (kind) {
    case 0:
      return CellPointer(new OmStringCell(text()));
    case 1:
      return CellPointer(new OmStringCellUTF8(text()));
    case 2:
      return CellPointer(new OmNumber(value(), decimals()));
    case 3:
      return CellPointer(new OmVariable(text(), text()));
    case 4:
      return CellPointer(new OmNumDataValue(value(), text()));
    case 5:
      return CellPointer(new OmStringDataValue(text(), text()));
    case 6: {
      auto* composite = new OmComposite(text() + "{0}");
      CellPointer result(composite);
      composite->AddPart(*RandomCell(*rc::gen::inRange(0, kKinds)));
      return result;
    }
    case 7:
      return CellPointer(new Derived<OmStringCell>(-1, text()));
    case 8:
      return CellPointer(new Derived<OmNumber>(100, value(), decimals()));
    case 9:
      return CellPointer(new Derived<OmVariable>(100, text(), text()));
    default:
      return CellPointer(new Derived<OmComposite>(101, text()));
  }
}

CellPointer RandomCell() {
  return RandomCell(*rc::gen::inRange(0, kKinds));
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
  int const kind = *rc::gen::inRange(0, kKinds);
  CellPointer const cells[3] = {RandomCell(kind), RandomCell(kind), RandomCell(kind)};
  CheckOrder(cells, ignoreCase);
}

RC_GTEST_PROP(CompareOrder, IsAWeakOrderOverAllKinds, (bool ignoreCase)) {
  CellPointer const cells[3] = {RandomCell(), RandomCell(), RandomCell()};
  CheckOrder(cells, ignoreCase);
}

template <class Cell>
std::pair<Cell const&, Cell const&> As(OmCellText const& a, OmCellText const& b) {
  return {dynamic_cast<Cell const&>(a), dynamic_cast<Cell const&>(b)};
}

/// The order of cells that no display mode was set for, from copies of what they hold.
int OrderOf(OmCellText const& a, OmCellText const& b, bool ignoreCase) {
  auto const rank = [](OmCellText const& cell) {
    long const kind = cell.GetKind();
    return kind == 1 || kind == 2 ? std::numeric_limits<long>::min() : kind;
  };
  if (rank(a) != rank(b)) {
    return rank(a) < rank(b) ? -1 : 1;
  }
  switch (a.GetKind()) {
    case OmCellText::NumberKind: {
      auto const [x, y] = As<OmNumber>(a, b);
      return Either(PlainOrder(x.Value(), y.Value()), PlainOrder(x.Decimals(), y.Decimals()));
    }
    case OmCellText::VariableKind: {
      auto const [x, y] = As<OmVariable>(a, b);
      return Either(PlainOrder(x.Name(), y.Name(), ignoreCase),
                    PlainOrder(x.Label(), y.Label(), ignoreCase));
    }
    case OmCellText::NumDataValueKind: {
      auto const [x, y] = As<OmNumDataValue>(a, b);
      return Either(PlainOrder(x.Value(), y.Value()), PlainOrder(x.Label(), y.Label(), ignoreCase));
    }
    case OmCellText::StringDataValueKind: {
      auto const [x, y] = As<OmStringDataValue>(a, b);
      return Either(PlainOrder(x.Value(), y.Value(), ignoreCase),
                    PlainOrder(x.Label(), y.Label(), ignoreCase));
    }
    default:
      return PlainOrder(a.GetText(), b.GetText(), ignoreCase);
  }
}

RC_GTEST_PROP(CompareOrder, AgreesWithThatOfPlainCopiesWithinEveryKind, (bool ignoreCase)) {
  int const kind = *rc::gen::inRange(0, kKinds);
  CellPointer const a = RandomCell(kind);
  CellPointer const b = RandomCell(kind);
  RC_ASSERT(Sign(a->Compare(*b, ignoreCase)) == OrderOf(*a, *b, ignoreCase));
}

RC_GTEST_PROP(CompareOrder, AgreesWithThatOfPlainCopiesOverAllKinds, (bool ignoreCase)) {
  CellPointer const a = RandomCell();
  CellPointer const b = RandomCell();
  RC_ASSERT(Sign(a->Compare(*b, ignoreCase)) == OrderOf(*a, *b, ignoreCase));
}

/// Sets the display mode of a cell, of its context, and of its parts.
void ChangeDisplay(OmCellText& cell) {
  auto const mode = [] {
    return *rc::gen::element(OmLabelDisplay::Value, OmLabelDisplay::Label, OmLabelDisplay::Both);
  };
  cell.ContextDisplay(mode());
  if (auto* labelled = dynamic_cast<OmLabelledCell*>(&cell);
      labelled && *rc::gen::arbitrary<bool>()) {
    labelled->Display(mode());
  }
  if (auto* composite = dynamic_cast<OmComposite*>(&cell)) {
    for (std::size_t i = 0; i < composite->Parts().Root().NChildren(); ++i) {
      ChangeDisplay(*composite->Parts().Root().Child(i).Value());
    }
  }
}

RC_GTEST_PROP(CompareOrder, DependsOnNoDisplayMode, (bool ignoreCase)) {
  CellPointer const a = RandomCell();
  CellPointer const b = RandomCell();
  int const before = Sign(a->Compare(*b, ignoreCase));
  ChangeDisplay(*a);
  ChangeDisplay(*b);
  RC_ASSERT(Sign(a->Compare(*b, ignoreCase)) == before);
}

}  // namespace
