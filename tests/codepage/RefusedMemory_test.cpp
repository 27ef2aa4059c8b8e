#include <cerrno>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <iconv.h>
#include <new>
#include <string>

#include <codepage/codepage.h>

#include "support/faults/FailingMalloc.h"

// The program's own iconv functions come before those of the C library, and can run out of memory
// as these can.
#define EXPORTED extern "C" __attribute__((visibility("default")))

namespace {

bool refusing = false;

template <class Function>
Function* Real(char const* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

EXPORTED iconv_t iconv_open(char const* to, char const* from) {
  if (refusing) {
    errno = ENOMEM;
    return reinterpret_cast<iconv_t>(-1);
  }
  static auto* const real = Real<decltype(iconv_open)>("iconv_open");
  return real(to, from);
}

EXPORTED std::size_t iconv(iconv_t converter, char** in, std::size_t* inLeft, char** out,
                           std::size_t* outLeft) {
  if (refusing) {
    errno = ENOMEM;
    return static_cast<std::size_t>(-1);
  }
  static auto* const real = Real<decltype(iconv)>("iconv");
  return real(converter, in, inLeft, out, outLeft);
}

namespace {

class CodepageRefusedMemory : public testing::Test {
 protected:
  void TearDown() override { refusing = false; }
};

TEST_F(CodepageRefusedMemory, IsThrownWhenAConverterIsOpened) {
  refusing = true;
  EXPECT_THROW(VELKMBConverterNew_A("ISO-8859-1"), std::bad_alloc);
  refusing = false;
  void* const converter = VELKMBConverterNew_A("ISO-8859-1");
  EXPECT_NE(converter, nullptr);
  VELKMBConverterDelete_A(converter);
  EXPECT_EQ(VELKMBConverterNew_A("no-such-page"), nullptr);
}

TEST_F(CodepageRefusedMemory, IsThrownByTheConversion) {
  void* const converter = VELKMBConverterNew_A("ISO-8859-1");
  std::string out = "old";
  refusing = true;
  EXPECT_THROW(VELKMBU8ToGeneric(converter, out, "text"), std::bad_alloc);
  EXPECT_EQ(out, "old");
  refusing = false;
  EXPECT_EQ(VELKMBU8ToGeneric(converter, out, "text"), 0);
  EXPECT_EQ(out, "text");
  VELKMBConverterDelete_A(converter);
}

TEST_F(CodepageRefusedMemory, LeavesPagesKnown) {
  if (!FailMallocAfter::Works()) {
    GTEST_SKIP() << "sanitizers want malloc() for themselves";
  }
  std::size_t failures = 0;
  for (std::string const page : {"ISO-8859-1", "ISO-2022-JP", "GB18030"}) {
    void* converter = nullptr;
    failures += FailEvery<FailMallocAfter>(
        [&] {
          VELKMBConverterDelete_A(converter);
          converter = nullptr;
          converter = VELKMBConverterNew_A(page.c_str());
        },
        [] {});
    ASSERT_NE(converter, nullptr) << page;
    std::string out;
    FailEvery<FailMallocAfter>([&] { VELKMBU8ToGeneric(converter, out, "text"); }, [] {});
    EXPECT_EQ(out, "text");
    VELKMBConverterDelete_A(converter);
  }
  EXPECT_GT(failures, 3U);
}

}  // namespace
