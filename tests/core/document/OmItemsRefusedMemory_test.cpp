#include <functional>
#include <gtest/gtest.h>
#include <iterator>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include <cells/OmComposite.h>
#include <cells/OmNumber.h>
#include <cells/OmStringCell.h>
#include <lakresvos/lakresvos.h>

#include "support/faults/FailingNew.h"

// Every operation of an item that needs memory: it makes all of its changes or none.

namespace {

using Texts = std::vector<std::string>;

std::string const kLong(100, 'x');

/// Everything that can be read of an item.
class Description : public OmOutputPart::Visitor {
 public:
  explicit Description(OmOutputPart& item) {
    Add(item.Label()->GetText());
    item.Accept(*this);
  }

  Texts const& Lines() const { return lines_; }

  void Visit(OmHeading& item) override {
    for (OmHeading::HeadingRecord const& record : item.Records().Elements()) {
      Add(std::to_string(record.first));
    }
  }
  void Visit(OmTextBlock& item) override { Add(item.Text()); }
  void Visit(OmPivotTable& item) override { Add(item.TemplateName()->GetText()); }
  void Visit(OmChart& item) override {
    for (std::string const& text :
         {item.GetXmlDescription(), item.GetXmlData(), item.GetImageData(), item.GetViZJSONData(),
          item.getVizJSONTemplate(), item.getOptions(), item.LocaleCodePage()}) {
      Add(text);
    }
    for (Texts const& files : {item.getCSVFileNames(), item.getCSVFiles(),
                               item.getGeoJSONFileNames(), item.getGeoJSONContent()}) {
      AddAll(files);
    }
    std::string map[4];
    item.getMapInfo(map[0], map[1], map[2], map[3]);
    AddAll({map[0], map[1], map[2], map[3], item.hasMap() ? "map" : "no map"});
    Add(std::to_string(item.GetEditable()) + std::to_string(item.GetEditor()));
  }
  void Visit(OmAnswerTree& item) override {
    for (std::string const& text : {item.GetPath(), item.GetCompressedXml(),
                                    item.GetUncompressedXml(), item.GetUncompressedDisplayXML()}) {
      Add(text);
    }
    Add(std::to_string(item.GetXmlUncompressedLength()));
  }
  void Visit(OmModel& item) override {
    for (std::string const& text : {item.GetPMML(), item.GetBinaryDataStream(),
                                    item.GetPMMLContainer(), item.GetStatXMLContainer()}) {
      Add(text);
    }
    Add(std::to_string(item.GetModelType()));
  }
  void Visit(OmInteractive& item) override {
    for (std::string const& text : {item.getInteractiveJSON(), item.getProcedureName(),
                                    item.getJSONPath(), item.getOptions(), item.LocaleCodePage()}) {
      Add(text);
    }
    AddAll(item.getGeoJSONFileNames());
    AddAll(item.getGeoJSONContent());
  }

 private:
  void Add(std::string const& text) { lines_.push_back(text); }
  void AddAll(Texts const& texts) {
    Add(std::to_string(texts.size()));
    lines_.insert(lines_.end(), texts.begin(), texts.end());
  }

  Texts lines_;
};

Texts Describe(OmOutputPart& item) {
  return Description(item).Lines();
}

using Item = std::unique_ptr<OmOutputPart>;

/// An item with a long label in a code page, so that making it needs memory throughout.
template <class Kind>
Item Make() {
  OmStringCell const label("\u00e4 label that is long enough for the heap");
  std::string const page = "ISO-8859-1";
  if constexpr (std::is_same_v<Kind, OmHeading> || std::is_same_v<Kind, OmModel>) {
    return std::make_unique<Kind>(label);
  } else if constexpr (std::is_same_v<Kind, OmProcedure>) {
    return std::make_unique<Kind>(label, kLong, kLong, kLong);
  } else if constexpr (std::is_same_v<Kind, OmTextBlock>) {
    return std::make_unique<Kind>(label, kLong);
  } else if constexpr (std::is_same_v<Kind, OmPageTitle>) {
    return std::make_unique<Kind>(kLong);
  } else if constexpr (std::is_same_v<Kind, OmAnswerTree>) {
    return std::make_unique<Kind>(label, page);
  } else if constexpr (std::is_same_v<Kind, OmPivotTable>) {
    return std::make_unique<Kind>(label, OmStringCell(kLong), true);
  } else {
    return std::make_unique<Kind>(label, page, 7);
  }
}

/// What operations store, made beforehand, so that only they ask for memory.
struct Value {
  explicit Value(std::string const& stored) : text(stored) {}

