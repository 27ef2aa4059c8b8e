#ifndef LAKRESVOS_RENDER_IO_BASE64_H
#define LAKRESVOS_RENDER_IO_BASE64_H

#include <optional>
#include <string>
#include <string_view>

namespace lakresvos::render {

/// Appends bytes in base64 (RFC 4648), padded and without line ends.
void AppendBase64(std::string& out, std::string_view bytes);

/// The bytes of a text in base64; nothing when it is not exactly what AppendBase64() writes.
std::optional<std::string> DecodeBase64(std::string_view text);

}  // namespace lakresvos::render

#endif
