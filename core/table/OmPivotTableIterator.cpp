#include <algorithm>

#include <lakresvos/OmPivotTable.h>

#include "table/OmPivotTableData.h"

OmPivotTable::Iterator::Data::Data(OmPivotTable::Data& owner)
    : table(&owner), levels(owner._dimensions.size()), moves_(owner.moves) {
  void* entry = owner.cells;
  for (std::size_t i = levels.size(); i != 0 && entry != nullptr;) {
    Level& level = levels[--i];
    level.node = PointerVector::FromEntry(entry);
    level.size = static_cast<int>(owner._dimensions[i]->CategoryCount());
    PointerVector::Found const found = level.node->FirstFrom(0);
    entry = found.entry;
    level.index = found.position;
  }
  current = static_cast<OmCellText*>(entry);
}

void* OmPivotTable::Iterator::Data::Increment(unsigned long level) {
  return Move(level, level);
}

void OmPivotTable::Iterator::Data::Skip(unsigned long level) {
  current = static_cast<OmCellText*>(Move(level, 0));
}

void* OmPivotTable::Iterator::Data::Move(unsigned long from, unsigned long target) {
  if (table != nullptr && table->moves != moves_) {
    FindNodes();
  }
  for (unsigned long at = from; at < levels.size();) {
    PointerVector::Found found = levels[at].node != nullptr
                                     ? levels[at].node->FirstFrom(levels[at].index + 1)
                                     : PointerVector::Found();
    if (found.entry == nullptr) {
      ++at;
      continue;
    }
    levels[at].index = found.position;
    levels[at].node->PrefetchAfter(found.position, at == 0);
    // Down to the level asked for, unless a branch turns out to be empty.
    while (at != target) {
      PointerVector* const node = PointerVector::FromEntry(found.entry);
      found = node->FirstFrom(0);
      if (found.entry == nullptr) {
        break;
      }
      --at;
      levels[at].node = node;
      levels[at].index = found.position;
    }
    if (at == target) {
      return at == 0 ? found.entry : PointerVector::FromEntry(found.entry);
    }
  }
  return nullptr;
}

void OmPivotTable::Iterator::Data::FindNodes() {
  PointerVector* node = table->cells;
  // Dimensions that came since hold the cells from before at their first subscript.
  for (std::size_t d = table->_dimensions.size(); d > levels.size() && node != nullptr; --d) {
    node = PointerVector::FromEntry(node->Entry(0));
  }
  for (std::size_t i = levels.size(); i != 0; --i) {
    levels[i - 1].node = node;
    if (node != nullptr && i != 1) {
      node = PointerVector::FromEntry(node->Entry(levels[i - 1].index));
    }
  }
  moves_ = table->moves;
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
    data_->Skip(0);
  }
  return *this;
}

std::vector<int> OmPivotTable::Iterator::Index() const {
  std::vector<int> index;
  Index(index);
  return index;
}

void OmPivotTable::Iterator::Index(std::vector<int>& index) const {
  index.resize(data_->levels.size());
  std::transform(data_->levels.begin(), data_->levels.end(), index.begin(),
                 [](Data::Level const& level) { return static_cast<int>(level.index); });
}

OmPivotTable::Iterator OmPivotTable::FirstCell() {
  return Iterator(new Iterator::Data(*_my));
}

OmPivotTable::ConstIterator OmPivotTable::FirstCell() const {
  return ConstIterator(new Iterator::Data(*_my));
}
