#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <rapidcheck/gtest.h>
#include <string>
#include <vector>

#include "core/document/OmItemFixture.h"
#include "support/faults/FailingNew.h"

namespace {

using Texts = std::vector<std::string>;

/// The attached files of one sort of some item.
struct Files {
  char const* name;
  std::function<std::unique_ptr<OmOutputPart>()> make;
  std::function<void(OmOutputPart&, char const*, unsigned int)> addName;
  std::function<void(OmOutputPart&, char const*, unsigned int)> addContent;
  std::function<bool(OmOutputPart const&)> has;
  std::function<Texts const&(OmOutputPart const&)> names;
  std::function<Texts const&(OmOutputPart const&)> contents;
};

void PrintTo(Files const& files, std::ostream* out) {
  *out << files.name;
}

/// An operation of `Item` as one that is called on any part.
template <class Item, class Result, class... Arguments>
auto OnPart(Result (Item::*operation)(Arguments...)) {
  return [operation](OmOutputPart& part, Arguments... arguments) -> Result {
    return (static_cast<Item&>(part).*operation)(arguments...);
  };
}
template <class Item, class Result>
auto OnPart(Result (Item::*query)() const) {
  return [query](OmOutputPart const& part) -> Result {
    return (static_cast<Item const&>(part).*query)();
  };
}

std::vector<Files> const& EverySort() {
  static std::vector<Files> const sorts{
      {"ChartCSV", NewItem<OmChart>, OnPart(&OmChart::addCSVFileName),
       OnPart(&OmChart::addCSVFileContent), OnPart(&OmChart::hasCSVFile),
       OnPart(&OmChart::getCSVFileNames), OnPart(&OmChart::getCSVFiles)},
      {"ChartGeoJSON", NewItem<OmChart>, OnPart(&OmChart::addGeoJSONFileName),
       OnPart(&OmChart::addGeoJSONFileContent), OnPart(&OmChart::hasGeoJSONFile),
       OnPart(&OmChart::getGeoJSONFileNames), OnPart(&OmChart::getGeoJSONContent)},
      {"InteractiveGeoJSON", NewItem<OmInteractive>, OnPart(&OmInteractive::addGeoJSONFileName),
       OnPart(&OmInteractive::addGeoJSONFileContent), OnPart(&OmInteractive::hasGeoJSONFile),
       OnPart(&OmInteractive::getGeoJSONFileNames), OnPart(&OmInteractive::getGeoJSONContent)},
  };
  return sorts;
}

class OmAttachedFiles : public testing::TestWithParam<Files> {
 protected:
  void Name(std::string const& name) {
    GetParam().addName(*item, name.data(), static_cast<unsigned int>(name.size()));
  }
  void Content(std::string const& chunk) {
    GetParam().addContent(*item, chunk.data(), static_cast<unsigned int>(chunk.size()));
  }
  bool Has() const { return GetParam().has(*item); }
  Texts const& Names() const { return GetParam().names(*item); }
  Texts const& Contents() const { return GetParam().contents(*item); }

