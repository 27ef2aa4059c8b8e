#include "TemporaryFile.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <stdexcept>
#include <system_error>
#include <unistd.h>

namespace lakresvos::render {

TemporaryFile::TemporaryFile() {
  char const* const directory = std::getenv("TMPDIR");
  name_ = directory != nullptr && *directory != '\0' ? directory : "/tmp";
  name_ += "/lakresvos-XXXXXX";
  descriptor_ = mkostemp(name_.data(), O_CLOEXEC);
  if (descriptor_ < 0) {
    throw std::runtime_error("there can be no temporary file: " +
                             std::generic_category().message(errno));
  }
}

TemporaryFile::~TemporaryFile() {
  close(descriptor_);
  unlink(name_.c_str());
}

}  // namespace lakresvos::render
