#include "OutputFile.h"

#include <cerrno>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

#include "ReportError.h"

namespace lakresvos::report {

namespace {

namespace fs = std::filesystem;

}  // namespace

OutputFile::OutputFile(std::string const& name) : name_(name), target_(name) {
  std::error_code ignored;
  fs::path const behindLinks = fs::canonical(target_, ignored);
  if (!behindLinks.empty()) {
    target_ = behindLinks;
  }
  if (fs::is_directory(target_, ignored)) {
    Fail(EISDIR);
  }
  if (fs::exists(target_, ignored) && !fs::is_regular_file(target_, ignored)) {
    stream_.open(target_);
  } else {
    OpenBeside();
  }
  if (!stream_) {
    Fail(errno);
  }
}

OutputFile::~OutputFile() {
  if (!draft_.empty()) {
    std::error_code ignored;
    fs::remove(draft_, ignored);
  }
}

void OutputFile::OpenBeside() {
  fs::path draft = target_;
  draft += '.';
  draft += std::to_string(::getpid());
  draft += ".tmp";
  int const file = ::open(draft.c_str(), O_WRONLY | O_CREAT | O_EXCL, 0666);
  if (file < 0) {
    Fail(errno);
  }
  ::close(file);
  draft_ = draft;
  std::error_code ignored;
  fs::file_status const former = fs::status(target_, ignored);
  if (fs::exists(former)) {
    fs::permissions(draft_, former.permissions(), ignored);
  }
  stream_.open(draft_);
}

void OutputFile::Commit() {
  errno = 0;
  stream_.close();
  if (!stream_) {
    Fail(errno);
  }
  if (!draft_.empty()) {
    std::error_code error;
    fs::rename(draft_, target_, error);
    if (error) {
      Fail(error.value());
    }
    draft_.clear();
  }
}

void OutputFile::Fail(int error) const {
  throw ReportError(name_ + ": " + std::generic_category().message(error != 0 ? error : EIO));
}

}  // namespace lakresvos::report