  std::unique_ptr<OmOutputPart> item = GetParam().make();
};

INSTANTIATE_TEST_SUITE_P(EverySort, OmAttachedFiles, testing::ValuesIn(EverySort()),
                         [](auto const& info) { return info.param.name; });

TEST_P(OmAttachedFiles, ThereAreNoneAtFirst) {
  EXPECT_FALSE(Has());
  EXPECT_EQ(Names(), Texts{});
  EXPECT_EQ(Contents(), Texts{});
}

TEST_P(OmAttachedFiles, AFileIsThereWithItsName) {
  Name("a");
  EXPECT_TRUE(Has());
  EXPECT_EQ(Names(), Texts{"a"});
  EXPECT_EQ(Contents(), Texts{});
}

TEST_P(OmAttachedFiles, ChunksGoToTheLatestName) {
  Name("a");
  Content("1");
  Content("2");
  Name("b");
  Content("3");
  EXPECT_EQ(Names(), (Texts{"a", "b"}));
  EXPECT_EQ(Contents(), (Texts{"12", "3"}));
}

TEST_P(OmAttachedFiles, ContentsBeforeAnyNameStandAlone) {
  Content("x");
  Content("y");
  EXPECT_EQ(Contents(), (Texts{"x", "y"}));
  EXPECT_FALSE(Has());
}

TEST_P(OmAttachedFiles, OneContentBeforeItsNameIsContinued) {
  Content("x");
  Name("a");
  Content("y");
  EXPECT_EQ(Contents(), (Texts{"xy"}));
}

TEST_P(OmAttachedFiles, MoreContentsThanNamesStandAlone) {
  Content("x");
  Content("y");
  Name("a");
  Content("z");
  EXPECT_EQ(Contents(), (Texts{"x", "y", "z"}));
}

TEST_P(OmAttachedFiles, ChunksFillUpTheNamesThatAreWaitingForContent) {
  Name("a");
  Name("b");
  Content("1");
  Content("2");
  Content("3");
  EXPECT_EQ(Contents(), (Texts{"1", "23"}));
}

TEST_P(OmAttachedFiles, EqualNamesAreDifferentFiles) {
  Name("a");
  Content("1");
  Name("a");
  Content("2");
  EXPECT_EQ(Names(), (Texts{"a", "a"}));
  EXPECT_EQ(Contents(), (Texts{"1", "2"}));
}

TEST_P(OmAttachedFiles, KeepsZeroBytes) {
  std::string const name("\0n\0", 3);
  std::string const chunk("c\0\0", 3);
  Name(name);
  Content(chunk);
  Content(chunk);
  EXPECT_EQ(Names(), Texts{name});
  EXPECT_EQ(Contents(), Texts{chunk + chunk});
}

TEST_P(OmAttachedFiles, TakesExactlyTheGivenNumberOfBytes) {
  std::unique_ptr<char[]> const bytes(new char[2]{'a', 'b'});
  GetParam().addName(*item, bytes.get(), 2);
  GetParam().addContent(*item, bytes.get(), 2);
  GetParam().addContent(*item, bytes.get(), 1);
  EXPECT_EQ(Names(), Texts{"ab"});
  EXPECT_EQ(Contents(), Texts{"aba"});
}

TEST_P(OmAttachedFiles, NoBytesAtANullPointerMakeAnEmptyName) {
  GetParam().addName(*item, nullptr, 0);
  EXPECT_TRUE(Has());
  EXPECT_EQ(Names(), Texts{""});
}

TEST_P(OmAttachedFiles, NoBytesAtANullPointerStartAnEmptyContent) {
  Name("a");
  GetParam().addContent(*item, nullptr, 0);
  EXPECT_EQ(Contents(), Texts{""});
  GetParam().addContent(*item, nullptr, 0);
  EXPECT_EQ(Contents(), Texts{""});
}

TEST_P(OmAttachedFiles, OwnBytesMayBeHandedBack) {
  Name(std::string(100, 'n'));
  Content(std::string(100, 'c'));
  GetParam().addContent(*item, Contents().back().data(), 100);
  EXPECT_EQ(Contents(), Texts{std::string(200, 'c')});
  GetParam().addName(*item, Names().back().data(), 100);
  EXPECT_EQ(Names(), Texts(2, std::string(100, 'n')));
  GetParam().addContent(*item, Contents().back().data(), 100);
  EXPECT_EQ(Contents(), (Texts{std::string(200, 'c'), std::string(100, 'c')}));
}

TEST_P(OmAttachedFiles, TheReferencesShowLaterChanges) {
  Texts const& names = Names();
  Texts const& contents = Contents();
  Name("a");
  Content("1");
  EXPECT_EQ(names, Texts{"a"});
  EXPECT_EQ(contents, Texts{"1"});
}

TEST_P(OmAttachedFiles, WhatCannotBeKeptChangesNothing) {
  std::string const name(100, 'n');
  std::string const chunk(100, 'c');
  auto const unnamed = [&] { EXPECT_EQ(Names(), Texts{}); };
  EXPECT_GT(FailEveryAllocation([&] { Name(name); }, unnamed), 0U);
  auto const none = [&] { EXPECT_EQ(Contents(), Texts{}); };
  EXPECT_GT(FailEveryAllocation([&] { Content(chunk); }, none), 0U);
  auto const first = [&] { EXPECT_EQ(Contents(), Texts{chunk}); };
  EXPECT_GT(FailEveryAllocation([&] { Content(chunk + chunk); }, first), 0U);
  EXPECT_EQ(Names(), Texts{name});
  EXPECT_EQ(Contents(), Texts{chunk + chunk + chunk});
}

TEST(OmAttachedFilesOfAChart, TheTwoSortsAreKeptApart) {
  std::unique_ptr<OmChart> const chart = NewItem<OmChart>();
  chart->addCSVFileName("a", 1);
  chart->addGeoJSONFileContent("1", 1);
  EXPECT_EQ(chart->getCSVFileNames(), Texts{"a"});
  EXPECT_EQ(chart->getCSVFiles(), Texts{});
  EXPECT_FALSE(chart->hasGeoJSONFile());
  EXPECT_EQ(chart->getGeoJSONContent(), Texts{"1"});
}

RC_GTEST_PROP(OmAttachedFilesProperty, ContentsStayInStepWithNames, ()) {
  auto const steps = *rc::gen::arbitrary<std::vector<std::pair<bool, std::string>>>();
  for (Files const& files : EverySort()) {
    std::unique_ptr<OmOutputPart> const item = files.make();
    Texts names;
    Texts contents;
    for (auto const& [isName, bytes] : steps) {
      auto const count = static_cast<unsigned int>(bytes.size());
      if (isName) {
        files.addName(*item, bytes.data(), count);
        names.push_back(bytes);
      } else {
        files.addContent(*item, bytes.data(), count);
        if (contents.empty() || contents.size() != names.size()) {
          contents.emplace_back();
        }
        contents.back() += bytes;
      }
      RC_ASSERT(files.names(*item) == names);
      RC_ASSERT(files.contents(*item) == contents);
      RC_ASSERT(files.has(*item) == !names.empty());
    }
  }
}

}  // namespace
