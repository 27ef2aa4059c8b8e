#include <algorithm>
#include <cstdint>
#include <functional>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <string>
#include <type_traits>
#include <utility>

#include <lakresvos/tabulate/Dictionary.h>

using namespace lakresvos::tabulate;

static_assert(std::is_nothrow_move_constructible_v<Dictionary>);
static_assert(!std::is_copy_constructible_v<Dictionary>);

namespace {

/// Two texts of 24 bytes that std::hash gives one hash. It takes eight bytes at a time (A. Appleby,
/// MurmurHash64A), and whatever the first ones do can be undone by the next.
std::pair<std::string, std::string> MakeTwoOfOneHash() {
  constexpr std::uint64_t kFactor = 0xC6A4A7935BD1E995;
  constexpr std::uint64_t kInverse = 0x5F7A0EA7E59B19BD;
  static_assert(kFactor * kInverse == 1);
  auto const shift = [](std::uint64_t word) { return word ^ (word >> 47); };
  auto const mix = [&](std::uint64_t word) { return shift(word * kFactor) * kFactor; };
  auto const unmix = [&](std::uint64_t word) { return shift(word * kInverse) * kInverse; };
  std::pair<std::string, std::string> texts;
  std::uint64_t const start = 0xC70F6907 ^ 24 * kFactor;
  std::uint64_t const state = (start ^ mix(1)) * kFactor;
  for (auto [text, first] : {std::pair{&texts.first, 1}, {&texts.second, 2}}) {
    std::uint64_t const reached = (start ^ mix(static_cast<std::uint64_t>(first))) * kFactor;
    for (std::uint64_t const word :
         {static_cast<std::uint64_t>(first), unmix(reached ^ state ^ mix(3)), std::uint64_t{4}}) {
      text->append(reinterpret_cast<char const*>(&word), sizeof word);
    }
  }
  return texts;
}

}  // namespace

TEST(Dictionary, TellsLongTextsOfOneHashApart) {
  auto const [a, b] = MakeTwoOfOneHash();
  ASSERT_NE(a, b);
  ASSERT_EQ(std::hash<std::string>()(a), std::hash<std::string>()(b));
  Dictionary texts;
  EXPECT_EQ(texts.Intern(a), 0u);
  EXPECT_EQ(texts.Find(b), Dictionary::kNone);
  EXPECT_EQ(texts.Intern(b), 1u);
  EXPECT_EQ(texts.Find(a), 0u);
  EXPECT_EQ(texts.Find(b), 1u);
}

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

TEST(Dictionary, ShortTextsThatDifferAtAnyPlacesAreDifferent) {
  for (std::size_t const length : {1, 2, 3, 4, 5, 6, 7}) {
    Dictionary dictionary;
    for (std::uint32_t places = 0; places < 1U << length; ++places) {
      std::string text(length, 'a');
      for (std::size_t at = 0; at < length; ++at) {
        text[at] = (places >> at & 1) != 0 ? 'c' : 'a';
      }
      EXPECT_EQ(dictionary.Intern(text), places) << text;
    }
  }
}
