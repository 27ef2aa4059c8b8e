#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <gtest/gtest.h>
#include <memory>
#include <rapidcheck/gtest.h>
#include <string>
#include <utility>
#include <vector>

#include <cells/OmStringCell.h>
#include <lakresvos/OMSException.h>
#include <lakresvos/OmChart.h>

#include "core/document/PlainMapInfo.h"
#include "support/faults/FailingNew.h"

namespace {

using plain_map_info::Expected;
using plain_map_info::kWidths;
using plain_map_info::Texts;

enum class Order { LowFirst, HighFirst };

Texts const kOld{"old 1", "old 2", "old 3", "old 4"};

std::string Number(std::uint64_t value, std::size_t width, Order order) {
  std::string bytes;
  for (std::size_t i = 0; i < width; ++i) {
    bytes.push_back(static_cast<char>(value >> (8 * i)));
  }
  if (order == Order::HighFirst) {
    std::reverse(bytes.begin(), bytes.end());
  }
  return bytes;
}

/// A block in which the lengths need not be those of the texts.
std::string Block(Texts const& texts, std::array<std::uint64_t, 4> const& lengths, Order order) {
  std::string block = Number(1, 2, order);
  for (std::size_t i = 0; i < 4; ++i) {
    block += Number(lengths[i], kWidths[i], order) + texts[i];
  }
  return block;
}

std::string Block(Texts const& texts, Order order) {
  return Block(texts, {texts[0].size(), texts[1].size(), texts[2].size(), texts[3].size()}, order);
}

void Append(OmChart& chart, std::string const& bytes) {
  // A copy without a byte to spare, to notice reading past its end.
  std::unique_ptr<char[]> const copy(new char[bytes.size()]);
  std::copy(bytes.begin(), bytes.end(), copy.get());
  chart.SetMapInfo(copy.get(), static_cast<unsigned int>(bytes.size()));
}

struct MapChart : OmChart {
  MapChart() : OmChart(OmStringCell("map"), "", 0) {}
  explicit MapChart(std::string const& block) : MapChart() { Append(*this, block); }
  ~MapChart() noexcept override = default;

