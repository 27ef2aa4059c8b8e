#ifndef CODEPAGE_UTF8_H
#define CODEPAGE_UTF8_H

#include <string>
#include <string_view>

namespace utf8 {

/// Whether `text` is UTF-8 throughout: no overlong form, no surrogate, nothing above U+10FFFF.
bool IsWellFormed(std::string_view text);

/// `text`, which is well-formed, without the tag characters U+E0000 to U+E007F.
std::string WithoutTags(std::string_view text);

}  // namespace utf8

#endif
