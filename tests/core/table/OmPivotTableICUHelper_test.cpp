#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include <cells/OmComposite.h>
#include <cells/OmDataValue.h>
#include <cells/OmNumber.h>
#include <cells/OmStringCell.h>
#include <cells/OmVariable.h>
#include <cells/icuTracker.h>
#include <lakresvos/OmPivotTable.h>

#include "support/VirtualSlot.h"

namespace {

using Helper = OmPivotTable::ICUHelper;
using Parts = OmVectorTree<OmCellText*>;
using Lines = std::vector<std::string>;

static_assert(std::is_base_of_v<OmCellText::Visitor, Helper>);
static_assert(std::is_default_constructible_v<Helper>);

icuTracker* NewTracker() {
  return new icuTracker({true, ""});
}

/// A part that writes down the trackers that it is given by name, and holds one of its own choice.
class Part : public OmCellText {
 public:
  struct Book {
    Lines lines;
    icuTracker const* first = nullptr;   ///< called "first" in the lines
    icuTracker const* second = nullptr;  ///< called "second"
  };

  /// @param held the tracker that the part claims to hold; null: the one that it was given.
  Part(std::string const& name, Book& book, icuTracker* held = nullptr)
      : name_(name), book_(book), held_(held) {}

  OmCellText* Clone(OmMemoryRegion* region) const override {
    return new (region) Part(name_, book_, held_);
  }
  std::string GetText() const override { return name_; }
  long GetKind() const override { return 2000; }
  short Compare(OmCellText const& other, bool ignoreCase) const override {
    return CompareTexts(other, ignoreCase);
  }
  void Accept(OmCellText::Visitor& /*visitor*/) override {
    book_.lines.push_back(name_ + " accept");
  }
  void UseTracker(icuTracker* tracker) override {
    given_ = tracker;
    book_.lines.push_back(name_ + " " +
                          (tracker == nullptr        ? "null"
                           : tracker == book_.first  ? "first"
                           : tracker == book_.second ? "second"
                                                     : "unknown"));
  }
  icuTracker* GetTracker() const override { return held_ != nullptr ? held_ : given_; }

 private:
  std::string name_;
  Book& book_;
  icuTracker* held_;
  icuTracker* given_ = nullptr;
};

class OmPivotTableICUHelper : public testing::Test {
 protected:
  OmPivotTableICUHelper() {
    book.first = tracker.get();
    book.second = other.get();
    helper.setTracker(tracker.get());
  }

  Parts::Node Add(Parts::Node const& parent, std::string const& name, icuTracker* held = nullptr) {
    return Parts::AppendChild(parent, new Part(name, book, held));
  }

