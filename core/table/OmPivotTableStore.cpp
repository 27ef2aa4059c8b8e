#include <algorithm>

#include <lakresvos/OmPivotTable.h>

#include "table/OmPivotTableData.h"

// The cell store: a path of nodes, from the root, which is that of the last dimension, to the bottom

namespace {

/// A negative subscript becomes larger than any position.
unsigned long GetSubscript(std::vector<int> const& index, std::size_t level) {
  return static_cast<unsigned int>(index[level]);
}

}  // namespace

void OmPivotTable::Data::AddCellDimension() {
  if (cells != nullptr) {
    cells = PointerVector::Make(*this, 0, cells->AsEntry());
    ++moves;
    lastBottom = Path();
  }
}

void OmPivotTable::Data::ReserveLevels(std::size_t count) {
  lastIndex.resize(count);
  wayBack.resize(count);
}

OmPivotTable::Data::Path OmPivotTable::Data::FindPath(std::vector<int> const& index) const {
  Path path;
  path.level = index.size();
  for (PointerVector* node = cells; node != nullptr;) {
    path.above = path.last;
    path.last = node;
    --path.level;
    if (path.level == 0) {
      break;
    }
    void* const entry = node->Entry(GetSubscript(index, path.level));
    path.mayHold = PointerVector::MayHave(entry, GetSubscript(index, path.level - 1));
    node = PointerVector::FromEntry(entry);
    // The caller has something else to do before it looks at the node.
    __builtin_prefetch(node);
  }
  return path;
}

void OmPivotTable::Data::Hook(Path const& path, std::vector<int> const& index,
                              PointerVector* node) {
  ++moves;
  if (path.above == nullptr) {
    cells = node;
  } else {
    *path.above->FindSlot(GetSubscript(index, path.level + 1)) = node->AsEntry();
  }
}

bool OmPivotTable::Data::IsLastWritten(std::vector<int> const& index) const {
  if (lastBottom.last == nullptr) {
    return false;
  }
  // Indexes are short, too short for a call.
  for (std::size_t level = 1; level < index.size(); ++level) {
    if (index[level] != lastIndex[level]) {
      return false;
    }
  }
  return true;
}

OmPivotTable::PointerVector* OmPivotTable::Data::MakeBranch(std::vector<int> const& index,
                                                            std::size_t level, OmCellText* cell) {
  void* entry = cell;
  PointerVector* node = nullptr;
  std::size_t built = 0;
  try {
    for (; built != level; ++built) {
      node = PointerVector::Make(*this, GetSubscript(index, built), entry);
      entry = node->AsEntry();
    }
  } catch (...) {
    ReleaseBranch(node, built, index);
    throw;
  }
  return node;
}

void OmPivotTable::Data::ReleaseBranch(PointerVector* node, std::size_t level,
                                       std::vector<int> const& index) {
  while (level != 0) {
    --level;
    PointerVector* const below =
        level != 0 ? PointerVector::FromEntry(node->Entry(GetSubscript(index, level))) : nullptr;
    PointerVector::Release(node);
    node = below;
  }
}

