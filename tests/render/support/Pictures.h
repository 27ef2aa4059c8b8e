#ifndef TESTS_RENDER_SUPPORT_PICTURES_H
#define TESTS_RENDER_SUPPORT_PICTURES_H

#include <string_view>

/// A picture of one pixel.
inline constexpr std::string_view kPixelPng(
    "\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\0\0\x01\0\0\0\x01\x08\0\0\0\0:~\x9BU\0\0\0\nIDATx\x9C"
    "c`\0\0\0\x02\0\x01H\xAF\xA4q\0\0\0\0IEND\xAE"
    "B`\x82",
    67);

#endif
