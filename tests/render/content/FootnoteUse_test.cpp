#include "content/FootnoteUse.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <set>
#include <vector>

#include "render/support/RenderTables.h"

using lakresvos::render::FootnoteUse;
using lakresvos::render::LabelTexts;
using lakresvos::render::TableFootnotes;
using namespace render_tables;

using Numbers = std::vector<std::size_t>;

TEST(FootnoteUse, APartListsEachOfItsFootnotesOnce) {
  Table table;
  unsigned int const first = AddFootnote(table, "first");
  unsigned int const second = AddFootnote(table, "second");
  AddFootnote(table, "of nothing");
  OmStringCellUTF8 both("");
  WithFootnotes(both, {second, first, 7});
  LabelTexts labels;
  TableFootnotes const footnotes(table, labels);
  FootnoteUse use(footnotes);
  use.Show(both);
  use.Show(both);
  EXPECT_EQ(use.EndPart(false), (Numbers{0, 1}));
  EXPECT_EQ(use.EndPart(false), Numbers{});
  EXPECT_EQ(use.EndPart(true), Numbers{2});
}

TEST(FootnoteUse, ThousandsOfPartsListWhatTheyUseAndNoMore) {
  constexpr unsigned int kMany = 5000;
  Table table;
  for (unsigned int i = 0; i < kMany; ++i) {
    AddFootnote(table, "note");
  }
  LabelTexts labels;
  TableFootnotes const footnotes(table, labels);
  FootnoteUse use(footnotes);
  std::size_t listed = 0;
  for (unsigned int i = 0; i < kMany; ++i) {
    OmStringCellUTF8 cell("");
    use.Show(WithFootnotes(cell, {i}));
    listed += use.EndPart(i + 1 == kMany).size();
  }
  EXPECT_EQ(listed, kMany);
}

RC_GTEST_PROP(FootnoteUse, ListsWhatASlowModelDoes, ()) {
  auto const parts = *rc::gen::container<std::vector<Numbers>>(
      rc::gen::container<Numbers>(rc::gen::inRange<std::size_t>(0, 12)));
  Table table;
  constexpr std::size_t kFootnotes = 10;
  for (std::size_t i = 0; i < kFootnotes; ++i) {
    AddFootnote(table, "note");
  }
  LabelTexts labels;
  TableFootnotes const footnotes(table, labels);
  FootnoteUse use(footnotes);
  std::set<std::size_t> unused = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
  for (std::size_t part = 0; part < parts.size(); ++part) {
    std::set<std::size_t> expected;
    for (std::size_t const number : parts[part]) {
      OmStringCellUTF8 cell("");
      use.Show(WithFootnotes(cell, {static_cast<unsigned int>(number)}));
      if (number < kFootnotes) {
        expected.insert(number);
        unused.erase(number);
      }
    }
    bool const last = part + 1 == parts.size();
    if (last) {
      expected.insert(unused.begin(), unused.end());
    }
    RC_ASSERT(use.EndPart(last) == Numbers(expected.begin(), expected.end()));
  }
}
