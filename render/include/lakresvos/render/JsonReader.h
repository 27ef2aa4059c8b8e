#ifndef LAKRESVOS_RENDER_JSONREADER_H
#define LAKRESVOS_RENDER_JSONREADER_H

#include <istream>
#include <memory>
#include <stdexcept>
#include <string>

#include <lakresvos/OmOutputTree.h>
#include <lakresvos/render/Export.h>

namespace lakresvos::render {

/// What is wrong with a document in JSON, and where.
///
/// Thread safety: a plain value; several threads may read it while none writes it.
class LAKRESVOS_RENDER_EXPORT JsonError : public std::runtime_error {
 public:
  /// Makes an error whose what() is the place and the problem, or the problem alone.
  /// @param place see Place(); empty for the text as a whole.
  /// @param problem what is wrong, in one line.
  JsonError(std::string const& place, std::string const& problem);
  JsonError(JsonError const&) = default;             ///< copies place and problem
  JsonError& operator=(JsonError const&) = default;  ///< copies place and problem
  ~JsonError() override;

  /// For what is not JSON, "LINE:COLUMN", both from 1 and the column in characters; for what is no
  /// such document, the JSON Pointer (RFC 6901) of the offending value. It is what what() begins
  /// with, and valid as long as the object.
  std::string const& Place() const { return place_; }

 private:
  std::string place_;
};

/// Makes the document that RenderJson() wrote. Written again, it gives the same text.
///
/// The text must follow the format exactly: unknown fields, duplicate fields, and cells that are
/// not in ascending order (the first subscript varying fastest) are errors. The layout is ignored.
/// Numbers that are kept for the caller, such as those of footnotes, styles and axes, may name what
/// does not exist, as in any document.
///
/// A short text can ask for a lot: by composites whose parts are put in again and again, or by axes
/// that show each cell at many places. What that takes, for reading and for showing the document
/// without empty rows and columns, is estimated as it is read. Beyond 16 MiB and 256 bytes for each
/// byte of the text together, the document is refused. A table is never refused for being large,
/// nor for subscripts that lie far apart.
///
/// Reading takes time linear in the text, and memory for a copy of what is in it.
///
/// Thread safety: none; one thread at a time uses the stream.
///
/// @param in where to read, up to its end.
/// @return the document, which belongs to the caller; never null.
/// @throws JsonError for a text that is no such document; std::bad_alloc. Nothing is left of the
///         document then.
LAKRESVOS_RENDER_EXPORT std::unique_ptr<OmOutputTree> ReadJson(std::istream& in);

}  // namespace lakresvos::render

#endif
