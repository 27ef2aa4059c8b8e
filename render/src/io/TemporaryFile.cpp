#include "io/TemporaryFile.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <stdexcept>
#include <system_error>
#include <unistd.h>

#include "io/SignalsHeld.h"

namespace lakresvos::render {

namespace {

/// Where the file system has no files without a name, takes the name away again at once.
int OpenUnnamed(std::string const& directory) {
  int const file = open(directory.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0600);
  if (file >= 0) {
    return file;
  }
  std::string name = directory + "/lakresvos-XXXXXX";
  SignalsHeld const held;
  int const named = mkostemp(name.data(), O_CLOEXEC);
  if (named >= 0) {
    unlink(name.c_str());
  }
  return named;
}

}  // namespace

TemporaryFile::TemporaryFile() {
  char const* const chosen = std::getenv("TMPDIR");
  std::string const directory = chosen != nullptr && *chosen != '\0' ? chosen : "/tmp";
  descriptor_ = OpenUnnamed(directory);
  if (descriptor_ < 0) {
    throw std::runtime_error("cannot create a temporary file in " + directory + ": " +
                             std::generic_category().message(errno));
  }
}

TemporaryFile::~TemporaryFile() {
  close(descriptor_);
}

}  // namespace lakresvos::render
