#include "io/Base64.h"

#include <cstdint>

namespace lakresvos::render {

namespace {

constexpr std::string_view kDigits =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

std::uint32_t Byte(std::string_view bytes, std::size_t at) {
  return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0;
}

}  // namespace

void AppendBase64(std::string& out, std::string_view bytes) {
  for (; !bytes.empty(); bytes.remove_prefix(bytes.size() < 3 ? bytes.size() : 3)) {
    std::uint32_t const group = Byte(bytes, 0) << 16U | Byte(bytes, 1) << 8U | Byte(bytes, 2);
    out += kDigits[group >> 18U];
    out += kDigits[group >> 12U & 63U];
    out += bytes.size() > 1 ? kDigits[group >> 6U & 63U] : '=';
    out += bytes.size() > 2 ? kDigits[group & 63U] : '=';
  }
}

std::optional<std::string> DecodeBase64(std::string_view text) {
  std::size_t const size = text.size();
  while (!text.empty() && text.back() == '=' && size - text.size() < 2) {
    text.remove_suffix(1);
  }
  if (size % 4 != 0) {
    return std::nullopt;
  }
  std::string bytes;
  bytes.reserve(size / 4 * 3);
  std::uint32_t pending = 0;
  unsigned int bits = 0;
  for (char const c : text) {
    std::size_t const digit = kDigits.find(c);
    if (digit == std::string_view::npos) {
      return std::nullopt;
    }
    pending = pending << 6U | static_cast<std::uint32_t>(digit);
    bits += 6;
    if (bits >= 8) {
      bits -= 8;
      bytes += static_cast<char>(pending >> bits);
      pending &= (1U << bits) - 1;
    }
  }
  if (pending != 0) {
    return std::nullopt;
  }
  return bytes;
}

}  // namespace lakresvos::render
