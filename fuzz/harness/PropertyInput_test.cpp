#include "harness/PropertyInput.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "support/Property.h"

namespace {

std::vector<int> drawn(3);  // its memory is there before the tests

PROPERTY(PropertyInputSubject, DrawsThreeNumbers) {
  drawn.clear();
  for (int i = 0; i < 3; ++i) {
    drawn.push_back(*rc::gen::inRange(0, 1'000'000));
  }
}

PROPERTY(PropertyInputSubject, DrawsNothing) {
  drawn.clear();
}

std::vector<int> Drawn(std::string const& input) {
  RunProperty({"PropertyInputSubject.DrawsThreeNumbers"}, input);
  return drawn;
}

}  // namespace

TEST(PropertyInput, DecidesEachDrawByTwoBytes) {
  std::vector<int> const before = Drawn("abcdef");
  EXPECT_EQ(Drawn("abcdef"), before);
  std::vector<int> const after = Drawn("abcxef");
  EXPECT_EQ(after[0], before[0]);
  EXPECT_NE(after[1], before[1]);
  EXPECT_EQ(after[2], before[2]);
}

TEST(PropertyInput, CountsAsZerosAfterItsEnd) {
  EXPECT_EQ(Drawn("ab"), Drawn(std::string("ab\0\0\0\0", 6)));
}

TEST(PropertyInput, ChoosesTheProperty) {
  auto const count = [](std::string const& input) {
    RunProperty({"PropertyInputSubject.DrawsNothing", "PropertyInputSubject.DrawsThreeNumbers"},
                input);
    return drawn.size();
  };
  EXPECT_EQ(count(std::string(1, '\0')), 0U);
  EXPECT_EQ(count("\1"), 3U);
  EXPECT_EQ(count("\2"), 0U);
}
