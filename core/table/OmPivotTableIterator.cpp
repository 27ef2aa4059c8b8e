#include <lakresvos/OmPivotTable.h>

#include "table/OmPivotTableData.h"

OmPivotTable::Iterator::Data::Data(OmPivotTable::Data& table) : levels(table._dimensions.size()) {
  void* entry = table.cells;
  for (std::size_t i = levels.size(); i != 0 && entry != nullptr;) {
    Level& level = levels[--i];
    level.node = static_cast<PointerVector*>(entry);
    level.size = static_cast<int>(table._dimensions[i]->CategoryCount());
    unsigned long const first = level.node->FirstFrom(0);
    entry = level.node->Entry(first);
    level.index = entry != nullptr ? first : 0;
  }
  current = static_cast<OmCellText*>(entry);
}

void* OmPivotTable::Iterator::Data::Increment(unsigned long target) {
  for (unsigned long at = target; at < levels.size();) {
    Level& level = levels[at];
    unsigned long const next = level.node->FirstFrom(level.index + 1);
    void* entry = level.node->Entry(next);
    if (entry == nullptr) {
      ++at;
      continue;
    }
    level.index = next;
    // Down again to the level asked for, unless a branch turns out to be empty.
    while (at != target) {
      auto* const node = static_cast<PointerVector*>(entry);
      unsigned long const first = node->FirstFrom(0);
      if (first == node->size()) {
        break;
      }
      --at;
      levels[at].node = node;
      levels[at].index = first;
      entry = (*node)[first];
    }
    if (at == target) {
      return entry;
    }
  }
  return nullptr;
}

OmPivotTable::Iterator::Iterator() : data_(new Data()) {}

OmPivotTable::Iterator::Iterator(Data* data) : data_(data != nullptr ? data : new Data()) {}

OmPivotTable::Iterator::Iterator(Iterator const& other) : data_(new Data(*other.data_)) {
  data_->owners = 1;
}

OmPivotTable::Iterator& OmPivotTable::Iterator::operator=(Iterator const& other) {
  if (this != &other) {
    ++other.data_->owners;
    Iterator const before(data_);
    data_ = other.data_;
  }
  return *this;
}

OmPivotTable::Iterator::~Iterator() {
  if (--data_->owners == 0) {
    delete data_;
  }
}

OmCellText* OmPivotTable::Iterator::Cell() const {
  return data_->current;
}

OmPivotTable::Iterator& OmPivotTable::Iterator::operator++() {
  if (data_->current != nullptr) {
    data_->current = static_cast<OmCellText*>(data_->Increment(0));
  }
  return *this;
}

std::vector<int> OmPivotTable::Iterator::Index() const {
  std::vector<int> index;
  index.reserve(data_->levels.size());
  for (Data::Level const& level : data_->levels) {
    index.push_back(static_cast<int>(level.index));
  }
  return index;
}

OmPivotTable::Iterator OmPivotTable::FirstCell() {
  return Iterator(new Iterator::Data(*_my));
}

OmPivotTable::ConstIterator OmPivotTable::FirstCell() const {
  return ConstIterator(new Iterator::Data(*_my));
}
