#include <gtest/gtest.h>
#include <string>
#include <type_traits>
#include <utility>

#include <cells/OmCellBytes.h>
#include <cells/OmMemoryRegion.h>

static_assert(std::is_nothrow_move_constructible_v<OmCellBytes>);
static_assert(std::is_nothrow_move_assignable_v<OmCellBytes>);
static_assert(!std::is_copy_constructible_v<OmCellBytes>);

TEST(OmCellBytes, LeavesTheEmptyTextWhereItWasMovedFrom) {
  OmMemoryRegion region(false);
  std::string const text(100, 'x');
  OmCellBytes from(text, &region);
  OmCellBytes const to(std::move(from));
  EXPECT_EQ(to.View(), text);
  EXPECT_EQ(from.View(), "");  // NOLINT(bugprone-use-after-move): that is what it says
}

TEST(OmCellBytes, ExchangesItsTextWhenAssigned) {
  OmMemoryRegion region(false);
  OmCellBytes one("one", &region);
  OmCellBytes two("two", &region);
  one = std::move(two);
  EXPECT_EQ(one.View(), "two");
  EXPECT_EQ(two.View(), "one");  // NOLINT(bugprone-use-after-move): that is what it says
}
