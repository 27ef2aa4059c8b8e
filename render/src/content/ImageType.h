#ifndef LAKRESVOS_RENDER_CONTENT_IMAGETYPE_H
#define LAKRESVOS_RENDER_CONTENT_IMAGETYPE_H

#include <string>

namespace lakresvos::render {

/// The media type of an image, told by its first bytes: "image/png", "image/jpeg" or
/// "image/svg+xml"; empty for anything else.
std::string ImageType(std::string const& bytes);

}  // namespace lakresvos::render

#endif
