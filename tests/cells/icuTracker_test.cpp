#include <cells/icuTracker.h>
// This header comes first to show that it is self-contained.
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "EveryKind.h"
#include "support/Property.h"
#include "support/faults/FailingNew.h"

namespace {

std::pair<bool, std::string> const kSettings{true, "en_GB"};

/// How many distinct texts a cell of each kind binds, in the order of EveryKind().
constexpr std::size_t kTexts[] = {1, 1, 0, 2, 1, 2, 1};

TEST(IcuTracker, KeepsItsSettings) {
  icuTracker const tracker({false, "de_DE"});
  EXPECT_FALSE(tracker.getUnicode());
  EXPECT_EQ(tracker.getLocale(), "de_DE");
  EXPECT_EQ(tracker.TextCount(), 0U);
}

TEST(IcuTracker, BindingKeepsEveryKindsTextAndReportsTheTracker) {
  std::vector<CellPointer> const cells = EveryKind();
  for (std::size_t i = 0; i < cells.size(); ++i) {
    icuTracker tracker(kSettings);
    std::string const text = cells[i]->GetText();
    cells[i]->UseTracker(&tracker);
    EXPECT_EQ(cells[i]->GetText(), text);
    EXPECT_EQ(cells[i]->GetTracker(), kTexts[i] != 0 ? &tracker : nullptr);
    EXPECT_EQ(tracker.TextCount(), kTexts[i]);
    cells[i]->UseTracker(nullptr);
    EXPECT_EQ(cells[i]->GetText(), text);
    EXPECT_EQ(cells[i]->GetTracker(), nullptr);
    EXPECT_EQ(tracker.TextCount(), 0U);
  }
}

TEST(IcuTracker, EqualTextsOfDifferentKindsShareOneCopy) {
  icuTracker tracker(kSettings);
  OmStringCell plain("same");
  OmStringCellUTF8 utf8("same");
  OmVariable variable("same", "same");
  OmComposite composite("same");
  for (OmCellText* cell :
       {static_cast<OmCellText*>(&plain), static_cast<OmCellText*>(&utf8),
        static_cast<OmCellText*>(&variable), static_cast<OmCellText*>(&composite)}) {
    cell->UseTracker(&tracker);
  }
  EXPECT_EQ(tracker.TextCount(), 1U);
}

TEST(IcuTracker, BindingGivesTheOwnBytesBackToTheRegion) {
  OmMemoryRegion region(false);
  icuTracker tracker(kSettings);
  CellPointer const cell(OmStringCell(std::string(1000, 'x')).Clone(&region));
  cell->UseTracker(&tracker);
  EXPECT_LT(region.BytesInUse(), 1000U);
}

TEST(IcuTracker, UnbindingReturnsToTheRegionOfTheFirstBytesEvenAfterRebinding) {
  OmMemoryRegion region(false);
  icuTracker first(kSettings);
  icuTracker second(kSettings);
  CellPointer const cell(OmStringCell(std::string(1000, 'x')).Clone(&region));
  unsigned long const before = region.BytesInUse();
  cell->UseTracker(&first);
  cell->UseTracker(&second);
  EXPECT_EQ(first.TextCount(), 0U);
  EXPECT_EQ(second.TextCount(), 1U);
  EXPECT_EQ(cell->GetTracker(), &second);
  cell->UseTracker(nullptr);
  EXPECT_EQ(region.BytesInUse(), before);
}

TEST(IcuTracker, EmptyTextsAreBoundToo) {
  icuTracker tracker(kSettings);
  OmStringCell cell("");
  cell.UseTracker(&tracker);
  EXPECT_EQ(cell.GetTracker(), &tracker);
  EXPECT_EQ(cell.GetText(), "");
  EXPECT_EQ(tracker.TextCount(), 1U);
  cell.UseTracker(nullptr);
  EXPECT_EQ(cell.GetText(), "");
  EXPECT_EQ(tracker.TextCount(), 0U);
}

TEST(IcuTracker, UnbindingAnUnboundCellAllocatesNothing) {
  for (CellPointer const& cell : EveryKind()) {
    FailAfter const failing(1);
    cell->UseTracker(nullptr);
  }
}

TEST(IcuTracker, BindingAKnownTextOrBindingAgainAllocatesNothing) {
  icuTracker tracker(kSettings);
  OmVariable first("name", "label");
  OmVariable second("name", "label");
  first.UseTracker(&tracker);
  {
    FailAfter const failing(1);
    second.UseTracker(&tracker);
    second.UseTracker(&tracker);
  }
  EXPECT_EQ(tracker.TextCount(), 2U);
}

TEST(IcuTracker, ATextGoesWithTheLastCellThatSharesIt) {
  icuTracker tracker(kSettings);
  CellPointer first(new OmStringCell("text"));
  CellPointer second(new OmStringCell("text"));
  first->UseTracker(&tracker);
  second->UseTracker(&tracker);
  first.reset();
  EXPECT_EQ(tracker.TextCount(), 1U);
  EXPECT_EQ(second->GetText(), "text");
  second.reset();
  EXPECT_EQ(tracker.TextCount(), 0U);
}

TEST(IcuTracker, BoundCellsOutliveTheTracker) {
  std::vector<CellPointer> const cells = EveryKind();
  std::vector<std::string> texts;
  {
    icuTracker tracker(kSettings);
    for (CellPointer const& cell : cells) {
      texts.push_back(cell->GetText());
      cell->UseTracker(&tracker);
    }
  }
  for (std::size_t i = 0; i < cells.size(); ++i) {
    EXPECT_EQ(cells[i]->GetText(), texts[i]);
    EXPECT_EQ(cells[i]->GetTracker(), nullptr);
  }
}

TEST(IcuTracker, ACellWhoseTrackerIsGoneCanBeUnboundAndBoundAgain) {
  OmVariable unbound("name", "label");
  OmVariable rebound("name", "label");
  {
    icuTracker tracker(kSettings);
    unbound.UseTracker(&tracker);
    rebound.UseTracker(&tracker);
  }
  icuTracker next(kSettings);
  unbound.UseTracker(nullptr);
  rebound.UseTracker(&next);
  EXPECT_EQ(unbound.GetText(), "label");
  EXPECT_EQ(rebound.GetTracker(), &next);
  EXPECT_EQ(next.TextCount(), 2U);
}

TEST(IcuTracker, ACloneOfABoundCellIsUnboundWithBytesOfItsOwn) {
  OmMemoryRegion region(false);
  for (CellPointer const& cell : EveryKind()) {
    CellPointer clone;
    std::string const text = cell->GetText();
    {
      icuTracker tracker(kSettings);
      cell->UseTracker(&tracker);
      std::size_t const texts = tracker.TextCount();
      clone.reset(cell->Clone(&region));
      EXPECT_EQ(tracker.TextCount(), texts);
      EXPECT_EQ(clone->GetTracker(), nullptr);
    }
    EXPECT_EQ(clone->GetText(), text);
  }
}

TEST(IcuTracker, ACompositeIsBoundAlone) {
  icuTracker tracker(kSettings);
  OmComposite composite("{0}");
  composite.AddPart(OmStringCell("part"));
  composite.UseTracker(&tracker);
  EXPECT_EQ(composite.GetTracker(), &tracker);
  EXPECT_EQ(composite.Parts().Root().Child(0).Value()->GetTracker(), nullptr);
}

PROPERTY(IcuTrackerModel, CountsTheDistinctTextsOfTheBoundCells) {
  std::vector<std::string> const words{"", "a", "b", "ab", std::string("\0", 1)};
  icuTracker trackers[2] = {icuTracker(kSettings), icuTracker(kSettings)};
  std::map<std::string, int> model[2];
  struct Bound {
    CellPointer cell;
    std::string text;
    int tracker = -1;
  };
  std::vector<Bound> cells;
  auto const steps =
      *rc::gen::container<std::vector<unsigned int>>(200, rc::gen::arbitrary<unsigned int>());
  auto const drop = [&](Bound const& bound) {
    if (bound.tracker >= 0 && --model[bound.tracker][bound.text] == 0) {
      model[bound.tracker].erase(bound.text);
    }
  };
  for (unsigned int step : steps) {
    if (cells.empty() || step % 5 == 0) {
      std::string const& word = words[step / 5 % words.size()];
      cells.push_back({CellPointer(new OmStringCell(word)), word, -1});
      continue;
    }
    auto const victim = cells.begin() + static_cast<long>(step / 5 % cells.size());
    drop(*victim);
    if (step % 5 == 1) {
      cells.erase(victim);
    } else {
      victim->tracker = static_cast<int>(step % 5) - 3;
      if (victim->tracker >= 0) {
        ++model[victim->tracker][victim->text];
      }
      victim->cell->UseTracker(victim->tracker >= 0 ? &trackers[victim->tracker] : nullptr);
      RC_ASSERT(victim->cell->GetText() == victim->text);
    }
    RC_ASSERT(trackers[0].TextCount() == model[0].size());
    RC_ASSERT(trackers[1].TextCount() == model[1].size());
  }
}

}  // namespace
