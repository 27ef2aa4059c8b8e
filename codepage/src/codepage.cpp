#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <iconv.h>
#include <new>
#include <optional>
#include <string>
#include <string_view>

#include <codepage/codepage.h>

#include "Utf8.h"

namespace {

iconv_t const kNoConverter = reinterpret_cast<iconv_t>(-1);

/// iconv skips what cannot be part of a name, takes a name of nothing for the page of the process,
/// and reads how to deal with missing characters from what follows a slash.
bool IsPlainName(std::string_view name) {
  auto const is_letter_or_digit = [](char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
  };
  return name.find('/') == std::string_view::npos &&
         std::any_of(name.begin(), name.end(), is_letter_or_digit);
}

/// To be called right after iconv or iconv_open has failed.
void ThrowIfRefusedMemory() {
  if (errno == ENOMEM) {
    throw std::bad_alloc();
  }
}

/// The whole of `utf8` in the converter's page, or nothing.
std::optional<std::string> Convert(iconv_t converter, std::string const& utf8) {
  iconv(converter, nullptr, nullptr, nullptr, nullptr);
  std::string result;
  std::array<char, 4096> buffer;
  char* input = const_cast<char*>(utf8.data());  // iconv's type; it only reads
  std::size_t left = utf8.size();
  for (bool flushed = false; !flushed;) {
    flushed = left == 0;
    char* output = buffer.data();
    std::size_t room = buffer.size();
    std::size_t const outcome =
        iconv(converter, flushed ? nullptr : &input, flushed ? nullptr : &left, &output, &room);
    if (outcome == static_cast<std::size_t>(-1) && errno != E2BIG) {
      ThrowIfRefusedMemory();
      return std::nullopt;
    }
    result.append(buffer.data(), output);
  }
  return result;
}

std::optional<std::string> ConvertAll(iconv_t converter, std::string const& utf8) {
  if (!utf8::IsUtf8(utf8)) {
    return std::nullopt;
  }
  std::optional<std::string> result = Convert(converter, utf8);
  // iconv drops tag characters without a word when the page lacks them.
  std::string const untagged = utf8::RemoveTags(utf8);
  if (result && untagged.size() != utf8.size() && result == Convert(converter, untagged)) {
    return std::nullopt;
  }
  return result;
}

}  // namespace

void* VELKMBConverterNew_A(char const* page) {
  if (page == nullptr || !IsPlainName(page)) {
    return nullptr;
  }
  iconv_t const converter = iconv_open(page, "UTF-8");
  if (converter != kNoConverter) {
    return converter;
  }
  ThrowIfRefusedMemory();
  return nullptr;
}

int VELKMBU8ToGeneric(void* converter, std::string& out, std::string const& utf8) {
  std::optional<std::string> result;
  if (converter != nullptr) {
    result = ConvertAll(converter, utf8);
  }
  out = result ? std::move(*result) : std::string();
  return result ? 0 : 1;
}

void VELKMBConverterDelete_A(void* converter) {
  if (converter != nullptr) {
    iconv_close(converter);
  }
}
