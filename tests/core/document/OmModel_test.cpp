#include <climits>
#include <gtest/gtest.h>
#include <string>
#include <type_traits>

#include <lakresvos/OmModel.h>

#include "core/document/OmItemFixture.h"
#include "support/SpyCell.h"
#include "support/faults/FailingNew.h"

namespace {

static_assert(std::is_base_of_v<OmOutputPart, OmModel>);
static_assert(!std::is_copy_constructible_v<OmModel>);
static_assert(std::is_same_v<std::underlying_type_t<OmModel::MODEL_TYPE>, int>);
static_assert(std::is_convertible_v<OmModel::MODEL_TYPE, int>, "an unscoped enumeration");
static_assert(
    std::is_same_v<decltype(std::declval<OmModel const&>().GetPMML()), std::string const&>);

class OmModelTest : public testing::Test {
 protected:
  SpyBalance balance_;
  HeldItem<OmModel> model{OmStringCell("label")};
};

TEST_F(OmModelTest, ANewModelHasOnlyItsLabel) {
  EXPECT_EQ(model.Label()->GetText(), "label");
  EXPECT_EQ(model.GetPMML(), "");
  EXPECT_EQ(model.GetBinaryDataStream(), "");
  EXPECT_EQ(model.GetPMMLContainer(), "");
  EXPECT_EQ(model.GetStatXMLContainer(), "");
}

TEST_F(OmModelTest, ANewModelIsOfTypeZero) {
  EXPECT_EQ(model.GetModelType(), 0);
  EXPECT_EQ(OmModel::MODEL_DOCUMENT, 0);
  EXPECT_EQ(OmModel::MODEL_CONTAINER, 1);
}

TEST_F(OmModelTest, KeepsADeepCopyOfItsLabelWhateverItsKind) {
  SpyCell const label("label");
  SpyLog const log;
  OmModel const made(label);
  EXPECT_EQ(log.Lines(), std::vector<std::string>{"Clone label"});
  EXPECT_EQ(made.Label(), log.calls[0].result);
}

TEST_F(OmModelTest, IsDeletedThroughItsBase) {
  OmOutputPart* const part = new OmModel(SpyCell("label"));
  EXPECT_EQ(SpyCell::Live(), 1);
  delete part;
  EXPECT_EQ(SpyCell::Live(), 0);
}

TEST_F(OmModelTest, AModelThatCannotBeMadeLeavesNothingBehind) {
  SpyCell const label("label");
  auto const nothing = [] { EXPECT_EQ(SpyCell::Live(), 1); };
  auto const make = [&] { OmModel const made(label); };
  EXPECT_GE(FailEveryAllocation(make, nothing), 4U);
  EXPECT_EQ(FailEveryCall(SpyCell::Operation::Clone, make, nothing), 1U);
}

TEST_F(OmModelTest, IsVisitedAsAModel) {
  EXPECT_TRUE(IsVisitedAsItself<OmModel>());
}

TEST_F(OmModelTest, ItsOperationsFollowAcceptInTheirOrder) {
  EXPECT_EQ(VirtualSlot(&OmModel::Accept), 2);
  EXPECT_EQ(VirtualSlot(&OmModel::SetPMML), 3);
  EXPECT_EQ(VirtualSlot(&OmModel::SetBinaryDataStream), 4);
  EXPECT_EQ(VirtualSlot(&OmModel::SetPMMLContainer), 5);
  EXPECT_EQ(VirtualSlot(&OmModel::SetStatXMLContainer), 6);
  EXPECT_EQ(NextSlot<OmModel>(), 7);
}

TEST_F(OmModelTest, TheTypeIsSetByAnOrdinaryCall) {
  EXPECT_EQ(VirtualSlot(&OmModel::SetModelType), -1);
  EXPECT_EQ(VirtualSlot(&OmModel::GetModelType), -1);
}

TEST_F(OmModelTest, KeepsAnyType) {
  for (int const type : {1, 5, -1, INT_MIN, INT_MAX, 0}) {
    model.SetModelType(OmModel::MODEL_TYPE(type));
    EXPECT_EQ(model.GetModelType(), type);
  }
}

TEST_F(OmModelTest, DocumentAndBinaryDataLeaveTheTypeAlone) {
  model.SetModelType(OmModel::MODEL_TYPE(5));
  model.SetPMML("a", 1);
  model.SetBinaryDataStream("a", 1);
  EXPECT_EQ(model.GetModelType(), 5);
}

/// The two setters that make a container.
class OmModelContainer
    : public testing::TestWithParam<void (OmModel::*)(char const*, unsigned int)> {
 protected:
  void Append(char const* bytes, unsigned int count) { (model.*GetParam())(bytes, count); }

  HeldItem<OmModel> model{OmStringCell("label")};
};

INSTANTIATE_TEST_SUITE_P(Both, OmModelContainer,
                         testing::Values(&OmModel::SetPMMLContainer, &OmModel::SetStatXMLContainer),
                         [](auto const& info) { return info.index == 0 ? "PMML" : "StatXML"; });

TEST_P(OmModelContainer, MakesTheTypeOne) {
  Append("a", 1);
  EXPECT_EQ(model.GetModelType(), 1);
}

TEST_P(OmModelContainer, MakesTheTypeOneWhateverItWasBefore) {
  model.SetModelType(OmModel::MODEL_TYPE(5));
  Append("a", 1);
  EXPECT_EQ(model.GetModelType(), 1);
}

TEST_P(OmModelContainer, MakesTheTypeOneWithoutBytesToo) {
  Append(nullptr, 0);
  EXPECT_EQ(model.GetModelType(), 1);
}

TEST_P(OmModelContainer, ALaterTypeOverridesIt) {
  Append("a", 1);
  model.SetModelType(OmModel::MODEL_TYPE(5));
  EXPECT_EQ(model.GetModelType(), 5);
}

TEST_P(OmModelContainer, MakesTheTypeOneAtEveryCall) {
  Append("a", 1);
  model.SetModelType(OmModel::MODEL_TYPE(5));
  Append("b", 1);
  EXPECT_EQ(model.GetModelType(), 1);
}

TEST_P(OmModelContainer, AChunkThatCannotBeKeptLeavesTheTypeAlone) {
  std::string const bytes(1000, 'x');
  EXPECT_GT(FailEveryAllocation([&] { Append(bytes.data(), 1000); },
                                [&] { EXPECT_EQ(model.GetModelType(), 0); }),
            0U);
  EXPECT_EQ(model.GetModelType(), 1);
}

}  // namespace