  std::string text;
  unsigned int size = static_cast<unsigned int>(text.size());
  OmStringCell label{text};
  std::string map = OmChart::MapInfoBlock({text, text, text, text});
};

Value const kValue(kLong);
Value const kFormer("a former value");

/// An operation on an item of a kind.
struct Operation {
  std::string name;
  Item (*make)();
  std::function<void(OmOutputPart&, Value const& value)> run;
  bool needsMemory = true;
};

/// One that takes bytes and their number.
template <class Kind>
Operation Bytes(std::string const& name, void (Kind::*set)(char const*, unsigned int)) {
  return {name, Make<Kind>, [set](OmOutputPart& item, Value const& value) {
            (static_cast<Kind&>(item).*set)(value.text.data(), value.size);
          }};
}

template <class Kind>
Operation Text(std::string const& name, void (Kind::*set)(std::string const&)) {
  return {name, Make<Kind>, [set](OmOutputPart& item, Value const& value) {
            (static_cast<Kind&>(item).*set)(value.text);
          }};
}

Operation const kOperations[] = {
    {"setLabel", Make<OmHeading>,
     [](OmOutputPart& item, Value const& value) { item.setLabel(value.label); }},
    {"Records", Make<OmProcedure>,
     [](OmOutputPart& item, Value const&) {
       static_cast<OmHeading&>(item).Records().push_back({1, nullptr, nullptr, 2});
     }},
    Bytes("Chart_SetXmlDescription", &OmChart::SetXmlDescription),
    {"Chart_SetXmlUncompressedLength", Make<OmChart>,
     [](OmOutputPart& item, Value const& value) {
       static_cast<OmChart&>(item).SetXmlUncompressedLength(value.size);
     },
     false},
    {"Chart_SetXmlCompressedLength", Make<OmChart>,
     [](OmOutputPart& item, Value const& value) {
       static_cast<OmChart&>(item).SetXmlCompressedLength(50 * value.size);
     }},
    Bytes("Chart_SetBinaryDataStream", &OmChart::SetBinaryDataStream),
    Bytes("Chart_SetImageStream", &OmChart::SetImageStream),
    Bytes("Chart_SetViZJSON", &OmChart::SetViZJSON),
    {"Chart_Done", Make<OmChart>,
     [](OmOutputPart& item, Value const& value) {
       static_cast<OmChart&>(item).Done(value.text.data());
     },
     false},
    Bytes("Chart_setVizJSONTemplate", &OmChart::setVizJSONTemplate),
    Text("Chart_setOptions", &OmChart::setOptions),
    Bytes("Chart_addCSVFileName", &OmChart::addCSVFileName),
    Bytes("Chart_addCSVFileContent", &OmChart::addCSVFileContent),
    Bytes("Chart_addGeoJSONFileName", &OmChart::addGeoJSONFileName),
    Bytes("Chart_addGeoJSONFileContent", &OmChart::addGeoJSONFileContent),
    {"Chart_SetMapInfo", Make<OmChart>,
     [](OmOutputPart& item, Value const& value) {
       static_cast<OmChart&>(item).SetMapInfo(value.map.data(),
                                              static_cast<unsigned int>(value.map.size()));
     }},
    Bytes("Interactive_setInteractiveJSON", &OmInteractive::setInteractiveJSON),
    Text("Interactive_setProcedureName", &OmInteractive::setProcedureName),
    Text("Interactive_setJSONPath", &OmInteractive::setJSONPath),
    Text("Interactive_setOptions", &OmInteractive::setOptions),
    Bytes("Interactive_addGeoJSONFileName", &OmInteractive::addGeoJSONFileName),
    Bytes("Interactive_addGeoJSONFileContent", &OmInteractive::addGeoJSONFileContent),
    Bytes("Model_SetPMML", &OmModel::SetPMML),
    Bytes("Model_SetBinaryDataStream", &OmModel::SetBinaryDataStream),
    Bytes("Model_SetPMMLContainer", &OmModel::SetPMMLContainer),
    Bytes("Model_SetStatXMLContainer", &OmModel::SetStatXMLContainer),
    Bytes("AnswerTree_SetPath", &OmAnswerTree::SetPath),
    {"AnswerTree_SetCompressedXML", Make<OmAnswerTree>,
     [](OmOutputPart& item, Value const& value) {
       static_cast<OmAnswerTree&>(item).SetCompressedXML(value.text.data(), value.size, 17);
     }},
    Bytes("AnswerTree_SetUncompressedXML", &OmAnswerTree::SetUncompressedXML),
    Bytes("AnswerTree_SetUncompressedDisplayXML", &OmAnswerTree::SetUncompressedDisplayXML),
};

void PrintTo(Operation const& operation, std::ostream* out) {
  *out << operation.name;
}

class OmItemsRefusedMemory : public testing::TestWithParam<Operation> {};

INSTANTIATE_TEST_SUITE_P(EveryOperation, OmItemsRefusedMemory, testing::ValuesIn(kOperations),
                         [](auto const& info) { return info.param.name; });

}  // namespace

