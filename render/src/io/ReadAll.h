#ifndef LAKRESVOS_RENDER_IO_READALL_H
#define LAKRESVOS_RENDER_IO_READALL_H

#include <istream>
#include <optional>
#include <string>

namespace lakresvos::render {

/// All bytes from where a stream is to its end; nothing when it cannot be read to there.
/// @throws std::bad_alloc; what the stream throws, if it is to throw.
std::optional<std::string> ReadAll(std::istream& in);

}  // namespace lakresvos::render

#endif
