#include <climits>
#include <cstdint>
#include <cstring>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <tuple>
#include <type_traits>

#include <lakresvos/OmChart.h>

#include "core/document/OmItemFixture.h"
#include "support/SpyCell.h"
#include "support/faults/FailingNew.h"

namespace {

static_assert(std::is_base_of_v<OmOutputPart, OmChart>);
static_assert(!std::is_copy_constructible_v<OmChart>);
static_assert(std::is_same_v<std::underlying_type_t<ChartXMLContentSubType>, int>);
static_assert(std::is_convertible_v<ChartXMLContentSubType, int>, "an unscoped enumeration");
static_assert(
    std::is_same_v<decltype(std::declval<OmChart const&>().GetXmlData()), std::string const&>);
static_assert(std::is_same_v<decltype(std::declval<OmChart&>().getOptions()), std::string&>);
static_assert(!std::is_invocable_v<decltype(&OmChart::getOptions), OmChart const&>);

/// All that a chart tells, to compare before and after.
auto StateOf(OmChart& chart) {
  return std::make_tuple(chart.GetXmlDescription(), chart.GetXmlData(), chart.GetImageData(),
                         chart.GetViZJSONData(), chart.LocaleCodePage(), chart.GetChartSubType(),
                         chart.GetEditable(), chart.GetEditor(), chart.getChartId(),
                         chart.getVizJSONTemplate(), chart.getOptions(), chart.getCSVFileNames(),
                         chart.getCSVFiles(), chart.getGeoJSONFileNames(),
                         chart.getGeoJSONContent(), chart.hasMap(), chart.Label()->GetText());
}

/// A chart with something in every field.
std::unique_ptr<OmChart> FilledChart() {
  auto chart = std::make_unique<OmChart>(OmStringCell("label"), "ISO-8859-1", 42);
  chart->SetXmlDescription("description", 11);
  chart->SetBinaryDataStream("data", 4);
  chart->SetImageStream("image", 5);
  chart->SetViZJSON("json", 4);
  chart->SetImageSubType(ChartXMLPie);
  chart->SetMapInfo("\1", 1);
  chart->setVizJSONTemplate("template", 8);
  chart->setOptions("options");
  chart->addCSVFileName("csv", 3);
  chart->addCSVFileContent("1,2", 3);
  chart->addGeoJSONFileName("geo", 3);
  chart->addGeoJSONFileContent("{}", 2);
  return chart;
}

/// Eight bytes that end where their memory ends, at an odd address.
class DoneBytes {
 public:
  DoneBytes(std::int32_t editable, std::int32_t editor) {
    std::memcpy(bytes_.get() + 1, &editable, 4);
    std::memcpy(bytes_.get() + 5, &editor, 4);
  }
  char const* get() const { return bytes_.get() + 1; }

