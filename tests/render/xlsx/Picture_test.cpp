#include "xlsx/Picture.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <string>

#include "render/support/Pictures.h"

using lakresvos::render::IsWholeJpeg;
using lakresvos::render::IsWholePng;

namespace {

std::string const kPng(kPixelPng);

std::string const kJpegFrame("\xFF\xC0\0\x0B\x08\0\x01\0\x01\x01\x01\x11\0", 13);
std::string const kJpegScan("\xFF\xDA\0\x08\x01\x01\0\0?\0\x7F\xFF\0\xFF\xD0\x7F", 16);

std::string Jpeg(std::string const& segments) {
  return "\xFF\xD8" + segments + "\xFF\xD9";
}

}  // namespace

TEST(Picture, AWholePngIsWhole) {
  EXPECT_TRUE(IsWholePng(kPng));
  EXPECT_FALSE(IsWholeJpeg(kPng));
}

TEST(Picture, NoStartOfAPngIsWhole) {
  for (std::size_t length = 0; length < kPng.size(); ++length) {
    EXPECT_FALSE(IsWholePng(kPng.substr(0, length))) << length;
  }
}

TEST(Picture, NoPngWithAChangedByteIsWhole) {
  for (std::size_t at = 0; at < kPng.size(); ++at) {
    std::string changed = kPng;
    changed[at] = static_cast<char>(changed[at] ^ 0x20);
    EXPECT_FALSE(IsWholePng(changed)) << at;
  }
}

TEST(Picture, APngNeedsImageData) {
  EXPECT_FALSE(IsWholePng(kPng.substr(0, 33) + kPng.substr(55)));
}

TEST(Picture, AWholeJpegIsWhole) {
  EXPECT_TRUE(IsWholeJpeg(Jpeg(kJpegFrame + kJpegScan)));
  EXPECT_TRUE(IsWholeJpeg(Jpeg(kJpegFrame + "\xFF" + kJpegScan)));
  EXPECT_TRUE(IsWholeJpeg(Jpeg(kJpegFrame + kJpegScan) + "more"));
}

TEST(Picture, NoStartOfAJpegIsWhole) {
  std::string const jpeg = Jpeg(kJpegFrame + kJpegScan);
  for (std::size_t length = 0; length < jpeg.size(); ++length) {
    EXPECT_FALSE(IsWholeJpeg(jpeg.substr(0, length))) << length;
  }
}

TEST(Picture, AJpegNeedsAScanAndAFrameWithASize) {
  std::string flat = kJpegFrame;
  flat[6] = '\0';
  EXPECT_FALSE(IsWholeJpeg(Jpeg("")));
  EXPECT_FALSE(IsWholeJpeg(Jpeg(kJpegFrame)));
  EXPECT_FALSE(IsWholeJpeg(Jpeg(kJpegScan)));
  EXPECT_FALSE(IsWholeJpeg(Jpeg(flat + kJpegScan)));
  EXPECT_FALSE(IsWholeJpeg(Jpeg(std::string("\xFF\xE0\0\0", 4) + kJpegFrame + kJpegScan)));
}

RC_GTEST_PROP(Picture, AnyBytesAreLookedAt, (std::string const& bytes)) {
  IsWholePng(kPng.substr(0, 33) + bytes);
  IsWholeJpeg("\xFF\xD8" + bytes);
  IsWholeJpeg("\xFF\xD8" + kJpegScan + bytes);
}
