#include <cells/OmComposite.h>
// This header comes first to show that it is self-contained.
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <utility>

#include <cells/OmNumber.h>
#include <cells/OmStringCell.h>
#include <cells/OmVariable.h>

#include "PlainTexts.h"
#include "support/Property.h"
#include "support/SmallStack.h"

namespace {

using PartTree = OmVectorTree<OmCellText*>;

std::string Render(std::string const& pattern, std::initializer_list<char const*> parts) {
  OmComposite composite(pattern);
  for (char const* part : parts) {
    composite.AddPart(OmStringCell(part));
  }
  return composite.GetText();
}

TEST(OmComposite, MarksStandForTheTextsOfTheParts) {
  EXPECT_EQ(Render("{1} before {0}, and {1}", {"a", "b"}), "b before a, and b");
}

TEST(OmComposite, AMarkOfSeveralDigitsNamesItsPart) {
  EXPECT_EQ(Render("{10}", {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "ten"}), "ten");
  EXPECT_EQ(Render("{00}", {"zero"}), "zero");
}

TEST(OmComposite, AMarkWithoutAPartStaysAsWritten) {
  EXPECT_EQ(Render("{0}{1}{2}", {"a"}), "a{1}{2}");
  EXPECT_EQ(Render("{99999999999999999999999}", {"a"}), "{99999999999999999999999}");
}

TEST(OmComposite, AMarkWhosePartIsNullStaysAsWritten) {
  OmComposite composite("{0}");
  PartTree::AppendChild(composite.Parts().Root(), nullptr);
  EXPECT_EQ(composite.GetText(), "{0}");
}

TEST(OmComposite, OtherBracesStayAsWritten) {
  EXPECT_EQ(Render("{} {x} {-1} {+0} { 0} {0 } {0", {"a"}), "{} {x} {-1} {+0} { 0} {0 } {0");
  EXPECT_EQ(Render("}{", {"a"}), "}{");
  EXPECT_EQ(Render("{{0}}", {"a"}), "{a}");
}

TEST(OmComposite, TextsOfPartsAreNotReadForMarks) {
  EXPECT_EQ(Render("{0}{1}", {"{1}", "b"}), "{1}b");
}

TEST(OmComposite, ThePatternKeepsItsBytes) {
  std::string const pattern("a\0{0}\xFF", 6);
  OmComposite composite(pattern);
  EXPECT_EQ(composite.Pattern(), pattern);
  EXPECT_EQ(composite.GetText(), pattern);
}

TEST(OmComposite, AnEmptyPatternGivesAnEmptyText) {
  EXPECT_EQ(Render("", {"a"}), "");
}

TEST(OmComposite, StartsWithoutPartsAndANullRoot) {
  OmComposite const composite("x");
  EXPECT_EQ(composite.Parts().Root().Value(), nullptr);
  EXPECT_EQ(composite.Parts().Root().NChildren(), 0U);
}

TEST(OmComposite, APartIsACopy) {
  OmComposite composite("{0}");
  OmVariable variable("age", "Age");
  composite.AddPart(variable);
  variable.Display(OmLabelDisplay::Value);
  EXPECT_EQ(composite.GetText(), "Age");
}

TEST(OmComposite, ACompositeMayBeAPartOfItself) {
  OmComposite composite("<{0}>");
  composite.AddPart(composite);
  EXPECT_EQ(composite.GetText(), "<<{0}>>");
}

TEST(OmComposite, PartsOfACloneLieInItsRegionAndSoDoNewOnes) {
  OmComposite composite("{0}{1}");
  composite.AddPart(OmStringCell("part"));
  OmMemoryRegion region(false);
  unsigned long const heap = OmMemoryRegion::DefaultHeap()->BytesInUse();
  std::unique_ptr<OmCellText> clone(composite.Clone(&region));
  dynamic_cast<OmComposite&>(*clone).AddPart(OmNumber(5));
  EXPECT_EQ(OmMemoryRegion::DefaultHeap()->BytesInUse(), heap);
  EXPECT_EQ(clone->GetText(), "part5");
  clone.reset();
  EXPECT_EQ(region.BytesInUse(), 0U);
}

TEST(OmComposite, DeeperNodesAreKeptAndClonedButNotShown) {
  OmComposite composite("{0}{1}");
  composite.AddPart(OmStringCell("a"));
  PartTree::AppendChild(composite.Parts().Root().Child(0), new OmStringCell("below"));
  composite.Parts().Root().Value() = new OmNumber(9);
  std::unique_ptr<OmCellText> const clone(composite.Clone(nullptr));
  PartTree::Node const root = dynamic_cast<OmComposite&>(*clone).Parts().Root();
  EXPECT_EQ(clone->GetText(), "a{1}");
  EXPECT_EQ(root.Value()->GetText(), "9");
  ASSERT_EQ(root.Child(0).NChildren(), 1U);
  EXPECT_EQ(root.Child(0).Child(0).Value()->GetText(), "below");
  EXPECT_NE(root.Child(0).Child(0).Value(), composite.Parts().Root().Child(0).Child(0).Value());
  EXPECT_EQ(root.Child(0).Child(0).Parent().element, root.Child(0).element);
}

TEST(OmComposite, AKindDerivedFromItIsClonedAndRenderedThroughItsOwnOperations) {
  class Shouting : public OmComposite {
   public:
    using OmComposite::OmComposite;
    std::string GetText() const override { return OmComposite::GetText() + "!"; }
    OmCellText* Clone(OmMemoryRegion* region) const override {
      return new (region) Shouting(*this, region);
    }

   private:
    Shouting(Shouting const& other, OmMemoryRegion* region) : OmComposite(other, region) {}
  };
  Shouting inner("hey {0}");
  inner.AddPart(OmStringCell("you"));
  OmComposite outer("({0})");
  outer.AddPart(inner);
  std::unique_ptr<OmCellText> const clone(outer.Clone(nullptr));
  EXPECT_EQ(clone->GetText(), "(hey you!)");
}

constexpr int kDeep = 100000;

TEST(OmComposite, TheCostOfATextCountsItsBytesAndItsPieces) {
  OmComposite composite("<{0}{0}>");
  composite.AddPart(OmStringCell("ab"));
  EXPECT_EQ(composite.TextCost(1000), composite.GetText().size() + 5);
  EXPECT_EQ(composite.TextCost(0), 2U);
}

TEST(OmComposite, TheCostOfATextEndsWithThePieceThatPassesTheLimit) {
  OmComposite composite("{0}{0}{0}");
  composite.AddPart(OmStringCell("abcdef"));
  EXPECT_EQ(composite.TextCost(3), 8U);
  EXPECT_EQ(composite.TextCost(8), 9U);
  EXPECT_EQ(composite.TextCost(9), 16U);
}

TEST(OmComposite, TheCostOfNestedPatternsIsFoundWithoutMakingTheText) {
  auto nested = std::make_unique<OmComposite>("{0}{0}");
  for (int i = 0; i < 60; ++i) {
    auto around = std::make_unique<OmComposite>("{0}{0}");
    around->AddPart(*nested);
    nested = std::move(around);
  }
  EXPECT_GT(nested->TextCost(1000000), 1000000U);
}

TEST(OmComposite, PartsAHundredThousandLevelsDeepNeedNoDeepStack) {
  OmComposite composite("{0}");
  PartTree::Node node = composite.Parts().Root();
  for (int level = 0; level < kDeep; ++level) {
    node = PartTree::AppendChild(node, new OmNumber(level));
  }
  std::unique_ptr<OmCellText> const clone(composite.Clone(nullptr));
  EXPECT_EQ(clone->GetText(), "0");
}

/// A composite that holds `inner` as the value of the root of its parts, and a part besides.
std::unique_ptr<OmComposite> WrapInRoot(OmMemoryRegion* region,
                                        std::unique_ptr<OmComposite> inner) {
  std::unique_ptr<OmComposite> outer(new (region) OmComposite("{0}"));
  outer->Parts().Root().Value() = inner.release();
  outer->AddPart(OmNumber(7));
  return outer;
}

TEST(OmComposite, ACompositeInTheRootIsClonedAndDeletedWithItsParts) {
  OmMemoryRegion region(false);
  {
    std::unique_ptr<OmComposite> inner(new (&region) OmComposite("<{0}>"));
    inner->AddPart(OmStringCell("inner"));
    std::unique_ptr<OmComposite> const outer = WrapInRoot(&region, std::move(inner));
    std::unique_ptr<OmCellText> const clone(outer->Clone(&region));
    EXPECT_EQ(clone->GetText(), "7");
    PartTree::Node const root = dynamic_cast<OmComposite&>(*clone).Parts().Root();
    EXPECT_EQ(root.Value()->GetText(), "<inner>");
    EXPECT_NE(root.Value(), outer->Parts().Root().Value());
  }
  EXPECT_EQ(region.BytesInUse(), 0U);
}

TEST(OmComposite, CompositesInRootsAHundredThousandLevelsDeepNeedNoDeepStack) {
  OmMemoryRegion region(false);
  {
    std::unique_ptr<OmComposite> composite(new (&region) OmComposite("."));
    for (int level = 0; level < kDeep; ++level) {
      composite = WrapInRoot(&region, std::move(composite));
    }
    OnASmallStack([&] {
      std::unique_ptr<OmCellText> const clone(composite->Clone(&region));
      EXPECT_EQ(clone->GetText(), "7");
      composite.reset();
    });
  }
  EXPECT_EQ(region.BytesInUse(), 0U);
}

TEST(OmComposite, CompositesAHundredThousandLevelsDeepNeedNoDeepStack) {
  std::unique_ptr<OmComposite> composite(new OmComposite("."));
  for (int level = 0; level < kDeep; ++level) {
    std::unique_ptr<OmComposite> outer(new OmComposite("{0}x"));
    PartTree::AppendChild(outer->Parts().Root(), composite.get());
    composite.release();
    composite = std::move(outer);
  }
  std::unique_ptr<OmCellText> const clone(composite->Clone(nullptr));
  EXPECT_EQ(clone->GetText(), "." + std::string(kDeep, 'x'));
  EXPECT_EQ(clone->Compare(*composite, true), 0);
}

PROPERTY(OmCompositeText, AgreesWithReplacingTheMarksOneByOne) {
  auto const pieces = *rc::gen::container<std::vector<std::string>>(
      rc::gen::element<std::string>("{0}", "{1}", "{2}", "{3}", "{", "}", "1", "x", "{{", "{01}"));
  std::string const parts[] = {"A", "", "CC"};
  OmComposite composite([&] {
    std::string pattern;
    for (std::string const& piece : pieces) {
      pattern += piece;
    }
    return pattern;
  }());
  for (std::string const& part : parts) {
    composite.AddPart(OmStringCell(part));
  }
  RC_ASSERT(composite.GetText() ==
            PlainCompositeText(composite.Pattern(), {parts[0], parts[1], parts[2]}));
}

}  // namespace
