#include "document/SavedDocument.h"

#include <cerrno>
#include <fstream>
#include <system_error>

#include <lakresvos/render/JsonReader.h>
#include <lakresvos/tabulate/InputError.h>

namespace lakresvos::report {

namespace {

[[noreturn]] void FailToRead(std::string const& file) {
  throw tabulate::InputError(file + ": " +
                             std::generic_category().message(errno != 0 ? errno : EIO));
}

}  // namespace

std::unique_ptr<OmOutputTree> ReadDocument(std::string const& file) {
  errno = 0;
  std::ifstream input(file, std::ios::binary);
  if (!input) {
    FailToRead(file);
  }
  try {
    return render::ReadJson(input);
  } catch (render::JsonError const& error) {
    if (input.bad()) {
      FailToRead(file);
    }
    bool const isLine = !error.Place().empty() && error.Place().front() != '/';
    throw tabulate::InputError(file + (isLine ? ":" : ": ") + error.what());
  }
}

}  // namespace lakresvos::report
