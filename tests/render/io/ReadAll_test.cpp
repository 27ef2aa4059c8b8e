#include "io/ReadAll.h"

#include <gtest/gtest.h>
#include <ios>
#include <sstream>
#include <string>

using lakresvos::render::ReadAll;

TEST(ReadAll, GivesAllBytesFromWhereTheStreamIs) {
  for (std::size_t const size : {0U, 1U, 65535U, 65536U, 65537U, 200000U}) {
    std::string const bytes(size, '\0');
    std::istringstream in("x" + bytes);
    in.get();
    EXPECT_EQ(ReadAll(in), bytes) << size;
  }
}

TEST(ReadAll, GivesNothingWhenTheEndCannotBeReached) {
  std::istringstream failed("text");
  failed.setstate(std::ios::failbit);
  EXPECT_EQ(ReadAll(failed), std::nullopt);
  std::istream nowhere(nullptr);
  EXPECT_EQ(ReadAll(nowhere), std::nullopt);
}