 private:
  std::unique_ptr<char[]> bytes_ = std::make_unique<char[]>(9);
};

class OmChartTest : public testing::Test {
 protected:
  SpyBalance balance_;
  HeldItem<OmChart> chart{OmStringCell("label"), "", 7};
};

// Construction

TEST_F(OmChartTest, ANewChartHasOnlyItsLabelAndItsNumber) {
  EXPECT_EQ(chart.Label()->GetText(), "label");
  EXPECT_EQ(chart.getChartId(), 7);
  EXPECT_EQ(chart.LocaleCodePage(), "");
  EXPECT_EQ(chart.GetXmlDescription(), "");
  EXPECT_EQ(chart.GetXmlData(), "");
  EXPECT_EQ(chart.GetImageData(), "");
  EXPECT_EQ(chart.GetViZJSONData(), "");
  EXPECT_EQ(chart.getVizJSONTemplate(), "");
  EXPECT_EQ(chart.getOptions(), "");
  EXPECT_FALSE(chart.hasMap());
  EXPECT_FALSE(chart.hasCSVFile());
  EXPECT_FALSE(chart.hasGeoJSONFile());
  EXPECT_TRUE(chart.FlagA());
  EXPECT_EQ(chart.Extra(), nullptr);
}

TEST_F(OmChartTest, ANewChartIsOfSubTypeZero) {
  EXPECT_EQ(chart.GetChartSubType(), 0);
  EXPECT_EQ(ChartXMLUnspecified, 0);
}

TEST_F(OmChartTest, TheEditorIsOneBeforeDone) {
  EXPECT_EQ(chart.GetEditor(), 1);
}

TEST_F(OmChartTest, EditableIsZeroBeforeDone) {
  EXPECT_EQ(chart.GetEditable(), 0);
}

TEST_F(OmChartTest, KeepsAnyNumber) {
  for (long long const id : {LLONG_MIN, -1LL, 0LL, 1LL << 40, LLONG_MAX}) {
    EXPECT_EQ(OmChart(OmStringCell(""), "", id).getChartId(), id);
  }
}

TEST_F(OmChartTest, IsDeletedThroughItsBase) {
  OmOutputPart* const part = new OmChart(SpyCell("label"), "", 0);
  EXPECT_EQ(SpyCell::Live(), 1);
  delete part;
  EXPECT_EQ(SpyCell::Live(), 0);
}

TEST_F(OmChartTest, AChartThatCannotBeMadeLeavesNothingBehind) {
  SpyCell const label("label");
  auto const nothing = [] { EXPECT_EQ(SpyCell::Live(), 1); };
  auto const make = [&] { OmChart const made(label, "", 0); };
  EXPECT_GE(FailEveryAllocation(make, nothing), 4U);
  EXPECT_EQ(FailEveryCall(SpyCell::Operation::Clone, make, nothing), 1U);
}

// Visiting and slots

TEST_F(OmChartTest, IsVisitedAsAChart) {
  EXPECT_TRUE(IsVisitedAsItself<OmChart>());
}

TEST_F(OmChartTest, ItsOperationsFollowAcceptInTheirOrder) {
  EXPECT_EQ(VirtualSlot(&OmChart::Accept), 2);
  EXPECT_EQ(VirtualSlot(&OmChart::SetXmlDescription), 3);
  EXPECT_EQ(VirtualSlot(&OmChart::SetXmlUncompressedLength), 4);
  EXPECT_EQ(VirtualSlot(&OmChart::SetXmlCompressedLength), 5);
  EXPECT_EQ(VirtualSlot(&OmChart::SetBinaryDataStream), 6);
  EXPECT_EQ(VirtualSlot(&OmChart::SetImageStream), 7);
  EXPECT_EQ(VirtualSlot(&OmChart::SetViZJSON), 8);
  EXPECT_EQ(VirtualSlot(&OmChart::SetImageSubType), 9);
  EXPECT_EQ(VirtualSlot(&OmChart::Done), 10);
  EXPECT_EQ(NextSlot<OmChart>(), 11);
}

TEST_F(OmChartTest, OtherOperationsAreNotVirtual) {
  EXPECT_EQ(VirtualSlot(&OmChart::SetMapInfo), -1);
  EXPECT_EQ(VirtualSlot(&OmChart::getMapInfo), -1);
  EXPECT_EQ(VirtualSlot(&OmChart::hasMap), -1);
  EXPECT_EQ(VirtualSlot(&OmChart::setVizJSONTemplate), -1);
  EXPECT_EQ(VirtualSlot(&OmChart::setOptions), -1);
  EXPECT_EQ(VirtualSlot(&OmChart::addCSVFileName), -1);
  EXPECT_EQ(VirtualSlot(&OmChart::addCSVFileContent), -1);
  EXPECT_EQ(VirtualSlot(&OmChart::addGeoJSONFileName), -1);
  EXPECT_EQ(VirtualSlot(&OmChart::addGeoJSONFileContent), -1);
  EXPECT_EQ(VirtualSlot(&OmChart::deleteData), -1);
  EXPECT_EQ(VirtualSlot(&OmChart::GetXmlData), -1);
}

// Lengths

TEST_F(OmChartTest, TheCompressedLengthChangesNothingVisible) {
  std::unique_ptr<OmChart> const filled = FilledChart();
  auto const before = StateOf(*filled);
  for (unsigned int const length : {5000U, 3U, 0U}) {
    filled->SetXmlCompressedLength(length);
    EXPECT_EQ(StateOf(*filled), before);
  }
}

TEST_F(OmChartTest, TheCompressedLengthMakesRoomForTheDescription) {
  chart.SetXmlCompressedLength(5000);
  EXPECT_GE(chart.GetXmlDescription().capacity(), 5000U);
  char const* const room = chart.GetXmlDescription().data();
  std::string const half(2500, 'x');
  chart.SetXmlDescription(half.data(), 2500);
  chart.SetXmlDescription(half.data(), 2500);
  EXPECT_EQ(chart.GetXmlDescription().data(), room);
  EXPECT_EQ(chart.GetXmlDescription(), half + half);
}

TEST_F(OmChartTest, ACompressedLengthWithoutRoomChangesNothing) {
  chart.SetXmlDescription("ab", 2);
  EXPECT_GT(FailEveryAllocation([&] { chart.SetXmlCompressedLength(5000); },
                                [&] { EXPECT_EQ(chart.GetXmlDescription(), "ab"); }),
            0U);
}

TEST_F(OmChartTest, TheUncompressedLengthChangesNothingThatIsRead) {
  std::unique_ptr<OmChart> const filled = FilledChart();
  auto const before = StateOf(*filled);
  filled->SetXmlUncompressedLength(UINT_MAX);
  filled->SetXmlUncompressedLength(0);
  EXPECT_EQ(StateOf(*filled), before);
}

// Sub-type, end of delivery, options

TEST_F(OmChartTest, KeepsAnySubType) {
  for (int const type : {1, 8, 1000, -1, INT_MAX, 0}) {
    chart.SetImageSubType(ChartXMLContentSubType(type));
    EXPECT_EQ(chart.GetChartSubType(), type);
  }
}

TEST_F(OmChartTest, DoneTakesEditableAndEditorInThisOrder) {
  chart.Done(DoneBytes(3, 9).get());
  EXPECT_EQ(chart.GetEditable(), 3);
  EXPECT_EQ(chart.GetEditor(), 9);
}

TEST_F(OmChartTest, DoneTakesAllBitsOfBothNumbers) {
  chart.Done(DoneBytes(INT_MIN, 0x01020304).get());
  EXPECT_EQ(chart.GetEditable(), INT_MIN);
  EXPECT_EQ(chart.GetEditor(), 0x01020304);
}

TEST_F(OmChartTest, DoneAgainReplacesBothNumbers) {
  chart.Done(DoneBytes(1, 2).get());
  chart.Done(DoneBytes(-1, 0).get());
  EXPECT_EQ(chart.GetEditable(), -1);
  EXPECT_EQ(chart.GetEditor(), 0);
}

TEST_F(OmChartTest, OptionsAreReplaced) {
  chart.setOptions("first");
  chart.setOptions(std::string("s\0d", 3));
  EXPECT_EQ(chart.getOptions(), std::string("s\0d", 3));
  chart.setOptions("");
  EXPECT_EQ(chart.getOptions(), "");
}

TEST_F(OmChartTest, OptionsCanBeChangedInPlace) {
  chart.setOptions("a");
  chart.getOptions() += "b";
  EXPECT_EQ(chart.getOptions(), "ab");
}

TEST_F(OmChartTest, OptionsMayBeHandedBack) {
  chart.setOptions(std::string(100, 'o'));
  chart.setOptions(chart.getOptions());
  EXPECT_EQ(chart.getOptions(), std::string(100, 'o'));
}

TEST_F(OmChartTest, OptionsThatCannotBeKeptChangeNothing) {
  chart.setOptions("old");
  std::string const options(100, 'o');
  EXPECT_GT(FailEveryAllocation([&] { chart.setOptions(options); },
                                [&] { EXPECT_EQ(chart.getOptions(), "old"); }),
            0U);
  EXPECT_EQ(chart.getOptions(), options);
}

// Deleting the data

TEST_F(OmChartTest, DeletingTheDataEmptiesTheBinaryStreamAndNothingElse) {
  std::unique_ptr<OmChart> const filled = FilledChart();
  auto expected = StateOf(*filled);
  std::get<1>(expected).clear();
  filled->deleteData();
  EXPECT_EQ(filled->GetXmlData(), "");
  EXPECT_EQ(StateOf(*filled), expected);
}

TEST_F(OmChartTest, AfterDeletingTheDataANewStreamBegins) {
  chart.SetBinaryDataStream("old", 3);
  chart.deleteData();
  chart.SetBinaryDataStream("new", 3);
  EXPECT_EQ(chart.GetXmlData(), "new");
}

}  // namespace
