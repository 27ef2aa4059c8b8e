#include "content/ImageType.h"

#include <gtest/gtest.h>
#include <string>

using lakresvos::render::ImageType;

TEST(ImageType, PicturesAreToldByTheirFirstBytes) {
  EXPECT_EQ(ImageType("\x89PNG\r\n\x1A\n..."), "image/png");
  EXPECT_EQ(ImageType("\xFF\xD8\xFF\xE0"), "image/jpeg");
  EXPECT_EQ(ImageType("\x89PNG\n\x1A\n..."), "");
  EXPECT_EQ(ImageType("\xFF\xD8"), "");
  EXPECT_EQ(ImageType(""), "");
}

TEST(ImageType, DrawingsMayHaveAPrologue) {
  for (char const* const drawing :
       {"<svg/>", "\n\t <svg xmlns='x'>", "\xEF\xBB\xBF<svg/>", "<?xml version='1.0'?>\n<svg/>",
        "<!-- made by hand --><svg/>", "<!DOCTYPE svg>\r\n<svg/>"}) {
    EXPECT_EQ(ImageType(drawing), "image/svg+xml") << drawing;
  }
}

TEST(ImageType, OtherMarkupIsNoDrawing) {
  EXPECT_EQ(ImageType("<html><svg/></html>"), "");
  EXPECT_EQ(ImageType("<?xml version='1.0'?><html/>"), "");
  EXPECT_EQ(ImageType("text <svg/>"), "");
  EXPECT_EQ(ImageType("<!--" + std::string(5000, ' ') + "--><svg/>"), "") << "looked for too far";
}
