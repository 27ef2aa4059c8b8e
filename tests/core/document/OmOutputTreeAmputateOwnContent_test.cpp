#include <gtest/gtest.h>
#include <string>
#include <vector>

#include <cells/OmComposite.h>
#include <cells/OmStringCell.h>
#include <lakresvos/OmChart.h>
#include <lakresvos/OmHeading.h>
#include <lakresvos/OmModel.h>
#include <lakresvos/OmOutputTree.h>
#include <lakresvos/OmPivotTable.h>
#include <lakresvos/OmTextBlock.h>

#include "support/SpyCell.h"

// Only items' labels and blocks' texts used to be copied before their owners were deleted. What
// else an item keeps may be handed to Amputate() as well.

namespace {

using Node = OmOutputTree::Node;

/// An item, and a label and a text of which at least one belongs to it.
struct Content {
  OmOutputPart* item;
  OmCellText const* label;
  std::string const* text;
};

std::string const kText(100, 't');
OmStringCell const kLabel(std::string(100, 'l'));
auto const kLength = static_cast<unsigned int>(kText.size());

Content WithText(OmOutputPart* item, std::string const& text) {
  return {item, &kLabel, &text};
}

Content FirstText() {
  auto* const procedure = new OmProcedure(kLabel, kText, "", "");
  return WithText(procedure, procedure->Text1());
}

Content SecondText() {
  auto* const procedure = new OmProcedure(kLabel, "", kText, "");
  return WithText(procedure, procedure->Text2());
}

Content OutlineText() {
  auto* const procedure = new OmProcedure(OmStringCell(kText), "", "", "");
  return WithText(procedure, procedure->OutlineText());
}

Content ListedText() {
  auto* const block = new OmTextBlock(kLabel, "");
  block->TextList().push_back(kText);
  return WithText(block, block->TextList().front());
}

Content ModelStream() {
  auto* const model = new OmModel(kLabel);
  model->SetPMML(kText.data(), kLength);
  return WithText(model, model->GetPMML());
}

Content ChartStream() {
  auto* const chart = new OmChart(kLabel, "", 0);
  chart->SetViZJSON(kText.data(), kLength);
  return WithText(chart, chart->GetViZJSONData());
}

Content PartOfALabel() {
  OmComposite label("{0}");
  label.AddPart(kLabel);
  auto* const block = new OmTextBlock(label, kText);
  auto const& parts = dynamic_cast<OmComposite const*>(block->Label())->Parts();
  return {block, parts.Root().Child(0).Value(), &block->Text()};
}

Content Caption() {
  auto* const table = new OmPivotTable(kLabel, OmStringCell("template"), false);
  table->Caption(&kLabel);
  return {table, table->Caption(), &kText};
}

Content RecordCell() {
  auto* const heading = new OmHeading(kLabel);
  heading->Records().push_back({0, kLabel.Clone(nullptr), nullptr, 0});
  return {heading, heading->Records()[0].cell1, &kText};
}

class AmputateOwnContent : public testing::TestWithParam<Content (*)()> {
 protected:
  /// Puts the content below `parent`, cuts `cut` and looks at what comes back.
  void Cut(Node const& parent, Node const& cut) {
    Content const content = GetParam()();
    parent.AppendChild(content.item);
    std::string const label = content.label->GetText();
    Node const block = Amputate(cut, content.label, *content.text);
    auto const* const item = dynamic_cast<OmTextBlock const*>(block.Value());
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(item->Label()->GetText(), label);
    EXPECT_EQ(item->Text(), kText);
  }

  OmOutputTree tree;
};

TEST_P(AmputateOwnContent, OfAnItemThatGoesWithItsParent) {
  Node const heading = tree.begin().AppendChild(new OmHeading(OmStringCell("kept")));
  Cut(heading.AppendChild(new OmHeading(OmStringCell("gone"))), heading);
}

TEST_P(AmputateOwnContent, OfAnItemThatGoesWithTheWholeDocument) {
  Cut(tree.begin(), tree.begin());
}

TEST_P(AmputateOwnContent, TextOfADeeperItemThatIsItselfReplaced) {
  Content const content = GetParam()();
  std::string const label = content.item->Label()->GetText();
  Node const heading = tree.begin().AppendChild(new OmHeading(OmStringCell("kept")));
  Node const block = Amputate(heading.AppendChild(content.item), nullptr, *content.text);
  auto const* const item = dynamic_cast<OmTextBlock const*>(block.Value());
  ASSERT_NE(item, nullptr);
  EXPECT_EQ(item->Label()->GetText(), label);
  EXPECT_EQ(item->Text(), kText);
}

INSTANTIATE_TEST_SUITE_P(EveryKeeper, AmputateOwnContent,
                         testing::Values(FirstText, SecondText, OutlineText, ListedText,
                                         ModelStream, ChartStream, PartOfALabel, Caption,
                                         RecordCell));

TEST(Amputate, CopiesBeforeItDeletes) {
  SpyBalance const balance;
  OmOutputTree tree;
  Node const heading = tree.begin().AppendChild(new OmHeading(OmStringCell("kept")));
  heading.AppendChild(new OmHeading(SpyCell("gone")));
  SpyLog const log;
  Amputate(heading, heading.FirstChild().Value()->Label(), "text");
  EXPECT_EQ(log.Lines(), (std::vector<std::string>{"Clone gone", "GetText gone", "Destroy gone"}));
}

}  // namespace
