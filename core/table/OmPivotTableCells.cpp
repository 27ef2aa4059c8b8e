#include <lakresvos/OMSException.h>
#include <lakresvos/OmPivotTable.h>

#include "table/OmPivotTableData.h"

namespace {

[[noreturn]] void ThrowSizeError(std::size_t given, std::size_t dimensions) {
  throw OMSException("OmPivotTable::Cell() -- nind != _my->_dimensions.size()",
                     static_cast<double>(given), static_cast<double>(dimensions));
}

[[noreturn]] void ThrowSubscriptError(int subscript) {
  throw OMSException("OmPivotTable::Cell() -- subscript < 0", subscript, 0);
}

}  // namespace

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

OmCellText* OmPivotTable::Cell(std::vector<int> const& index) const {
  Data const& table = *_my;
  // What is found has no negative subscript.
  OmCellText* const cell =
      index.size() == table._dimensions.size() ? table.FindCell(index) : nullptr;
  if (cell == nullptr) {
    table.CheckIndex(index);
  }
  return cell;
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
  _my->StoreCell(index, cell);
  return true;
}

bool OmPivotTable::Cell(std::vector<int> const& index, OmCellText const& cell) {
  return Cell(index, &cell);
}

void OmPivotTable::deleteCell(std::vector<int> const& index) {
  if (index.size() == _my->_dimensions.size()) {
    _my->DeleteCell(index);
  }
}

int OmPivotTable::getNumCells() const {
  return _my->numCells;
}
