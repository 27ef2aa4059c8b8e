#ifndef TESTS_CORE_TABLE_PLAINNODE_H
#define TESTS_CORE_TABLE_PLAINNODE_H

#include <algorithm>
#include <cstddef>
#include <map>

/// What a node of the cell store shows, said plainly: as many entries as the largest position that
/// was written, and those of them that are not null.
class PlainNode {
 public:
  void Set(unsigned long position, void* entry) {
    size_ = std::max(size_, position + 1);
    entries_.erase(position);
    if (entry != nullptr) {
      entries_[position] = entry;
    }
  }

  unsigned long size() const { return size_; }
  std::map<unsigned long, void*> const& Filled() const { return entries_; }

  void* Entry(unsigned long position) const {
    auto const found = entries_.find(position);
    return found != entries_.end() ? found->second : nullptr;
  }

 private:
  unsigned long size_ = 0;
  std::map<unsigned long, void*> entries_;
};

#endif