TEST_P(OmItemsRefusedMemory, ChangesNothing) {
  Operation const& operation = GetParam();
  std::size_t failures = 0;
  for (bool const hasAFormerValue : {false, true}) {
    Item const item = operation.make();
    Item const twin = operation.make();
    if (hasAFormerValue) {
      operation.run(*item, kFormer);
      operation.run(*twin, kFormer);
    }
    Texts const before = Describe(*item);
    failures += FailEveryAllocation([&] { operation.run(*item, kValue); },
                                    [&] { EXPECT_EQ(Describe(*item), before); });
    operation.run(*twin, kValue);
    EXPECT_EQ(Describe(*item), Describe(*twin));
  }
  EXPECT_EQ(failures != 0, operation.needsMemory);
}

TEST(OmItemsConstruction, LeavesNothingBehindWithoutMemory) {
  Item (*const makers[])() = {Make<OmHeading>,   Make<OmProcedure>,  Make<OmTextBlock>,
                              Make<OmPageTitle>, Make<OmChart>,      Make<OmInteractive>,
                              Make<OmModel>,     Make<OmAnswerTree>, Make<OmPivotTable>};
  for (auto* const make : makers) {
    Item item;
    HeldMemory const before = HeldMemory::Now();
    HeldMemory after = before;
    EXPECT_GT(FailEveryAllocation([&] { item = make(); },
                                  [&] { after = after == before ? HeldMemory::Now() : after; }),
              4U);
    EXPECT_EQ(after, before);
    EXPECT_EQ(Describe(*item), Describe(*make()));
  }
}

TEST(OmItemsReading, NeedsNoMoreThanItsResult) {
  EXPECT_GT(FailEveryAllocationOf([] {
              return OmChart::MapInfoBlock({kLong, kLong, kLong, kLong});
            }),
            0U);
  Item const item = Make<OmChart>();
  auto& chart = static_cast<OmChart&>(*item);
  chart.SetMapInfo(kValue.map.data(), static_cast<unsigned int>(kValue.map.size()));
  EXPECT_GT(FailEveryAllocationOf([&] {
              std::string map[4];
              chart.getMapInfo(map[0], map[1], map[2], map[3]);
              return map[0] + map[1] + map[2] + map[3];
            }),
            4U);
  OmComposite inner("{0}");
  inner.AddPart(OmNumber(2));
  OmComposite outer("{0}{1}");
  outer.AddPart(OmStringCell("text"));
  outer.AddPart(inner);
  OmNumber const* const first = OmUtility::GetFirstNumber(outer);
  FailEveryAllocation([&] { EXPECT_EQ(OmUtility::GetFirstNumber(outer), first); }, [] {});
}

TEST(OmItemsRefusedMemoryOfTexts, LeavesTheListOfATextBlock) {
  OmTextBlock block(OmStringCell("label"), "text");
  for (std::size_t size = 0; size < 5; ++size) {
    EXPECT_GT(FailEveryAllocation([&] { block.TextList().push_back(kLong); },
                                  [&] { EXPECT_EQ(block.TextList().size(), size); }),
              0U);
    EXPECT_EQ(block.TextList().back(), kLong);
  }
}

TEST(OmItemsReading, AnExceptionThatCannotBeMadeLeavesNothingBehind) {
  EXPECT_GT(FailEveryAllocationOf([] { return std::string(OMSException(kLong, 1, 2).what()); }),
            2U);
}