void OmPivotTable::Data::StoreCell(std::vector<int> const& index, OmCellText const* value) {
  bool again = IsLastWritten(index);
  unsigned long const position = GetSubscript(index, 0);
  bool const known = value == nullptr || value->GoesWithRegion();
  if (again && lastBottom.last->CanAppend(position) && value != nullptr && known) {
    lastBottom.last->Append(CloneAndBind(value).release());
    return;
  }
  Path path = again ? lastBottom : FindPath(index);
  auto const find = [&] {
    void** const slot =
        path.ReachesBottom() && path.mayHold ? path.last->FindSlot(position) : nullptr;
    return slot != nullptr ? static_cast<OmCellText*>(*slot) : nullptr;
  };
  OmCellText* before = find();
  if (before != nullptr && value != nullptr && before->TakeValue(*value)) {
    return;
  }
  std::unique_ptr<OmCellText> cell = CloneAndBind(value);
  if (!known) {
    NoteOwner();
    // Nobody knows what a class from elsewhere does to the table when it is copied.
    CheckIndex(index);
    again = false;
    path = FindPath(index);
    before = find();
  }
  if (before != nullptr && cell != nullptr && before->hasMeta()) {
    cell->setMeta(before->getMeta());
  }
  if (!path.ReachesBottom()) {
    AddBranch(index, path, cell.get());
  } else {
    PointerVector* const bottom = path.last->Set(position, cell.get(), GetExpected(0));
    if (bottom != path.last) {
      Hook(path, index, bottom);
    } else if (path.above != nullptr) {
      void*& entry = *path.above->FindSlot(GetSubscript(index, 1));
      entry = PointerVector::WithPosition(entry, position);
    }
    lastBottom = {path.above, bottom, 0};
    if (!again) {
      std::copy(index.begin(), index.end(), lastIndex.begin());
    }
  }
  static_cast<void>(cell.release());
  delete before;
}

void OmPivotTable::Data::AddBranch(std::vector<int> const& index, Path const& path,
                                   OmCellText* cell) {
  // What is missing is built apart, from the bottom up, so that a failure leaves the store alone.
  PointerVector* const branch = MakeBranch(index, path.level, cell);
  try {
    Hook(path, index,
         path.last != nullptr ? path.last->Set(GetSubscript(index, path.level), branch->AsEntry(),
                                               GetExpected(path.level))
                              : branch);
  } catch (...) {
    ReleaseBranch(branch, path.level, index);
    throw;
  }
  lastBottom = Path();
}

void OmPivotTable::Data::DeleteCell(std::vector<int> const& index) {
  // `kept` ends with the deepest node that has to stay, the root or one with another branch.
  Path kept;
  Path path;
  path.level = index.size();
  for (PointerVector* node = cells; node != nullptr;) {
    path.above = path.last;
    path.last = node;
    --path.level;
    if (path.above == nullptr || (path.level != 0 && node->CountFilled() > 1)) {
      kept = path;
    }
    node = path.level != 0 ? PointerVector::FromEntry(node->Entry(GetSubscript(index, path.level)))
                           : nullptr;
  }
  unsigned long const position =
      path.level == 0 && path.last != nullptr ? GetSubscript(index, 0) : 0;
  if (path.last == nullptr || path.level != 0 || position >= path.last->size()) {
    return;
  }
  auto* const cell = static_cast<OmCellText*>(path.last->Entry(position));
  unsigned long const left = path.last->CountFilled() - (cell != nullptr ? 1 : 0);
  if (left != 0 || path.above == nullptr) {
    Hook(path, index, path.last->Set(position, nullptr));
  } else {
    unsigned long const top = GetSubscript(index, kept.level);
    PointerVector* const branch = PointerVector::FromEntry(kept.last->Entry(top));
    Hook(kept, index, kept.last->Set(top, nullptr));
    ReleaseBranch(branch, kept.level, index);
  }
  lastBottom = Path();
  delete cell;
}

void OmPivotTable::Data::DeleteCells() {
  if (!HasOwners()) {
    return;
  }
  // A destructor must not allocate: the way back up has had its place since the dimensions came.
  std::size_t const top = _dimensions.size();
  std::size_t level = top;
  PointerVector* node = cells;
  unsigned long position = 0;
  while (node != nullptr) {
    PointerVector::Found const found = node->FirstFrom(position);
    if (found.entry == nullptr) {
      if (level == top) {
        return;
      }
      node = wayBack[level].node;
      position = wayBack[level].position;
      ++level;
    } else if (level == 1) {
      delete static_cast<OmCellText*>(found.entry);
      position = found.position + 1;
    } else {
      --level;
      wayBack[level] = {node, found.position + 1};
      node = PointerVector::FromEntry(found.entry);
      position = 0;
    }
  }
}
