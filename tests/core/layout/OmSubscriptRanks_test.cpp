#include "layout/OmSubscriptRanks.h"

#include <gtest/gtest.h>
#include <vector>

namespace {

/// Checks what is found at and beside each subscript.
void ExpectFinds(std::vector<unsigned int> const& subscripts) {
  OmSubscriptRanks const ranks(subscripts);
  ASSERT_EQ(ranks.size(), subscripts.size());
  for (unsigned int rank = 0; rank < subscripts.size(); ++rank) {
    unsigned long const subscript = subscripts[rank];
    EXPECT_EQ(ranks[rank], subscript);
    EXPECT_EQ(ranks.Find(subscript), rank);
    EXPECT_EQ(ranks.FindFrom(subscript, 0), rank);
    EXPECT_EQ(ranks.Find(subscript + 1), OmSubscriptRanks::kNone);
    EXPECT_EQ(ranks.FindFrom(subscript + 1, rank), rank + 1);
  }
}

}  // namespace

TEST(OmSubscriptRanks, OfNoSubscriptsFindNothing) {
  ExpectFinds({});
  EXPECT_EQ(OmSubscriptRanks().Find(0), OmSubscriptRanks::kNone);
}

TEST(OmSubscriptRanks, FindSubscriptsThatLieClose) {
  ExpectFinds({1, 3, 5, 8});
}

TEST(OmSubscriptRanks, FindSubscriptsThatLieFarApart) {
  ExpectFinds({0, 1'000'000, 2'000'000'000, 4'294'967'290});
}

TEST(OmSubscriptRanks, CountASubscriptOnceWhereverItStands) {
  OmSubscriptRanks const ranks({7, 3, 7, 3, 3});
  EXPECT_EQ(ranks.size(), 2U);
  EXPECT_EQ(ranks.Find(3), 0U);
  EXPECT_EQ(ranks.Find(7), 1U);
}
