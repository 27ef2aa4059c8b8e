#include <algorithm>
#include <memory>
#include <string>

#include "harness/Target.h"
#include "render/json/Documents.h"
#include "render/support/EveryFormat.h"

namespace {

using lakresvos::render::JsonError;

/// The document, or null when the text is none.
std::unique_ptr<OmOutputTree> Read(std::string const& text) {
  try {
    return json_documents::Read(text);
  } catch (JsonError const& error) {
    if (std::string(error.what()).find('\n') != std::string::npos) {
      Fail("an error of several lines");
    }
    return nullptr;
  }
}

/// Pads a text with spaces, which count for what a document may cost, to the length of another one.
std::string Padded(std::string text, std::size_t size) {
  text.resize(std::max(text.size(), size), ' ');
  return text;
}

}  // namespace

// A document in JSON: read, written, read again, and rendered in every format.
void Exercise(std::string_view input) {
  std::unique_ptr<OmOutputTree> const document = Read(std::string(input));
  if (document == nullptr) {
    return;
  }
  std::string const written = json_documents::Written(*document);
  std::unique_ptr<OmOutputTree> const again = Read(Padded(written, input.size()));
  if (again == nullptr) {
    Fail("a document that was written cannot be read");
  }
  if (json_documents::Written(*again) != written) {
    Fail("a document that was read is not written as it was");
  }
  RenderInEveryFormat(*document);
}