  std::unique_ptr<icuTracker> const tracker{NewTracker()};
  std::unique_ptr<icuTracker> const other{NewTracker()};
  Part::Book book;
  OmComposite composite{"pattern"};
  Helper helper;
};

// Slots

template <class Cell>
std::ptrdiff_t VisitSlot() {
  return VirtualSlot(static_cast<void (Helper::*)(Cell&)>(&Helper::Visit));
}

TEST_F(OmPivotTableICUHelper, SlotsFollowTheDestructorInTheOrderOfTheKinds) {
  EXPECT_EQ(VisitSlot<OmNumber>(), 2);
  EXPECT_EQ(VisitSlot<OmStringCell>(), 3);
  EXPECT_EQ(VisitSlot<OmStringCellUTF8>(), 4);
  EXPECT_EQ(VisitSlot<OmVariable>(), 5);
  EXPECT_EQ(VisitSlot<OmNumDataValue>(), 6);
  EXPECT_EQ(VisitSlot<OmStringDataValue>(), 7);
  EXPECT_EQ(VisitSlot<OmComposite>(), 8);
}

TEST_F(OmPivotTableICUHelper, TheDestructorIsVirtual) {
  EXPECT_TRUE(std::has_virtual_destructor_v<Helper>);
}

TEST(OmPivotTableSlots, AcceptFollowsTheDestructor) {
  EXPECT_EQ(VirtualSlot(&OmPivotTable::Accept), 2);
}

// Single texts

TEST_F(OmPivotTableICUHelper, EveryKindWithATextIsBound) {
  OmStringCell text("text");
  OmStringCellUTF8 utf8("text");
  OmVariable variable("name", "label");
  OmNumDataValue numeric(1, "one");
  OmStringDataValue string("s", "label of s");
  for (OmCellText* cell : std::vector<OmCellText*>{&text, &utf8, &variable, &numeric, &string}) {
    cell->Accept(helper);
    EXPECT_EQ(cell->GetTracker(), tracker.get()) << cell->GetKind();
  }
}

TEST_F(OmPivotTableICUHelper, ANumberIsLeftAlone) {
  OmNumber number(3);
  number.Accept(helper);
  EXPECT_EQ(number.GetTracker(), nullptr);
  EXPECT_EQ(number.GetText(), "3");
}

TEST_F(OmPivotTableICUHelper, ANewHelperHasNoTracker) {
  OmStringCell text("text");
  Helper fresh;
  EXPECT_FALSE(fresh.hasTracker());
  text.Accept(fresh);
  EXPECT_EQ(text.GetTracker(), nullptr);
}

TEST_F(OmPivotTableICUHelper, WithoutATrackerItUnbinds) {
  OmStringCell text("text");
  text.Accept(helper);
  helper.setTracker(nullptr);
  text.Accept(helper);
  EXPECT_EQ(text.GetTracker(), nullptr);
  EXPECT_EQ(text.GetText(), "text");
}

TEST_F(OmPivotTableICUHelper, ANewTrackerIsUsedFromThenOn) {
  OmStringCell text("text");
  text.Accept(helper);
  helper.setTracker(other.get());
  text.Accept(helper);
  EXPECT_EQ(text.GetTracker(), other.get());
}

// Composites

TEST_F(OmPivotTableICUHelper, ACompositeWithoutPartsIsBoundItself) {
  composite.Accept(helper);
  EXPECT_EQ(composite.GetTracker(), tracker.get());
}

TEST_F(OmPivotTableICUHelper, ThePartsAreVisitedDepthFirstInOrder) {
  Parts::Node const root = composite.Parts().Root();
  for (char const* name : {"a", "b", "c"}) {
    Add(root, name);
  }
  Add(root.Child(0), "a1");
  Add(root.Child(0), "a2");
  Add(root.Child(0).Child(1), "a21");
  Add(root.Child(2), "c1");
  composite.Accept(helper);
  EXPECT_EQ(book.lines, (Lines{"a first", "a1 first", "a2 first", "a21 first", "b first", "c first",
                               "c1 first"}));
}

TEST_F(OmPivotTableICUHelper, APartGetsTheTrackerThatItsParentHolds) {
  Parts::Node const root = composite.Parts().Root();
  Add(root, "a", other.get());
  Add(root, "b");
  Add(root.Child(0), "a1");
  Add(root.Child(0).Child(0), "a11");
  Add(root.Child(1), "b1");
  composite.Accept(helper);
  EXPECT_EQ(book.lines, (Lines{"a first", "a1 second", "a11 second", "b first", "b1 first"}));
}

TEST_F(OmPivotTableICUHelper, ThePartsGetTheTrackerThatTheCompositeHolds) {
  /// Keeps to a tracker of its own, whichever it is given.
  struct Stubborn : OmComposite {
    explicit Stubborn(icuTracker* own) : OmComposite("pattern"), held(own) {}
    icuTracker* GetTracker() const override { return held; }
    icuTracker* held;
  } stubborn(other.get());
  Add(stubborn.Parts().Root(), "a");
  stubborn.Accept(helper);
  EXPECT_EQ(book.lines, Lines{"a second"});
}

TEST_F(OmPivotTableICUHelper, ThePartOfTheRootComesFirstAndPassesOnWhatItHolds) {
  Parts::Node const root = composite.Parts().Root();
  root.Value() = new Part("root", book, other.get());
  Add(root, "a");
  composite.Accept(helper);
  EXPECT_EQ(book.lines, (Lines{"root first", "a second"}));
}

TEST_F(OmPivotTableICUHelper, PartsBelowANumberGetNoTracker) {
  Parts::Node const root = composite.Parts().Root();
  Add(Parts::AppendChild(root, new OmNumber(3)), "below");
  Add(root, "beside");
  composite.Accept(helper);
  EXPECT_EQ(book.lines, (Lines{"below null", "beside first"}));
}

TEST_F(OmPivotTableICUHelper, ANodeWithoutAPartIsPassedOver) {
  Add(Parts::AppendChild(composite.Parts().Root(), nullptr), "below");
  composite.Accept(helper);
  EXPECT_EQ(book.lines.size(), 1U);
}

TEST_F(OmPivotTableICUHelper, PartsAreBoundDirectlyAndNotVisited) {
  OmComposite inner("inner");
  inner.AddPart(OmStringCell("innermost"));
  composite.AddPart(inner);
  composite.Accept(helper);
  auto& part = dynamic_cast<OmComposite&>(*composite.Parts().Root().Child(0).Value());
  EXPECT_EQ(part.GetTracker(), tracker.get());
  EXPECT_EQ(part.Parts().Root().Child(0).Value()->GetTracker(), nullptr);
}

TEST_F(OmPivotTableICUHelper, TheTextOfABoundCompositeIsTheSame) {
  OmComposite sum("{0} + {1}");
  sum.AddPart(OmStringCell("a"));
  sum.AddPart(OmNumber(2));
  sum.Accept(helper);
  EXPECT_EQ(sum.GetText(), "a + 2");
}

TEST_F(OmPivotTableICUHelper, WithoutATrackerACompositeIsUnboundWithItsParts) {
  composite.AddPart(OmStringCell("part"));
  composite.Accept(helper);
  helper.setTracker(nullptr);
  composite.Accept(helper);
  EXPECT_EQ(composite.GetTracker(), nullptr);
  EXPECT_EQ(composite.Parts().Root().Child(0).Value()->GetTracker(), nullptr);
}

TEST_F(OmPivotTableICUHelper, VeryManyLevelsOfPartsNeedNoDeepStack) {
  Parts::Node node = composite.Parts().Root();
  for (int level = 0; level < 100000; ++level) {
    node = Parts::AppendChild(node, new OmStringCell("part"));
  }
  composite.Accept(helper);
  EXPECT_EQ(node.Value()->GetTracker(), tracker.get());
}

}  // namespace
