#include <cerrno>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <iconv.h>
#include <new>
#include <string>

#include <codepage/codepage.h>

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

class RefusedMemory : public testing::Test {
 protected:
  void TearDown() override { refusing = false; }
};

TEST_F(RefusedMemory, IsThrownWhenAConverterIsOpened) {
  refusing = true;
  EXPECT_THROW(VELKMBConverterNew_A("ISO-8859-1"), std::bad_alloc);
  refusing = false;
  void* const converter = VELKMBConverterNew_A("ISO-8859-1");
  EXPECT_NE(converter, nullptr);
  VELKMBConverterDelete_A(converter);
  EXPECT_EQ(VELKMBConverterNew_A("no-such-page"), nullptr);
}

TEST_F(RefusedMemory, IsThrownByTheConversion) {
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

}  // namespace
