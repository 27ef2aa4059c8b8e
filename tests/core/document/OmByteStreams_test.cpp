#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <rapidcheck/gtest.h>
#include <string>
#include <vector>

#include "core/document/OmItemFixture.h"
#include "support/faults/FailingNew.h"

namespace {

/// A stream of bytes of some item.
struct Stream {
  std::string item;
  std::string name;
  std::function<std::unique_ptr<OmOutputPart>()> make;
  std::function<void(OmOutputPart&, char const*, unsigned int)> append;
  std::function<std::string const&(OmOutputPart const&)> get;
};

void PrintTo(Stream const& stream, std::ostream* out) {
  *out << stream.item << stream.name;
}

template <class Item, class Append>
Stream Of(std::string const& item, std::string const& name, Append append,
          std::string const& (Item::*get)() const) {
  return {item, name, NewItem<Item>,
          [append](OmOutputPart& part, char const* bytes, unsigned int count) {
            std::invoke(append, static_cast<Item&>(part), bytes, count);
          },
          [get](OmOutputPart const& part) -> std::string const& {
            return (static_cast<Item const&>(part).*get)();
          }};
}

std::vector<Stream> const& Streams() {
  static std::vector<Stream> const streams{
      Of("Chart", "XmlDescription", &OmChart::SetXmlDescription, &OmChart::GetXmlDescription),
      Of("Chart", "BinaryData", &OmChart::SetBinaryDataStream, &OmChart::GetXmlData),
      Of("Chart", "Image", &OmChart::SetImageStream, &OmChart::GetImageData),
      Of("Chart", "VizJSON", &OmChart::SetViZJSON, &OmChart::GetViZJSONData),
      Of("Chart", "VizJSONTemplate", &OmChart::setVizJSONTemplate, &OmChart::getVizJSONTemplate),
      Of("Interactive", "JSON", &OmInteractive::setInteractiveJSON,
         &OmInteractive::getInteractiveJSON),
      Of("Model", "PMML", &OmModel::SetPMML, &OmModel::GetPMML),
      Of("Model", "BinaryData", &OmModel::SetBinaryDataStream, &OmModel::GetBinaryDataStream),
      Of("Model", "PMMLContainer", &OmModel::SetPMMLContainer, &OmModel::GetPMMLContainer),
      Of("Model", "StatXMLContainer", &OmModel::SetStatXMLContainer, &OmModel::GetStatXMLContainer),
      Of("AnswerTree", "Path", &OmAnswerTree::SetPath, &OmAnswerTree::GetPath),
      Of(
          "AnswerTree", "CompressedXml",
          [](OmAnswerTree& tree, char const* bytes, unsigned int count) {
            tree.SetCompressedXML(bytes, count, 0);
          },
          &OmAnswerTree::GetCompressedXml),
      Of("AnswerTree", "UncompressedXml", &OmAnswerTree::SetUncompressedXML,
         &OmAnswerTree::GetUncompressedXml),
      Of("AnswerTree", "UncompressedDisplayXML", &OmAnswerTree::SetUncompressedDisplayXML,
         &OmAnswerTree::GetUncompressedDisplayXML),
  };
  return streams;
}

class OmByteStream : public testing::TestWithParam<Stream> {
 protected:
  void Append(std::string const& chunk) {
    GetParam().append(*item, chunk.data(), static_cast<unsigned int>(chunk.size()));
  }
  std::string const& Get() const { return GetParam().get(*item); }

