#include "io/DescriptorBuffer.h"

#include <cerrno>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <ostream>
#include <string>

#include "io/Descriptor.h"
#include "support/TemporaryDirectory.h"

using namespace lakresvos::render;

TEST(DescriptorBuffer, WritesAllThatIsFlushed) {
  TemporaryDirectory const directory;
  Descriptor const file(::open(directory.Path("a").c_str(), O_CREAT | O_WRONLY, 0600));
  DescriptorBuffer buffer(file.Number());
  std::ostream out(&buffer);
  std::string expected;
  for (int i = 0; i < 30000; ++i) {
    out << i << "; ";
    expected += std::to_string(i) + "; ";
  }
  out << std::string(200000, 'x') << std::flush;
  EXPECT_TRUE(out.good());
  EXPECT_EQ(buffer.Error(), 0);
  EXPECT_EQ(ReadFile(directory.Path("a")), expected + std::string(200000, 'x'));
}

TEST(DescriptorBuffer, RemembersTheFirstReasonWhyItCannotWrite) {
  Descriptor const full(::open("/dev/full", O_WRONLY));
  DescriptorBuffer buffer(full.Number());
  std::ostream out(&buffer);
  out << std::string(200000, 'x');
  errno = 0;
  EXPECT_FALSE(out.flush());
  EXPECT_EQ(buffer.Error(), ENOSPC);
}
