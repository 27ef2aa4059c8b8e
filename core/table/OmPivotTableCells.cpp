#include <lakresvos/OMSException.h>
#include <lakresvos/OmPivotTable.h>

#include "table/OmPivotTableData.h"

namespace {

unsigned long GetSubscript(std::vector<int> const& index, std::size_t level) {
  return static_cast<unsigned long>(index[level]);
}

[[noreturn]] void ThrowSizeError(std::size_t given, std::size_t dimensions) {
  throw OMSException("OmPivotTable::Cell() -- nind != _my->_dimensions.size()",
                     static_cast<double>(given), static_cast<double>(dimensions));
}

[[noreturn]] void ThrowSubscriptError(int subscript) {
  throw OMSException("OmPivotTable::Cell() -- subscript < 0", subscript, 0);
}

}  // namespace

// The cell store

unsigned long OmPivotTable::PointerVector::FirstFrom(unsigned long position) const {
  while (position < size() && begin[position] == nullptr) {
    ++position;
  }
  return position;
}

void OmPivotTable::PointerVector::MakeRoom(unsigned long position) {
  if (position >= capacity()) {
    reserve(position > 2 * capacity() ? position + 1 : GrownCapacity(position));
  }
  while (size() <= position) {
    emplace_back(nullptr);
  }
}

void OmPivotTable::Data::AddCellDimension() {
  if (cells == nullptr) {
    return;
  }
  Owned<PointerVector> root = Make<PointerVector>(this);
  root->emplace_back(cells);
  cells = root.release();
}

void OmPivotTable::Data::CheckIndex(std::vector<int> const& index) const {
  if (index.size() != _dimensions.size()) {
    ThrowSizeError(index.size(), _dimensions.size());
  }
  for (int const subscript : index) {
    if (subscript < 0) {
      ThrowSubscriptError(subscript);
    }
  }
}

OmPivotTable::PointerVector* OmPivotTable::Data::FindBottom(std::vector<int> const& index) const {
  PointerVector* node = cells;
  for (std::size_t level = index.size(); node != nullptr && level > 1;) {
    --level;
    node = static_cast<PointerVector*>(node->Entry(GetSubscript(index, level)));
  }
  return node;
}

void*& OmPivotTable::Data::MakeSlot(std::vector<int> const& index) {
  // The deepest node that exists on the path; `level` is its own, or one above the root's.
  std::size_t level = index.size();
  PointerVector* node = nullptr;
  for (PointerVector* next = cells; next != nullptr;) {
    node = next;
    --level;
    next =
        level != 0 ? static_cast<PointerVector*>(node->Entry(GetSubscript(index, level))) : nullptr;
  }
  if (node != nullptr && level == 0) {
    node->MakeRoom(GetSubscript(index, 0));
    return (*node)[GetSubscript(index, 0)];
  }
  // What is missing is built apart, from the bottom up, so that a failure leaves the store alone.
  PointerVector* chain = nullptr;
  std::size_t built = 0;
  try {
    void** slot = nullptr;
    do {
      Owned<PointerVector> fresh = Make<PointerVector>(this);
      fresh->MakeRoom(GetSubscript(index, built));
      void*& entry = (*fresh)[GetSubscript(index, built)];
      entry = chain;
      slot = built == 0 ? &entry : slot;
      chain = fresh.release();
      ++built;
    } while (built != level);
    if (node == nullptr) {
      cells = chain;
    } else {
      node->MakeRoom(GetSubscript(index, level));
      (*node)[GetSubscript(index, level)] = chain;
    }
    return *slot;
  } catch (...) {
    if (built != 0) {
      ReleasePath(chain, built - 1, index);
    }
    throw;
  }
}

void OmPivotTable::Data::ReleasePath(PointerVector* node, std::size_t level,
                                     std::vector<int> const& index) {
  for (;; --level) {
    auto* const below =
        level != 0 ? static_cast<PointerVector*>(node->Entry(GetSubscript(index, level))) : nullptr;
    Destroyer()(node);
    if (level == 0) {
      return;
    }
    node = below;
  }
}

