#include <algorithm>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <string>
#include <type_traits>

#include <lakresvos/tabulate/Dictionary.h>

using namespace lakresvos::tabulate;

static_assert(std::is_nothrow_move_constructible_v<Dictionary>);
static_assert(!std::is_copy_constructible_v<Dictionary>);

TEST(Dictionary, NumbersTextsByFirstAppearance) {
  Dictionary texts;
  EXPECT_EQ(texts.Intern("b"), 0u);
  EXPECT_EQ(texts.Intern(""), 1u);
  EXPECT_EQ(texts.Intern("a"), 2u);
  EXPECT_EQ(texts.Intern("b"), 0u);
  EXPECT_EQ(texts.size(), 3u);
  EXPECT_EQ(texts[0], "b");
  EXPECT_EQ(texts[1], "");
  EXPECT_EQ(texts[2], "a");
}

RC_GTEST_PROP(Dictionary, AgreesWithASearchThroughAList, (std::vector<std::string> const& texts)) {
  Dictionary dictionary;
  std::vector<std::string> list;
  for (std::string const& text : texts) {
    auto const known = std::find(list.begin(), list.end(), text);
    auto const expected = static_cast<std::uint32_t>(known - list.begin());
    if (known == list.end()) {
      list.push_back(text);
    }
    RC_ASSERT(dictionary.Intern(text) == expected);
    RC_ASSERT(dictionary.size() == list.size());
    RC_ASSERT(dictionary[expected] == text);
  }
}

TEST(Dictionary, FindsNothingThatWasNotAdded) {
  Dictionary texts;
  EXPECT_EQ(texts.Find(""), Dictionary::kNone);
  texts.Intern("a");
  EXPECT_EQ(texts.Find("a"), 0u);
  EXPECT_EQ(texts.Find("b"), Dictionary::kNone);
}

TEST(Dictionary, TakesItsTextsAlongWhenItIsMoved) {
  Dictionary texts;
  texts.Intern("a");
  Dictionary moved = std::move(texts);
  EXPECT_EQ(moved.Find("a"), 0u);
  texts = Dictionary();
  EXPECT_EQ(texts.Intern("b"), 0u);
  EXPECT_EQ(moved.Intern("b"), 1u);
}
