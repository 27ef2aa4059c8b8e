#include "TextPool.h"

#include <cstring>
#include <new>

OmTextPool::Entry* OmTextPool::Share(std::string_view text) {
  auto const known = entries_.find(text);
  if (known != entries_.end()) {
    ++known->second->shares_;
    return known->second;
  }
  auto* const entry = ::new (operator new(sizeof(Entry) + text.size())) Entry(*this, text.size());
  if (!text.empty()) {
    std::memcpy(static_cast<void*>(entry + 1), text.data(), text.size());
  }
  try {
    entries_.emplace(entry->View(), entry);
  } catch (...) {
    operator delete(entry);
    throw;
  }
  ++entry->shares_;
  return entry;
}

void OmTextPool::Entry::Release() noexcept {
  if (--shares_ != 0) {
    return;
  }
  OmTextPool& pool = pool_;
  pool.entries_.erase(View());
  operator delete(this);
  pool.DeleteIfUnused();
}

void OmTextPool::LeaveTracker() noexcept {
  tracker_ = nullptr;
  DeleteIfUnused();
}

void OmTextPool::DeleteIfUnused() noexcept {
  if (tracker_ == nullptr && entries_.empty()) {
    delete this;
  }
}
