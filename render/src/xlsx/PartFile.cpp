#include "xlsx/PartFile.h"

#include <cerrno>
#include <memory>
#include <new>
#include <unistd.h>
#include <utility>
#include <xlsxwriter.h>

#include "io/Descriptor.h"
#include "io/TemporaryFile.h"
#include "io/WriteAll.h"

namespace lakresvos::render {

namespace {

thread_local PartFiles* current = nullptr;

}  // namespace

/// What a file of the C library is made of.
struct PartFiles::Part {
  Descriptor descriptor;
  PartFiles& owner;
  std::FILE* file = nullptr;

  static ssize_t Read(void* cookie, char* bytes, std::size_t size) {
    auto const& part = *static_cast<Part*>(cookie);
    ssize_t count = -1;
    do {
      count = ::read(part.descriptor.Number(), bytes, size);
    } while (count < 0 && errno == EINTR);
    if (count < 0) {
      part.owner.Keep(errno);
    }
    return count;
  }

  static ssize_t Write(void* cookie, char const* bytes, std::size_t size) {
    auto const& part = *static_cast<Part*>(cookie);
    if (!WriteAll(part.descriptor.Number(), {bytes, size})) {
      part.owner.Keep(errno);
      return 0;
    }
    return static_cast<ssize_t>(size);
  }

  static int Seek(void* cookie, off64_t* offset, int whence) {
    auto const& part = *static_cast<Part*>(cookie);
    *offset = ::lseek64(part.descriptor.Number(), *offset, whence);
    return *offset < 0 ? -1 : 0;
  }

  static int Close(void* cookie) {
    std::unique_ptr<Part> const part(static_cast<Part*>(cookie));
    part->owner.open_.erase(part.get());
    return 0;
  }
};

PartFiles::PartFiles() : former_(std::exchange(current, this)) {}

PartFiles::~PartFiles() {
  while (!open_.empty()) {
    std::fclose((*open_.begin())->file);
  }
  current = former_;
}

std::FILE* PartFiles::Make() try {
  made_ = true;
  std::unique_ptr<Part> part(new Part{Descriptor(OpenTemporaryFile()), *this});
  auto const place = open_.insert(part.get()).first;
  if (part->descriptor.IsOpen()) {
    part->file =
        ::fopencookie(part.get(), "w+", {&Part::Read, &Part::Write, &Part::Seek, &Part::Close});
  }
  if (part->file == nullptr) {
    Keep(errno);
    open_.erase(place);
    return nullptr;
  }
  return part.release()->file;
} catch (std::bad_alloc const&) {
  Keep(ENOMEM);
  return nullptr;
}

void PartFiles::Keep(int error) {
  if (error_ == 0) {
    error_ = error;
  }
}

}  // namespace lakresvos::render

extern "C" __attribute__((visibility("default"))) std::FILE* lxw_tmpfile(char* directory) {
  using namespace lakresvos::render;
  if (current != nullptr) {
    return current->Make();
  }
  // For a workbook of the process's own
  int const file = OpenTemporaryFile(directory);
  std::FILE* const stream = file >= 0 ? ::fdopen(file, "w+") : nullptr;
  if (file >= 0 && stream == nullptr) {
    ::close(file);
  }
  return stream;
}
