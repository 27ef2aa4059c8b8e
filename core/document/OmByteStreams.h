#ifndef LAKRESVOS_CORE_DOCUMENT_OMBYTESTREAMS_H
#define LAKRESVOS_CORE_DOCUMENT_OMBYTESTREAMS_H

#include <cstdint>
#include <string>
#include <vector>

/// A text of `count` bytes; none may come as a null pointer.
inline std::string MakeText(char const* bytes, unsigned int count) {
  return std::string().append(bytes, count);
}

/// Attached files: their names, and their contents in step with the names.
struct OmAttachedFiles {
  std::vector<std::string> names;
  std::vector<std::string> contents;

  void AddName(char const* bytes, unsigned int count) { names.push_back(MakeText(bytes, count)); }

  /// Continues the last content while there is one per name, else starts a new one.
  void AddContent(char const* bytes, unsigned int count) {
    if (contents.size() == names.size() && !contents.empty()) {
      contents.back().append(bytes, count);
    } else {
      contents.push_back(MakeText(bytes, count));
    }
  }
};

/// Appends to a stream that is not expected to grow again. The bytes may be the stream's own.
inline void AppendExactly(std::string& stream, char const* bytes, unsigned int count) {
  auto const offset =
      reinterpret_cast<std::uintptr_t>(bytes) - reinterpret_cast<std::uintptr_t>(stream.data());
  bool const own = offset <= stream.size();
  stream.reserve(stream.size() + count);
  stream.append(own ? stream.data() + offset : bytes, count);
}

#endif