  std::unique_ptr<OmOutputPart> item = GetParam().make();
};

INSTANTIATE_TEST_SUITE_P(EveryStream, OmByteStream, testing::ValuesIn(Streams()),
                         [](auto const& info) { return info.param.item + info.param.name; });

TEST_P(OmByteStream, IsEmptyAtFirst) {
  EXPECT_EQ(Get(), "");
}

TEST_P(OmByteStream, TwoChunksAreTheirConcatenation) {
  Append("ab");
  Append("cd");
  EXPECT_EQ(Get(), "abcd");
}

TEST_P(OmByteStream, TheSameBytesTwiceAreThereTwice) {
  std::string const bytes = "the same bytes";
  Append(bytes);
  Append(bytes);
  EXPECT_EQ(Get(), bytes + bytes);
}

TEST_P(OmByteStream, KeepsZeroBytesWhereverTheyStand) {
  std::string const bytes("\0a\0\0b\0", 6);
  Append(bytes);
  Append(bytes);
  EXPECT_EQ(Get(), bytes + bytes);
}

TEST_P(OmByteStream, KeepsEveryByteAsItIs) {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) {
    bytes.push_back(static_cast<char>(byte));
  }
  Append(bytes);
  EXPECT_EQ(Get(), bytes);
}

TEST_P(OmByteStream, TakesExactlyTheGivenNumberOfBytes) {
  std::unique_ptr<char[]> const bytes(new char[3]{'a', 'b', 'c'});
  GetParam().append(*item, bytes.get(), 3);
  GetParam().append(*item, bytes.get(), 2);
  EXPECT_EQ(Get(), "abcab");
}

TEST_P(OmByteStream, NoBytesAtANullPointerAddNothing) {
  GetParam().append(*item, nullptr, 0);
  EXPECT_EQ(Get(), "");
  Append("ab");
  GetParam().append(*item, nullptr, 0);
  EXPECT_EQ(Get(), "ab");
}

TEST_P(OmByteStream, NoBytesAddNothing) {
  GetParam().append(*item, "xyz", 0);
  EXPECT_EQ(Get(), "");
}

TEST_P(OmByteStream, TheReferenceShowsLaterChunks) {
  std::string const& bytes = Get();
  Append(std::string(1000, 'x'));
  EXPECT_EQ(bytes.size(), 1000U);
  EXPECT_EQ(&bytes, &Get());
}

TEST_P(OmByteStream, LeavesTheOtherStreamsOfTheItemAlone) {
  Append("ab");
  for (Stream const& other : Streams()) {
    if (other.item == GetParam().item && other.name != GetParam().name) {
      EXPECT_EQ(other.get(*item), "") << other.name;
    }
  }
}

TEST_P(OmByteStream, OwnBytesMayBeHandedBack) {
  std::string const bytes(1000, 'x');
  Append(bytes + "end");
  for (int doubling = 0; doubling < 3; ++doubling) {
    std::string const before = Get();
    GetParam().append(*item, Get().data(), static_cast<unsigned int>(Get().size()));
    ASSERT_TRUE(Get() == before + before) << doubling;
  }
}

TEST_P(OmByteStream, TheEndOfTheOwnBytesMayBeHandedBack) {
  Append(std::string(1000, 'x') + "end");
  GetParam().append(*item, Get().data() + 1000, 3);
  GetParam().append(*item, Get().data() + Get().size(), 0);
  EXPECT_TRUE(Get() == std::string(1000, 'x') + "endend");
}

TEST_P(OmByteStream, AChunkThatCannotBeKeptChangesNothing) {
  std::string const before(100, 'a');
  std::string const chunk(1000, 'b');
  Append(before);
  EXPECT_GT(FailEveryAllocation([&] { Append(chunk); }, [&] { EXPECT_EQ(Get(), before); }), 0U);
  EXPECT_EQ(Get(), before + chunk);
}

RC_GTEST_PROP(OmByteStreamProperty, AnyChunksAreTheirConcatenation, ()) {
  auto const chunks = *rc::gen::arbitrary<std::vector<std::string>>();
  for (Stream const& stream : Streams()) {
    std::unique_ptr<OmOutputPart> const item = stream.make();
    std::string expected;
    for (std::string const& chunk : chunks) {
      stream.append(*item, chunk.data(), static_cast<unsigned int>(chunk.size()));
      expected += chunk;
      RC_ASSERT(stream.get(*item) == expected);
    }
  }
}

}  // namespace
