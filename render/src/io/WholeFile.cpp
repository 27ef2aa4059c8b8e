#include "io/WholeFile.h"

#include <cerrno>
#include <fcntl.h>
#include <string>
#include <system_error>
#include <unistd.h>

namespace lakresvos::render {

namespace {

namespace fs = std::filesystem;

constexpr int kMaxDrafts = 1000;

[[noreturn]] void Fail(fs::path const& file, int error) {
  throw std::system_error(error != 0 ? error : EIO, std::generic_category(), file.string());
}

/// The file itself where the path leads to one by symbolic links.
fs::path FindTarget(fs::path const& path) {
  std::error_code error;
  fs::path const target = fs::canonical(path, error);
  return error ? path : target;
}

/// Makes an empty file beside the target under a name that nobody uses.
fs::path MakeDraft(fs::path const& target) {
  std::string const start = ".lakresvos-" + std::to_string(getpid()) + "-";
  for (int number = 0; number < kMaxDrafts; ++number) {
    fs::path draft = target.parent_path() / (start + std::to_string(number));
    int const file = open(draft.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (file >= 0) {
      close(file);
      return draft;
    }
    if (errno != EEXIST) {
      break;
    }
  }
  Fail(target, errno);
}

}  // namespace

WholeFile::WholeFile(fs::path const& path) : target_(FindTarget(path)) {
  std::error_code error;
  fs::file_status const former = fs::status(target_, error);
  if (fs::exists(former) && !fs::is_regular_file(former)) {
    Fail(path, fs::is_directory(former) ? EISDIR : EINVAL);
  }
  if (fs::exists(former) && eaccess(target_.c_str(), W_OK) != 0) {
    Fail(path, errno);
  }
  draft_.path = MakeDraft(target_);
  if (fs::exists(former)) {
    fs::permissions(draft_.path, former.permissions(), error);  // where the file system has any
  }
  stream_.open(draft_.path, std::ios::binary);
}

WholeFile::Draft::~Draft() {
  std::error_code error;
  if (!path.empty()) {
    fs::remove(path, error);
  }
}

void WholeFile::Commit() {
  stream_.close();
  if (!stream_) {
    Fail(target_, errno);
  }
  std::error_code error;
  fs::rename(draft_.path, target_, error);
  if (error) {
    Fail(target_, error.value());
  }
  draft_.path.clear();
}

}  // namespace lakresvos::render
