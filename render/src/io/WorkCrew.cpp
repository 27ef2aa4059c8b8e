#include "io/WorkCrew.h"

#include <system_error>
#include <utility>

namespace lakresvos::render {

WorkCrew::~WorkCrew() {
  {
    std::lock_guard<std::mutex> const lock(mutex_);
    waiting_.clear();
    ending_ = true;
  }
  added_.notify_all();
  for (std::thread& thread : threads_) {
    thread.join();
  }
}

void WorkCrew::Add(std::size_t piece) {
  bool keepsWaiting = false;
  {
    std::lock_guard<std::mutex> const lock(mutex_);
    waiting_.push_back(piece);
    pieces_[piece] = {};
    keepsWaiting = waiting_.size() > idle_;
  }
  added_.notify_one();
  if (keepsWaiting && threads_.size() < helpers_) {
    StartThread();
  }
}

void WorkCrew::StartThread() {
  try {
    threads_.emplace_back([this] { Help(); });
  } catch (std::system_error const&) {
    helpers_ = threads_.size();
  }
}

void WorkCrew::Help() {
  std::unique_lock<std::mutex> lock(mutex_);
  for (;;) {
    ++idle_;
    added_.wait(lock, [this] { return ending_ || !waiting_.empty(); });
    --idle_;
    if (waiting_.empty()) {
      return;
    }
    DoNext(lock);
  }
}

void WorkCrew::DoNext(std::unique_lock<std::mutex>& lock) {
  std::size_t const piece = waiting_.front();
  waiting_.pop_front();
  lock.unlock();
  std::exception_ptr error;
  try {
    work_(piece);
  } catch (...) {
    error = std::current_exception();
  }
  lock.lock();
  pieces_[piece] = {true, std::move(error)};
  done_.notify_one();
}

void WorkCrew::Finish(std::size_t piece) {
  std::unique_lock<std::mutex> lock(mutex_);
  while (!pieces_[piece].done) {
    if (waiting_.empty()) {
      done_.wait(lock);
    } else {
      DoNext(lock);
    }
  }
  if (std::exception_ptr const error = std::exchange(pieces_[piece].error, nullptr)) {
    lock.unlock();
    std::rethrow_exception(error);
  }
}

}  // namespace lakresvos::render
