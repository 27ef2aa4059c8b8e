#ifndef TESTS_RENDER_JSON_DOCUMENTS_H
#define TESTS_RENDER_JSON_DOCUMENTS_H

#include <memory>
#include <sstream>
#include <string>

#include <lakresvos/OmOutputTree.h>
#include <lakresvos/render/JsonReader.h>
#include <lakresvos/render/JsonRenderer.h>

/// Short ways from documents to JSON and back.
namespace json_documents {

inline std::string Written(OmOutputTree const& tree,
                           lakresvos::render::JsonOptions const& options = {}) {
  std::ostringstream out;
  lakresvos::render::RenderJson(tree, out, options);
  return out.str();
}

inline std::unique_ptr<OmOutputTree> Read(std::string const& text) {
  std::istringstream in(text);
  return lakresvos::render::ReadJson(in);
}

/// What the reader says of a text that it should not take.
inline std::string ErrorOf(std::string const& text) {
  try {
    Read(text);
  } catch (lakresvos::render::JsonError const& error) {
    return error.what();
  }
  return "no error";
}

}  // namespace json_documents

#endif
