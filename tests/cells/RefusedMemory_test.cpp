#include <functional>
#include <gtest/gtest.h>
#include <iostream>
#include <string>
#include <tuple>
#include <vector>

#include "EveryKind.h"
#include "support/SpyCell.h"
#include "support/faults/FailingNew.h"

// What reads cells when there is no memory, the values that belong to them, and composites of parts
// that throw. What makes and changes cells is in AllocationFailure_test.cpp.

namespace {

std::string const kLong(100, 'x');

/// One cell of every kind, with long texts.
std::vector<CellPointer> LongCells() {
  std::vector<CellPointer> cells;
  cells.emplace_back(new OmStringCell(kLong));
  cells.emplace_back(new OmStringCellUTF8("\u00c4" + kLong));
  cells.emplace_back(new OmNumber(1e-300, 100));
  cells.emplace_back(new OmVariable(kLong, kLong));
  cells.emplace_back(new OmNumDataValue(1e300, kLong));
  cells.emplace_back(new OmStringDataValue(kLong, kLong));
  auto* const composite = new OmComposite("{0} of {1}");
  composite->AddPart(OmStringCell(kLong));
  composite->AddPart(OmVariable("a", kLong));
  cells.emplace_back(composite);
  for (std::size_t i = 3; i < 6; ++i) {
    cells[i]->ContextDisplay(OmLabelDisplay::Both);
  }
  return cells;
}

/// What is called with a cell that accepts it.
struct CountingVisitor : OmCellText::Visitor {
  void Visit(OmNumber& /*cell*/) override { ++count; }
  void Visit(OmStringCell& /*cell*/) override { ++count; }
  void Visit(OmStringCellUTF8& /*cell*/) override { ++count; }
  void Visit(OmVariable& /*cell*/) override { ++count; }
  void Visit(OmNumDataValue& /*cell*/) override { ++count; }
  void Visit(OmStringDataValue& /*cell*/) override { ++count; }
  void Visit(OmComposite& /*cell*/) override { ++count; }

