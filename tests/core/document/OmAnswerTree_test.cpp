#include <climits>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <type_traits>

#include <lakresvos/OmAnswerTree.h>

#include "core/document/OmItemFixture.h"
#include "support/SpyCell.h"
#include "support/faults/FailingNew.h"

namespace {

static_assert(std::is_base_of_v<OmOutputPart, OmAnswerTree>);
static_assert(!std::is_copy_constructible_v<OmAnswerTree>);
static_assert(
    std::is_same_v<decltype(std::declval<OmAnswerTree const&>().GetPath()), std::string const&>);

class OmAnswerTreeTest : public testing::Test {
 protected:
  SpyBalance balance_;
  std::string page = "ISO-8859-1";
  HeldItem<OmAnswerTree> tree{OmStringCell("label"), page};
};

TEST_F(OmAnswerTreeTest, ANewTreeHasNoTypeYet) {
  EXPECT_EQ(tree.GetTreeType(), -1);
}

TEST_F(OmAnswerTreeTest, ANewTreeHasAnUncompressedLengthOfZero) {
  EXPECT_EQ(tree.GetXmlUncompressedLength(), 0U);
}

TEST_F(OmAnswerTreeTest, ANewTreeHasOnlyItsLabel) {
  EXPECT_EQ(tree.Label()->GetText(), "label");
  EXPECT_EQ(tree.GetPath(), "");
  EXPECT_EQ(tree.GetCompressedXml(), "");
  EXPECT_EQ(tree.GetUncompressedXml(), "");
  EXPECT_EQ(tree.GetUncompressedDisplayXML(), "");
}

TEST_F(OmAnswerTreeTest, TheCodePageLeavesTheLabelAsItIs) {
  SpyCell const label("caf\u00E9");
  SpyLog const log;
  OmAnswerTree const made(label, page);
  EXPECT_EQ(log.Lines(), std::vector<std::string>{"Clone caf\u00E9"});
  EXPECT_EQ(made.Label(), log.calls[0].result);
}

TEST_F(OmAnswerTreeTest, TheCodePageIsNotCopied) {
  OmStringCell const label("label");
  std::string const none;
  std::string const long_page(1000, 'p');
  auto const failures = [&](std::string const& name) {
    return FailEveryAllocation([&] { OmAnswerTree const made(label, name); }, [] {});
  };
  EXPECT_EQ(failures(long_page), failures(none));
}

TEST_F(OmAnswerTreeTest, NothingReadsACodePageThatIsGone) {
  auto gone = std::make_unique<std::string>(1000, 'p');
  OmAnswerTree made(OmStringCell("label"), *gone);
  gone.reset();
  made.SetPath("path", 4);
  made.Done();
  EXPECT_EQ(made.GetPath(), "path");
}

TEST_F(OmAnswerTreeTest, IsDeletedThroughItsBaseAndLeavesTheCodePage) {
  OmOutputPart* const part = new OmAnswerTree(SpyCell("label"), page);
  EXPECT_EQ(SpyCell::Live(), 1);
  delete part;
  EXPECT_EQ(SpyCell::Live(), 0);
  EXPECT_EQ(page, "ISO-8859-1");
}

TEST_F(OmAnswerTreeTest, ATreeThatCannotBeMadeLeavesNothingBehind) {
  SpyCell const label("label");
  auto const nothing = [] { EXPECT_EQ(SpyCell::Live(), 1); };
  auto const make = [&] { OmAnswerTree const made(label, page); };
  EXPECT_GE(FailEveryAllocation(make, nothing), 4U);
  EXPECT_EQ(FailEveryCall(SpyCell::Operation::Clone, make, nothing), 1U);
}

TEST_F(OmAnswerTreeTest, IsVisitedAsAnAnswerTree) {
  EXPECT_TRUE(IsVisitedAsItself<OmAnswerTree>());
}

TEST_F(OmAnswerTreeTest, ItsOperationsFollowAcceptInTheirOrder) {
  EXPECT_EQ(VirtualSlot(&OmAnswerTree::Accept), 2);
  EXPECT_EQ(VirtualSlot(&OmAnswerTree::SetTreeType), 3);
  EXPECT_EQ(VirtualSlot(&OmAnswerTree::SetPath), 4);
  EXPECT_EQ(VirtualSlot(&OmAnswerTree::SetCompressedXML), 5);
  EXPECT_EQ(VirtualSlot(&OmAnswerTree::SetUncompressedXML), 6);
  EXPECT_EQ(VirtualSlot(&OmAnswerTree::SetUncompressedDisplayXML), 7);
  EXPECT_EQ(VirtualSlot(&OmAnswerTree::Done), 8);
  EXPECT_EQ(NextSlot<OmAnswerTree>(), 9);
}

TEST_F(OmAnswerTreeTest, KeepsAnyType) {
  for (int const type : {0, 1, -1, INT_MIN, INT_MAX}) {
    tree.SetTreeType(type);
    EXPECT_EQ(tree.GetTreeType(), type);
  }
}

TEST_F(OmAnswerTreeTest, TheLastUncompressedLengthWinsWhileTheBytesAreAppended) {
  tree.SetCompressedXML("ab", 2, 100);
  tree.SetCompressedXML("cd", 2, 250);
  EXPECT_EQ(tree.GetCompressedXml(), "abcd");
  EXPECT_EQ(tree.GetXmlUncompressedLength(), 250U);
}

TEST_F(OmAnswerTreeTest, TheUncompressedLengthMayShrinkAndIsTakenWithoutBytesToo) {
  tree.SetCompressedXML("ab", 2, UINT_MAX);
  EXPECT_EQ(tree.GetXmlUncompressedLength(), UINT_MAX);
  tree.SetCompressedXML(nullptr, 0, 3);
  EXPECT_EQ(tree.GetCompressedXml(), "ab");
  EXPECT_EQ(tree.GetXmlUncompressedLength(), 3U);
}

TEST_F(OmAnswerTreeTest, TheOtherStreamsLeaveTheUncompressedLengthAlone) {
  tree.SetCompressedXML("ab", 2, 100);
  tree.SetPath("a", 1);
  tree.SetUncompressedXML("a", 1);
  tree.SetUncompressedDisplayXML("a", 1);
  EXPECT_EQ(tree.GetXmlUncompressedLength(), 100U);
}

TEST_F(OmAnswerTreeTest, AChunkThatCannotBeKeptLeavesTheUncompressedLengthAlone) {
  tree.SetCompressedXML("ab", 2, 100);
  std::string const bytes(1000, 'x');
  EXPECT_GT(FailEveryAllocation([&] { tree.SetCompressedXML(bytes.data(), 1000, 250); },
                                [&] { EXPECT_EQ(tree.GetXmlUncompressedLength(), 100U); }),
            0U);
  EXPECT_EQ(tree.GetXmlUncompressedLength(), 250U);
}

TEST_F(OmAnswerTreeTest, DoneChangesNothing) {
  tree.SetTreeType(4);
  tree.SetPath("path", 4);
  tree.SetCompressedXML("ab", 2, 100);
  tree.Done();
  tree.SetPath("/more", 5);
  tree.Done();
  EXPECT_EQ(tree.GetTreeType(), 4);
  EXPECT_EQ(tree.GetPath(), "path/more");
  EXPECT_EQ(tree.GetCompressedXml(), "ab");
  EXPECT_EQ(tree.GetXmlUncompressedLength(), 100U);
  EXPECT_EQ(tree.GetUncompressedXml(), "");
  EXPECT_EQ(tree.GetUncompressedDisplayXML(), "");
}

}  // namespace
