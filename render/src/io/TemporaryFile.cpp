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

std::string FindDirectory() {
  char const* const chosen = std::getenv("TMPDIR");
  return chosen != nullptr && *chosen != '\0' ? chosen : "/tmp";
}

}  // namespace

int OpenTemporaryFile(char const* directory) {
  return OpenUnnamed(directory != nullptr ? directory : FindDirectory());
}

TemporaryFile::TemporaryFile() : descriptor_(OpenTemporaryFile()) {
  if (descriptor_ < 0) {
    std::string const why = std::generic_category().message(errno);
    throw std::runtime_error("cannot create a temporary file in " + FindDirectory() + ": " + why);
  }
}

TemporaryFile::~TemporaryFile() {
  close(descriptor_);
}

}  // namespace lakresvos::render