  int count = 0;
};

TEST(CellsRefusedMemory, WhileTextsAreMade) {
  for (CellPointer const& cell : LongCells()) {
    EXPECT_GT(FailEveryAllocationOf([&] { return cell->GetText(); }), 0U) << cell->GetKind();
  }
  OmVariable const variable(kLong, kLong);
  EXPECT_GT(FailEveryAllocationOf([&] { return variable.Name() + variable.Label(); }), 2U);
  OmStringDataValue const value(kLong, kLong);
  EXPECT_GT(FailEveryAllocationOf([&] { return value.Value() + value.Label(); }), 2U);
  OmComposite const composite(kLong);
  EXPECT_GT(FailEveryAllocationOf([&] { return composite.Pattern(); }), 0U);
  FailEveryAllocationOf([&] { return composite.TextCost(1000); });
}

TEST(CellsRefusedMemory, WhileCellsAreCompared) {
  std::vector<CellPointer> const cells = LongCells();
  std::size_t failures = 0;
  for (CellPointer const& one : cells) {
    for (CellPointer const& other : cells) {
      for (bool const ignoreCase : {false, true}) {
        failures += FailEveryAllocationOf([&] { return one->Compare(*other, ignoreCase); });
      }
    }
    OmComposite const same("{0}");
    failures += FailEveryAllocationOf([&] { return same.Compare(*one, true); });
  }
  EXPECT_GT(failures, 40U);
}

TEST(CellsRefusedMemory, WhileCellsAreDumpedAndVisited) {
  std::streambuf* const before = std::cout.rdbuf(nullptr);
  for (CellPointer const& cell : LongCells()) {
    EXPECT_GT(FailEveryAllocationOf([&] {
                std::cout.clear();
                cell->Dump(3);
                return true;
              }),
              0U);
    FailEveryAllocationOf([&] {
      CountingVisitor visitor;
      cell->Accept(visitor);
      return visitor.count;
    });
  }
  std::cout.rdbuf(before);
  std::cout.clear();
}

TEST(CellsRefusedMemory, WhileSharedTextsArePooled) {
  icuTracker tracker({true, ""});
  for (int round = 0; round < 40; ++round) {
    OmStringCell cell(kLong + std::to_string(round));
    std::size_t const texts = tracker.TextCount();
    EXPECT_GT(FailEveryAllocation([&] { cell.UseTracker(&tracker); },
                                  [&] { EXPECT_EQ(tracker.TextCount(), texts); }),
              0U);
    EXPECT_EQ(tracker.TextCount(), texts + 1);
    FailEveryAllocation([&] { cell.UseTracker(nullptr); },
                        [&] { EXPECT_EQ(cell.GetTracker(), &tracker); });
    EXPECT_EQ(tracker.TextCount(), texts);
  }
}

TEST(CellsRefusedMemory, LeavesTheOldValuesOfStylesAndSettings) {
  using Setter = void (OmCellProperties::*)(std::string const&);
  using Getter = std::string const& (OmCellProperties::*)() const;
  std::pair<Setter, Getter> const texts[] = {
      {&OmCellProperties::setFontName, &OmCellProperties::getFontName},
      {&OmCellProperties::setTextColor, &OmCellProperties::getTextColor},
      {&OmCellProperties::setBackgroundColor, &OmCellProperties::getBackgroundColor}};
  for (auto const& text : texts) {
    Setter const set = text.first;
    Getter const get = text.second;
    OmCellProperties style;
    (style.*set)("old");
    EXPECT_GT(FailEveryAllocation([&] { (style.*set)(kLong); },
                                  [&] { EXPECT_EQ((style.*get)(), "old"); }),
              0U);
    EXPECT_EQ((style.*get)(), kLong);
  }
  BackendSettings settings;
  settings.setLocale("old");
  EXPECT_GT(FailEveryAllocation([&] { settings.setLocale(kLong); },
                                [&] { EXPECT_EQ(settings.getLocale(), "old"); }),
            0U);
  EXPECT_EQ(settings.getLocale(), kLong);
  OmCellMetaData meta;
  for (unsigned int number = 0; number < 20; ++number) {
    FailEveryAllocation([&] { meta.addFootnote(number); },
                        [&] { EXPECT_EQ(meta.getFootnotes().size(), number); });
    EXPECT_EQ(meta.getFootnotes().size(), number + 1);
  }
}

// Parts that throw

TEST(CompositeOfThrowingParts, LetsWhatTheyThrowPassAndIsAsItWas) {
  SpyBalance const balance;
  OmComposite inner("{0}");
  inner.AddPart(SpyCell("deep"));
  OmComposite composite("{0}, {1} and {0}");
  composite.AddPart(SpyCell("one"));
  composite.AddPart(inner);
  OmComposite const other("one, deep and two");
  icuTracker tracker({true, ""});
  std::string const text = composite.GetText();
  std::vector<std::function<void()>> const operations = {
      [&] { EXPECT_EQ(composite.GetText(), text); },
      [&] { EXPECT_LT(composite.Compare(other, false), 0); },
      [&] { EXPECT_GT(other.Compare(composite, true), 0); },
      [&] { CellPointer const clone(composite.Clone(nullptr)); },
      [&] {
        OmComposite outer("{0}");
        outer.AddPart(composite);
      },
      [&] { composite.UseTracker(&tracker); },
      [&] { composite.UseTracker(nullptr); },
      [&] { composite.ShareContext(other); },
      [&] { composite.TextCost(100); },
  };
  long const live = SpyCell::Live();
  std::size_t failures = 0;
  for (auto const& operation : operations) {
    for (SpyCell::Operation const call : SpyCell::kThrowing) {
      HeldMemory const before = HeldMemory::Now();
      failures += FailEveryCall(call, operation, [&] {
        EXPECT_EQ(SpyCell::Live(), live);
        EXPECT_EQ(HeldMemory::Now(), before);
      });
      EXPECT_EQ(composite.GetText(), text);
    }
  }
  EXPECT_GE(failures, 12U);
}

}  // namespace