  Texts Read() {
    Texts texts = kOld;
    getMapInfo(texts[0], texts[1], texts[2], texts[3]);
    return texts;
  }
};

Texts Read(std::string const& block) {
  return MapChart(block).Read();
}

class OmChartMapInfoOrder : public testing::TestWithParam<Order> {
 protected:
  Texts const texts{std::string("fi\0rst", 6), "second", std::string(300, '3'), "4th"};
};

INSTANTIATE_TEST_SUITE_P(Both, OmChartMapInfoOrder,
                         testing::Values(Order::LowFirst, Order::HighFirst), [](auto const& info) {
                           return info.param == Order::LowFirst ? "LowFirst" : "HighFirst";
                         });

// Whether there is a block

TEST(OmChartMapInfo, ANewChartHasNone) {
  EXPECT_FALSE(MapChart().hasMap());
}

TEST(OmChartMapInfo, WithoutABlockTheArgumentsStayAsTheyWere) {
  EXPECT_EQ(MapChart().Read(), kOld);
}

TEST(OmChartMapInfo, NoBytesMakeNoBlock) {
  MapChart chart;
  chart.SetMapInfo(nullptr, 0);
  chart.SetMapInfo("xyz", 0);
  EXPECT_FALSE(chart.hasMap());
  EXPECT_EQ(chart.Read(), kOld);
}

TEST(OmChartMapInfo, OneByteMakesABlock) {
  EXPECT_TRUE(MapChart("\1").hasMap());
  EXPECT_TRUE(MapChart(std::string(1, '\0')).hasMap());
}

// Reading

TEST_P(OmChartMapInfoOrder, TheFourTextsAreReadInTheirOrder) {
  EXPECT_EQ(Read(Block(texts, GetParam())), texts);
}

TEST_P(OmChartMapInfoOrder, EmptyTextsReplaceTheArguments) {
  EXPECT_EQ(Read(Block({}, GetParam())), Texts{});
}

TEST_P(OmChartMapInfoOrder, EveryByteOfALengthCounts) {
  Texts const long_texts{std::string(0x010203, 'a'), std::string(0xFEDC, 'b'),
                         std::string(0x020001, 'c'), std::string(0x0102, 'd')};
  EXPECT_EQ(Read(Block(long_texts, GetParam())), long_texts);
}

TEST_P(OmChartMapInfoOrder, ChunksMakeOneBlock) {
  std::string const block = Block(texts, GetParam());
  for (std::size_t cut = 0; cut <= block.size(); ++cut) {
    MapChart chart;
    Append(chart, block.substr(0, cut));
    Append(chart, block.substr(cut));
    EXPECT_EQ(chart.Read(), texts) << cut;
  }
}

TEST_P(OmChartMapInfoOrder, WhatFollowsTheFourthTextIsNotRead) {
  EXPECT_EQ(Read(Block(texts, GetParam()) + "and more"), texts);
}

TEST_P(OmChartMapInfoOrder, ReadingAgainGivesTheSame) {
  MapChart chart(Block(texts, GetParam()));
  chart.Read();
  EXPECT_EQ(chart.Read(), texts);
}

TEST(OmChartMapInfo, TheOtherByteOrderGivesTheSameTexts) {
  Texts const texts{"one", "two", "three", "four"};
  std::string const other = Block(texts, Order::HighFirst);
  EXPECT_EQ(other.substr(0, 6), std::string("\0\1\0\0\0\3", 6)) << "a mark that is read as 256";
  EXPECT_EQ(Read(other), Read(Block(texts, Order::LowFirst)));
}

TEST(OmChartMapInfo, AnyMarkButOneReversesTheLengths) {
  Texts const texts{"one", "two", "three", "four"};
  std::string block = Block(texts, Order::HighFirst);
  for (std::string const& mark : {std::string("\0\0", 2), std::string("\1\1"),
                                  std::string("\2\0", 2), std::string("\xFF\xFF")}) {
    block.replace(0, 2, mark);
    EXPECT_EQ(Read(block), texts);
  }
}

// Blocks that are too short

TEST_P(OmChartMapInfoOrder, ABlockCutAnywhereGivesWhatIsThere) {
  std::string const block = Block(texts, GetParam());
  for (std::size_t size = 1; size <= block.size(); ++size) {
    EXPECT_EQ(Read(block.substr(0, size)), Expected(block.substr(0, size))) << size;
  }
}

TEST_P(OmChartMapInfoOrder, ABlockCutInATextGivesItsBeginning) {
  std::string const block = Block({"first", "second", "third", "fourth"}, GetParam());
  EXPECT_EQ(Read(block.substr(0, 2 + 4 + 5 + 2 + 3)), (Texts{"first", "sec", "", ""}));
}

TEST_P(OmChartMapInfoOrder, ABlockCutInALengthGivesNoByteOfItAsText) {
  std::string const block = Block({"first", "second", "third", "fourth"}, GetParam());
  EXPECT_EQ(Read(block.substr(0, 2 + 4 + 5 + 1)), (Texts{"first", "", "", ""}));
  EXPECT_EQ(Read(block.substr(0, 2 + 3)), Texts{});
}

TEST_P(OmChartMapInfoOrder, ABlockCutInItsMarkGivesEmptyTexts) {
  EXPECT_EQ(Read(Block(texts, GetParam()).substr(0, 1)), Texts{});
}

TEST_P(OmChartMapInfoOrder, AWideLengthPastTheEndTakesAllThatIsLeft) {
  for (std::uint64_t const length : {0xFFFFFFFFULL, 0xFFFFFFFEULL, 0x80000000ULL, 0x7FFFFFFFULL}) {
    std::string const first = Block({"a", "b", "c", "d"}, {length, 1, 1, 1}, GetParam());
    EXPECT_EQ(Read(first), (Texts{first.substr(6), "", "", ""})) << length;
    std::string const third = Block({"a", "b", "c", "d"}, {1, 1, length, 1}, GetParam());
    EXPECT_EQ(Read(third), (Texts{"a", "b", third.substr(14), ""})) << length;
  }
}

TEST_P(OmChartMapInfoOrder, ANarrowLengthPastTheEndTakesAllThatIsLeft) {
  for (std::uint64_t const length : {0xFFFFULL, 0x8000ULL}) {
    std::string const second = Block({"a", "b", "c", "d"}, {1, length, 1, 1}, GetParam());
    EXPECT_EQ(Read(second), (Texts{"a", second.substr(9), "", ""})) << length;
    std::string const fourth = Block({"a", "b", "c", "d"}, {1, 1, 1, length}, GetParam());
    EXPECT_EQ(Read(fourth), (Texts{"a", "b", "c", "d"})) << length;
  }
}

TEST_P(OmChartMapInfoOrder, ALengthThatEndsExactlyAtTheEndOfTheBlockLeavesEmptyTexts) {
  std::string const block = Block({"a", "b", "c", "d"}, GetParam());
  EXPECT_EQ(Read(block.substr(0, 7)), (Texts{"a", "", "", ""}));
}

// Writing

std::string Written(Texts const& texts) {
  return OmChart::MapInfoBlock({texts[0], texts[1], texts[2], texts[3]});
}

TEST(OmChartMapInfo, ABlockIsWrittenInTheMachinesOrder) {
  EXPECT_EQ(Written({"ab", "c", "", "de"}), std::string("\1\0"
                                                        "\2\0\0\0"
                                                        "ab"
                                                        "\1\0"
                                                        "c"
                                                        "\0\0\0\0"
                                                        "\2\0"
                                                        "de",
                                                        19));
}

TEST(OmChartMapInfo, TheLengthsStandWhereTheyAreExpected) {
  Texts const texts{std::string(3, 'A'), std::string(5, 'B'), std::string(7, 'C'),
                    std::string(9, 'D')};
  std::string const block = Written(texts);
  EXPECT_EQ(block.size(), 14U + 3 + 5 + 7 + 9);
  EXPECT_EQ(block[2], 3);
  EXPECT_EQ(block.substr(6, 3), texts[0]);
  EXPECT_EQ(block[6 + 3], 5);
  EXPECT_EQ(block.substr(8 + 3, 5), texts[1]);
  EXPECT_EQ(block[8 + 3 + 5], 7);
  EXPECT_EQ(block.substr(12 + 3 + 5, 7), texts[2]);
  EXPECT_EQ(block[12 + 3 + 5 + 7], 9);
  EXPECT_EQ(block.substr(14 + 3 + 5 + 7), texts[3]);
}

TEST(OmChartMapInfo, TheLongestTextsAreWrittenAndReadBack) {
  Texts const texts{std::string(70000, 'a'), std::string(65535, 'b'), std::string(70000, 'c'),
                    std::string(65535, 'd')};
  EXPECT_EQ(Read(Written(texts)), texts);
}

testing::AssertionResult IsRefused(Texts const& texts, std::string const& which, double length) {
  try {
    Written(texts);
  } catch (OMSException const& error) {
    if (error.Message() ==
            "OmChart::MapInfoBlock() -- the " + which + " text is longer than 65535 bytes" &&
        error.Value1() == length && error.Value2() == 65535) {
      return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << "threw " << error.what();
  }
  return testing::AssertionFailure() << "threw nothing";
}

TEST(OmChartMapInfo, ASecondTextThatIsTooLongIsRefused) {
  EXPECT_TRUE(IsRefused({"", std::string(65536, 'x'), "", ""}, "second", 65536));
}

TEST(OmChartMapInfo, AFourthTextThatIsTooLongIsRefused) {
  EXPECT_TRUE(IsRefused({"", "", "", std::string(100000, 'x')}, "fourth", 100000));
}

// Without memory

TEST(OmChartMapInfo, AReadingThatFailsLeavesAllArgumentsAsTheyWere) {
  Texts const texts{std::string(100, 'a'), std::string(100, 'b'), std::string(100, 'c'),
                    std::string(100, 'd')};
  MapChart chart(Written(texts));
  Texts read = kOld;
  EXPECT_GE(FailEveryAllocation([&] { chart.getMapInfo(read[0], read[1], read[2], read[3]); },
                                [&] { EXPECT_EQ(read, kOld); }),
            8U);
  EXPECT_EQ(read, texts);
}

TEST(OmChartMapInfo, AChunkThatCannotBeKeptChangesNothing) {
  Texts const texts{std::string(100, 'a'), "b", "c", "d"};
  std::string const block = Written(texts);
  MapChart chart;
  EXPECT_GT(FailEveryAllocation(
                [&] { chart.SetMapInfo(block.data(), static_cast<unsigned int>(block.size())); },
                [&] { EXPECT_FALSE(chart.hasMap()); }),
            0U);
  EXPECT_EQ(chart.Read(), texts);
}

TEST(OmChartMapInfo, ABlockThatCannotBeWrittenLeavesNothingBehind) {
  OmChart::MapInfo const info{std::string(100, 'a'), "b", "c", "d"};
  std::size_t size = 0;
  EXPECT_GT(FailEveryAllocation([&] { size = OmChart::MapInfoBlock(info).size(); },
                                [&] { EXPECT_EQ(size, 0U); }),
            0U);
  EXPECT_EQ(size, 14U + 103);
}

// Properties

/// Any bytes, zero bytes among them.
rc::Gen<std::string> AnyBytes() {
  return rc::gen::container<std::string>(
      rc::gen::map(rc::gen::inRange(0, 256), [](int byte) { return static_cast<char>(byte); }));
}

Texts AnyTexts() {
  return {*AnyBytes(), *AnyBytes(), *AnyBytes(), *AnyBytes()};
}

RC_GTEST_PROP(OmChartMapInfoProperty, WhatIsWrittenIsReadBack, ()) {
  Texts const texts = AnyTexts();
  RC_ASSERT(Written(texts) == Block(texts, Order::LowFirst));
  RC_ASSERT(Read(Written(texts)) == texts);
}

RC_GTEST_PROP(OmChartMapInfoProperty, TheByteOrderMakesNoDifference, ()) {
  Texts const texts = AnyTexts();
  RC_ASSERT(Read(Block(texts, Order::HighFirst)) == texts);
}

RC_GTEST_PROP(OmChartMapInfoProperty, ADamagedBlockGivesWhatIsThere, ()) {
  std::string block = Block(AnyTexts(), *rc::gen::element(Order::LowFirst, Order::HighFirst));
  auto const damages = *rc::gen::container<std::vector<std::pair<std::size_t, int>>>(
      rc::gen::pair(rc::gen::inRange<std::size_t>(0, block.size()), rc::gen::inRange(0, 256)));
  for (auto const& [place, byte] : damages) {
    block[place] = static_cast<char>(byte);
  }
  block.resize(*rc::gen::inRange<std::size_t>(1, block.size() + 1));
  RC_ASSERT(Read(block) == Expected(block));
}

}  // namespace
