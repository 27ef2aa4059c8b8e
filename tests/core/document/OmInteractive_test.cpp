#include <climits>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <type_traits>

#include <lakresvos/OmInteractive.h>

#include "core/document/OmItemFixture.h"
#include "support/SpyCell.h"
#include "support/faults/FailingNew.h"

namespace {

static_assert(std::is_base_of_v<OmOutputPart, OmInteractive>);
static_assert(!std::is_copy_constructible_v<OmInteractive>);
static_assert(std::is_same_v<decltype(std::declval<OmInteractive&>().getOptions()), std::string&>);
static_assert(std::is_same_v<decltype(std::declval<OmInteractive&>().getJSONPath()), std::string&>);
static_assert(!std::is_invocable_v<decltype(&OmInteractive::getOptions), OmInteractive const&>);
static_assert(!std::is_invocable_v<decltype(&OmInteractive::getJSONPath), OmInteractive const&>);
static_assert(std::is_same_v<decltype(std::declval<OmInteractive const&>().getProcedureName()),
                             std::string const&>);

class OmInteractiveTest : public testing::Test {
 protected:
  SpyBalance balance_;
};

TEST_F(OmInteractiveTest, ANewItemHasOnlyItsLabelAndItsNumber) {
  OmInteractive item(OmStringCell("label"), "", 7);
  EXPECT_EQ(item.Label()->GetText(), "label");
  EXPECT_EQ(item.getInteractiveId(), 7);
  EXPECT_EQ(item.LocaleCodePage(), "");
  EXPECT_EQ(item.getInteractiveJSON(), "");
  EXPECT_EQ(item.getProcedureName(), "");
  EXPECT_EQ(item.getJSONPath(), "");
  EXPECT_EQ(item.getOptions(), "");
  EXPECT_FALSE(item.hasGeoJSONFile());
}

TEST_F(OmInteractiveTest, KeepsAnyNumber) {
  for (long long const id : {LLONG_MIN, -1LL, 0LL, 1LL << 40, LLONG_MAX}) {
    EXPECT_EQ(OmInteractive(OmStringCell(""), "", id).getInteractiveId(), id);
  }
}

TEST_F(OmInteractiveTest, IsDeletedThroughItsBase) {
  OmOutputPart* const part = new OmInteractive(SpyCell("label"), "", 0);
  EXPECT_EQ(SpyCell::Live(), 1);
  delete part;
  EXPECT_EQ(SpyCell::Live(), 0);
}

TEST_F(OmInteractiveTest, AnItemThatCannotBeMadeLeavesNothingBehind) {
  SpyCell const label("label");
  auto const nothing = [] { EXPECT_EQ(SpyCell::Live(), 1); };
  auto const make = [&] { OmInteractive const made(label, "", 0); };
  EXPECT_GE(FailEveryAllocation(make, nothing), 4U);
  EXPECT_EQ(FailEveryCall(SpyCell::Operation::Clone, make, nothing), 1U);
}

TEST_F(OmInteractiveTest, IsVisitedAsAnInteractiveItem) {
  EXPECT_TRUE(IsVisitedAsItself<OmInteractive>());
}

TEST_F(OmInteractiveTest, AddsNoOperationAfterAccept) {
  EXPECT_EQ(VirtualSlot(&OmInteractive::Accept), 2);
  EXPECT_EQ(NextSlot<OmInteractive>(), 3);
}

/// A text that a setter replaces.
struct Field {
  char const* name;
  void (OmInteractive::*set)(std::string const&);
  std::function<std::string const&(OmInteractive&)> get;
};

void PrintTo(Field const& field, std::ostream* out) {
  *out << field.name;
}

class OmInteractiveField : public testing::TestWithParam<Field> {
 protected:
  void Set(std::string const& text) { (item.*GetParam().set)(text); }
  std::string const& Get() { return GetParam().get(item); }

  HeldItem<OmInteractive> item{OmStringCell("label"), "", 7};
};

INSTANTIATE_TEST_SUITE_P(
    EveryField, OmInteractiveField,
    testing::Values(Field{"ProcedureName", &OmInteractive::setProcedureName,
                          &OmInteractive::getProcedureName},
                    Field{"JSONPath", &OmInteractive::setJSONPath, &OmInteractive::getJSONPath},
                    Field{"Options", &OmInteractive::setOptions, &OmInteractive::getOptions}),
    [](auto const& info) { return info.param.name; });

TEST_P(OmInteractiveField, IsReplaced) {
  Set("first");
  Set(std::string("s\0d", 3));
  EXPECT_EQ(Get(), std::string("s\0d", 3));
  Set("");
  EXPECT_EQ(Get(), "");
}

TEST_P(OmInteractiveField, LeavesTheOthersAlone) {
  Set("text");
  std::string const all = item.getProcedureName() + item.getJSONPath() + item.getOptions() +
                          item.getInteractiveJSON() + item.LocaleCodePage();
  EXPECT_EQ(all, "text");
}

TEST_P(OmInteractiveField, TheStoredTextMayBeHandedBack) {
  Set(std::string(100, 'x'));
  Set(Get());
  EXPECT_EQ(Get(), std::string(100, 'x'));
}

TEST_P(OmInteractiveField, ATextThatCannotBeKeptChangesNothing) {
  Set("old");
  std::string const text(100, 'x');
  EXPECT_GT(FailEveryAllocation([&] { Set(text); }, [&] { EXPECT_EQ(Get(), "old"); }), 0U);
  EXPECT_EQ(Get(), text);
}

TEST_F(OmInteractiveTest, PathAndOptionsCanBeChangedInPlace) {
  OmInteractive item(OmStringCell("label"), "", 7);
  item.getJSONPath() += "path";
  item.getOptions() += "options";
  EXPECT_EQ(item.getJSONPath(), "path");
  EXPECT_EQ(item.getOptions(), "options");
}

}  // namespace
