#include <algorithm>
#include <cstddef>

#include <lakresvos/OMSException.h>
#include <lakresvos/OmPivotTable.h>

#include "dimension/OmLabelOrder.h"
#include "table/OmPivotTableData.h"

namespace {

void DropUnset(PuppetVector<short>& axis) {
  axis.elements.erase(std::remove(axis.begin(), axis.end(), static_cast<short>(-1)), axis.end());
}

void CheckDimension(int which, std::size_t count, char const* operation) {
  if (which < 0) {
    throw OMSException(std::string(operation) + " -- which < 0", which, 0);
  }
  if (static_cast<std::size_t>(which) >= count) {
    throw OMSException(std::string(operation) + " -- which < NDimensions()", which,
                       static_cast<double>(count));
  }
}

}  // namespace

// The private record

OmPivotTable::Data::Data(OmCellText const& name, bool splits)
    : OmMemoryRegion(false),
      templateName(name.Clone(this)),
      footnotes(this),
      hasSplits(splits),
      _dimensions(this),
      rows(-1),
      columns(-1),
      layers(-1) {
  std::string const text = name.GetText();
  warnings = text == "Warnings";
  notes = text == "Notes";
}

OmPivotTable::Data::~Data() {
  WorkingRelease(false);
  templateName.reset();
  cornerText.reset();
  caption.reset();
  title.reset();
  DeleteCells();
  for (OmDimension* dimension : _dimensions.Elements()) {
    dimension->~OmDimension();
  }
  for (auto const& [area, format] : areaFormats) {
    delete format;
  }
  if (u8Tracker != icuTracker) {
    delete u8Tracker;
  }
  delete icuTracker;
  for (OmFootnote& footnote : footnotes.Elements()) {
    footnote.~OmFootnote();
  }
}

std::vector<int> OmPivotTable::Data::SizeVector() const {
  std::vector<int> sizes;
  sizes.reserve(_dimensions.size());
  for (OmDimension const* dimension : _dimensions.Elements()) {
    sizes.push_back(static_cast<int>(dimension->CategoryCount()));
  }
  return sizes;
}

void OmPivotTable::Data::ReindexAxis() {
  auto const ndim = static_cast<std::ptrdiff_t>(_dimensions.size());
  std::ptrdiff_t placed = 0;
  std::ptrdiff_t unset = 0;
  for (PuppetVector<short> const* axis : {&rows, &columns, &layers}) {
    placed += static_cast<std::ptrdiff_t>(axis->size());
    unset += std::count(axis->begin(), axis->end(), static_cast<short>(-1));
  }
  if (placed == ndim) {
    return;
  }
  if (placed - unset != ndim) {
    throw OMSException("OmPivotTable::Data::ReindexAxis() -- ndim != nCount",
                       static_cast<double>(ndim), static_cast<double>(placed - unset));
  }
  DropUnset(layers);
  DropUnset(columns);
  DropUnset(rows);
}

OmDimension& OmPivotTable::Data::Adopt(Owned<OmDimension> dimension) {
  if (dimension->value.label != nullptr) {
    Bind(*dimension->value.label);
  }
  dimension->value.subscript = _dimensions.size();
  ReserveLevels(_dimensions.size() + 1);
  if (_dimensions.size() == _dimensions.capacity()) {
    _dimensions.reserve(OmVector<OmDimension*>::GrownCapacity(_dimensions.size()));
  }
  AddCellDimension();
  _dimensions.push_back(dimension.release());
  return **(_dimensions.end - 1);
}

// Construction and destruction

OmPivotTable::OmPivotTable(OmCellText const& label, OmCellText const& templateName, bool hasSplits)
    : OmOutputPart(label), _my(new Data(templateName, hasSplits)) {}

OmPivotTable::~OmPivotTable() {
  delete _my;
}

void OmPivotTable::Accept(Visitor& visitor) {
  visitor.Visit(*this);
}

// Dimensions

OmDimension& OmPivotTable::AddDimension(OmCellText const& label) {
  OmDimensionNode const root(label, static_cast<unsigned long>(-1), true, nullptr);
  return _my->Adopt(_my->Make<OmDimension>(root, _my));
}

OmDimension& OmPivotTable::AddDimension(OmDimension const& dimension) {
  return _my->Adopt(_my->Make<OmDimension>(dimension, _my));
}

void OmPivotTable::CopyDimensions(OmPivotTable const& other) {
  auto const checkEmpty = [this] {
    if (_my->_dimensions.size() != 0) {
      throw OMSException("OmPivotTable::CopyDimensions() -- _my->_dimensions.size() != 0",
                         static_cast<double>(_my->_dimensions.size()), 0);
    }
  };
  checkEmpty();
  std::vector<Data::Owned<OmDimension>> copies;
  for (OmDimension const* dimension : other._my->_dimensions.Elements()) {
    copies.push_back(_my->Make<OmDimension>(*dimension, _my));
  }
  // Nobody knows what a label from elsewhere does to the table when it is copied.
  checkEmpty();
  // A table without dimensions has no cells that would need new levels.
  _my->ReserveLevels(copies.size());
  if (!copies.empty()) {
    _my->_dimensions.reserve(OmVector<OmDimension*>::GrownCapacity(copies.size() - 1));
  }
  for (Data::Owned<OmDimension>& copy : copies) {
    _my->_dimensions.push_back(copy.release());
  }
}

int OmPivotTable::NDimensions() const {
  return static_cast<int>(_my->_dimensions.size());
}

OmDimension& OmPivotTable::Dimension(int which) {
  CheckDimension(which, _my->_dimensions.size(), "OmPivotTable::Dimension()");
  return *_my->_dimensions[static_cast<std::size_t>(which)];
}

OmDimension const& OmPivotTable::Dimension(int which) const {
  return const_cast<OmPivotTable*>(this)->Dimension(which);
}

int OmPivotTable::FindDimension(OmCellText const& label) const {
  int number = 0;
  for (OmDimension const* dimension : _my->_dimensions.Elements()) {
    if (LabelEqual(dimension->value.label, &label)) {
      return number;
    }
    ++number;
  }
  return -1;
}

int OmPivotTable::Size(int which) const {
  CheckDimension(which, _my->_dimensions.size(), "OmPivotTable::Size()");
  return static_cast<int>(_my->_dimensions[static_cast<std::size_t>(which)]->CategoryCount());
}

std::vector<int> OmPivotTable::SizeVector() const {
  return _my->SizeVector();
}

// Axes

PuppetVector<short>& OmPivotTable::Rows() {
  return _my->rows;
}
PuppetVector<short> const& OmPivotTable::Rows() const {
  return _my->rows;
}

PuppetVector<short>& OmPivotTable::Columns() {
  return _my->columns;
}
PuppetVector<short> const& OmPivotTable::Columns() const {
  return _my->columns;
}

PuppetVector<short>& OmPivotTable::Layers() {
  return _my->layers;
}
PuppetVector<short> const& OmPivotTable::Layers() const {
  return _my->layers;
}

bool OmPivotTable::HasSplits() const {
  return _my->hasSplits;
}

void OmPivotTable::EndTable() {
  _my->ReindexAxis();
}