void OmPivotTable::Data::Prune(std::vector<int> const& index) {
  // The topmost node below the root from which on nothing but the path remains, and its parent.
  PointerVector* parent = nullptr;
  std::size_t top = 0;
  PointerVector* node = cells;
  for (std::size_t level = index.size() - 1; level != 0; --level) {
    auto* const below = static_cast<PointerVector*>(node->Entry(GetSubscript(index, level)));
    unsigned long const only = level > 1 ? GetSubscript(index, level - 1) : below->size();
    unsigned long const first = below->FirstFrom(0);
    bool const empty = first == only && below->FirstFrom(first + 1) >= below->size();
    if (!empty) {
      parent = nullptr;
    } else if (parent == nullptr) {
      parent = node;
      top = level;
    }
    node = below;
  }
  if (parent != nullptr) {
    void*& entry = (*parent)[GetSubscript(index, top)];
    ReleasePath(static_cast<PointerVector*>(entry), top - 1, index);
    entry = nullptr;
  }
}

void OmPivotTable::Data::DeleteCells() {
  // The way back up is kept in the entries and in capacityEnd, for a destructor must not allocate.
  std::size_t level = _dimensions.size();
  PointerVector* above = nullptr;
  PointerVector* node = cells;
  void** cursor = node != nullptr ? node->begin : nullptr;
  while (node != nullptr) {
    if (level == 1) {
      for (void* cell : node->Elements()) {
        delete static_cast<OmCellText*>(cell);
      }
      cursor = node->end;
    }
    while (cursor != node->end && *cursor == nullptr) {
      ++cursor;
    }
    if (cursor != node->end) {
      auto* const below = static_cast<PointerVector*>(*cursor);
      *cursor = above;
      node->capacityEnd = cursor;
      above = node;
      node = below;
      cursor = node->begin;
      --level;
      continue;
    }
    node = above;
    if (node != nullptr) {
      cursor = node->capacityEnd;
      above = static_cast<PointerVector*>(*cursor);
      ++cursor;
      ++level;
    }
  }
}

// Cells

OmCellText* OmPivotTable::Cell(std::vector<int> const& index) const {
  _my->CheckIndex(index);
  PointerVector const* const bottom = _my->FindBottom(index);
  return bottom != nullptr ? static_cast<OmCellText*>(bottom->Entry(GetSubscript(index, 0)))
                           : nullptr;
}

bool OmPivotTable::Cell(std::vector<int> const& index, OmCellText const* cell) {
  int const written = _my->numCells;
  _my->numCells = static_cast<int>(static_cast<unsigned int>(written) + 1);
  if (written > _my->backendSettings.getMaxCells()) {
    Scratch(true);
    return false;
  }
  _my->CheckIndex(index);
  if (index.empty()) {
    ThrowSizeError(0, 0);
  }
  std::unique_ptr<OmCellText> fresh = _my->CloneAndBind(cell);
  void*& slot = _my->MakeSlot(index);
  auto* const before = static_cast<OmCellText*>(slot);
  if (before != nullptr && fresh != nullptr && before->hasMeta()) {
    fresh->setMeta(before->getMeta());
  }
  slot = fresh.release();
  delete before;
  return true;
}

bool OmPivotTable::Cell(std::vector<int> const& index, OmCellText const& cell) {
  return Cell(index, &cell);
}

void OmPivotTable::deleteCell(std::vector<int> const& index) {
  if (index.size() != _my->_dimensions.size()) {
    return;
  }
  PointerVector* const bottom = _my->FindBottom(index);
  if (bottom == nullptr || GetSubscript(index, 0) >= bottom->size()) {
    return;
  }
  void*& slot = (*bottom)[GetSubscript(index, 0)];
  delete static_cast<OmCellText*>(slot);
  slot = nullptr;
  _my->Prune(index);
}

int OmPivotTable::getNumCells() const {
  return _my->numCells;
}
